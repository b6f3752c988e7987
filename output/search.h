#pragma once
// The search over entries and notes; its result is a set of web pages outside the program.

#include "store/job.h"

#include <QString>
#include <QStringList>

/// Finds what contains the text, trimmed, in title or note; an empty text finds everything. Entries count
/// once. Writes the pages, opens the first, and says so when nothing was found. The files written.
struct SearchResult {
    int count = 0;
    QStringList files;
};
SearchResult RunSearch(const QString& typed, const JobBar& bar);

/// text as page text with the first place of key marked, case aside, spelled as key is.
QString Highlight(const QString& text, const QString& key);
