#include "ledger/frm_account.h"

#include "ledger/list_print.h"
#include "ledger/templates.h"
#include "shell/book_switch.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_list.h"
#include "store/dialogs.h"
#include "store/messages.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

ListPageWords Words() {
    ListPageWords words;
    words.chart = Chart::kinds;
    words.treeTip = u"在分类树中选择"_s;
    words.searchPrompt = u"搜索事情标题"_s;
    words.newTip = u"新增记账"_s;
    words.editTip = u"修改记账"_s;
    words.delTip = u"删除选中的一条记账"_s;
    words.printTip = u"打印当前列表所有记账"_s;
    words.exportTip = u"1.导出当前列表记录.\n2.若记录超出１万条，请单击页数下拉框逐一导出!"_s;
    words.kindIcon = u"kind"_s;
    words.columns = EntryColumns();
    return words;
}

}  // namespace

std::vector<ListColumn> EntryColumns() {
    return {
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
}

frmAccount::frmAccount(QWidget* parent) : ListPage(parent, Words()) {
    query_ = BuildEntryQuery({});
    KestroList1->setAccessibleName(u"记账列表"_s);
    chkFlag->setToolTip(
        u"查找重要记录开关\n1.您是否对某些记账记录特别关注?\n2.重要开关就是把重要记录找出来"_s);
    chkFlag->onChange = [this](bool) { ReloadData(); };
    notices_.push_back(Notices().booksChanged.Subscribe([this] { ReloadScrollBooks(); }));
    ConnectStrip();
    ReloadChoosers();
    ReloadScrollBooks();
    SetPeriod(PeriodOfKey(State().settings.LoadDate));
    MyTrack.hwnd = this;
    MyTrack.DragDropFiles = [this](const QString& names, int count) { MyTrack_DragDropFiles(count, names); };
    TrackAdd(MyTrack);
}

frmAccount::~frmAccount() {
    TrackRemove(MyTrack);
}

void frmAccount::ReloadChoosers() {
    LoadComkindData();
    ReloadScroll();
}

bool frmAccount::Can(Act act) const {
    switch (act) {
        case Act::add:
        case Act::newEntry:
            return HasDialog(kDlgEntry);
        case Act::remember:
            return HasLine();
        case Act::fold:
        case Act::unfold:
        case Act::kindMoney:
            return true;
        case Act::kindAdd:
        case Act::kindEdit:
        case Act::kindDelete:
            return HasPageFactory(kTabSetting);
        default:
            return ListPage::Can(act);
    }
}

void frmAccount::Do(Act act) {
    switch (act) {
        case Act::add:
        case Act::newEntry:
            return NewEntry();
        case Act::remember:
            return AddToTemplates();
        case Act::fold:
        case Act::unfold:
            return FoldStrip(act == Act::fold);
        case Act::kindMoney:
            return ShowKindMoney();
        case Act::kindAdd:
        case Act::kindEdit:
        case Act::kindDelete:
            return GoToKind(act);
        default:
            return ListPage::Do(act);
    }
}

EntryQuery frmAccount::BuildQuery(const EntryFilter& filter) const {
    return BuildEntryQuery(filter);
}

void frmAccount::ReadRows(int page, Job& job, const std::function<void(EntryLine&&)>& take) {
    ReadLines(State().gDB, query_, page, job, take);
}

void frmAccount::pTRANSACCOUNT() {
    KestroList1->Clear();
    sKind = u"all"_s;
    ResetFilters();
    ReloadChoosers();
    ReloadScrollBooks();
    ReloadData();
}

void frmAccount::NewEntry() {
    ResetDlg(kDlgEntry);
    EntryDialog entry;
    entry.isNew = 1;
    {
        const FreshView::Own own(fresh_);
        OpenModal(kDlgEntry);
    }
    if (!entry.done) return fresh_.Shown();
    const qint64 id = entry.id;
    ShowOwnChange([this, id] { AppendEntry(id); });
    const int row = query_.all ? -1 : KestroList1->FindRow(QString::number(id));
    if (row >= 0) MakeCurrent(row);
}

// Lines may have been deleted above, so the next number is not the count of lines.
int frmAccount::NextNumber() const {
    int last = sPage.toInt() * kLinesPerPage;
    for (int row = 0; row < KestroList1->RowCount(); ++row)
        last = std::max(last, KestroList1->Cell(row, kColNo).toInt());
    return last + 1;
}

void frmAccount::AppendEntry(qint64 id) {
    if (id == -1) return;
    auto line = ReadOneLine(State().gDB, id, NextNumber());
    if (!line) {
        ShowMsg(u"意外错误!"_s, u"确定"_s, kMsgFail);
        return;
    }
    KestroList1->AddRow(std::move(line->cells), line->key, line->subKey);
    MakeCurrent(KestroList1->RowCount() - 1);
}

qint64 frmAccount::EntryOf(int row) const {
    return KestroList1->RowKey(row).toLongLong();
}

PrintInfo frmAccount::InfoToPrint(const std::optional<std::vector<qint64>>& checked) const {
    return EntryPrintInfo(query_, comKind->text(), checked);
}

std::optional<EntryLine> frmAccount::ReadLineAgain(int row, qint64 id) {
    auto line = ReadOneLine(State().gDB, id, KestroList1->Cell(row, kColNo).toInt());
    if (!line) ShowMsg(u"意外错误!"_s, u"确定"_s, kMsgFail);
    return line;
}

void frmAccount::ChooseCode(const QString& code) {
    ShowChosenKind(code);
    SelectKindInStrip();
    ReloadData();
}

void frmAccount::AddToTemplates() {
    const int row = KestroList1->CurrentRow();
    if (row < 0) {
        ShowMsg(u"未选定记录!"_s);
        return;
    }
    AddTemplate(State().gDB, EntryOf(row));
}

void frmAccount::GoToKind(Act act) {
    const auto* kind = ChosenKind();
    if (act != Act::kindAdd && !kind) {
        ShowMsg(u"【未选定】任何分类项!"_s);
        return;
    }
    const QString code = kind ? kind->code : QString();
    const Act there = act == Act::kindAdd ? Act::add : act == Act::kindEdit ? Act::edit : Act::remove;
    Host().show(kTabSetting);
    if (auto* settings = PageOfCode(kPageSetting)) settings->DoKindAcc(Chart::kinds, code, there);
}

void frmAccount::MyTrack_DragDropFiles(int count, const QString& names) {
    if (count > 1) {
        ShowMsg(u"不能同时打开多个账本!"_s);
        return;
    }
    OpenDBFile(names);
}
