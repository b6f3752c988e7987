#pragma once
// Posting: the rows of an entry, their ties, and the balances of the two charts.

#include "ledger/entry.h"
#include "store/entry_rows.h"

#include <optional>

struct PostedIds {
    qint64 main = -1;
    qint64 second = -1;   ///< second kind row, -1 none
    qint64 record1 = -1;  ///< account records, -1 none
    qint64 record2 = -1;
};

/// Writes a checked entry in one transaction: rows, ties, pictures, and the balances last. Throws DbError and
/// leaves the book as it was.
PostedIds PostEntry(cConnection& book, const EntryValues& entry);

/// The rows that typed values make, without ids and ties: slot kKind1 or kKind2, kAccount1 or kAccount2.
AccountRow KindRow(const EntryValues& entry, size_t slot);
SubAccItemRow RecordRow(const EntryValues& entry, size_t slot, qint64 main);

/// The ties that a stored tAccount row holds, as of a main row; nullopt when the row is gone.
std::optional<PostedIds> TiesOf(cConnection& book, qint64 id);

/// UpdateBalance for all rows of an entry.
void MoveBalances(cConnection& book, const PostedIds& ids, const QString& op);

/// Applies ("+") or takes back ("-") one row's effect on its chart row. rowId is a tAccount id for tKind and
/// a tSubAccItem id for tSubAcc; -1, an empty table and a vanished row do nothing. Reads the stored row, so a
/// reversal has to run before the row is rewritten or deleted.
void UpdateBalance(cConnection& book, qint64 rowId, const QString& table, const QString& op);
