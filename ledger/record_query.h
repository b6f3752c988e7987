#pragma once
// What the account record list reads. Sums, counts and pages are those of entry_query on this query.

#include "ledger/entry_query.h"

/// kind of the filter is an account's code or "all"; marked is not looked at.
EntryQuery BuildRecordQuery(const EntryFilter& filter);

/// Cells of the columns NO, date, account, add, reduce, rmb, thing; key Id1, sub-key AccId.
bool ReadRecordLines(cConnection& book, const EntryQuery& query, int page, Job& job,
                     const std::function<void(EntryLine&&)>& take);
/// One record as a line is rewritten after an edit.
std::optional<EntryLine> ReadOneRecord(cConnection& book, qint64 id, int number);

/// Labels of the page: the difference is told for all accounts too.
SumTexts RecordSumTexts(const EntrySums& sums);

/// True when the record is still there; its message otherwise.
bool CheckRecord(cConnection& book, qint64 id);
