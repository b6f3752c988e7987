#include "stats/frm_tj.h"

#include "chart/codes.h"
#include "output/export_page.h"
#include "output/print_run.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_option.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/parts/job_bar.h"
#include "shell/parts/period_buttons.h"
#include "stats/branch_report.h"
#include "stats/report_export.h"
#include "store/dialogs.h"
#include "store/messages.h"
#include "store/state.h"

using namespace Qt::StringLiterals;

void frmTJ::Shown() {
    fresh_.Shown();
}

void frmTJ::TakeFocus() {
    List()->setFocus();
}

bool frmTJ::Can(Act act) const {
    switch (act) {
        case Act::exportHtml:
        case Act::exportText:
        case Act::exportSheet:
        case Act::print:
        case Act::preview:
        case Act::period:
            return true;
        case Act::add: {  // of an entry
            const auto* entries = PageOfCode(kPageAccount);
            return entries && entries->Can(Act::newEntry);
        }
        default:
            return false;
    }
}

void frmTJ::Do(Act act) {
    switch (act) {
        case Act::exportHtml:
        case Act::exportText:
        case Act::exportSheet:
            return Export(act);
        case Act::print:
        case Act::preview:
            return Print(act == Act::preview);
        case Act::add:
            return PageOfCode(kPageAccount)->Do(Act::newEntry);
        default:
            return;
    }
}

std::vector<KestroList*> frmTJ::Lists() const {
    return {lists_.begin(), lists_.end()};
}

void frmTJ::pRESETGROUP() {
    for (auto* list : lists_)
        for (int column = 0; column < list->ColumnCount(); ++column)
            if (list->Column(column).type == u"money") list->SetMoneyGroup(column, State().settings.nGroup);
}

void frmTJ::SetPeriod(const Period& period) {
    Now().period = period;
    period_->SetValue(period);
}

void frmTJ::ShowMode(const QString& mode) {
    const auto known = ModeOfKey(mode);
    if (!known) return;
    mode_ = *known;
    KestroScrollMenu1->Select(Row().chart == Chart::kinds ? u"title0"_s : u"title1"_s, mode);
    comKind->setVisible(mode_ == ReportMode::date);
    comAcc->setVisible(mode_ == ReportMode::accdate);
    lengths_->setVisible(Row().byPeriod);
    for (auto* list : lists_)
        list->setVisible(list == List());
    for (const auto& [option, length] : LengthOptions())
        if (bPeriod[SideOfMode()] == length) option->SetOn();
    period_->SetValue(Now().period);
    Arrange();
    ShowTitle();
}

void frmTJ::ShowTitle() {
    const auto& now = Now();
    const QString text = now.stale ? now.title + u"（账本已有变动，请重新统计）"_s : now.title;
    lblTip->SetText(text);
    lblTip->setToolTip(text);
}

void frmTJ::MarkStale() {
    for (auto& state : states_)
        state.stale = state.ran;
    ShowTitle();
}

void frmTJ::LoadComkindData() {
    FillChooser(comKind, Chart::kinds, sKindKey);
    FillChooser(comAcc, Chart::accounts, sAccKey);
}

// Hidden rows can be asked for, too.
void frmTJ::FillChooser(KestroCombox* box, Chart chart, QString& code) {
    box->Clear();
    for (const auto& row : AllCodes(State().gDB, chart))
        box->AddItem(row.code + row.name, row.code, chart == Chart::kinds ? u"kind"_s : u"account"_s);
    if (!box->SetCurrentKey(code)) {
        box->SetText({});
        code.clear();
    }
}

void frmTJ::OpenTree(Chart chart) {
    auto* box = chart == Chart::kinds ? comKind : comAcc;
    ResetDlg(kDlgTree);
    TreeDialog tree;
    tree.key = TableOf(chart).table;
    OpenModal(kDlgTree, box->mapToGlobal(box->rect().bottomLeft()));
    if (!tree.done || tree.key.isEmpty()) return;
    (chart == Chart::kinds ? sKindKey : sAccKey) = tree.key;
    if (!box->SetCurrentKey(tree.key)) box->SetText(tree.key + tree.name, tree.key);
}

void frmTJ::Run() {
    Job job(KestroPGress1->Slots());
    if (job.Refused()) return;
    const auto question = Question();
    const QString wrong = Row().byPeriod ? WrongChoice(question) : QString();
    if (!wrong.isEmpty()) {
        ShowMsg(wrong);
        return;
    }
    auto& book = State().gDB;
    const auto report = Row().byPeriod ? StatByPeriod(book, question, job)
                                       : StatAllByPeriod(book, question.chart, question.period, job);
    if (!report || report->stopped) TellStopped();
    if (report) ShowReport(*report);
}

PeriodQuestion frmTJ::Question() const {
    const bool kinds = Row().chart == Chart::kinds;
    return {Row().chart, (kinds ? comKind : comAcc)->text(), kinds ? sKindKey : sAccKey,
            bPeriod[SideOfMode()], period_->Value()};
}

void frmTJ::ShowReport(const Report& report) {
    auto& now = Now();
    now.title = report.caption;
    now.ran = true;
    now.stale = false;
    auto* list = List();
    {
        const ListFill fill(*list);
        list->Clear();
        for (const auto& line : report.lines)
            list->AddRow(line, line.front());
    }
    ShowTitle();
}

void frmTJ::Export(Act act) {
    ExportFor(act, ReportExport(mode_, Now().title, RowsOnShow(*List())), KestroPGress1->Slots());
}

// What is printed is the last report that the work table holds.
void frmTJ::Print(bool preview) {
    const PrintInfo info{.table = Row().table, .title = Now().title, .mark = u"1"_s};
    RunPrint({{info}, preview, KestroPGress1->PrintSlot(preview)});
}
