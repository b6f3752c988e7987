#include "ledger/list_page.h"

#include "ledger/detail_panel.h"
#include "ledger/entry_columns.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_calendar.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_pgress.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/controls/kestro_text.h"
#include "shell/job_yield.h"
#include "shell/menus.h"
#include "store/dates.h"
#include "store/errors.h"
#include "store/money.h"
#include "store/state.h"

#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLoadDelayMs = 1;  // the window paints before the first load
constexpr int kRetryMs = 100;
constexpr int kReserveFrom = 100;

QDate DateOf(const KestroButton* button) {
    return button->Date().isValid() ? button->Date() : ParseDate(TodayText(u"-"_s)).value_or(QDate());
}

void ShowPeriod(KestroButton* button, const QString& label, const QString& unset) {
    const auto date = ParseDate(QString(label).replace(u'\n', u'-'));
    button->SetDate(date.value_or(QDate()));
    button->setText(unset);
}

}  // namespace

ListPage::ListPage(QWidget* parent, const ListPageWords& words) : Page(parent) {
    setAutoFillBackground(false);
    deleteWords_ = words.deleteWords;
    KestroScrollMenu1 = new KestroScrollMenu(this);
    BuildToolbar(words);
    BuildFilters(words);
    BuildLists(words);
    KestroPGress1 = new KestroPGress(this);
    KestroPGress1->hide();
    KestroPGress1->onClick = [] { Job::Stop(); };
    AllowDuringJob(KestroPGress1);
    KestroCalendar1 = new KestroCalendar(this);
    NameControls();
    ConnectShared(words);
    KestroCalendar1->onPick = [this](QDate date) { PickDate(date); };
    setFocusProxy(KestroList1);
    TimerLoadData.setSingleShot(true);
    TimerLoadData.setInterval(kLoadDelayMs);
    TimerLoadData.callOnTimeout([this] { RunEvent([this] { FirstLoad(); }); });
}

ListPage::~ListPage() = default;

void ListPage::NameControls() {
    const std::vector<std::pair<QWidget*, QString>> names{{KestroScrollMenu1, u"KestroScrollMenu1"_s},
                                                          {btnNew, u"btnNew"_s},
                                                          {btnEdit, u"btnEdit"_s},
                                                          {btnDel, u"btnDel"_s},
                                                          {btnPrint, u"btnPrint"_s},
                                                          {btnExport, u"btnExport"_s},
                                                          {txtSearch, u"txtSearch"_s},
                                                          {comKind, u"comKind"_s},
                                                          {comPage, u"comPage"_s},
                                                          {btnDate0, u"btnDate0"_s},
                                                          {btnDate1, u"btnDate1"_s},
                                                          {chkFlag, u"chkFlag"_s},
                                                          {KestroList1, u"KestroList1"_s},
                                                          {KestroList2, u"KestroList2"_s},
                                                          {lblCount, u"lblCount"_s},
                                                          {lblValue, u"lblValue"_s},
                                                          {KestroPGress1, u"KestroPGress1"_s}};
    for (const auto& [control, name] : names)
        control->setObjectName(name);
}

void ListPage::BuildToolbar(const ListPageWords& words) {
    const auto tool = [&](ButtonLook look, const QString& caption, const QString& icon, const QString& tip) {
        auto* button = new KestroButton(look, caption, icon, this);
        button->setToolTip(tip);
        return button;
    };
    btnNew = tool(ButtonLook::primary, u"新增"_s, u"new"_s, words.newTip);
    btnEdit = tool(ButtonLook::toolbar, u"修改"_s, u"edit"_s, words.editTip);
    btnDel = tool(ButtonLook::toolbar, u"删除"_s, u"del"_s, words.delTip);
    btnPrint = tool(ButtonLook::toolbar, u"打印"_s, u"print"_s, words.printTip);
    btnExport = tool(ButtonLook::toolbar, u"导出"_s, u"export"_s, words.exportTip);
    for (auto* button : {btnDel, btnPrint, btnExport})
        button->SetArrow(true);
    btnDel->onClick = [this] { DeleteCurrent(); };
    btnDel->onArrow = [this] { Menus::Popup(u"delete"_s, btnDel->mapToGlobal(btnDel->rect().bottomLeft())); };
    tools_ = {btnNew, btnEdit, btnDel, btnPrint, btnExport};
    txtSearch = new KestroText(TextMode::search, this);
    txtSearch->SetPrompt(words.searchPrompt);
}

