#pragma once
// The web ledger beside the least that can do the same.

#include "tools/bench/speed_table.h"

#include <QString>

/// A delivery of 1,000 entries, its posting into the book, and both lists of 10,000 rows until they are
/// painted.
void MeasureWeb(SpeedTable& table, const QString& path, int entries, int runs);
