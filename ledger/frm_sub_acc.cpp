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

using namespace Qt::StringLiterals;

frmSubAcc::frmSubAcc(QWidget* parent) : ListPage(parent, RecordPageWords()) {
    query_ = BuildRecordQuery({});
    btnNoNew = new KestroButton(ButtonLook::toolbar, u"禁增"_s, u"nonew"_s, this);
    btnNoNew->setObjectName(u"btnNoNew"_s);
    btnNoNew->setToolTip(u"『禁增』账户记录，在【记账时】选择账户，将会【自动记入】账户！"_s);
    chartPanel_ = new ChartPanel(u"tSubAcc"_s, false, this);
    chartPanel_->setObjectName(u"accounts"_s);
    chartPanel_->hide();
    KestroScrollMenu1->AddSection(u"title1"_s, u"账户"_s);
    KestroScrollMenu1->AddItem(u"title1"_s,
                               {.key = u"list"_s, .caption = u"账户记录"_s, .icon = u"account"_s});
    KestroScrollMenu1->AddItem(u"title1"_s, {.key = u"tongji"_s, .caption = u"账户管理"_s, .icon = u"set"_s});
    Connect();
    LoadComkindData();
    const auto period = QuickPeriodLabels(State().settings.LoadDate);
    SetPeriod(period.first, period.second);
    SwitchMode(u"list"_s);
}

void frmSubAcc::Connect() {
    KestroScrollMenu1->onClick = [this](const QString&, const QString& item) { SwitchMode(item); };
    btnNew->onClick = [this] { chartPanel_->New(); };
    btnEdit->onClick = [this] { InList() ? EditCurrent() : chartPanel_->Edit(); };
    btnDel->onClick = [this] { InList() ? DeleteCurrent() : chartPanel_->Del(); };
    KestroList1->onDoubleClick = [this](int, int) { EditCurrent(); };
    KestroList1->onRightClick = [this](int, const QPoint& at) {
        const bool chosen = KestroList1->CurrentRow() >= 0;
        Menus::SetEnabled(u"edit"_s, u"new"_s, false);
        Menus::SetEnabled(u"edit"_s, u"template"_s, false);
        Menus::SetEnabled(u"edit"_s, u"edit"_s, chosen);
        Menus::SetEnabled(u"edit"_s, u"del"_s, chosen);
        Menus::Popup(u"edit"_s, at);
    };
    notices_.push_back(Notices().chartChanged.Subscribe([this](const QString& table) {
        if (table.toLower() != u"tsubacc") return;
        LoadComkindData();
        ReloadInPlace();
    }));
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

void frmSubAcc::ChooseCode(const QString& code) {
    sKind = code;
    if (!comKind->SetCurrentKey(code)) comKind->SetText(code + NameByCode(State().gDB, code, u"tSubAcc"_s));
    ReloadData();
}

void frmSubAcc::SwitchMode(const QString& mode) {
    if (mode.isEmpty()) return;
    if (mode == u"tongji") chartPanel_->Reload();
    if (mode == sMode) return;
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
    ShowOther(InList() ? nullptr : chartPanel_);
}

EntryQuery frmSubAcc::BuildQuery(const EntryFilter& filter) const {
    return BuildRecordQuery(filter);
}

void frmSubAcc::ReadRows(int page, Job& job, const std::function<void(EntryLine&&)>& take) {
    ReadRecordLines(State().gDB, query_, page, job, take);
}

void frmSubAcc::ShowSums() {
    const auto sums = RecordSumTexts(ReadSums(State().gDB, query_));
    ShowSumLabels(sums.count, sums.value);
    sumsTag_ = sums.tag;
}

qint64 frmSubAcc::EntryOf(int row) const {
    return KestroList1->RowSubKey(row).toLongLong();
}

bool frmSubAcc::CheckLine(int row) {
    return CheckRecord(State().gDB, KestroList1->RowKey(row).toLongLong());
}

std::optional<EntryLine> frmSubAcc::ReadLineAgain(int row, qint64) {
    if (!CheckLine(row)) return {};  // the change took the account away
    return ReadOneRecord(State().gDB, KestroList1->RowKey(row).toLongLong(),
                         KestroList1->Cell(row, kColNo).toInt());
}

void frmSubAcc::DoBtnMenuDelAll() {
    if (InList()) ListPage::DoBtnMenuDelAll();
}

void frmSubAcc::DoMenu(const QString& menu, const QString& key) {
    if (menu == u"searchdate") return ReloadData();
    if (menu == u"edit" && key == u"edit") return EditCurrent();
    if (menu == u"edit" && key == u"del") return DeleteCurrent();
    if (menu != u"key") return;
    if (key == u"new" && !InList()) chartPanel_->New();
    if (key == u"edit") btnEdit->click();
    if (key == u"reload") InList() ? ReloadData() : chartPanel_->Reload();
    if (key == u"find" && InList()) txtSearch->setFocus(Qt::ShortcutFocusReason);
}

void frmSubAcc::pRESETGROUP() {
    ListPage::pRESETGROUP();
    if (chartPanel_) chartPanel_->ResetGroup();
}

QString frmSubAcc::BuildPrintInfo(bool bChecked) const {
    const QString checked = bChecked ? CheckedCondition(KestroList1->CheckedKeys()) : QString();
    return u"tSubAccItem/1/【"_s + comKind->text() + u"】账户记录列表/"_s + query_.where + checked + u"/1"_s;
}

void frmSubAcc::showEvent(QShowEvent* event) {
    ListPage::showEvent(event);
    if (!InList()) chartPanel_->Reload();
}
