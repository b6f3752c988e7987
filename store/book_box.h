#pragma once
// The books that the program knows: those of the book box and the one of the command line.

#include "store/paths.h"
#include "store/state.h"

#include <QString>

/// The box to use for the stored setting: the path itself when it exists, otherwise gDefaultBox.
QString FixBookPath(const QString& path);

/// The books of a folder, then the one of the command line (gCommandLine), into gBooks and gCmdBook.
void ScanBookBox(const QString& folder);
/// The books of a folder alone.
void ScanFolder(const QString& folder);
/// Years and versions of all books; a file that is no book keeps year 0 and an empty version.
void ReadBookInfo();
/// Reads year and version of a record anew, waiting for another program's lock. Throws DbError; the record
/// is left alone then.
void ReadBookInfo(BookRecord& book);
/// Chooses gCurBook: the command line's book, or the last one used, or 0.
void ChooseBook();

/// Index of the book that path leads to, by whatever links; of a file that is gone by its lower-case path. -1
/// when it is not known.
int FindBook(const QString& path);
/// A record at the new last index for a book outside the box, given in its real spelling, with its year and
/// version if they can be read. The index.
int AddOutsideBook(const QString& path);
/// The spelling under which the book's file is opened, and its rivals; exists is false when it is gone.
FoundPath FileOf(const BookRecord& book);
/// Opens the book's file under that spelling; with rivals it is refused. Throws DbError.
void OpenFileOf(const BookRecord& book, cConnection& connection, cConnection::Options options);
/// What refuses a file with rivals.
QString RivalsText(const QStringList& rivals);
/// The same of a folder that was to be the book box.
QString RivalBoxText(const QStringList& rivals);
