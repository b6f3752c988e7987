#include "ledger/list_export.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int kMoneyWidth = 60;  // pixels on a web page
}

ExportTable LinesExport(LineKind lines, std::vector<RowTexts> rows) {
    const bool entries = lines == LineKind::entries;
    ExportTable table;
    table.webStem = table.fileStem = entries ? u"记账"_s : u"账户记录"_s;
    table.webHeading = entries ? u"记账列表导出:"_s : u"账户记录列表导出:"_s;
    table.textHeading = entries ? u"记账列表导出:"_s : u"账户列表记录导出:"_s;
    table.webSpan = entries ? 7 : 9;
    table.webHeadToLeft = !entries;
    table.noneOnWeb = u"没有记录!"_s;
    table.noneInText = u"列表【无记录】!"_s;
    table.noneInSheet = entries ? u"没有需要导出的【记录】!"_s : u"列表【无记录】!"_s;
    table.question = kAskWhatToOpen;
    table.sheetQuestion = u"文件已导出到【%1 】是要打开【文件】还是打开文件所在【目录】,还是【取消】?"_s;
    table.sheetHint = u"之前导出文件打开后未关闭"_s;
    table.columns = {NumberColumn(),
                     {.title = u"记账时间"_s,
                      .webSide = Side::centre,
                      .webWidth = 110,
                      .textWidth = 18,
                      .sheetWidth = 18,
                      .webTitle = u"记账日期"_s},
                     {.title = entries ? u"分类名称"_s : u"账户名称"_s,
                      .webWidth = 180,
                      .textWidth = 20,
                      .sheetWidth = 30,
                      .webTitle = entries ? u"事情分类"_s : QString()},
                     MoneyColumn(u"增加(元)"_s, kMoneyWidth),
                     MoneyColumn(u"减少(元)"_s, kMoneyWidth),
                     MoneyColumn(u"余额(元)"_s, kMoneyWidth),
                     {.title = u"事情"_s, .textWidth = 20, .sheetWidth = 40}};
    table.rows = std::move(rows);
    return table;
}
