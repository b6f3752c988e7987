#pragma once
// What the list of a chart shows, and the record of one row that travels between the routines of a change.

#include "store/chart.h"
#include "store/connection.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

struct ChartRecord {
    QString code;
    QString name;
    double oldOpening = 0;
    double added = 0, reduced = 0, balance = 0;
    bool hide = false;
    QString note;
    double newOpening = 0;
    bool othersMoved = false;  ///< totals of other codes have moved with the change
};

/// One line of a chart's list: eight cells from the running number to the note.
struct ChartLine {
    QStringList cells;
    QString code;
    qint64 id = 0;
    bool firstLevel = false;
};

/// All rows in order of their codes. Only last-level rows show figures.
std::vector<ChartLine> ReadChart(cConnection& book, Chart chart);
/// Cells of a line from its record; the figures are "-" where the row is no leaf.
QStringList ChartCells(int number, const ChartRecord& record, bool leaf);

std::optional<ChartRecord> ReadChartRecord(cConnection& book, qint64 id, Chart chart);