void ListPage::BuildFilters(const ListPageWords& words) {
    comKind = new KestroCombox(ComboxMode::chooseOnly, this);
    comKind->SetLeftIcon(words.kindIcon);
    btnDate0 = new KestroButton(ButtonLook::date, u"日期1"_s, {}, this);
    btnDate1 = new KestroButton(ButtonLook::date, u"日期2"_s, {}, this);
    btnDate0->setToolTip(
        u"1.例如过滤【2012-1-1】-【2012-02-20】间的记录\n2.则【日期1】就是起始日期.\n3.则【日期2】就是终止日期"_s);
    btnDate1->setToolTip(u"1.如果不选这项意味着搜>=日期1的记录\n2.可以通过右边的下拉箭头,确定快捷期间."_s);
    btnDate1->SetArrow(true);
    btnDate0->onClick = [this] { OpenCalendar(false); };
    btnDate1->onClick = [this] { OpenCalendar(true); };
    btnDate1->onArrow = [this] {
        Menus::Popup(u"shortdate"_s, btnDate1->mapToGlobal(btnDate1->rect().bottomLeft()));
    };
    chkFlag = new KestroCheck(u"重要"_s, this);
    chkFlag->SetIconName(u"flag"_s);
    hasFlag_ = words.hasFlag;
    chkFlag->setVisible(hasFlag_);
    comPage = new KestroCombox(ComboxMode::chooseOnly, this);
    comPage->SetLeftIcon(u"Pages"_s);
    comPage->setToolTip(u"列表页数选择框，每１万为一页!"_s);
    comPage->hide();
    comPage->onChoose = [this](const QString&, const QString& key) {
        if (key == sPage) return;
        sPage = key;
        LoadList(true);
    };
}

void ListPage::BuildLists(const ListPageWords& words) {
    KestroList1 = new KestroList(this);
    KestroList1->SetCheckColumn(true);
    for (const auto& column : words.columns)
        KestroList1->DefineColumn(column);
    KestroList1->onCurrent = [this](int) { ShowDetail(); };
    KestroList1->onFirstPaint = [this] { TimerLoadData.start(); };
    KestroList1->onDelete = [this] { DeleteCurrent(); };
    lblCount = new KestroLabel({}, LabelKind::value, this);
    lblValue = new KestroLabel({}, LabelKind::value, this);
    lblValue->SetCopyIcon(true);
    panel_ = new DetailPanel(this);
    KestroList2 = panel_->List();
    pRESETGROUP();
}

JobBar ListPage::Bar() {
    JobBar bar;
    bar.start = [this](int maximum) {
        KestroPGress1->SetMaximum(maximum);
        KestroPGress1->SetValue(0);
        KestroPGress1->show();
        KestroPGress1->raise();
        KestroList1->SetLoading(true);
    };
    bar.value = [this](int value) { KestroPGress1->SetValue(value); };
    bar.end = [this] {
        KestroPGress1->hide();
        KestroList1->SetLoading(false);
    };
    return bar;
}

// A timer is not the user: it waits for a running job instead of complaining.
void ListPage::FirstLoad() {
    if (loaded_) return;
    if (State().gBusy)
        TimerLoadData.start(kRetryMs);
    else
        ReloadData();
}

