#include "output/print_columns.h"

#include "store/money.h"
#include "store/state.h"

#include <algorithm>
#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

// What lies this near to whole hundredths got there by adding.
constexpr double kNoise = 0.0005;

PrintAlign AlignOf(qint64 code) {
    return code == 1 ? PrintAlign::right : code == 2 ? PrintAlign::centre : PrintAlign::left;
}

QString AmountText(const QString& plain) {
    QString text = plain;
    const auto point = plain.indexOf(u'.');
    if (point >= 0 && plain.size() - point > 3) {
        const double x = plain.toDouble();
        const QString rounded = PlainNumber(MoneyText(x).toDouble());
        if (std::fabs(x - rounded.toDouble()) < kNoise) text = rounded;
    }
    return GroupText(text, State().settings.nGroup, u","_s, u"0"_s);
}

}  // namespace

Replacement::Replacement(const QString& told) {
    const auto halves = told.split(u',');
    if (halves.size() != 2) return;
    const auto values = halves[0].split(u'/');
    const auto texts = halves[1].split(u'/');
    if (values.size() != texts.size()) return;
    values_ = values;
    texts_ = texts;
}

bool Replacement::Apply(QString& value) const {
    for (qsizetype i = 0; i < values_.size(); ++i) {
        if (values_[i].compare(value, Qt::CaseInsensitive) != 0) continue;
        value = texts_[i];
        return true;
    }
    return false;
}

QString ReplaceValue(const QString& value, const QString& replacement) {
    QString replaced = value;
    Replacement(replacement).Apply(replaced);
    return replaced;
}

std::vector<PrintColumn> ReadPrintColumns(cConnection& book, const PrintInfo& info) {
    const bool marked = !info.mark.isEmpty() && info.mark != u"1";
    auto rows = book.OpenRecordset(u"select * from tPrint where bListPrint="_s +
                                   (info.list ? u"1"_s : u"0"_s) + u" and sTable="_s + Quote(info.Layout()) +
                                   (marked ? u" and sMark="_s + Quote(info.mark) : QString()) +
                                   u" order by nSort asc"_s);
    std::vector<PrintColumn> columns;
    for (; !rows.Eof(); rows.MoveNext())
        columns.push_back({rows.Text(u"sKey"), rows.Text(u"sDef"), std::max(0.0, rows.Number(u"nListPrintW")),
                           AlignOf(rows.Int(u"nDist")), Replacement(rows.Text(u"sReplace")),
                           rows.Text(u"sType").compare(u"money"_s, Qt::CaseInsensitive) == 0});
    return columns;
}

double WidthOf(const std::vector<PrintColumn>& columns) {
    return std::accumulate(columns.begin(), columns.end(), kNumberWidth,
                           [](double sum, const PrintColumn& column) { return sum + column.width; });
}

QString PrintedValue(const cReader& row, int at, const PrintColumn& column) {
    QString value = row.Shown(at);
    const bool replaced = column.replacement.Apply(value);
    if (!column.money) return value;
    return AmountText(!replaced && row.IsNumber(at) ? value : PlainNumber(Val(value)));
}
