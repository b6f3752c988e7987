#include "chart/chart_list.h"

#include "chart/codes.h"
#include "store/money.h"
#include "store/text.h"

using namespace Qt::StringLiterals;

namespace {

const QString kNoFigure = u"-"_s;

ChartRecord RecordOf(cConnection& book, const cRecordset& row, Chart chart) {
    ChartRecord record;
    record.code = row.Text(u"Sort1");
    record.name = row.Text(u"Name1");
    record.oldOpening = GetOpeningBalance(book, row.Int(u"IID"), chart, record.code).value_or(0);
    record.newOpening = record.oldOpening;
    record.added = row.Number(u"nAdd");
    record.reduced = row.Number(u"nReduce");
    record.balance = row.Number(u"Money");
    record.hide = row.Int(u"nHide") == 1;
    record.note = row.Text(TableOf(chart).note);
    return record;
}

}  // namespace

QStringList ChartCells(int number, const ChartRecord& record, bool leaf) {
    const auto figure = [leaf](double x) { return leaf ? MoneyText(x) : kNoFigure; };
    return {QString::number(number),
            IndentByDepth(record.code) + record.name,
            record.hide ? u"隐藏"_s : QString(),
            leaf ? PlainNumber(record.newOpening) : kNoFigure,
            figure(record.added),
            figure(record.reduced),
            figure(record.balance),
            record.note};
}

std::vector<ChartLine> ReadChart(cConnection& book, Chart chart) {
    auto rows = book.OpenRecordset(u"select * from "_s + TableOf(chart).table + u" order by Sort1"_s);
    std::vector<ChartRecord> records;
    std::vector<qint64> ids;
    for (; !rows.Eof(); rows.MoveNext()) {
        records.push_back(RecordOf(book, rows, chart));
        ids.push_back(rows.Int(u"Id1"));
    }
    std::vector<ChartLine> lines;
    for (size_t i = 0; i < records.size(); ++i) {
        // In order of codes a subtree stands together, so its size shows in the neighbours.
        const QString& code = records[i].code;
        const bool alone = (i == 0 || records[i - 1].code != code) &&
                           (i + 1 == records.size() || !records[i + 1].code.startsWith(code));
        lines.push_back(
            {ChartCells(static_cast<int>(i) + 1, records[i], alone), code, ids[i], code.size() == 2});
    }
    return lines;
}

std::optional<ChartRecord> ReadChartRecord(cConnection& book, qint64 id, Chart chart) {
    const auto row = book.OpenRecordset(u"select * from "_s + TableOf(chart).table + u" where id1="_s +
                                        QString::number(id));
    if (row.Eof() || row.Text(u"Sort1").isEmpty()) return {};
    return RecordOf(book, row, chart);
}
