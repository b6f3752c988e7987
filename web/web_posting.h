#pragma once
// PostWebRows: what waits of the web ledger goes into the book as entries, and with them to the history.

#include "store/connection.h"
#include "store/job.h"

#include <QSet>

#include <optional>

/// Ids of the kinds and accounts that a posting knows, as they were when the page was loaded.
struct ChartIds {
    QSet<qint64> kinds, accounts;
};
ChartIds ReadChartIds(cConnection& book);

struct WebPosted {
    int posted = 0, notPosted = 0;
};

/// Posts all waiting rows after a question and says what became of it. Each row's posting and its move to the
/// history are one transaction. A row that names an unknown kind or account, or whose amount is none, goes to
/// the history alone. Tells that entries have changed once at the end, stopped or failed too. nullopt:
/// nothing was posted.
std::optional<WebPosted> PostWebRowsAsked(cConnection& book, const ChartIds& ids, const JobBar& bar);
