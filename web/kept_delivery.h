#pragma once
// A delivery of the site with lines that are no entries, kept as a file: the site forgets those too.

#include <QString>

/// Writes the text into a new file of the user alone below gDataDir and returns its path. Throws when it
/// cannot.
QString KeepDelivery(const QString& text);
