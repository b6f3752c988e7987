#pragma once
// What a change writes: the chart row and everything that carries its code, its name or its opening balance.
// Nothing here checks, asks or opens a transaction.

#include "chart/chart_list.h"
#include "chart/codes.h"

/// Adds a row with its opening entry; its id.
qint64 AddChartRow(cConnection& book, Chart chart, const CodeName& row, double opening, const QString& note,
                   bool hide);

/// A change as the checks let it through. record holds what is wanted under the new code and name.
struct ChartChange {
    ChartRecord record;
    QString oldCode, oldName;
    bool openingTouched =
        false;  ///< record.newOpening counts; otherwise the opening stays what the book holds
};

struct ChangedRow {
    ChartRecord record;  ///< the row's new figures
    qint64 id = 0;
    qint64 link = 0;      ///< IID, the opening's posted row; 0 or less for none
    bool linked = false;  ///< that row is there, still under the code
};

/// Writes the change, all but an account's standing opening. nullopt when the row is gone.
std::optional<ChangedRow> WriteChange(cConnection& book, Chart chart, const ChartChange& change);

/// The statement for an account's standing opening, which fails by design; the failure carries the hint.
void WriteStandingOpening(cConnection& book, const ChangedRow& row, const QString& hint);
/// Whether it has to run for this row.
bool HasStandingOpening(Chart chart, const ChangedRow& row);

/// Deletes a row and what is posted under its code.
void DeleteChartRow(cConnection& book, Chart chart, const QString& code);
