#include "ledger/frm_account.h"

#include "ledger/entry_columns.h"
#include "ledger/templates.h"
#include "shell/book_switch.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_text.h"
#include "store/dates.h"
#include "store/dialogs.h"
#include "store/messages.h"

#include <QKeyEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

frmAccount::frmAccount(QWidget* parent) : ListPage(parent, EntryPageWords()) {
    query_ = BuildEntryQuery({});
    Connect();
    ConnectStrip();
    LoadComkindData();
    ReloadScroll();
    ReloadScrollBooks();
    const auto period = QuickPeriodLabels(State().settings.LoadDate);
    SetPeriod(period.first, period.second);
}

void frmAccount::Connect() {
    btnNew->onClick = [this] { NewEntry(); };
    btnEdit->onClick = [this] { EditCurrent(); };
    chkFlag->setToolTip(
        u"查找重要记录开关\n1.您是否对某些记账记录特别关注?\n2.重要开关就是把重要记录找出来"_s);
    chkFlag->onChange = [this](bool) { ReloadData(); };
    KestroList1->onRightClick = [this](int, const QPoint& at) { ShowMenu(at); };
    KestroList1->onDoubleClick = [this](int, int) { EditCurrent(); };
    KestroList1->onKey = [this](QKeyEvent* event) { return ListKey(event); };
    notices_.push_back(Notices().booksChanged.Subscribe([this] { ReloadScrollBooks(); }));
    notices_.push_back(Notices().entrySaved.Subscribe([this](qint64 id) { AppendEntry(id); }));
    notices_.push_back(Notices().chartChanged.Subscribe([this](const QString& table) {
        if (table.toLower() != u"tkind") return;
        LoadComkindData();
        ReloadScroll();
        ReloadInPlace();
    }));
}

EntryQuery frmAccount::BuildQuery(const EntryFilter& filter) const {
    return BuildEntryQuery(filter);
}

void frmAccount::ReadRows(int page, Job& job, const std::function<void(EntryLine&&)>& take) {
    ReadLines(State().gDB, query_, page, job, take);
}

void frmAccount::ShowSums() {
    const auto sums = ShowSumTexts(ReadSums(State().gDB, query_), query_.all);
    ShowSumLabels(sums.count, sums.value);
    sumsTag_ = sums.tag;
    ShowFigures(sums);
}

void frmAccount::pTRANSACCOUNT() {
    KestroList1->Clear();
    sKind = u"all"_s;
    ResetFilters();
    LoadComkindData();
    ReloadScroll();
    ReloadScrollBooks();
    ReloadData();
}

void frmAccount::NewEntry() {
    ResetDlg(kDlgEntry);
    EntryDialog entry;
    entry.isNew = 1;
    if (!OpenModal(kDlgEntry) || !EntryDialog().done) return;
    AppendEntry(EntryDialog().id);
}

// Lines may have been deleted above, so the next number is not the count of lines.
int frmAccount::NextNumber() const {
    int last = sPage.toInt() * kLinesPerPage;
    for (int row = 0; row < KestroList1->RowCount(); ++row)
        last = std::max(last, KestroList1->Cell(row, kColNo).toInt());
    return last + 1;
}

void frmAccount::AppendEntry(qint64 id) {
    ShowSums();
    if (id == -1) return;
    const int rows = KestroList1->RowCount();
    auto line = ReadOneLine(State().gDB, id, NextNumber());
    if (!line) {
        ShowMsg(u"意外错误!"_s, u"确定"_s, kMsgFail);
        return;
    }
    KestroList1->AddRow(std::move(line->cells), line->key, line->subKey);
    KestroList1->SetCurrentRow(rows);
    KestroList1->ScrollToRow(rows);
    ShowDetail();
}

qint64 frmAccount::EntryOf(int row) const {
    return KestroList1->RowKey(row).toLongLong();
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

void frmAccount::ShowMenu(QPoint at) {
    const bool chosen = KestroList1->CurrentRow() >= 0;
    Menus::SetEnabled(u"edit"_s, u"new"_s, true);
    for (const QString& key : {u"edit"_s, u"del"_s, u"template"_s})
        Menus::SetEnabled(u"edit"_s, key, chosen);
    Menus::Popup(u"edit"_s, at);
}

void frmAccount::AddToTemplates() {
    const int row = KestroList1->CurrentRow();
    if (row < 0) {
        ShowMsg(u"未选定记录!"_s);
        return;
    }
    AddTemplate(State().gDB, EntryOf(row));
}

void frmAccount::DoMenu(const QString& menu, const QString& key) {
    if (menu == u"searchdate") return ReloadData();
    if (menu == u"key") return DoKey(key);
    if (menu == u"edit" && key == u"new") return NewEntry();
    if (menu == u"edit" && key == u"edit") return EditCurrent();
    if (menu == u"edit" && key == u"del") return DeleteCurrent();
    if (menu == u"edit" && key == u"template") return AddToTemplates();
    if (menu == u"scroll") return FoldStrip(key == u"zip");
    if (menu == u"scrollkind") return DoKindMenu(key);
}

void frmAccount::DoKindMenu(const QString& key) {
    if (key == u"scrollmoney") return ShowKindMoney();
    const auto* kind = ChosenKind();
    if (key != u"scrollnew" && !kind) {
        ShowMsg(u"【未选定】任何分类项!"_s);
        return;
    }
    const QString code = kind ? kind->code : QString();
    const QString action = key == u"scrollnew" ? u"New"_s : key == u"scrolledit" ? u"Edit"_s : u"Del"_s;
    Host().show(5);
    if (auto* settings = PageOfCode(kPageSetting)) settings->DoKindAcc(u"tKind"_s, code, action);
}

void frmAccount::DoKey(const QString& name) {
    if (name == u"new") NewEntry();
    if (name == u"edit") EditCurrent();
    if (name == u"reload") ReloadData();
    if (name == u"find") txtSearch->setFocus(Qt::ShortcutFocusReason);
}

bool frmAccount::ListKey(QKeyEvent* event) {
    if (event->key() != Qt::Key_N || event->modifiers() != Qt::ControlModifier) return false;
    NewEntry();
    return true;
}

void frmAccount::MyTrack_DragDropFiles(int count, const QString& names) {
    if (count > 1) {
        ShowMsg(u"不能同时打开多个账本!"_s);
        return;
    }
    OpenDBFile(names);
}

QString frmAccount::BuildPrintInfo(bool bChecked) const {
    const QString checked = bChecked ? CheckedCondition(KestroList1->CheckedKeys()) : QString();
    return u"tAccount/1/【"_s + comKind->text() + u"】账务列表/"_s + query_.where + checked + u"/1"_s;
}
