#pragma once
// What a user of the entry page waits for: from a click or a key to its painted answer.

#include "tools/bench/speed_table.h"

#include <QString>

/// The book at path grows by the entries that are saved.
void MeasureClicks(SpeedTable& table, const QString& path, int entries, int runs);
