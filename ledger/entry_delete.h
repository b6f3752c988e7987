#pragma once
// Removing entries: the effect is taken back and every row tied to the entry goes.

#include <vector>

#include "store/connection.h"
#include "store/job.h"

/// Removes one entry in one transaction, given either of its tAccount ids. False when the row is gone.
bool DeleteEntry(cConnection& book, qint64 id);

struct BulkDeletion {
    int count = 0;                ///< rows met, as told to the user
    std::vector<qint64> stopped;  ///< ids of those asked for whose entry still stands
};

/// Removes the entries of these tAccount ids, in slices of at most 50 with a yield between. Stops between two
/// slices when the job is asked to. A failing slice is rolled back and throws; earlier slices stay.
BulkDeletion DeleteEntries(cConnection& book, const std::vector<qint64>& ids, Job& job);

/// Those of the ids whose tAccount row still stands.
std::vector<qint64> StillThere(cConnection& book, const std::vector<qint64>& ids);
