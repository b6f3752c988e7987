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
#include "store/errors.h"
#include "store/messages.h"
#include "store/money.h"
#include "store/outside.h"

#include <QKeyEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

frmAccount::frmAccount(QWidget* parent) : ListPage(parent, EntryPageWords()) {
    Connect();
    ConnectStrip();
    LoadComkindData();
    ReloadScroll();
    ReloadScrollBooks();
    const auto period = QuickPeriodLabels(State().LoadDate);
    SetPeriod(period.first, period.second);
    for (auto* later : {btnPrint, btnExport})
        later->setEnabled(false);
}

void frmAccount::Connect() {
    btnNew->onClick = [this] { NewEntry(); };
    btnEdit->onClick = [this] { EditEntry(); };
    txtSearch->onEnter = [this] { ReloadData(); };
    txtSearch->onEndButton = [this] { ReloadData(); };
    txtSearch->onKey = [this](QKeyEvent* event) {
        if (event->key() != Qt::Key_Space && event->key() != Qt::Key_Escape) return false;
        txtSearch->setText({});
        return true;
    };
    txtSearch->setToolTip(u"1.关键词限于【事情标题】\n2.这是模糊搜索\n3.单击重新载入、刷新"_s);
    txtSearch->onContextMenu = [](QPoint at) { Menus::Popup(u"text"_s, at); };
    comKind->onChoose = [this](const QString&, const QString& key) {
        ShowChosenKind(key);
        SelectKindInStrip();
        ReloadData();
    };
    comKind->onBrowse = [this] { OpenKindTree(); };
    comKind->SetBrowse(u"tree"_s, u"在分类树中选择"_s);
    chkFlag->setToolTip(
        u"查找重要记录开关\n1.您是否对某些记账记录特别关注?\n2.重要开关就是把重要记录找出来"_s);
    chkFlag->onChange = [this](bool) { ReloadData(); };
    KestroList1->onRightClick = [this](int, const QPoint& at) { ShowMenu(at); };
    KestroList1->onDoubleClick = [this](int, int) { EditEntry(); };
    KestroList1->onKey = [this](QKeyEvent* event) { return ListKey(event); };
    lblValue->setToolTip(u"【单击】查看增加、减少额、差额！会自动复制到 Windows 粘贴板。"_s);
    lblValue->onClick = [this] { CopySums(); };
    textMenu_ = Menus::RegisterTextMenu(kPageAccount, [this](const QString& key) { DoTextMenu(key); });
    notices_.push_back(Notices().booksChanged.Subscribe([this] { ReloadScrollBooks(); }));
    notices_.push_back(Notices().entrySaved.Subscribe([this](qint64 id) { AppendEntry(id); }));
    notices_.push_back(Notices().chartChanged.Subscribe([this](const QString& table) {
        if (table.toLower() != u"tkind") return;
        const QString followed = sKind;
        LoadComkindData();
        ReloadScroll();
        if (sKind != followed) ReloadData();
    }));
}

int frmAccount::CountRows() {
    return CountLines(State().gDB, query_);
}

void frmAccount::ReadRows(int page, Job& job, const std::function<void(ListLine&&)>& take) {
    ReadLines(State().gDB, query_, page, job, [&](EntryLine&& line) {
        take({std::move(line.cells), std::move(line.key), std::move(line.subKey)});
    });
}

void frmAccount::ListLoaded() {
    KestroList1->SetColumnCaption(kColRmb, AmountHeading(query_));
    KestroList1->SetSortable(query_.all);
}

void frmAccount::ReloadData() {
    if (IsBusy()) return;
    EntryFilter filter;
    filter.kind = sKind;
    filter.text = txtSearch->text();
    filter.marked = chkFlag->IsChecked();
    if (btnDate0->Date().isValid()) filter.date1 = DateText(btnDate0->Date());
    if (btnDate1->Date().isValid()) filter.date2 = DateText(btnDate1->Date());
    query_ = BuildEntryQuery(filter);
    LoadList(false);
}

void frmAccount::ShowSums() {
    const auto sums = ShowSumTexts(ReadSums(State().gDB, query_), query_.all);
    ShowSumLabels(sums.count, sums.value);
    sumsTag_ = sums.tag;
    ShowFigures(sums);
}

void frmAccount::ShowDetail() {
    const bool chosen = KestroList1->CurrentRow() >= 0;
    const auto detail = ReadDetail(State().gDB, chosen ? KestroList1->CurrentKey().toLongLong() : -1);
    FillDetail(!chosen ? QString() : u"列表NO【"_s + QString::number(CurrentNumber()) + u"】"_s, detail.title,
               detail.rows);
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

void frmAccount::EditEntry() {
    const int row = KestroList1->CurrentRow();
    if (row < 0) {
        ShowMsg(u"没有选中任何记录!"_s);
        return;
    }
    ResetDlg(kDlgEntry);
    EntryDialog entry;
    entry.isNew = 0;
    entry.id = static_cast<int>(EntryOf(row));
    OpenModal(kDlgEntry);
    if (!entry.done) return;
    ShowSums();
    if (entry.id == -1) return;
    auto line = ReadOneLine(State().gDB, entry.id, CurrentNumber());
    if (!line) {
        ShowMsg(u"意外错误!"_s, u"确定"_s, kMsgFail);
        return;
    }
    if (query_.all) line->cells[kColRmb] = line->signedAmount;
    for (int column = 0; column < KestroList1->ColumnCount(); ++column)
        KestroList1->SetCell(row, column, line->cells[static_cast<size_t>(column)]);
    KestroList1->SetRowKey(row, line->key, line->subKey);
    ShowDetail();
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

void frmAccount::CopySums() {
    Outside().copyText(sumsTag_);
    ShowMsg(sumsTag_ + u"\n\n已将增加、减少额、差额数字复制到了 Windows 粘贴板！"_s, u"确定"_s, kMsgInfo,
            u"提示"_s, 392, 200);
}

void frmAccount::OpenKindTree() {
    ResetDlg(kDlgTree);
    TreeDialog tree;
    tree.key = u"tKind"_s;
    OpenModal(kDlgTree, comKind->mapToGlobal(comKind->rect().bottomLeft()));
    if (tree.done && !tree.key.isEmpty()) ChooseKind(tree.key);
}

void frmAccount::DoMenu(const QString& menu, const QString& key) {
    if (menu == u"searchdate") return ReloadData();
    if (menu == u"key") return DoKey(key);
    if (menu == u"edit" && key == u"new") return NewEntry();
    if (menu == u"edit" && key == u"edit") return EditEntry();
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
    if (name == u"edit") EditEntry();
    if (name == u"reload") ReloadData();
    if (name == u"find") txtSearch->setFocus(Qt::ShortcutFocusReason);
}

void frmAccount::DoTextMenu(const QString& key) {
    if (key == u"textcut") txtSearch->cut();
    if (key == u"textcopy") txtSearch->copy();
    if (key == u"textpaste") txtSearch->paste();
    if (key == u"textselect") txtSearch->selectAll();
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
