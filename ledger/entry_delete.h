#pragma once
// Removing entries: the effect is taken back and every row tied to the entry goes.

#include "store/connection.h"
#include "store/errors.h"
#include "store/job.h"

#include <QString>

#include <functional>
#include <set>
#include <vector>

/// What the lines of a list stand for, and their ids are: rows of tAccount, or account records.
enum class LineKind { entries, records };

/// Removes the entry of a line in one transaction; a record whose entry is gone is removed alone, with its
/// balance. False when the line's row is gone.
bool DeleteLine(cConnection& book, LineKind lines, qint64 id);

/// DeleteLine of an entry, given either of its tAccount ids.
bool DeleteEntry(cConnection& book, qint64 id);

/// What a bulk deletion has done.
struct DeleteTally {
    int count = 0;    ///< kind rows that went, and records without an entry
    int skipped = 0;  ///< lines whose record was gone before
};

/// Removes the entries of these lines, in slices of at most 50 with a yield between. Stops between two slices
/// when the job is asked to. A failing slice is rolled back and throws; earlier slices stay, and tally holds
/// what was done.
void DeleteLines(cConnection& book, LineKind lines, const std::vector<qint64>& ids, Job& job,
                 DeleteTally& tally);

/// Those of the ids whose row still stands.
std::set<qint64> StillThere(cConnection& book, LineKind lines, const std::vector<qint64>& ids);

/// What a list says before it deletes its current line.
struct DeleteWords {
    QString none;  ///< no line is chosen
    QString ask;
};
DeleteWords WordsOf(LineKind lines);

/// One line's entry as a user deletes it: refused while a job runs, asked, told when it does not succeed.
bool DeleteAsked(cConnection& book, LineKind lines, qint64 id);

/// The checked lines as a user deletes them: asked, as a job with its bar, and the count told. afterwards
/// runs before the count is told, also after a failure, which has its own box. The count; -1 when nothing
/// began. failure, if given, takes a failure that was told.
int DeleteCheckedAsked(cConnection& book, LineKind lines, const std::vector<qint64>& ids, const JobBar& bar,
                       const std::function<void()>& afterwards, PendingError* failure = nullptr);
