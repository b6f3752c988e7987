#pragma once
// The columns and fields that the book's table tPrint lays out, and how a value becomes what is printed.

#include "output/print_document.h"
#include "output/print_info.h"
#include "store/connection.h"

#include <QString>
#include <QStringList>

#include <vector>

/// Values of a column that are printed as other texts: "-1/1,－/" prints "－" for -1 and nothing for 1.
class Replacement {
 public:
    /// told has exactly one comma and as many values as texts; any other replaces nothing.
    explicit Replacement(const QString& told = {});
    /// False, and value left alone, when it is none of the values. Case does not count.
    bool Apply(QString& value) const;

 private:
    QStringList values_;
    QStringList texts_;
};

QString ReplaceValue(const QString& value, const QString& replacement);

struct PrintColumn {
    QString key;
    QString caption;
    double width = 0;  ///< millimetres
    PrintAlign align = PrintAlign::left;
    Replacement replacement;
    bool money = false;
};

/// The columns of a list, or the fields of a record, in their order.
std::vector<PrintColumn> ReadPrintColumns(cConnection& book, const PrintInfo& info);

/// Width of a printed list with its number column.
constexpr double kNumberWidth = 8;
double WidthOf(const std::vector<PrintColumn>& columns);

/// What a cell of the current row prints. An empty amount prints as 0.
QString PrintedValue(const cReader& row, int at, const PrintColumn& column);
