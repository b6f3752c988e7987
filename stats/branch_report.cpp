#include "stats/branch_report.h"

#include "stats/work_tables.h"
#include "store/money.h"
#include "store/text.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

// The bar goes to 100 and stands so after each part of the work.
constexpr int kBarMost = 100, kCaptioned = 5, kCopied = 15, kSummed = 30, kRolledUp = 70;

struct Figures {
    double added = 0, reduced = 0, balance = 0;

    void Add(const Figures& more) {
        added += more.added;
        reduced += more.reduced;
        balance += more.balance;
    }
};

struct Branch {
    QString code, name;
    Figures figures;
    bool hasData = false;
};

// A code may stand twice; both rows then get what belongs to it.
using RowsOfCode = QMultiHash<QString, size_t>;

std::vector<Branch> ReadBranches(cConnection& book, Chart chart) {
    std::vector<Branch> branches;
    auto rows = book.Read(u"select Sort1,Name1,nAdd,nReduce,Money from "_s + TableOf(chart).table +
                          u" order by Sort1"_s);
    while (rows.Next()) {
        const Figures kept{rows.Number(2), rows.Number(3), rows.Number(4)};
        branches.push_back({rows.Text(0), rows.Text(1), kept, kept.added != 0 || kept.reduced != 0});
    }
    return branches;
}

RowsOfCode ByCode(const std::vector<Branch>& branches) {
    RowsOfCode rows;
    for (size_t i = 0; i < branches.size(); ++i)
        rows.insert(branches[i].code, i);
    return rows;
}

void SumPeriod(cConnection& book, Chart chart, const QString& condition, const RowsOfCode& rowsOf,
               std::vector<Branch>& branches, Job& job) {
    for (auto& branch : branches) {
        branch.figures = {};
        branch.hasData = false;
    }
    const auto& names = TableOf(chart);
    const StatementWatch watch(book, [&job] { return job.GoOn(); });
    auto sums = book.Read(u"select "_s + names.code +
                          u", sum(case when nSign=1 then Value1 end), sum(case when nSign=-1 then Value1 end)"
                          u" from "_s +
                          names.rows + u" where 1"_s + condition + u" group by "_s + names.code);
    while (sums.Next()) {
        const auto [first, last] = rowsOf.equal_range(sums.Text(0));
        for (auto row = first; row != last; ++row) {
            auto& figures = branches[*row].figures;
            if (!sums.IsNull(1)) figures.added = sums.Number(1);
            if (!sums.IsNull(2)) figures.reduced = sums.Number(2);
        }
    }
    for (auto& branch : branches) {
        branch.hasData = branch.figures.added > 0 || branch.figures.reduced > 0;
        if (branch.hasData) branch.figures.balance = branch.figures.added - branch.figures.reduced;
    }
}

// Each row adds its own figures, as they were before any was added, to all that stand above it.
void RollUpParents(const RowsOfCode& rowsOf, std::vector<Branch>& branches) {
    const std::vector<Branch> own = branches;
    for (const auto& branch : own) {
        if (!branch.hasData) continue;
        const auto levels = branch.code.size() / 2 - 1;
        for (qsizetype up = 1; up <= levels; ++up) {
            const auto [first, last] = rowsOf.equal_range(branch.code.left(branch.code.size() - 2 * up));
            for (auto row = first; row != last; ++row)
                branches[*row].figures.Add(branch.figures);
        }
    }
}

QString RowOf(qsizetype number, const Branch& branch, const QStringList& amounts) {
    return u'(' + QString::number(number) + u", "_s + Quote(branch.code) + u", "_s + Quote(branch.name) +
           u", "_s + amounts.join(u", "_s) + (branch.hasData ? u", 1)"_s : u", 0)"_s);
}

}  // namespace

std::optional<Report> StatAllByPeriod(cConnection& book, Chart chart, const Period& period, Job& job) {
    job.Start(kBarMost);
    // The word 分类 stands here for the accounts too.
    Report report{u"各分类【"_s + PeriodText(period) + u"】期间统计"_s, {}, false};
    job.Show(kCaptioned);
    auto branches = ReadBranches(book, chart);
    const auto rowsOf = ByCode(branches);
    job.Show(kCopied);
    const QString condition = PeriodCondition(period);
    if (!condition.isEmpty()) SumPeriod(book, chart, condition, rowsOf, branches, job);
    if (job.Stopped()) return {};
    job.Show(kSummed);
    RollUpParents(rowsOf, branches);
    job.Show(kRolledUp);
    QStringList rows;
    for (const auto& branch : branches) {
        const QStringList amounts{SqlNumber(branch.figures.added), SqlNumber(branch.figures.reduced),
                                  SqlNumber(branch.figures.balance)};
        const auto number = static_cast<qsizetype>(report.lines.size()) + 1;
        report.lines.push_back({QString::number(number), IndentByDepth(branch.code) + branch.name, amounts[0],
                                amounts[1], amounts[2]});
        rows << RowOf(number, branch, amounts);
        const auto share = static_cast<double>(number) / static_cast<double>(branches.size());
        job.Step(static_cast<int>(number), kRolledUp + static_cast<int>(share * (kBarMost - kRolledUp)));
        report.stopped = job.Stopped();
        if (report.stopped) break;
    }
    ReplaceWorkTable(book, u"tTjKind"_s, u"ID1,Sort1,Name1,nAdd,nReduce,Money,nHasData"_s, rows);
    return report;
}
