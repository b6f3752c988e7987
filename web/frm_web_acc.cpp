#include "web/frm_web_acc.h"

#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/parts/job_bar.h"
#include "shell/parts/kept_place.h"
#include "shell/parts/toolbar.h"
#include "store/state.h"
#include "web/web_ledger.h"

using namespace Qt::StringLiterals;

void frmWebAcc::Shown() {
    fresh_.Shown();
}

void frmWebAcc::TakeFocus() {
    List()->setFocus();
}

bool frmWebAcc::Can(Act act) const {
    return act == Act::remove || act == Act::deleteChecked || act == Act::reload;
}

void frmWebAcc::Do(Act act) {
    if (act == Act::reload && !IsBusy()) ReloadData();
    if (act == Act::remove || act == Act::deleteChecked) DeleteTicked();
}

void frmWebAcc::pRESETGROUP() {
    for (auto* list : lists_)
        for (int column = 0; column < list->ColumnCount(); ++column)
            if (list->Column(column).type == u"money") list->SetMoneyGroup(column, State().settings.nGroup);
}

void frmWebAcc::SetLocked(bool locked) {
    for (QWidget* part : {static_cast<QWidget*>(KestroScrollMenu1), static_cast<QWidget*>(toolbar_),
                          static_cast<QWidget*>(lists_[0]), static_cast<QWidget*>(lists_[1])})
        part->setEnabled(!locked);
}

void frmWebAcc::ShowList(WebList list) {
    list_ = list;
    const bool waiting = list == WebList::waiting;
    KestroScrollMenu1->Select(u"title0"_s, waiting ? u"list"_s : u"his"_s);
    btnCheck->setVisible(waiting);
    btnToBill->setEnabled(waiting);
    toolbar_->Fit();
    for (auto* other : lists_)
        other->setVisible(other == List());
}

// What the charts hold now is what the next posting knows.
void frmWebAcc::ReloadData() {
    Job job(KestroPGress2->Slots());
    if (job.Refused()) return;
    fresh_.Loading();
    ids_.reset();
    ids_ = ReadChartIds(State().gDB);
    for (const auto which : {WebList::waiting, WebList::history})
        if (!job.Stopped()) Load(which, job);
    if (job.Stopped()) TellStopped();
    fresh_.MarkFresh();
}

void frmWebAcc::Load(WebList which, Job& job) {
    auto& list = *ListOf(which);
    const KeptPlace place(list);
    {
        const ListFill fill(list);
        list.Clear();
        ReadWebRows(State().gDB, which, job, [&](WebRow&& row) {
            RowLook look;
            look.danger = which == WebList::history && !row.posted;
            list.AddRow(std::move(row.cells), QString::number(row.id), {}, look);
        });
    }
    place.PutBack(list);
    if (which == WebList::waiting)
        KestroScrollMenu1->SetMark(u"title0"_s, u"list"_s, QString::number(list.RowCount()));
}

void frmWebAcc::SetBusyBar(bool on) {
    KestroPGress1->SetWaiting(on ? u"正在连接网站…"_s : QString());
    KestroPGress1->setVisible(on);
}

void frmWebAcc::PostAll() {
    if (!ids_) ids_ = ReadChartIds(State().gDB);  // the load has failed
    PostWebRowsAsked(State().gDB, *ids_, KestroPGress2->Slots());
}

void frmWebAcc::DeleteTicked() {
    std::vector<qint64> ids;
    for (const auto& key : List()->CheckedKeys())
        ids.push_back(key.toLongLong());
    DeleteWebRowsAsked(State().gDB, list_, ids);
}
