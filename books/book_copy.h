#pragma once
// A copy of a book file as it stands after its last whole change.

#include "store/state.h"

#include <functional>

struct BookCopy {
    enum Result { done, gone, stopped, failed } result = failed;
    QString reason;  ///< of a failure
};

/// Copies the book to a file of that name in an existing folder, where none of the name stands. An unfinished
/// change of a killed program is rolled back first, and nobody else can write meanwhile. The copy is written
/// under another name, flushed, read through once, and only then gets its own; nothing is left of one that
/// does not come to its end. The book must not be open in this process. step is told the bytes written so
/// far and answers whether to go on. The copy has the mode of the book.
BookCopy CopyBook(const BookRecord& book, const QString& folder, const QString& name,
                  const std::function<bool(qint64 done)>& step);
