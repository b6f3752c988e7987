#pragma once
// The composition root: the only file that knows every window.

/// Registers pages, dialogs, commands and the boxes behind the slots of the lower floors.
void RegisterWindows();

/// Shows the login window; from there the program goes on by itself.
void ShowLogin();
/// Tells the agent the number on the logo; nothing before the main window stands.
void TellDueCount();
/// Ends the program from outside: nothing is asked, a job is stopped, what is open counts as cancelled.
void EndQuietly();
/// Closes whatever window stands; for the end of the process.
void DropWindows();
