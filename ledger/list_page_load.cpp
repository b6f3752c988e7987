// How a list page reads its lines: by its filter, page by page, and once more in place after a change.

#include "chart/codes.h"
#include "ledger/list_page.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_text.h"
#include "shell/parts/job_bar.h"
#include "shell/parts/kept_place.h"
#include "shell/parts/period_buttons.h"
#include "store/state.h"

#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kRetryMs = 100;
constexpr int kReserveFrom = 100;

}  // namespace

// A timer is not the user: it waits for a running job instead of complaining.
void ListPage::FirstLoad() {
    if (loaded_) return;
    if (State().gBusy) {
        TimerLoadData.start(kRetryMs);
        return;
    }
    ReloadData();
    if (!isVisible() || other_) return;
    KestroList1->setFocus();
    if (KestroList1->RowCount() > 0) MakeCurrent(0);
}

void ListPage::ReloadData() {
    if (IsBusy()) return;
    filter_ = {sKind, txtSearch->text(), period_->Value(), chkFlag->IsChecked()};
    query_ = BuildQuery(filter_);
    chosenRow_ = query_.all ? -1 : IdOfCode(State().gDB, chart_, sKind).value_or(-1);
    figures_.reset();
    sPage = u"0"_s;
    LoadPage();
}

void ListPage::FollowChosenCode() {
    if (query_.all || chosenRow_ < 0) return;
    sKind = CodeOfId(State().gDB, chart_, chosenRow_).value_or(u"all"_s);
}

void ListPage::ReloadInPlace() {
    if (State().gBusy || !loaded_) return;
    if (filter_.kind != sKind) {
        filter_.kind = sKind;
        query_ = BuildQuery(filter_);
    }
    figures_.reset();
    const KeptPlace place(*KestroList1);
    LoadPage();
    place.PutBack(*KestroList1);
    ShowDetail();
}

const EntrySums& ListPage::Figures() {
    auto& book = State().gDB;
    KnownFigures now{query_.from + query_.where, book.Serial(), book.DataVersion(), {}};
    if (!figures_ || figures_->sql != now.sql || figures_->serial != now.serial ||
        figures_->version != now.version) {
        now.sums = ReadSums(book, query_);
        figures_ = now;
    }
    return figures_->sums;
}

void ListPage::LoadPage() {
    Job job(KestroPGress1->Slots());
    if (job.Refused()) return;
    loaded_ = true;
    fresh_.Loading();
    KestroList1->Clear();
    const int count = Figures().count;
    FillPages(count, sPage.toInt());
    const int lines = std::clamp(count - sPage.toInt() * kLinesPerPage, 0, kLinesPerPage);
    if (lines > kReserveFrom) {
        KestroList1->Reserve(lines + kReserveFrom);
        job.Start(lines);
    }
    bool stopped = false;
    {
        const ListFill fill(*KestroList1);
        const auto headed = qScopeGuard([this] {
            KestroList1->SetColumnCaption(kColRmb, AmountHeading(query_));
            KestroList1->SetSortable(query_.all);
        });
        ReadRows(sPage.toInt(), job, [this](EntryLine&& line) {
            KestroList1->AddRow(std::move(line.cells), line.key, line.subKey);
        });
        stopped = job.Stopped();
    }
    if (stopped) TellStopped();
    ShowDetail();
    ShowSums();
    fresh_.MarkFresh();
}

void ListPage::FillPages(int count, int page) {
    const auto items = PageItems(count);
    page = std::clamp(page, 0, static_cast<int>(items.size()) - 1);
    comPage->Clear();
    for (const auto& item : items)
        comPage->AddItem(item.text, item.key, u"Pages"_s);
    comPage->SetCurrent(page);
    sPage = QString::number(page);
    comPage->setVisible(count != 0);
}
