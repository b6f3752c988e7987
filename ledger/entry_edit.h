#pragma once
// Changing a stored entry: its whole effect is taken back, its rows are rewritten to fit what was typed, and
// the effect is put on again. The main row's id never changes.

#include <optional>

#include "ledger/entry.h"
#include "ledger/entry_save.h"

struct LoadedEntry {
    qint64 main = -1;
    qint64 opened = -1;  ///< the row that the caller named, main or second
    EntryValues values;
};

/// The main row of an entry, given either of its rows; the id itself when the row is gone.
qint64 ResolveMainRow(cConnection& book, qint64 id);

/// The stored entry as the window shows it. nullopt after "意外错误：未找到记录!".
std::optional<LoadedEntry> LoadEntry(cConnection& book, qint64 id);

struct EditOutcome {
    bool done = false;
    EntryField focus = EntryField::none;
    qint64 id = -1;  ///< the opened row, -1 when the change removed it
};

/// Checks, confirms and rewrites, in one transaction. Throws DbError when the writing fails; nothing of it
/// stays.
EditOutcome SaveEditedEntry(cConnection& book, EntryValues& entry, qint64 main, qint64 opened);
