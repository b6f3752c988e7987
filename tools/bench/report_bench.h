#pragma once
// The reports, the exports and the search beside the least that can answer.

#include "tools/bench/speed_table.h"

#include <QString>

/// From the click until the list is painted.
void MeasureReports(SpeedTable& table, const QString& path, int entries, int runs);
/// The first page of the entry list as files, and two searches.
void MeasureExports(SpeedTable& table, const QString& path, int entries, int runs);
