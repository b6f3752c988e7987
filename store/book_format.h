#pragma once
// The book file: ids, password and the keys of tSet.

#include "store/connection.h"

#include <QString>

#include <optional>

/// Length of ".jotdb", the extension that every book name loses.
constexpr int kBookExtension = 6;

/// Next free id of one of taccount, tkind, tsubacc, tsubaccitem, tnotebook, tpic; -1 for any other name (the
/// name is case-sensitive) and for a missing row. Throws DbError when the last id has been given out.
qint64 NextId(cConnection& book, const QString& table);
/// The same inside a write: an id below 0 is a failure of the statement.
qint64 NewId(cConnection& book, const QString& table);

/// Value of a key of tSet; nullopt when the key is missing.
std::optional<QString> BookKey(cConnection& book, const QString& key);

/// Writes the value of a key that stands.
void SetBookKey(cConnection& book, const QString& key, const QString& value);

enum class PassCheck { right, wrong, missing };
/// Compares text with the book's password by plain equality.
PassCheck CheckPass(cConnection& book, const QString& text);
