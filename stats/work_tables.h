#pragma once
// tTjDate and tTjKind: the rows of the last report, from which it is printed.

#include "store/connection.h"

#include <QStringList>

/// Puts rows, each "(…)" in the order of columns, in the place of everything that a work table holds; one
/// transaction. On a book that cannot be written the table is a temporary one of the same name, which lives
/// as long as the book is open.
void ReplaceWorkTable(cConnection& book, const QString& table, const QString& columns,
                      const QStringList& rows);
