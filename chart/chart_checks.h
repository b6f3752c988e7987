#pragma once
// The checks of a change to a chart. Each returns what is to be said, empty when nothing stands in the way;
// none shows a box, so that they can run again inside the transaction of the change.

#include "chart/codes.h"

/// What stands in the way of a new row.
QString NewRowComplaint(cConnection& book, Chart chart, const CodeName& row);

struct CodeCheck {
    QString complaint;
    int uses = 0;  ///< posted rows that a change of the code would follow
};
/// A changed code. For accounts the statement that counts the uses names a column that its table does not
/// have: it fails, and with it the change, before anything is written. An account's code is never changed.
CodeCheck CheckCodeChange(cConnection& book, Chart chart, const QString& newCode, const QString& oldCode);

/// A changed name.
QString NameComplaint(cConnection& book, Chart chart, const CodeName& row);

/// What stands in the way of a deletion.
QString DeleteComplaint(cConnection& book, Chart chart, const QString& code);
