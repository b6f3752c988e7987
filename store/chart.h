#pragma once
// The two charts of a book, and where each keeps its rows, its words and the codes of posted rows.

#include <QString>
#include <QStringView>

#include <optional>

enum class Chart { kinds, accounts };

struct ChartTable {
    QString table;    ///< the chart itself
    QString counter;  ///< its key in tNum
    QString rows;     ///< the table of the rows that are posted under its codes
    QString code;     ///< column of the code in those rows
    QString name;     ///< column of the name in those rows
    QString note;     ///< column of the chart row's note
    QString made;     ///< column of the day on which the chart row was made
    QString word;     ///< what users call one row of the chart
};

const ChartTable& TableOf(Chart chart);

/// The chart of a table name in any case: tKind or tSubAcc.
std::optional<Chart> ChartOf(QStringView table);
