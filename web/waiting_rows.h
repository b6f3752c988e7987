#pragma once
// The entries that were fetched from the web ledger's site and wait in the book, and their history.

#include "store/connection.h"
#include "store/job.h"
#include "store/row_texts.h"

#include <QString>

#include <functional>
#include <vector>

enum class WebList { waiting, history };

struct StoredDelivery {
    bool any = false;    ///< it had lines
    bool asked = false;  ///< a box stood, so that meanwhile more may have come to the site
    QString told;        ///< what the user is to be told of it
};

/// Takes the entries of a delivery into the book in one transaction. Lines that wait or were
/// there before are asked about; a delivery with lines that are no entries is first kept as a file of its
/// user. Throws when something cannot be written; nothing is stored then. Only after a delivery with lines
/// may the site be told to forget what waits there, and at once: no box stands between the two, since
/// whatever reaches the site meanwhile would be forgotten unseen.
StoredDelivery StoreWebLines(cConnection& book, const QString& text);

struct WebRow {
    qint64 id = -1;
    RowTexts cells;
    bool posted = false;  ///< of the history
};
/// The lines of a list in the order in which they came; the history has one cell more.
void ReadWebRows(cConnection& book, WebList list, Job& job, const std::function<void(WebRow&&)>& take);
int WebRowCount(cConnection& book, WebList list);

/// Moves waiting rows to the history, without a transaction of its own.
void MoveToHistory(cConnection& book, const std::vector<qint64>& ids);

/// Deletes rows after a question: waiting ones leave a copy in the history, those of the history go for good.
/// Shows what there is to say; false when nothing was deleted.
bool DeleteWebRowsAsked(cConnection& book, WebList list, const std::vector<qint64>& ids);
