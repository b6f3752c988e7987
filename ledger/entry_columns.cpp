#include "ledger/entry_columns.h"

using namespace Qt::StringLiterals;

ListPageWords EntryPageWords() {
    ListPageWords words;
    words.pageCode = kPageAccount;
    words.chart = Chart::kinds;
    words.treeTip = u"在分类树中选择"_s;
    words.searchPrompt = u"搜索事情标题"_s;
    words.newTip = u"新增记账"_s;
    words.editTip = u"修改记账"_s;
    words.delTip = u"删除选中的一条记账"_s;
    words.printTip = u"打印当前列表所有记账"_s;
    words.exportTip = u"1.导出当前列表记录.\n2.若记录超出１万条，请单击页数下拉框逐一导出!"_s;
    words.deleteWords = EntryDeleteWords();
    words.kindIcon = u"kind"_s;
    words.columns = {
        {u"null"_s, u"NO"_s, 60, 20, u"number"_s, ListColor::dim, false, {}},
        {u"date"_s, u"记账日期"_s, 110, 100, u"date"_s, ListColor::dim, false, {}},
        {u"kind"_s, u"事情分类"_s, 180, 100, u"string"_s, ListColor::none, false, {}},
        {u"add"_s, u"增加"_s, 65, 60, u"money"_s, ListColor::add, false, {}},
        {u"reduce"_s, u"减少"_s, 65, 60, u"money"_s, ListColor::reduce, false, {}},
        {u"rmb"_s, u"金   额"_s, 80, 60, u"money"_s, ListColor::none, false,
         u"余额在【事情分类】为【全部】的情况下不显示，因为无意义!"_s},
        {u"thing"_s, u"事情"_s, 200, 140, u"string"_s, ListColor::none, true, {}},
        {u"mark"_s, u"提示"_s, 60, 60, u"icons"_s, ListColor::none, false,
         u"此列三个图标的含义：\n红旗：代表【重要】\n图片：代表有【图片】\n书本：代表同时记到【账户】"_s},
    };
    return words;
}

ListPageWords RecordPageWords() {
    ListPageWords words;
    words.pageCode = kPageSubAcc;
    words.chart = Chart::accounts;
    words.treeTip = u"在账户树中选择"_s;
    words.searchPrompt = u"搜索事情标题"_s;
    words.deleteWords = RecordDeleteWords();
    words.kindIcon = u"book"_s;
    words.hasFlag = false;
    words.columns = {
        {u"null"_s, u"NO"_s, 50, 20, u"number"_s, ListColor::dim, false, {}},
        {u"date"_s, u"记账日期"_s, 110, 100, u"date"_s, ListColor::dim, false, {}},
        {u"kind"_s, u"账户名称"_s, 180, 120, u"string"_s, ListColor::none, false, {}},
        {u"add"_s, u"增加"_s, 70, 60, u"money"_s, ListColor::add, false, {}},
        {u"reduce"_s, u"减少"_s, 70, 60, u"money"_s, ListColor::reduce, false, {}},
        {u"rmb"_s, u"金   额"_s, 75, 50, u"money"_s, ListColor::none, false, {}},
        {u"thing"_s, u"事情"_s, 200, 140, u"string"_s, ListColor::none, true, {}},
    };
    return words;
}
