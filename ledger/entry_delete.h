#pragma once
// Removing entries: the effect is taken back and every row tied to the entry goes.

#include "store/connection.h"
#include "store/errors.h"
#include "store/job.h"

#include <QString>

#include <functional>
#include <vector>

/// Removes one entry in one transaction, given either of its tAccount ids. False when the row is gone.
bool DeleteEntry(cConnection& book, qint64 id);

/// Removes the entries of these tAccount ids, in slices of at most 50 with a yield between. count grows by
/// the rows met, a row that went with its partner included. Stops between two slices when the job is asked
/// to. A failing slice is rolled back and throws; earlier slices stay.
void DeleteEntries(cConnection& book, const std::vector<qint64>& ids, Job& job, int& count);

/// Those of the ids whose tAccount row still stands.
std::vector<qint64> StillThere(cConnection& book, const std::vector<qint64>& ids);

/// What a list says before it deletes its current line.
struct DeleteWords {
    QString none;  ///< no line is chosen
    QString ask;
};
DeleteWords EntryDeleteWords();
DeleteWords RecordDeleteWords();

/// One entry as a user deletes it: refused while a job runs, asked, told when it does not succeed.
bool DeleteAsked(cConnection& book, qint64 id, const DeleteWords& words);

/// The checked entries as a user deletes them: asked, as a job with its bar, and the count told. afterwards
/// runs before the count is told, also after a failure, which has its own box. The count; -1 when nothing
/// began. failure, if given, takes a failure that was told.
int DeleteCheckedAsked(cConnection& book, const std::vector<qint64>& ids, const JobBar& bar,
                       const std::function<void()>& afterwards, PendingError* failure = nullptr);
