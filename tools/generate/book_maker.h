#pragma once
// Makes large books for measuring: entries by the posting rules, rows in order of id, ties and balances
// right.

#include <QString>

/// Writes a book of count entries to path, in place of a file there. The same seed gives the same book. False
/// after a message on the error stream.
bool MakeBook(const QString& path, int count, unsigned seed = 1);
