#pragma once
// What a user waits for on the pages of one open book: clicks, the account list, the kinds page.

#include "tools/bench/speed_table.h"

#include <QString>

/// Clicks on the entry page of the book at path, in milliseconds to the painted answer.
void MeasureClicks(SpeedTable& table, const QString& path, int entries, int runs);
/// The account list beside the raw read of the same rows and sums.
void MeasureAccountList(SpeedTable& table, const QString& path, int entries, int runs);
/// The kinds page, after every kind at the last level has got an opening balance.
void MeasureKindsPage(SpeedTable& table, const QString& path, int entries, int runs);
