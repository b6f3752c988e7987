// How a list page reads its lines: by its filter, page by page, and once more in place after a change.

#include "chart/codes.h"
#include "ledger/list_page.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_text.h"
#include "shell/parts/job_bar.h"
#include "shell/parts/period_buttons.h"
#include "store/state.h"

#include <QScopeGuard>
#include <QScrollBar>

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace {

constexpr int kRetryMs = 100;
constexpr int kReserveFrom = 100;

/// What a user has made of a list, by the keys of its lines.
class KeptPlace {
 public:
    explicit KeptPlace(const KestroList& list)
        : current_(list.CurrentKey()),
          sorted_(list.SortedColumn()),
          ascending_(list.SortedAscending()),
          scroll_(list.verticalScrollBar()->value()) {
        for (const auto& key : list.CheckedKeys())
            checked_.insert(key);
    }
    void PutBack(KestroList& list) const {
        if (sorted_ >= 0) list.SortBy(sorted_, ascending_);
        for (int row = 0; !checked_.empty() && row < list.RowCount(); ++row)
            if (checked_.contains(list.RowKey(row))) list.SetChecked(row, true);
        const int row = current_.isEmpty() ? -1 : list.FindRow(current_);
        if (row >= 0) list.SetCurrentRow(row);
        list.verticalScrollBar()->setValue(scroll_);
    }

 private:
    QString current_;
    std::set<QString> checked_;
    int sorted_;
    bool ascending_;
    int scroll_;
};

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
