#pragma once
// Taking a book out of the box.

/// The whole of it, for the book at an index of gBooks, -1 for none: question, refusals, password, then the
/// file with what SQLite left beside it goes to the trash and the record away; gCurBook keeps naming the open
/// book. A file that is gone already only loses its record. False when the book stays; what kept it has been
/// told. Throws DbError when the password cannot be read. Emits booksChanged.
bool DeleteSelectedBook(int index);
