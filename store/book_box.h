#pragma once
// The books that the program knows: those of the book box and the one of the command line.

#include <QString>

/// The box to use for the stored setting: the path itself when it exists, otherwise gDefaultBox.
QString FixBookPath(const QString& path);

/// The books of a folder, then the one of the command line (gCommandLine), into gBooks and gCmdBook.
void ScanBookBox(const QString& folder);
/// The books of a folder alone.
void ScanFolder(const QString& folder);
/// Years and versions of all books; a file that is no book keeps year 0 and an empty version.
void ReadBookInfo();
/// Reads a book's year and version again when they are not known, as after a lock at the start.
void EnsureBookInfo(int index);
/// Chooses gCurBook: the command line's book, or the last one used, or 0.
void ChooseBook();

/// Index of the book with this lower-case path, or -1.
int FindBook(const QString& path);
/// A record at the new last index for a book outside the box, with its year and version. The index.
int AddOutsideBook(const QString& path);
