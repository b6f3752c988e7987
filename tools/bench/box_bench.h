#pragma once
// Books as files: making one, carrying balances into it, compressing, copying, reading a whole box.

#include "tools/bench/speed_table.h"

void MeasureBox(SpeedTable& table, const QString& folder, int runs);
