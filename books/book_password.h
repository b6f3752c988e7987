#pragma once
// Asking for the password of a book that is not the open one.

#include "store/state.h"

/// Shows the input box and compares what was typed with the book's password; an empty one matches a book
/// without. False when it was cancelled or differs. Throws DbError when the book cannot be read.
bool AskBookPassword(const BookRecord& book, const QString& prompt = QStringLiteral("请输入账本口令："));
