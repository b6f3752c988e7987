#pragma once
// The other lists of one open book: the account list and the kinds page.

#include "tools/bench/speed_table.h"

#include <QString>

/// The account list beside the raw read of the same rows and sums.
void MeasureAccountList(SpeedTable& table, const QString& path, int entries, int runs);
/// The kinds page, after every kind at the last level has got an opening balance.
void MeasureKindsPage(SpeedTable& table, const QString& path, int entries, int runs);
