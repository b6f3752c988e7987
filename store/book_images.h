#pragma once
// The two stored book files, carried inside the program.

#include <QByteArray>
#include <QString>

/// Bytes of the sample book and of the empty template.
QByteArray SampleBookImage();
QByteArray EmptyBookImage();

/// Writes the sample book to path unless a file is there, for its user alone. True when it was written.
bool WriteSampleBook(const QString& path);

/// Deletes a book file for good, its journal along with it.
void RemoveBookFile(const QString& path);
