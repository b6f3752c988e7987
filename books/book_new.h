#pragma once
// Making a book in the box.

#include "books/book_form.h"

/// Writes the empty template byte for byte to the file of that name in the box. False when a file of the
/// name, in any case, is there. Throws DbError when it cannot be written; nothing is left of it then.
bool WriteEmptyBook(const QString& name);

/// Checks the form, writes the file, appends its record to gBooks and fills it; tells what stands in the way,
/// and that it is done. Throws DbError when the fill fails: the file and its record then stay, as an empty
/// book. Emits booksChanged once the record stands.
BookSaved CreateBook(const BookForm& form);
