#pragma once
// The session: the open book, its folders and files.

#include <QString>

/// Opens gDB anew on the current book; the old connection goes only when the new one stands. Throws DbError.
void ReopenDB();

/// Where the program keeps its data for this user, from the environment.
QString UsualDataFolder();

/// Lays out folders and defaults before anything is read: gDataDir (made here) and gDefaultBox, dialog
/// records, highlight and group defaults.
void InitFolders();

/// Tests the files beside the program and makes the default book box with the sample book. Shows its box and
/// returns false when something is missing.
bool CheckFiles();

/// Drops both connections, the dialog records and the list of books.
void ForgetSession();
