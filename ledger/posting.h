#pragma once
// Posting: what an entry's typed values make of a book.

#include "ledger/entry.h"
#include "store/entry_effect.h"

#include <array>

/// Writes a checked entry in one transaction: rows, ties, pictures, and the balances last; then tells that
/// the entries have changed. Throws DbError and leaves the book as it was.
PostedIds PostEntry(cConnection& book, const EntryValues& entry);

/// Codes by slot, empty where an entry has none.
using SlotCodes = std::array<QString, 4>;
/// Fails, as a statement does, when a kind or an account of the entry has gone or has got a level below since
/// it was chosen. What stands in before is left alone. To be called inside the transaction.
void InsistOnCodes(cConnection& book, const EntryValues& entry, const SlotCodes& before);

/// The rows that typed values make, without ids and ties: slot kKind1 or kKind2, kAccount1 or kAccount2.
AccountRow KindRow(const EntryValues& entry, size_t slot);
SubAccItemRow RecordRow(const EntryValues& entry, size_t slot);
