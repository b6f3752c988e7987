#pragma once
// The entries that carry an opening balance of a kind or an account. They stand before every real entry
// (1900-01-01 08:30) and move no stored totals: the chart row is written with the balance in it.

#include "store/chart.h"
#include "store/connection.h"

#include <QString>

/// Adds the tAccount row of a kind's opening balance; its id.
qint64 AddKindOpeningEntry(cConnection& book, double amount, const QString& code, const QString& name);

struct AccountOpening {
    qint64 entry = -1;   ///< the tAccount row, on the reserved kind
    qint64 record = -1;  ///< the tSubAccItem row
};
/// Adds both rows of an account's opening balance; no record for an amount of 0.
AccountOpening AddAccountOpeningEntry(cConnection& book, double amount, const QString& code,
                                      const QString& name);

/// Adds the opening entry of a chart row; the id that the row keeps as its link.
qint64 AddOpeningEntry(cConnection& book, Chart chart, double amount, const QString& code,
                       const QString& name);

/// Removes the entry behind a chart row's link, with all that it was given later: second row, records,
/// pictures, and the balances of these. The opening's own rows move no balance; the chart row is the
/// caller's. True when other balances have moved with it.
bool RemoveOpeningEntry(cConnection& book, Chart chart, qint64 link);
