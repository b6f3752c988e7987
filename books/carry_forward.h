#pragma once
// Balances of an older book for a new one: what the reference book offers, and the fill of the new file.

#include "books/book_form.h"
#include "store/state.h"

#include <vector>

/// The rows of a chart with their balances as plain number texts, in the order in which the book holds them.
struct CarryRow {
    QString name;
    QString money;
};
struct CarryLists {
    std::vector<CarryRow> kinds, accounts;
};
CarryLists ReadCarryLists(const BookRecord& reference);

/// The record of a book of the box by its name in any case; null when there is none.
const BookRecord* BookOfBox(const QString& name);

/// Puts the form into the file of a new book: password, year, note and date first, then, when more options
/// are on, the charts of the reference with the marked balances, in one transaction each. Every kind and
/// account comes along; a mark decides about its balance alone. The reserved row 00 comes as well, so that
/// the new book holds it twice. A balance below 0 stands in nReduce as it is. A reference that is gone is
/// left out; one that is the open book is closed meanwhile. Throws DbError.
void FillNewBook(const BookRecord& book, const BookForm& form);
