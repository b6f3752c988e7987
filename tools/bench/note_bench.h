#pragma once
// Ten thousand notes: both lists, a deletion of many, and the count of what is due.

#include "tools/bench/speed_table.h"

#include <QString>

void MeasureNotes(SpeedTable& table, const QString& folder, int runs);
