#include "chart/chart_export.h"

#include "store/money.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int kMoneyWidth = 80;  // pixels on a web page
}

ExportTable ChartExport(cConnection& book, Chart chart) {
    const auto& names = TableOf(chart);
    ExportTable table;
    table.webStem = table.fileStem = names.word;
    table.webHeading = table.textHeading = names.word + u"列表导出:"_s;
    table.noneOnWeb = u"没有"_s + names.word + u"记录!"_s;
    table.noneInText = table.noneInSheet = names.word + u"【无记录】!"_s;
    table.question = table.sheetQuestion = kAskWhatToOpen;
    table.sheetHint = u"之前导出文件打开后未关闭"_s;
    table.columns = {NumberColumn(),
                     {.title = names.word + u"名称"_s, .webWidth = 180, .textWidth = 20, .sheetWidth = 18},
                     {.title = u"增加日期"_s, .webWidth = 70, .textWidth = 12, .sheetWidth = 30},
                     MoneyColumn(u"增加(元)"_s, kMoneyWidth),
                     MoneyColumn(u"减少(元)"_s, kMoneyWidth),
                     MoneyColumn(u"余额(元)"_s, kMoneyWidth),
                     {.title = u"备注"_s,
                      .webSide = Side::centre,
                      .textWidth = 20,
                      .sheetWidth = 40,
                      .webTitle = u"说明"_s}};
    auto rows = book.Read(u"select Sort1,Name1,"_s + names.made + u",nAdd,nReduce,Money,"_s + names.note +
                          u" from "_s + names.table + u" order by Sort1"_s);
    while (rows.Next())
        table.rows.push_back({QString::number(table.rows.size() + 1), rows.Text(0) + rows.Text(1),
                              rows.Text(2), MoneyText(rows.Number(3)), MoneyText(rows.Number(4)),
                              MoneyText(rows.Number(5)), rows.Text(6).remove(u"\r\n"_s)});
    return table;
}
