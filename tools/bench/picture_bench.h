#pragma once
// What a user waits for with pictures.

#include "tools/bench/speed_table.h"

#include <QString>

/// Twenty pictures of the largest size read and saved, a large picture repainted, moved and zoomed, a folder
/// of many files listed. folder is a place for its files.
void MeasurePictures(SpeedTable& table, const QString& folder, int runs);
