#pragma once
// frmMsgBox, the window behind ShowMsg.

/// Puts the message box into MessageSlot(). Every box is its own modal window; its buttons are named
/// btnEnter, btnCancel, btnEnter1 and btnOther. A caller's picture opens at a click.
void InstallMessageBox();
