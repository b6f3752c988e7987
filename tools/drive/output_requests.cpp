// The driver's requests on reports, exports and the search.

#include "chart/chart_export.h"
#include "chart/codes.h"
#include "ledger/entry_query.h"
#include "ledger/list_export.h"
#include "ledger/record_query.h"
#include "output/export.h"
#include "output/search.h"
#include "stats/branch_report.h"
#include "stats/period_report.h"
#include "stats/report_export.h"
#include "store/messages.h"
#include "store/state.h"
#include "tools/drive/request.h"

#include <map>

using namespace Qt::StringLiterals;

namespace {

/// The last report of each mode, as the page keeps its lists.
std::map<ReportMode, Report>& Reports() {
    static std::map<ReportMode, Report> reports;
    return reports;
}

/// While it lives, the wanted stop waits: it is meant for the export, not for the reading of its lines.
class StopWaits {
 public:
    StopWaits() : steps_(State().gStopAfter) { Job::StopAfter(-1); }
    ~StopWaits() { Job::StopAfter(steps_); }

 private:
    int steps_;
};

QJsonObject AnswerReport(ReportMode mode, const std::optional<Report>& report) {
    if (!report || report->stopped) TellStopped();
    if (!report) return Refusal({}, {});
    Reports()[mode] = *report;
    QJsonArray lines;
    for (const auto& line : report->lines)
        lines.append(QJsonObject{{u"cells"_s, CellsOf(line)}});
    return {{u"ok"_s, true}, {u"caption"_s, report->caption}, {u"lines"_s, lines}};
}

QJsonObject AnswerPeriod(const QJsonObject& r) {
    const auto chart = ChartOf(r[u"table"].toString());
    if (!chart) return Failure(u"unknown table"_s);
    static const std::map<QString, PeriodLength> lengths{
        {u"year"_s, PeriodLength::year}, {u"month"_s, PeriodLength::month}, {u"day"_s, PeriodLength::day}};
    const auto length = lengths.find(r[u"length"].toString());
    if (length == lengths.end()) return Failure(u"unknown length"_s);
    PeriodQuestion question{*chart, {}, r[u"code"].toString(), length->second, PeriodOf(r)};
    // As chosen from the list: a code that it does not hold leaves the chooser empty.
    for (const auto& row : AllCodes(State().gDB, *chart))
        if (row.code == question.code) question.chosen = row.code + row.name;
    const QString wrong = WrongChoice(question);
    if (!wrong.isEmpty()) {
        ShowMsg(wrong);
        return Refusal({}, {});
    }
    Job job;
    return AnswerReport(*chart == Chart::kinds ? ReportMode::date : ReportMode::accdate,
                        StatByPeriod(State().gDB, question, job));
}

QJsonObject AnswerBranches(const QJsonObject& r) {
    const auto chart = ChartOf(r[u"table"].toString());
    if (!chart) return Failure(u"unknown table"_s);
    Job job;
    return AnswerReport(*chart == Chart::kinds ? ReportMode::kind : ReportMode::acckind,
                        StatAllByPeriod(State().gDB, *chart, PeriodOf(r), job));
}

ExportTable EntriesTable(const QJsonObject& r) {
    std::vector<RowTexts> rows;
    const StopWaits waits;
    Job job;
    ReadLines(State().gDB, BuildEntryQuery(FilterOf(r)), PageOf(r), job,
              [&](EntryLine&& line) { rows.push_back(std::move(line.cells)); });
    return LinesExport(LineKind::entries, std::move(rows));
}

ExportTable RecordsTable(const QJsonObject& r) {
    std::vector<RowTexts> rows;
    const StopWaits waits;
    Job job;
    ReadRecordLines(State().gDB, BuildRecordQuery(FilterOf(r)), PageOf(r), job,
                    [&](EntryLine&& line) { rows.push_back(std::move(line.cells)); });
    return LinesExport(LineKind::records, std::move(rows));
}

std::optional<ExportTable> TableAsked(const QJsonObject& r) {
    const QString list = r[u"list"].toString();
    if (list == u"entries") return EntriesTable(r);
    if (list == u"records") return RecordsTable(r);
    if (list == u"kinds") return ChartExport(State().gDB, Chart::kinds);
    if (list == u"accounts") return ChartExport(State().gDB, Chart::accounts);
    const auto mode = ModeOfKey(r[u"mode"].toString());
    if (list != u"report" || !mode) return {};
    const auto found = Reports().find(*mode);
    if (found == Reports().end()) return ReportExport(*mode, ModeRow(*mode).title, {});
    const auto& lines = found->second.lines;
    return ReportExport(*mode, found->second.caption, {lines.begin(), lines.end()});
}

QJsonObject AnswerExport(const QJsonObject& r) {
    static const std::map<QString, ExportFormat> formats{
        {u"html"_s, ExportFormat::web}, {u"txt"_s, ExportFormat::text}, {u"excel"_s, ExportFormat::sheet}};
    const auto format = formats.find(r[u"format"].toString());
    if (format == formats.end()) return Failure(u"unknown format"_s);
    const auto table = TableAsked(r);
    if (!table) return Failure(u"unknown list"_s);
    const auto files = Export(*table, format->second, {});
    if (files.isEmpty()) return Refusal({}, {});
    return {{u"ok"_s, true}, {u"files"_s, QJsonArray::fromStringList(files)}};
}

QJsonObject AnswerSearch(const QJsonObject& r) {
    const auto result = RunSearch(r[u"text"].toString(), {});
    if (result.files.isEmpty() && result.count != 0) return Refusal({}, {});
    return {
        {u"ok"_s, true}, {u"count"_s, result.count}, {u"files"_s, QJsonArray::fromStringList(result.files)}};
}

}  // namespace

std::span<const Request> OutputRequests() {
    using enum FieldType;
    static const Field table{u"table", text, true}, date1{u"date1", text}, date2{u"date2", text};
    static const Request requests[] = {
        {u"period", {table, {u"code", text}, {u"length", text, true}, date1, date2}, AnswerPeriod},
        {u"branches", {table, date1, date2}, AnswerBranches},
        {u"export",
         {{u"list", text, true},
          {u"format", text, true},
          {u"mode", text},
          {u"kind", text},
          {u"text", text},
          date1,
          date2,
          {u"mark", flag},
          {u"page", number}},
         AnswerExport},
        {u"search", {{u"text", text}}, AnswerSearch},
    };
    return requests;
}
