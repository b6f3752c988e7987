#pragma once
// What has to survive a power cut.

#include <QFile>

/// Waits until the disk holds what was written to the file.
bool FlushToDisk(QFile& file);
/// The same for the names in a folder, after one was made or changed.
bool FlushFolder(const QString& folder);
