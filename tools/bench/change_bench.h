#pragma once
// Editing and deleting on one open book, each beside lean statements that know every row and every figure.

#include "tools/bench/speed_table.h"

#include <QString>

/// One edit and one deletion at a time, of entries with two kinds and two accounts.
void MeasureChanges(SpeedTable& table, const QString& path, int entries, int runs);
/// A thousand checked lines of the entry page, in slices, with the progress bar and the painted list.
void MeasureBulkDeletion(SpeedTable& table, const QString& path, int entries, int runs);
