#include "ledger/frm_sub_acc.h"

#include "chart/chart_panel.h"
#include "chart/codes.h"
#include "ledger/list_print.h"
#include "ledger/record_query.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/parts/toolbar.h"
#include "store/entry_effect.h"
#include "store/state.h"

using namespace Qt::StringLiterals;

namespace {

ListPageWords Words() {
    ListPageWords words;
    words.chart = Chart::accounts;
    words.lines = LineKind::records;
    words.treeTip = u"在账户树中选择"_s;
    words.searchPrompt = u"搜索事情标题"_s;
    words.kindIcon = u"book"_s;
    words.hasFlag = false;
    words.columns = {
        {u"null"_s, u"NO"_s, 50, 20, u"number"_s, ListColor::dim, false, {}},
        {u"date"_s, u"记账日期"_s, 110, 100, u"date"_s, ListColor::dim, false, {}},
        {u"kind"_s, u"账户名称"_s, 180, 120, u"string"_s, ListColor::none, false, {}},
        {u"add"_s, u"增加"_s, 70, 60, u"money"_s, ListColor::add, false, {}},
        {u"reduce"_s, u"减少"_s, 70, 60, u"money"_s, ListColor::reduce, false, {}},
        {u"rmb"_s, u"金   额"_s, 75, 50, u"money"_s, ListColor::none, false,
         u"余额在【事情分类】为【全部】的情况下不显示，因为无意义!"_s},
        {u"thing"_s, u"事情"_s, 200, 140, u"string"_s, ListColor::none, true, {}},
    };
    return words;
}

}  // namespace

frmSubAcc::frmSubAcc(QWidget* parent) : ListPage(parent, Words()) {
    query_ = BuildRecordQuery({});
    KestroList1->setAccessibleName(u"账户记录列表"_s);
    btnNoNew = toolbar_->Add(u"禁增"_s, u"nonew"_s, u"btnNoNew"_s, {},
                             u"『禁增』账户记录，在【记账时】选择账户，将会【自动记入】账户！"_s);
    toolbar_->PutFirst(btnNoNew);
    chartPanel_ = new ChartPanel(Chart::accounts, false, this);
    chartPanel_->setObjectName(u"accounts"_s);
    chartPanel_->hide();
    auto* strip = KestroScrollMenu1;
    strip->AddSection(u"title1"_s, u"账户"_s);
    strip->AddItem(u"title1"_s, {.key = u"list"_s, .caption = u"账户记录"_s, .icon = u"account"_s});
    strip->AddItem(u"title1"_s, {.key = u"tongji"_s, .caption = u"账户管理"_s, .icon = u"set"_s});
    strip->onClick = [this](const QString&, const QString& item) { SwitchMode(item); };
    ReloadChoosers();
    SetPeriod(PeriodOfKey(State().settings.LoadDate));
    SwitchMode(u"list"_s);
}

void frmSubAcc::Shown() {
    ListPage::Shown();
    if (!InList()) chartPanel_->Shown();
}

void frmSubAcc::TakeFocus() {
    if (InList()) return ListPage::TakeFocus();
    chartPanel_->TakeFocus();
}

bool frmSubAcc::Can(Act act) const {
    return InList() ? ListPage::Can(act) : chartPanel_->Can(act);
}

void frmSubAcc::Do(Act act) {
    if (InList()) return ListPage::Do(act);
    chartPanel_->Do(act);
}

void frmSubAcc::ReloadChoosers() {
    comKind->Clear();
    comKind->AddItem(u"全部"_s, u"all"_s, u"book"_s);
    for (const auto& account : ShownCodes(State().gDB, Chart::accounts))
        comKind->AddItem(account.code + account.name, account.code, u"book"_s);
    if (comKind->SetCurrentKey(sKind)) return;
    const QString name = NameByCode(State().gDB, sKind, Chart::accounts);
    if (!name.isEmpty()) return comKind->SetText(sKind + name);
    sKind = u"all"_s;
    comKind->SetCurrentKey(sKind);
}

bool frmSubAcc::StandsAlone(int row) const {
    const auto ties = TiesOf(State().gDB, EntryOf(row));
    return !ties || ties->record1 == -1 || ties->record2 == -1;
}

void frmSubAcc::ChooseCode(const QString& code) {
    sKind = code;
    if (!comKind->SetCurrentKey(code))
        comKind->SetText(code + NameByCode(State().gDB, code, Chart::accounts));
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

void frmSubAcc::ShowFigures(const EntrySums& figures) {
    const auto sums = RecordSumTexts(figures);
    ShowSumLabels(sums.count, sums.value);
    sumsTag_ = sums.tag;
}

qint64 frmSubAcc::EntryOf(int row) const {
    return KestroList1->RowSubKey(row).toLongLong();
}

bool frmSubAcc::CheckLine(int row) {
    return CheckRecord(State().gDB, KestroList1->RowKey(row).toLongLong());
}

PrintInfo frmSubAcc::InfoToPrint(const std::optional<std::vector<qint64>>& checked) const {
    return RecordPrintInfo(query_, comKind->text(), checked);
}

// A change may have taken the account away, and the record with it.
std::optional<EntryLine> frmSubAcc::ReadLineAgain(int row, qint64) {
    return ReadOneRecord(State().gDB, KestroList1->RowKey(row).toLongLong(),
                         KestroList1->Cell(row, kColNo).toInt());
}

void frmSubAcc::pRESETGROUP() {
    ListPage::pRESETGROUP();
    if (chartPanel_) chartPanel_->ResetGroup();
}
