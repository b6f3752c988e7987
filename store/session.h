#pragma once
// The session: the open book, its folders and files.

#include <QString>

/// Opens gDB anew on the current book; the old connection goes only when the new one stands. Throws DbError.
void ReopenDB();

/// Closes gDB for as long as it lives, so that the book's file is free, and opens it again however its owner
/// is left; a failure to do so has its box. Nothing when no book is open.
class ClosedBook {
 public:
    ClosedBook();
    ~ClosedBook();
    ClosedBook(const ClosedBook&) = delete;
    ClosedBook& operator=(const ClosedBook&) = delete;

 private:
    bool wasOpen_;
};

/// Where the program keeps its data for this user, from the environment.
QString UsualDataFolder();

/// The book box of a user who has chosen none, from the environment.
QString UsualBookBox();

/// Lays out folders and defaults before anything is read: gDataDir (made here) and gDefaultBox, dialog
/// records, highlight and group defaults.
void InitFolders();

/// Tests the files beside the program and makes the default book box with the sample book. Shows its box and
/// returns false when something is missing.
bool CheckFiles();

/// Drops both connections, the dialog records and the list of books.
void ForgetSession();
