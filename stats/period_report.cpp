#include "stats/period_report.h"

#include "chart/codes.h"
#include "stats/work_tables.h"
#include "store/money.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostSteps = 10000;

struct PeriodSums {
    QString period;
    double all = 0, signedSum = 0;
};

QString LengthWord(PeriodLength length) {
    if (length == PeriodLength::year) return u"年度"_s;
    return length == PeriodLength::month ? u"月份"_s : u"日"_s;
}

QString Caption(const PeriodQuestion& q) {
    return u'【' + q.chosen + u"】按『"_s + LengthWord(q.length) + u"』在【"_s + PeriodText(q.period) +
           u"】期间统计"_s;
}

std::vector<PeriodSums> ReadPeriods(cConnection& book, const PeriodQuestion& q, Job& job) {
    const auto& chart = TableOf(q.chart);
    const StatementWatch watch(book, [&job] { return job.GoOn(); });
    auto rows = book.Read(u"select sum(Value1) as SumAll,sum(Value1 * nSign) as SumA,Left$(Date1, "_s +
                          QString::number(static_cast<int>(q.length)) + u") as DoDate from "_s + chart.rows +
                          u" where 1 and "_s + AtOrBelow(chart.code, q.code) + PeriodCondition(q.period) +
                          u" group by DoDate"_s);
    std::vector<PeriodSums> periods;
    while (rows.Next())
        periods.push_back({rows.Text(2), rows.Number(0), rows.Number(1)});
    return periods;
}

}  // namespace

SplitAmounts SplitSums(double all, double signedSum) {
    const double whole = std::nearbyint(all - std::abs(signedSum));  // halves to even
    const double smaller = std::trunc(whole / 2);
    const double larger = all - smaller;
    return signedSum >= 0 ? SplitAmounts{larger, smaller} : SplitAmounts{smaller, larger};
}

QString WrongChoice(const PeriodQuestion& question) {
    if (!question.chosen.isEmpty() && LooksNumeric(question.code)) return {};
    return u"请选择一个"_s + TableOf(question.chart).word + u'!';
}

std::optional<Report> StatByPeriod(cConnection& book, const PeriodQuestion& question, Job& job) {
    Report report{Caption(question), {}, false};
    job.Start(1);  // the bar stands while the book is read, so that a click can stop it
    const auto periods = ReadPeriods(book, question, job);
    if (job.Stopped()) return {};
    job.Start(std::min(static_cast<int>(periods.size()), kMostSteps));
    QStringList rows;
    for (const auto& sums : periods) {
        const auto split = SplitSums(sums.all, sums.signedSum);
        const QString number = QString::number(report.lines.size() + 1);
        const QString added = SqlNumber(split.added), reduced = SqlNumber(split.reduced);
        const QString balance = SqlNumber(sums.signedSum);
        report.lines.push_back({number, sums.period, added, reduced, balance});
        rows << u'(' + QStringList{number, Quote(sums.period), added, reduced, balance}.join(u", "_s) + u')';
        job.Step(static_cast<int>(report.lines.size()));
        report.stopped = job.Stopped();
        if (report.stopped) break;
    }
    ReplaceWorkTable(book, u"tTjDate"_s, u"Id1,Date1,Value1,Value2,ValueC"_s, rows);
    return report;
}
