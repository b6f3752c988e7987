#pragma once
// The entries that carry an opening balance of a kind or an account. They stand before every real entry
// (1900-01-01 08:30) and move no stored totals: the chart row is written with the balance in it.

#include <QString>

#include "store/connection.h"

/// Adds the tAccount row of a kind's opening balance; its id.
qint64 AddKindOpeningEntry(cConnection& book, double amount, const QString& code, const QString& name);

struct AccountOpening {
    qint64 entry = -1;   ///< the tAccount row, on the reserved kind
    qint64 record = -1;  ///< the tSubAccItem row
};
/// Adds both rows of an account's opening balance; no record for an amount of 0.
AccountOpening AddAccountOpeningEntry(cConnection& book, double amount, const QString& code, const QString& name);
