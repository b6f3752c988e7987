#include "tools/bench/page_bench.h"

#include "books/frm_setting.h"
#include "chart/maintenance.h"
#include "ledger/frm_sub_acc.h"
#include "ledger/record_query.h"
#include "shell/controls/kestro_list.h"
#include "store/state.h"
#include "tools/bench/raw_book.h"
#include "tools/bench/stage.h"

using namespace Qt::StringLiterals;

namespace {

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