void ListPage::LoadList(bool bPaged) {
    Job job(Bar());
    if (job.Refused()) return;
    loaded_ = true;
    KestroList1->Clear();
    const int count = bPaged ? 0 : CountLines(State().gDB, query_);
    if (!bPaged) FillPages(count);
    if (bPaged || count > kReserveFrom) {
        KestroList1->Reserve(std::min(bPaged ? kLinesPerPage : count, kLinesPerPage) + kReserveFrom);
        job.Start(std::min(bPaged ? kLinesPerPage : count, kLinesPerPage));
    }
    bool stopped = false;
    {
        KestroList1->BeginFill();
        const auto filled = qScopeGuard([this] {
            KestroList1->SetColumnCaption(kColRmb, AmountHeading(query_));
            KestroList1->SetSortable(query_.all);
            KestroList1->EndFill();
        });
        ReadRows(sPage.toInt(), job, [this](EntryLine&& line) {
            KestroList1->AddRow(std::move(line.cells), line.key, line.subKey);
        });
        stopped = job.Stopped();
    }
    if (stopped) TellStopped();
    ShowDetail();
    ShowSums();
}

void ListPage::FillPages(int count) {
    comPage->Clear();
    for (const auto& item : PageItems(count))
        comPage->AddItem(item.text, item.key, u"Pages"_s);
    comPage->SetCurrent(0);
    sPage = u"0"_s;
    hasPages_ = count != 0;
    comPage->setVisible(hasPages_ && !other_);
}

void ListPage::ShowOther(QWidget* other) {
    if (other_) other_->hide();
    other_ = other;
    ShowControls();
    if (other_) other_->show();
    setFocusProxy(other_ ? other_ : KestroList1);
    Arrange();
}

void ListPage::ShowControls() {
    const bool list = !other_;
    for (QWidget* control :
         {static_cast<QWidget*>(txtSearch), static_cast<QWidget*>(comKind), static_cast<QWidget*>(btnDate0),
          static_cast<QWidget*>(btnDate1), static_cast<QWidget*>(KestroList1),
          static_cast<QWidget*>(lblCount), static_cast<QWidget*>(lblValue)})
        control->setVisible(list);
    chkFlag->setVisible(list && hasFlag_);
    comPage->setVisible(list && hasPages_);
}

void ListPage::ResetFilters() {
    txtSearch->setText({});
    SetPeriod({}, {});
    comKind->SetCurrent(0);
    chkFlag->SetChecked(false);
}

void ListPage::SetPeriod(const QString& first, const QString& second) {
    ShowPeriod(btnDate0, first, u"日期1"_s);
    ShowPeriod(btnDate1, second, u"日期2"_s);
    Arrange();
}

void ListPage::OpenCalendar(bool second) {
    nCalendarFor = second;
    auto* button = second ? btnDate1 : btnDate0;
    KestroCalendar1->PopUp(button, DateOf(button));
}

void ListPage::PickDate(QDate date) {
    (nCalendarFor ? btnDate1 : btnDate0)->SetDate(date);
    Arrange();
    ReloadData();
}

void ListPage::pRESETGROUP() {
    for (auto* list : {KestroList1, KestroList2})
        for (int column = 0; column < list->ColumnCount(); ++column)
            if (list->Column(column).type == u"money") list->SetMoneyGroup(column, State().settings.nGroup);
}

void ListPage::pRetunPrintInfo(int code, int a, int b, int /*c*/) {
    switch (code) {
        case -1:
            KestroPGress1->SetValue(0);
            KestroPGress1->hide();
            break;
        case 0:
            KestroPGress1->SetMinimum(1);
            KestroPGress1->SetMaximum(b > 0 ? a : a * 13 / 10);
            KestroPGress1->show();
            break;
        case 1:
            KestroPGress1->SetValue(a);
            break;
        case 2:
        case 3:
            KestroPGress1->SetValue(KestroPGress1->Maximum());
            KestroPGress1->setVisible(code == 2);
            break;
        default:
            break;
    }
}

void ListPage::FillDetail(const QString& heading, const QString& title,
                          const std::vector<QStringList>& rows) {
    panel_->Fill(heading, title, rows);
}

void ListPage::ShowSumLabels(const QString& count, const QString& value) {
    lblCount->SetText(count);
    lblValue->SetText(value);
    Arrange();
}
