#include "tools/bench/page_bench.h"

#include "books/frm_setting.h"
#include "chart/chart_writing.h"
#include "ledger/frm_sub_acc.h"
#include "ledger/record_query.h"
#include "shell/controls/kestro_list.h"
#include "store/state.h"
#include "tools/bench/raw_book.h"
#include "tools/bench/stage.h"

using namespace Qt::StringLiterals;

namespace {

void GiveOpeningBalances(cConnection& book) {
    Transaction change(book);
    double opening = 100;
    for (const auto& line : ReadChart(book, Chart::kinds)) {
        if (!IsLeafCode(book, line.code, Chart::kinds)) continue;
        auto stored = ReadChartRecord(book, line.id, Chart::kinds);
        if (!stored) continue;
        stored->newOpening = opening++;
        WriteChange(book, Chart::kinds, {*stored, stored->code, stored->name, true});
    }
    change.Commit();
}

}  // namespace

void MeasureAccountList(SpeedTable& table, const QString& path, int entries, int runs) {
    OpenBook(path);
    RawBook raw(path.toStdString());
    Stage<frmSubAcc> stage;
    auto* list = Control<KestroList>(*stage.content, u"KestroList1"_s);
    const auto ours = [&] {
        stage.content->Do(Act::reload);
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
        return Milliseconds([&] {
            stage.content->OpenSub(u"kind"_s);
            list->viewport()->repaint();
        });
    };
    table.Add({u"click: the kinds page"_s, entries, MedianTime(runs, click), 0, u"ms"_s, kClickBound});
    const EntryPasses passes;
    click();
    table.Add({u"  its passes over the entries"_s, entries, passes.Count(), 0, u"reads"_s, 0});
    table.Add({u"  its lines"_s, entries, static_cast<double>(list->RowCount()), 0, u"lines"_s, {}});
    State().gDB.Close();
}
