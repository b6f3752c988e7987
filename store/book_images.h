#pragma once
// The two stored book files, carried inside the program.

#include <QByteArray>
#include <QString>
#include <QStringList>

/// Bytes of the sample book and of the empty template.
QByteArray SampleBookImage();
QByteArray EmptyBookImage();

/// Writes a new book file at this real path, flushed; what a book that is gone left beside it goes first.
/// own: for its user alone, otherwise as the user's mask has it. False when that fails; nothing is left then.
bool WriteBookFile(const QString& path, const QByteArray& image, bool own);
/// Writes the sample book to path unless a file is there, for its user alone. True when it was written.
bool WriteSampleBook(const QString& path);

/// What SQLite may leave beside a book file.
QStringList FilesBeside(const QString& path);
/// Deletes a book file for good, with what SQLite left beside it.
void RemoveBookFile(const QString& path);
