#include "tools/bench/book_bench.h"

#include "chart/codes.h"
#include "ledger/entry_query.h"
#include "ledger/frm_account.h"
#include "ledger/posting.h"
#include "store/state.h"
#include "tools/bench/counting_vfs.h"
#include "tools/bench/raw_book.h"
#include "tools/bench/stage.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr double kSyncBound = 4;

void FillAndPaint(KestroList& list, const EntryQuery& query) {
    Job job;
    list.Clear();
    {
        ListFill fill(list);
        ReadLines(State().gDB, query, 0, job,
                  [&](EntryLine&& line) { list.AddRow(std::move(line.cells), line.key, line.subKey); });
    }
    list.viewport()->repaint();
}

std::string PageSql(const EntryQuery& query) {
    return query.Sql().toStdString() + " limit 0,10000";
}

EntryValues Entry() {
    const auto kinds = ShownRows(State().gDB, Chart::kinds);
    const auto accounts = ShownRows(State().gDB, Chart::accounts);
    EntryValues e;
    e.title = u"支付货款"_s;
    e.money = u"350.5"_s;
    e.date = u"2016-09-03"_s;
    e.hour = u"14"_s;
    e.minute = u"16"_s;
    e.kind2On = e.toAccount = e.account2On = true;
    e.accountValue = {e.money, e.money};
    const auto take = [&e](size_t slot, const ChartRow& row) {
        e.code[slot] = row.code;
        e.name[slot] = row.name;
    };
    take(kKind1, kinds[kinds.size() / 3]);
    take(kKind2, kinds.back());
    take(kAccount1, accounts[accounts.size() / 3]);
    take(kAccount2, accounts.back());
    return e;
}

LeanEntry Lean(const EntryValues& e) {
    LeanEntry lean;
    lean.title = e.title.toStdString();
    lean.date = e.date.toStdString();
    lean.time = "14:16";
    lean.amount = e.money.toStdString();
    for (size_t i = 0; i < 2; ++i) {
        lean.kinds[i] = e.code[i].toStdString();
        lean.kindNames[i] = e.name[i].toStdString();
        lean.accounts[i] = e.code[i + kAccount1].toStdString();
        lean.accountNames[i] = e.name[i + kAccount1].toStdString();
    }
    return lean;
}

}  // namespace

void MeasureReads(SpeedTable& table, const QString& path, int entries, int runs) {
    OpenBook(path);
    RawBook raw(path.toStdString());
    const auto pageBound = entries < kLinesPerPage ? std::nullopt : std::optional(kPageBound);
    const EntryQuery all = BuildEntryQuery({});
    const auto sums = [&](const std::string& where) { raw.ReadSums("tAccount", where); };
    const std::string allRows = " and bIsMain=1";
    {
        Stage<KestroList> stage;
        for (const auto& column : EntryColumns())
            stage.content->DefineColumn(column);
        table.Add(
            Compared(kPageAction, entries,
                     InTurns(
                         runs, [&] { FillAndPaint(*stage.content, all); }, [&] { raw.Rows(PageSql(all)); }),
                     pageBound));
    }
    {
        Stage<frmAccount> stage;
        auto* list = Control<KestroList>(*stage.content, u"KestroList1"_s);
        const auto reload = [&] {
            stage.content->Do(Act::reload);
            list->viewport()->repaint();
        };
        const auto rawReload = [&] {
            raw.Rows(PageSql(all));
            sums(allRows);
        };
        table.Add(Compared(kReloadAction, entries, InTurns(runs, reload, rawReload),
                           pageBound ? std::optional(kReadBound) : std::nullopt));
    }
    table.Add(Compared(kSumsAction, entries,
                       InTurns(
                           runs, [&] { ReadSums(State().gDB, all); }, [&] { sums(allRows); }),
                       kReadBound));
    EntryFilter filter;
    filter.kind = kMeasuredKind;
    const EntryQuery branch = BuildEntryQuery(filter);
    const std::string branchRows = " and Type1>='04' and Type1<'05'";
    table.Add(Compared(kKindSumsAction, entries,
                       InTurns(
                           runs, [&] { ReadSums(State().gDB, branch); }, [&] { sums(branchRows); }),
                       kReadBound));
    State().gDB.Close();
}

void MeasureSaves(SpeedTable& table, const QString& path, int entries, int runs) {
    // Each side has a book of its own: another program's save makes us prove the ids of a table anew.
    const QString twin = path + u".twin"_s;
    QFile::copy(path, twin);
    OpenBook(path);
    RawBook raw(twin.toStdString());
    const EntryValues entry = Entry();
    const LeanEntry lean = Lean(entry);
    const auto ours = [&] { PostEntry(State().gDB, entry); };
    const auto theirs = [&] { raw.Save(lean); };
    const double first = Milliseconds(ours);
    const auto syncsOf = [](const std::function<void()>& save) {
        const int before = Syncs();
        save();
        return static_cast<double>(Syncs() - before);
    };
    const double ourSyncs = syncsOf(ours);
    const double rawSyncs = syncsOf(theirs);
    table.Add(Compared(kSaveAction, entries, InTurns(runs, ours, theirs), kWriteBound));
    table.Add({u"  its syncs (bound on the number)"_s, entries, ourSyncs, 0, u"syncs"_s, kSyncBound});
    table.Add({u"  syncs of the lean save"_s, entries, rawSyncs, 0, u"syncs"_s, {}});
    table.Add({u"  the first save after opening"_s, entries, first, 0, u"ms"_s, {}});
    State().gDB.Close();
}
