#include "ledger/frm_sub_acc.h"

#include "chart/chart_panel.h"
#include "chart/codes.h"
#include "ledger/entry_columns.h"
#include "ledger/record_query.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/controls/kestro_text.h"
#include "store/dates.h"
#include "store/dialogs.h"
#include "store/messages.h"
#include "store/outside.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

frmSubAcc::frmSubAcc(QWidget* parent) : ListPage(parent, RecordPageWords()), query_(BuildRecordQuery({})) {
    btnNoNew = new KestroButton(ButtonLook::toolbar, u"禁增"_s, u"nonew"_s, this);
    btnNoNew->setObjectName(u"btnNoNew"_s);
    btnNoNew->setToolTip(u"『禁增』账户记录，在【记账时】选择账户，将会【自动记入】账户！"_s);
    chart_ = new ChartPanel(u"tSubAcc"_s, false, this);
    chart_->setObjectName(u"accounts"_s);
    chart_->hide();
    KestroScrollMenu1->AddSection(u"title1"_s, u"账户"_s);
    KestroScrollMenu1->AddItem(u"title1"_s,
                               {.key = u"list"_s, .caption = u"账户记录"_s, .icon = u"account"_s});
    KestroScrollMenu1->AddItem(u"title1"_s, {.key = u"tongji"_s, .caption = u"账户管理"_s, .icon = u"set"_s});
    Connect();
    ConnectSearch();
    LoadComkindData();
    const auto period = QuickPeriodLabels(State().LoadDate);
    SetPeriod(period.first, period.second);
    for (auto* later : {btnPrint, btnExport})
        later->setEnabled(false);
    SwitchMode(u"list"_s);
}

void frmSubAcc::Connect() {
    KestroScrollMenu1->onClick = [this](const QString&, const QString& item) { SwitchMode(item); };
    btnNew->onClick = [this] { chart_->New(); };
    btnEdit->onClick = [this] { InList() ? EditRecord() : chart_->Edit(); };
    btnDel->onClick = [this] { InList() ? DeleteCurrent() : chart_->Del(); };
    KestroList1->onDoubleClick = [this](int, int) { EditRecord(); };
    KestroList1->onRightClick = [this](int, const QPoint& at) {
        const bool chosen = KestroList1->CurrentRow() >= 0;
        Menus::SetEnabled(u"edit"_s, u"new"_s, false);
        Menus::SetEnabled(u"edit"_s, u"template"_s, false);
        Menus::SetEnabled(u"edit"_s, u"edit"_s, chosen);
        Menus::SetEnabled(u"edit"_s, u"del"_s, chosen);
        Menus::Popup(u"edit"_s, at);
    };
    lblValue->setToolTip(u"【单击】查看增加、减少额、差额！会自动复制到 Windows 粘贴板。"_s);
    lblValue->onClick = [this] { CopySums(); };
    textMenu_ = Menus::RegisterTextMenu(kPageSubAcc, [this](const QString& key) { DoTextMenu(key); });
    notices_.push_back(Notices().chartChanged.Subscribe([this](const QString& table) {
        if (table.toLower() != u"tsubacc") return;
        const QString followed = sKind;
        LoadComkindData();
        if (sKind != followed) ReloadData();
    }));
}

void frmSubAcc::ConnectSearch() {
    txtSearch->onEnter = [this] { ReloadData(); };
    txtSearch->onEndButton = [this] { ReloadData(); };
    txtSearch->onKey = [this](QKeyEvent* event) {
        if (event->key() != Qt::Key_Space && event->key() != Qt::Key_Escape) return false;
        txtSearch->setText({});
        return true;
    };
    txtSearch->setToolTip(u"1.关键词限于【事情标题】\n2.这是模糊搜索\n3.单击重新载入、刷新"_s);
    txtSearch->onContextMenu = [](QPoint at) { Menus::Popup(u"text"_s, at); };
    comKind->onChoose = [this](const QString&, const QString& key) { ChooseAccount(key); };
    comKind->onBrowse = [this] { OpenAccountTree(); };
    comKind->SetBrowse(u"tree"_s, u"在账户树中选择"_s);
}

void frmSubAcc::LoadComkindData() {
    comKind->Clear();
    comKind->AddItem(u"全部"_s, u"all"_s, u"book"_s);
    for (const auto& account : ShownCodes(State().gDB, u"tSubAcc"_s))
        comKind->AddItem(account.code + account.name, account.code, u"book"_s);
    if (comKind->SetCurrentKey(sKind)) return;
    const QString name = NameByCode(State().gDB, sKind, u"tSubAcc"_s);
    if (!name.isEmpty()) return comKind->SetText(sKind + name);
    sKind = u"all"_s;
    comKind->SetCurrentKey(sKind);
}

void frmSubAcc::ChooseAccount(const QString& code) {
    sKind = code;
    if (!comKind->SetCurrentKey(code)) comKind->SetText(code + NameByCode(State().gDB, code, u"tSubAcc"_s));
    ReloadData();
}

void frmSubAcc::OpenAccountTree() {
    ResetDlg(kDlgTree);
    TreeDialog tree;
    tree.key = u"tSubAcc"_s;
    OpenModal(kDlgTree, comKind->mapToGlobal(comKind->rect().bottomLeft()));
    if (tree.done && !tree.key.isEmpty()) ChooseAccount(tree.key);
}

