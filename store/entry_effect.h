#pragma once
// What an entry does to a book: its rows with their ties, the balances of both charts, and the way back.
// Nothing here opens a transaction: the action around it does.

#include "store/chart.h"
#include "store/entry_rows.h"

#include <optional>

struct PostedIds {
    qint64 main = -1;
    qint64 second = -1;   ///< second kind row, -1 none
    qint64 record1 = -1;  ///< account records, -1 none
    qint64 record2 = -1;
};

/// The rows of one entry before they have ids and ties.
struct EntryRows {
    AccountRow main;
    std::optional<AccountRow> second;
    std::optional<SubAccItemRow> record1, record2;
};

enum class Effect { apply, takeBack };

/// Writes the rows under new ids and ties them; pictures and balances stay as they are.
PostedIds AddRows(cConnection& book, const EntryRows& rows);

/// Writes the rows under new ids, ties them, gives them the pictures that were kept for a new entry (when the
/// main row counts some), and moves the balances last.
PostedIds PostRows(cConnection& book, const EntryRows& rows);

/// Rows added to an entry that stands. Their ties to the other rows are the caller's.
qint64 AddKindRow(cConnection& book, AccountRow row);
qint64 AddRecordRow(cConnection& book, SubAccItemRow row, qint64 main);

/// Sets one tie of a tAccount row: IID, IIID or IIID1. A row that has gone is left alone.
void SetTie(cConnection& book, const QString& column, qint64 value, qint64 row);

/// Deletes the row of tAccount or tSubAccItem with this id, without its effect. -1 and a row that has gone do
/// nothing.
void DeleteRow(cConnection& book, const QString& table, qint64 id);

/// The ties that a stored tAccount row holds, as of a main row; nullopt when the row is gone.
std::optional<PostedIds> TiesOf(cConnection& book, qint64 id);

/// The main row that a record names; -1 when the record is gone.
qint64 EntryOfRecord(cConnection& book, qint64 record);

/// Takes the effect of an entry back and deletes its rows and pictures, given either of its tAccount ids. A
/// second row that was added later knows nothing of the records, which then stay. False when the row is gone.
bool RemoveEntry(cConnection& book, qint64 id);
/// The same for a record alone, whose entry is gone. False when the record is gone.
bool RemoveRecord(cConnection& book, qint64 record);

/// UpdateBalance for all rows of an entry.
void MoveBalances(cConnection& book, const PostedIds& ids, Effect effect);

/// Moves the totals of the chart row of a code by an amount: nAdd for a sign of 1, otherwise nReduce.
void MoveChartRow(cConnection& book, Chart chart, const QString& code, double value, qint64 sign,
                  Effect effect);

/// Applies or takes back one row's effect on its chart row. rowId is a tAccount id for kinds and a
/// tSubAccItem id for accounts; -1 and a vanished row do nothing. Reads the stored row, so a reversal has to
/// run before the row is rewritten or deleted.
void UpdateBalance(cConnection& book, qint64 rowId, Chart chart, Effect effect);
