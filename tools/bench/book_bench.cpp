#include "tools/bench/book_bench.h"

#include "ledger/entry_columns.h"
#include "ledger/entry_query.h"
#include "ledger/frm_account.h"
#include "ledger/posting.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "store/state.h"
#include "tools/bench/counting_vfs.h"
#include "tools/bench/measure.h"
#include "tools/bench/raw_book.h"

#include <QApplication>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

constexpr double kReadBound = 1.5, kSaveBound = 2, kSyncBound = 4, kClickBound = 100;
const QString kBranch = u"04"_s;

void OpenBook(const QString& path) {
    cConnection::Seams().vfs = CountingVfs();
    auto& state = State();
    state.gBooks.assign(1, {path, u"bench"_s, 2016, u"10.0"_s});
    state.gCurBook = 0;
    state.LoadDate = u"all"_s;
    state.gDB.Open(path);
}

template <class Widget>
Widget* Control(const QWidget& page, const QString& name) {
    return dynamic_cast<Widget*>(page.findChild<QWidget*>(name));
}

/// A window as large as the program's, with its entry page or its list alone.
template <class Content>
class Stage {
 public:
    template <class... Args>
    explicit Stage(Args&&... args) : content(new Content(&window_, std::forward<Args>(args)...)) {
        window_.resize(1100, 650);
        content->setGeometry(window_.rect());
        window_.show();
        Settle();
    }
    static void Settle() {
        for (int turn = 0; turn < 5; ++turn)
            QApplication::processEvents();
    }

 private:
    QWidget window_;

 public:
    Content* content;
};

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

// The told sums; raw SQLite has no left$, so a branch is asked for by substr.
struct RawSums {
    std::string in, out, count;
};

RawSums RawSumsWhere(const std::string& where) {
    return {"select sum(Value1) from tAccount where 1" + where + " and nSign=1",
            "select sum(Value1) from tAccount where 1" + where + " and nSign=-1",
            "select count(id1) from tAccount where 1" + where};
}

void ReadRawSums(RawBook& raw, const RawSums& sums) {
    for (const auto& sql : {sums.in, sums.out, sums.count})
        raw.Number(sql);
}

EntryValues Entry() {
    const auto kinds = ShownRows(State().gDB, u"tKind"_s);
    const auto accounts = ShownRows(State().gDB, u"tSubAcc"_s);
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

SpeedRow Compared(const QString& action, int entries, const Pair& pair, std::optional<double> bound) {
    return {action, entries, pair.ours, pair.raw, u"ms"_s, bound};
}

}  // namespace

void MeasureReads(SpeedTable& table, const QString& path, int entries, int runs) {
    OpenBook(path);
    RawBook raw(path.toStdString());
    const auto pageBound = entries < kLinesPerPage ? std::nullopt : std::optional(kReadBound);
    const EntryQuery all = BuildEntryQuery({});
    const auto allSums = RawSumsWhere(" and bIsMain=1");
    {
        Stage<KestroList> stage;
        for (const auto& column : EntryPageWords().columns)
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
            stage.content->DoMenu(u"key"_s, u"reload"_s);
            list->viewport()->repaint();
        };
        const auto rawReload = [&] {
            raw.Rows(PageSql(all));
            ReadRawSums(raw, allSums);
        };
        table.Add(Compared(kReloadAction, entries, InTurns(runs, reload, rawReload), pageBound));
    }
    table.Add(Compared(kSumsAction, entries,
                       InTurns(
                           runs, [&] { ReadSums(State().gDB, all); }, [&] { ReadRawSums(raw, allSums); }),
                       kReadBound));
    EntryFilter filter;
    filter.kind = kBranch;
    const EntryQuery branch = BuildEntryQuery(filter);
    const auto branchSums = RawSumsWhere(" and substr(Type1,1,2)='" + kBranch.toStdString() + "'");
    table.Add(
        Compared(kKindSumsAction, entries,
                 InTurns(
                     runs, [&] { ReadSums(State().gDB, branch); }, [&] { ReadRawSums(raw, branchSums); }),
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
    table.Add(Compared(kSaveAction, entries, InTurns(runs, ours, theirs), kSaveBound));
    table.Add({u"  its syncs (bound on the number)"_s, entries, ourSyncs, 0, u"syncs"_s, kSyncBound});
    table.Add({u"  syncs of the lean save"_s, entries, rawSyncs, 0, u"syncs"_s, {}});
    table.Add({u"  the first save after opening"_s, entries, first, 0, u"ms"_s, {}});
    State().gDB.Close();
}

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
        std::vector<double> times;
        for (int run = 0; run <= runs; ++run)
            times.push_back(Milliseconds(painted));
        table.Add({u"click: "_s + name, entries, Median(times), 0, u"ms"_s, kClickBound});
    };
    add(u"a kind in the strip"_s, [&] { strip->onClick(u"title3"_s, kBranch); });
    add(u"reload of that kind"_s, [&] { stage.content->DoMenu(u"key"_s, u"reload"_s); });
    add(u"only marked entries"_s, [&] { flag->onChange(true); });
    add(u"all filters off, book read anew"_s, [&] { stage.content->pTRANSACCOUNT(); });
    add(u"down one line, with its detail"_s, [&] {
        list->SetCurrentRow(5000);
        list->onCurrent(5000);
    });
    State().gDB.Close();
}
