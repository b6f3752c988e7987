#pragma once
// What an existing book says of itself, changing that, and compressing its file.

#include "books/book_form.h"
#include "store/job.h"
#include "store/state.h"

struct BookFacts {
    QString name;
    QString year, note, pass;
    QString version, created;
};

/// The record of gBooks whose file this is; without one, a record of the path itself.
BookRecord BookAt(const QString& path);

/// Throws DbError when the file cannot be read. waitMs: for another program's lock.
BookFacts ReadBookFacts(const BookRecord& book, int waitMs = 2000);

/// Checks the form, asks for the old password, then writes year, note and password in one transaction; the
/// record in gBooks follows. Tells what refused it, and that it is done. Throws DbError. Emits booksChanged.
BookSaved SaveBookChange(const QString& path, const BookForm& form);

/// Bytes of the book's file; 0 when it is not there.
qint64 BookFileSize(const BookRecord& book);

enum class Compression { done, stopped, failed };
/// Rewrites the file without free pages. Stopped by the user or failed, which has its box then, it leaves the
/// file as it was.
Compression CompressBook(const BookRecord& book, Job& job);
/// Whole kilobytes of a length.
qint64 Kilobytes(qint64 bytes);
/// "压缩前: 120 KB", and after, on two lines.
QString CompressedText(qint64 before, qint64 after);
