#pragma once
// What the entry list reads: lines by filter and page, sums of the filter, the detail of one line.

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

#include "store/connection.h"
#include "store/job.h"

constexpr int kLinesPerPage = 10000;

/// The filter controls of the page. Dates are the texts of the date buttons, in one line or two.
struct EntryFilter {
    QString kind = QStringLiteral("all");  ///< "all" or a code
    QString text;
    QString date1 = QStringLiteral("日期1");
    QString date2 = QStringLiteral("日期2");
    bool marked = false;
};

/// A list query in its members; nothing is ever cut out of the whole text.
struct EntryQuery {
    QString columns;
    QString from;   ///< the table and the start of the where part
    QString where;  ///< what stands behind "where 1 "
    QString order;
    bool all = true;  ///< one line an entry; false: the rows of one kind with a running balance
    QString Sql() const;
};

/// The condition that keeps the checked lines alone, for printing; no line at all when none is checked.
QString CheckedCondition(const QStringList& ids);

/// The condition of the two date limits, empty when both are unset.
QString DateCondition(const EntryFilter& filter);

EntryQuery BuildEntryQuery(const EntryFilter& filter);

/// One line: cells of the columns NO, date, kind, add, reduce, rmb, thing, mark.
struct EntryLine {
    std::vector<QString> cells;
    QString key;     ///< Id1
    QString subKey;  ///< Type1
    QString signedAmount;  ///< Value1 times nSign, of a single line alone
};

int CountLines(cConnection& book, const EntryQuery& query);
/// Hands the lines of a page (from 0) to take, in order. Ends early when the job was stopped; true when all
/// of the page was read.
bool ReadLines(cConnection& book, const EntryQuery& query, int page, Job& job,
               const std::function<void(EntryLine&&)>& take);
/// Tells the user that a list was stopped.
void TellStopped();
/// Heading of the amount column: 金   额, or 累计余额 with a kind chosen.
QString AmountHeading(const EntryQuery& query);
/// The line of one row as it is appended after saving: the line number is number, column 5 is empty.
std::optional<EntryLine> ReadOneLine(cConnection& book, qint64 id, int number);

/// Sums of the whole filter.
struct EntrySums {
    double in = 0, out = 0;
    int count = 0;
};
EntrySums ReadSums(cConnection& book, const EntryQuery& query);

/// A sum as the labels show it.
QString SumText(double x);
/// The same as texts of the labels and of the strip's items.
struct SumTexts {
    QString count, value, tag;
    QString bill, money, sumbill, summoney;
};
SumTexts ShowSumTexts(const EntrySums& sums, bool all);

/// Texts and keys of the page chooser.
struct PageItem {
    QString text;
    QString key;
};
std::vector<PageItem> PageItems(int count);

/// The detail panel: title and six rows of label, code and name, amount.
struct EntryDetail {
    QString title;
    std::vector<QStringList> rows;
};
EntryDetail ReadDetail(cConnection& book, qint64 id);
