#pragma once
// Removing entries: the effect is taken back and every row tied to the entry goes.

#include <vector>

#include "store/connection.h"
#include "store/job.h"

/// Removes one entry in one transaction, given either of its tAccount ids. False when the row is gone.
bool DeleteEntry(cConnection& book, qint64 id);

/// Removes the entries of these tAccount ids, in slices of at most 50 with a yield between. count grows by the
/// rows met, a row that went with its partner included. Stops between two slices when the job is asked to. A
/// failing slice is rolled back and throws; earlier slices stay.
void DeleteEntries(cConnection& book, const std::vector<qint64>& ids, Job& job, int& count);

/// Those of the ids whose tAccount row still stands.
std::vector<qint64> StillThere(cConnection& book, const std::vector<qint64>& ids);
