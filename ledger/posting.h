#pragma once
// Posting: what an entry's typed values make of a book.

#include "ledger/entry.h"
#include "store/entry_effect.h"

/// Writes a checked entry in one transaction: rows, ties, pictures, and the balances last; then tells that
/// the entries have changed. Throws DbError and leaves the book as it was.
PostedIds PostEntry(cConnection& book, const EntryValues& entry);

/// The rows that typed values make, without ids and ties: slot kKind1 or kKind2, kAccount1 or kAccount2.
AccountRow KindRow(const EntryValues& entry, size_t slot);
SubAccItemRow RecordRow(const EntryValues& entry, size_t slot);