void frmSubAcc::SwitchMode(const QString& mode) {
    if (mode == sMode || mode.isEmpty()) return;
    sMode = mode;
    KestroScrollMenu1->Select(u"title1"_s, mode);
    btnNew->setVisible(!InList());
    btnNoNew->setVisible(InList());
    tools_.front() = InList() ? btnNoNew : btnNew;
    btnDel->SetArrow(InList());
    btnNew->setToolTip(u"新增账户"_s);
    btnDel->setToolTip(InList() ? u"删除账户记录"_s : u"删除账户：已在记账记录中使用的账户无法删除"_s);
    btnEdit->setToolTip(InList() ? u"修改账户记录"_s : u"修改账户"_s);
    btnExport->setToolTip(InList() ? u"导出账户记录列表所有记录"_s : u"导出所有账户列表"_s);
    btnPrint->setToolTip(InList() ? u"打印账户记录列表所有记录"_s : u"打印所有账户列表"_s);
    if (!InList()) chart_->Reload();
    ShowOther(InList() ? nullptr : chart_);
}

int frmSubAcc::CountRows() {
    return CountLines(State().gDB, query_);
}

void frmSubAcc::ReadRows(int page, Job& job, const std::function<void(ListLine&&)>& take) {
    ReadRecordLines(State().gDB, query_, page, job, [&](EntryLine&& line) {
        take({std::move(line.cells), std::move(line.key), std::move(line.subKey)});
    });
}

void frmSubAcc::ListLoaded() {
    KestroList1->SetColumnCaption(kColRmb, AmountHeading(query_));
    KestroList1->SetSortable(query_.all);
}

void frmSubAcc::ReloadData() {
    if (IsBusy()) return;
    EntryFilter filter;
    filter.kind = sKind;
    filter.text = txtSearch->text();
    if (btnDate0->Date().isValid()) filter.date1 = DateText(btnDate0->Date());
    if (btnDate1->Date().isValid()) filter.date2 = DateText(btnDate1->Date());
    query_ = BuildRecordQuery(filter);
    LoadList(false);
}

void frmSubAcc::ShowSums() {
    const auto sums = RecordSumTexts(ReadSums(State().gDB, query_));
    ShowSumLabels(sums.count, sums.value);
    sumsTag_ = sums.tag;
}

void frmSubAcc::ShowDetail() {
    const int row = KestroList1->CurrentRow();
    const auto detail = ReadDetail(State().gDB, row >= 0 ? EntryOf(row) : -1);
    FillDetail(row < 0 ? QString() : u"列表NO【"_s + QString::number(CurrentNumber()) + u"】"_s, detail.title,
               detail.rows);
}

qint64 frmSubAcc::EntryOf(int row) const {
    return KestroList1->RowSubKey(row).toLongLong();
}

void frmSubAcc::EditRecord() {
    const int row = KestroList1->CurrentRow();
    if (row < 0) {
        ShowMsg(u"没有选中任何记录!"_s);
        return;
    }
    if (!CheckRecord(State().gDB, KestroList1->RowKey(row).toLongLong())) return;
    ResetDlg(kDlgEntry);
    EntryDialog entry;
    entry.isNew = 0;
    entry.id = static_cast<int>(EntryOf(row));
    OpenModal(kDlgEntry);
    if (!entry.done) return;
    ShowSums();
    if (entry.id != -1) RewriteLine(row);
}

void frmSubAcc::RewriteLine(int row) {
    auto line = ReadOneRecord(State().gDB, KestroList1->RowKey(row).toLongLong(), CurrentNumber());
    if (!line) {
        CheckRecord(State().gDB, KestroList1->RowKey(row).toLongLong());
        return;
    }
    if (query_.all) line->cells[kColRmb] = line->signedAmount;
    for (int column = 0; column < KestroList1->ColumnCount(); ++column)
        KestroList1->SetCell(row, column, line->cells[static_cast<size_t>(column)]);
    ShowDetail();
}

void frmSubAcc::DoBtnMenuDelAll() {
    if (InList()) ListPage::DoBtnMenuDelAll();
}

void frmSubAcc::CopySums() {
    Outside().copyText(sumsTag_);
    ShowMsg(sumsTag_ + u"\n\n已将增加、减少额、差额数字复制到了 Windows 粘贴板！"_s, u"确定"_s, kMsgInfo,
            u"提示"_s, 392, 200);
}

void frmSubAcc::DoMenu(const QString& menu, const QString& key) {
    if (menu == u"searchdate") return ReloadData();
    if (menu == u"edit" && key == u"edit") return EditRecord();
    if (menu == u"edit" && key == u"del") return DeleteCurrent();
    if (menu != u"key") return;
    if (key == u"edit") btnEdit->click();
    if (key == u"reload") InList() ? ReloadData() : chart_->Reload();
    if (key == u"find" && InList()) txtSearch->setFocus(Qt::ShortcutFocusReason);
}

void frmSubAcc::DoTextMenu(const QString& key) {
    if (key == u"textcut") txtSearch->cut();
    if (key == u"textcopy") txtSearch->copy();
    if (key == u"textpaste") txtSearch->paste();
    if (key == u"textselect") txtSearch->selectAll();
}

void frmSubAcc::pRESETGROUP() {
    ListPage::pRESETGROUP();
    if (chart_) chart_->ResetGroup();
}

QString frmSubAcc::BuildPrintInfo(bool bChecked) const {
    const QString checked = bChecked ? CheckedCondition(KestroList1->CheckedKeys()) : QString();
    return u"tSubAccItem/1/【"_s + comKind->text() + u"】账户记录列表/"_s + query_.where + checked + u"/1"_s;
}
