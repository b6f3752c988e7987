#pragma once
// What the entry list reads: lines by filter and page, sums of the filter, the detail of one line.

#include "store/connection.h"
#include "store/job.h"
#include "store/period.h"
#include "store/row_texts.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

constexpr int kLinesPerPage = 10000;

/// The filter controls of the page.
struct EntryFilter {
    QString kind = QStringLiteral("all");  ///< "all" or a code
    QString text;
    Period period;
    bool marked = false;
};

/// Column indices of both lists; that of records has no marks.
enum EntryColumn { kColNo, kColDate, kColKind, kColAdd, kColReduce, kColRmb, kColThing, kColMark };

/// A list query in its members; nothing is ever cut out of the whole text.
struct EntryQuery {
    QString columns;
    QString from;   ///< the table and the start of the where part
    QString where;  ///< what stands behind "where 1 "
    QString order;
    bool all = true;   ///< one line an entry; false: the rows of one code with a running balance
    bool sums = true;  ///< increase and decrease of the whole filter are shown; otherwise its count alone
    QString Sql() const;
};

EntryQuery BuildEntryQuery(const EntryFilter& filter);

/// One line: cells of the columns NO, date, kind, add, reduce, rmb, thing, mark.
struct EntryLine {
    RowTexts cells;
    QString key;           ///< Id1
    QString subKey;        ///< Type1
    QString signedAmount;  ///< Value1 times nSign, of a single line alone
};

/// Matter texts that contain text, which goes into the pattern as typed; blanks alone are no condition.
QString MatterCondition(const QString& text);

/// Hands the lines of a page (from 0) to take, in order. Ends early when the job was stopped; true when all
/// of the page was read.
bool ReadLines(cConnection& book, const EntryQuery& query, int page, Job& job,
               const std::function<void(EntryLine&&)>& take);
/// Heading of the amount column: 金   额, or 累计余额 with a kind chosen.
QString AmountHeading(const EntryQuery& query);
/// The line of one row as it is appended after saving: the line number is number, column 5 is empty.
std::optional<EntryLine> ReadOneLine(cConnection& book, qint64 id, int number);

/// Figures of the whole filter, from one statement. Increase and decrease stay 0 where the query wants no
/// sums.
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
    static constexpr int kPictureRow = 4;
    qint64 main = -1;  ///< the entry's main row, -1 when there is no entry
    QString title;
    std::vector<QStringList> rows;
};
EntryDetail ReadDetail(cConnection& book, qint64 id);
