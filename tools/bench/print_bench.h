#pragma once
// What a user waits for on the way to paper.

#include "tools/bench/speed_table.h"

#include <QString>

/// The layout of ten thousand rows beside the raw read of the same rows, and a page of the preview until it
/// is painted.
void MeasurePrint(SpeedTable& table, const QString& path, int entries, int runs);
