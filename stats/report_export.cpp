#include "stats/report_export.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kMoneyWidth = 80;  // pixels on a web page

ExportColumn NameColumn(const ReportModeRow& mode) {
    if (mode.byPeriod)
        return {.title = u"日期"_s,
                .webSide = Side::centre,
                .textWidth = 15,
                .sheetWidth = 30,
                .webTitle = u"期间"_s};
    return {
        .title = TableOf(mode.chart).word + u"名称"_s, .textWidth = 30, .sheetWidth = 30, .keepBlanks = true};
}

}  // namespace

ExportTable ReportExport(ReportMode mode, const QString& caption, std::vector<RowTexts> rows) {
    const auto& row = ModeRow(mode);
    const QString word = TableOf(row.chart).word;
    ExportTable table;
    table.webStem = row.byPeriod ? u"统计(期间)"_s : u"统计("_s + word + u')';
    table.fileStem = row.byPeriod ? word + table.webStem : table.webStem;
    table.webHeading = table.textHeading = caption;
    table.timeInText = false;
    table.gapUnderHead = false;
    table.webSpan = 5;
    table.groupsInSheet = true;
    table.noneOnWeb = u"没有记录!"_s;
    table.noneInText = table.noneInSheet = u"列表无记录!"_s;
    table.question = table.sheetQuestion =
        u"文件已导出到【%1】是要【打开文件】还是【打开目录】或是【取消】?"_s;
    table.sheetHint =
        row.byPeriod ? u"之前导出的文件打开后未关闭，又重新导出!"_s : u"之前导出文件打开后未关闭"_s;
    table.columns = {NumberColumn(), NameColumn(row), MoneyColumn(u"增加(元)"_s, kMoneyWidth),
                     MoneyColumn(u"减少(元)"_s, kMoneyWidth), MoneyColumn(u"余额(元)"_s, kMoneyWidth)};
    table.rows = std::move(rows);
    return table;
}
