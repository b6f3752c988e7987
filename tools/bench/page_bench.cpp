#include "tools/bench/page_bench.h"

#include "books/frm_setting.h"
#include "chart/maintenance.h"
#include "ledger/frm_account.h"
#include "ledger/frm_sub_acc.h"
#include "ledger/record_query.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "store/state.h"
#include "tools/bench/book_bench.h"
#include "tools/bench/raw_book.h"
#include "tools/bench/stage.h"

using namespace Qt::StringLiterals;

namespace {

double MedianTime(int runs, const std::function<void()>& body) {
    std::vector<double> times;
    for (int run = 0; run <= runs; ++run)
        times.push_back(Milliseconds(body));
    return Median(times);
}

// The code is left alone, so the change asks nothing.
void GiveOpeningBalances(cConnection& book) {
    Transaction change(book);
    double opening = 100;
    for (const auto& line : ReadChart(book, u"tKind"_s)) {
        if (!IsLeafCode(book, line.code, u"tKind"_s)) continue;
        if (const auto stored = ReadChartRecord(book, line.id, u"tKind"_s))
            ChangeRow(book, u"tKind"_s, *stored, {stored->code + u' ' + stored->name, opening++, {}, false});
    }
    change.Commit();
}

}  // namespace

void MeasureClicks(SpeedTable& table, const QString& path, int entries, int runs) {
    OpenBook(path);
    Stage<frmAccount> stage;
    auto* list = Control<KestroList>(*stage.content, u"KestroList1"_s);
    auto* strip = Control<KestroScrollMenu>(*stage.content, u"KestroScrollMenu1"_s);
    auto* flag = Control<KestroCheck>(*stage.content, u"chkFlag"_s);
    const auto add = [&](const QString& name, const std::function<void()>& click) {
        const auto painted = [&] {
            click();
            list->viewport()->repaint();
        };
        table.Add({u"click: "_s + name, entries, MedianTime(runs, painted), 0, u"ms"_s, kClickBound});
    };
    add(u"a kind in the strip"_s, [&] { strip->onClick(u"title3"_s, kMeasuredKind); });
    add(u"reload of that kind"_s, [&] { stage.content->DoMenu(u"key"_s, u"reload"_s); });
    add(u"only marked entries"_s, [&] { flag->onChange(true); });
    add(u"all filters off, book read anew"_s, [&] { stage.content->pTRANSACCOUNT(); });
    add(u"down one line, with its detail"_s, [&] {
        list->SetCurrentRow(5000);
        list->onCurrent(5000);
    });
    State().gDB.Close();
}

void MeasureAccountList(SpeedTable& table, const QString& path, int entries, int runs) {
    OpenBook(path);
    RawBook raw(path.toStdString());
    Stage<frmSubAcc> stage;
    auto* list = Control<KestroList>(*stage.content, u"KestroList1"_s);
    const auto ours = [&] {
        stage.content->DoMenu(u"key"_s, u"reload"_s);
        list->viewport()->repaint();
    };
    const std::string page = BuildRecordQuery({}).Sql().toStdString() + " limit 0,10000";
    const auto theirs = [&] {
        raw.Rows(page);
        raw.ReadSums("tSubAccItem", "");
    };
    ours();
    const auto bound = list->RowCount() < kLinesPerPage ? std::nullopt : std::optional(kReadBound);
    table.Add(
        Compared(u"account list: page, count, sums, painted"_s, entries, InTurns(runs, ours, theirs), bound));
    table.Add({u"  its lines"_s, entries, static_cast<double>(list->RowCount()), 0, u"lines"_s, {}});
    State().gDB.Close();
}

void MeasureKindsPage(SpeedTable& table, const QString& path, int entries, int runs) {
    OpenBook(path);
    GiveOpeningBalances(State().gDB);
    Stage<frmSetting> stage;
    auto* list = Control<KestroList>(*stage.content, u"KestroList1"_s);
    const auto click = [&] {
        stage.content->OpenSub(u"kind"_s);
        list->viewport()->repaint();
    };
    table.Add({u"click: the kinds page"_s, entries, MedianTime(runs, click), 0, u"ms"_s, kClickBound});
    const EntryPasses passes;
    click();
    table.Add({u"  its passes over the entries"_s, entries, passes.Count(), 0, u"reads"_s, 0});
    table.Add({u"  its lines"_s, entries, static_cast<double>(list->RowCount()), 0, u"lines"_s, {}});
    State().gDB.Close();
}
