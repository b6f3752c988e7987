#include "tools/bench/change_bench.h"

#include "ledger/entry_delete.h"
#include "ledger/entry_edit.h"
#include "ledger/frm_account.h"
#include "shell/controls/kestro_list.h"
#include "store/money.h"
#include "store/state.h"
#include "tools/bench/raw_book.h"
#include "tools/bench/stage.h"

#include <QFile>
#include <QTimer>

#include <algorithm>
#include <cstdlib>
#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr double kBulkBound = 3;
constexpr int kChecked = 1000, kSlice = 50;

/// The rows of one stored entry, as the lean side knows them beforehand.
struct KnownRow {
    std::string id, code;
    double effect = 0;
};
struct KnownEntry {
    std::vector<KnownRow> kinds, accounts;
    std::string picture;  ///< row of its picture, or empty
    qint64 Main() const { return std::stoll(kinds.front().id); }
};

std::string Text(double amount) {
    return MoneyText(amount).toStdString();
}

std::vector<KnownRow> KnownRows(RawBook& book, const std::string& select) {
    std::vector<KnownRow> rows;
    for (const auto& row : book.Rows(select))
        rows.push_back({row[0], row[1], std::stod(row[2]) * std::stod(row[3])});
    return rows;
}

/// The lean side's copy of a book. The ids of a book made for measuring are its row numbers.
class Twin {
 public:
    explicit Twin(const QString& path) : book(Copied(path).toStdString()) {
        if (book.Number("select count(*) from tAccount where rowid<>Id1") != 0) std::abort();
        for (const auto& row : book.Rows("select lFromId,rowid from tPic"))
            pictures_.emplace(row[0], row[1]);
    }

    KnownEntry Known(qint64 main) {
        const std::string id = std::to_string(main);
        const auto ties = book.Rows("select IID,IIID,IIID1 from tAccount where rowid=" + id).front();
        const auto picture = pictures_.find(id);
        return {KnownRows(book, "select Id1,Type1,Value1,nSign from tAccount where rowid in (" + id + ',' +
                                    ties[0] + ") order by bIsMain desc"),
                KnownRows(book, "select Id1,SubAccKey,Value1,nSign from tSubAccItem where rowid in (" +
                                    ties[1] + ',' + ties[2] + ')'),
                picture == pictures_.end() ? std::string() : picture->second};
    }

    /// Entries of two kinds and two accounts, spread over the whole book.
    std::vector<KnownEntry> FullEntries(size_t count) {
        const auto rows = book.Rows("select Id1 from tAccount where bIsMain=1 and IID>0 and IIID1>0");
        std::vector<KnownEntry> entries;
        for (size_t i = 0; i < count && i < rows.size(); ++i)
            entries.push_back(Known(std::stoll(rows[i * rows.size() / count][0])));
        return entries;
    }

 private:
    static QString Copied(const QString& path) {
        QString copy = path + u".twin"_s;
        QFile::remove(copy);
        QFile::copy(path, copy);
        return copy;
    }

 public:
    RawBook book;

 private:
    std::map<std::string, std::string> pictures_;
};

std::string Moved(const std::string& chart, const KnownRow& row, double by) {
    const bool adds = row.effect >= 0;
    return "update " + chart + " set " + (adds ? "nAdd=nAdd+ " : "nReduce=nReduce- ") + Text(by) +
           ", Money=Money+ " + Text(by) + " where Sort1='" + row.code + "'";
}

std::string Ids(const std::vector<KnownRow>& rows) {
    std::string ids;
    for (const auto& row : rows)
        ids += (ids.empty() ? "" : ",") + row.id;
    return ids;
}

std::vector<std::string> LeanDeletion(const KnownEntry& entry) {
    std::vector<std::string> statements;
    for (const auto& row : entry.kinds)
        statements.push_back(Moved("tKind", row, -row.effect));
    for (const auto& row : entry.accounts)
        statements.push_back(Moved("tSubAcc", row, -row.effect));
    if (!entry.picture.empty()) statements.push_back("delete from tPic where rowid=" + entry.picture);
    statements.push_back("delete from tAccount where rowid in (" + Ids(entry.kinds) + ')');
    if (!entry.accounts.empty())
        statements.push_back("delete from tSubAccItem where rowid in (" + Ids(entry.accounts) + ')');
    return statements;
}

// Amounts and texts anew, kinds and accounts as they were: the balances move by the difference.
std::vector<std::string> LeanEdit(const KnownEntry& entry, double amount) {
    std::vector<std::string> statements;
    const std::string typed =
        " set Title1='改',Value1=" + Text(amount) + ",Date1='2016-05-05',Time1='10:10' where rowid=";
    const auto change = [&](const std::string& chart, const std::string& table, const KnownRow& row) {
        statements.push_back(Moved(chart, row, (row.effect < 0 ? -amount : amount) - row.effect));
        statements.push_back("update " + table + typed + row.id);
    };
    for (const auto& row : entry.kinds)
        change("tKind", "tAccount", row);
    for (const auto& row : entry.accounts)
        change("tSubAcc", "tSubAccItem", row);
    return statements;
}

void Edit(const KnownEntry& entry, double amount) {
    auto loaded = LoadEntry(State().gDB, entry.Main());
    auto& e = loaded->values;
    e.title = u"改"_s;
    e.money = e.accountValue[0] = e.accountValue[1] = MoneyText(amount);
    e.date = u"2016-05-05"_s;
    e.hour = e.minute = u"10"_s;
    SaveEditedEntry(State().gDB, e, loaded->main, loaded->opened);
}

std::vector<std::vector<std::string>> LeanSlices(Twin& twin, const std::vector<qint64>& ids) {
    std::vector<std::vector<std::string>> slices;
    for (size_t i = 0; i < ids.size(); ++i) {
        if (i % kSlice == 0) slices.emplace_back();
        const auto deletion = LeanDeletion(twin.Known(ids[i]));
        slices.back().insert(slices.back().end(), deletion.begin(), deletion.end());
    }
    return slices;
}

// Spread over the whole list.
std::vector<qint64> CheckLines(KestroList& list) {
    std::vector<qint64> ids;
    for (int i = 0; i < kChecked; ++i) {
        const int row = static_cast<int>(static_cast<qint64>(i) * list.RowCount() / kChecked);
        list.SetChecked(row, true);
        ids.push_back(list.RowKey(row).toLongLong());
    }
    return ids;
}

std::string Joined(const std::vector<qint64>& ids) {
    std::string text;
    for (const qint64 id : ids)
        text += (text.empty() ? "" : ",") + std::to_string(id);
    return text;
}

}  // namespace

void MeasureChanges(SpeedTable& table, const QString& path, int entries, int runs) {
    Twin twin(path);
    OpenBook(path);
    const Consent consent;
    const auto known = twin.FullEntries(2 * static_cast<size_t>(runs + 1));
    std::vector<std::vector<std::string>> edits, deletions;
    for (const auto& entry : known) {
        edits.push_back(LeanEdit(entry, 321.5));
        deletions.push_back(LeanDeletion(entry));
    }
    size_t our = 0, their = 0;
    const auto edit = [&] { Edit(known[our++], 321.5); };
    const auto leanEdit = [&] { twin.book.Change(edits[their++]); };
    const auto erase = [&] { DeleteEntry(State().gDB, known[our++].Main()); };
    const auto leanErase = [&] { twin.book.Change(deletions[their++]); };
    edit();  // proves the ids of a table once for the session
    ++their;
    const EntryPasses passes;
    const auto measure = [&](const QString& action, const auto& ours, const auto& theirs) {
        table.Add(Compared(action, entries, InTurns(runs - 1, ours, theirs), kWriteBound));
    };
    measure(u"edit one entry of two kinds and accounts"_s, edit, leanEdit);
    measure(u"delete one entry of two kinds and accounts"_s, erase, leanErase);
    table.Add({u"  their passes over the entries"_s, entries, passes.Count(), 0, u"reads"_s, 0});
    State().gDB.Close();
}

void MeasureBulkDeletion(SpeedTable& table, const QString& path, int entries, int runs) {
    Twin twin(path);
    OpenBook(path);
    const Consent consent;
    Stage<frmAccount> stage;
    auto* list = Control<KestroList>(*stage.content, u"KestroList1"_s);
    stage.content->Do(Act::reload);
    std::vector<double> ours, theirs, silences, beats;
    for (int run = 0; run <= runs; ++run) {
        const auto ids = CheckLines(*list);
        const auto slices = LeanSlices(twin, ids);
        const auto rowsOf = "select Id1,IID,IIID,IIID1,bIsMain from tAccount where bIsMain=1 and Id1 in (" +
                            Joined(ids) + ") or IID in (" + Joined(ids) + ')';
        Pulse pulse;
        const double our = Milliseconds([&] {
            stage.content->Do(Act::deleteChecked);
            list->viewport()->repaint();
        });
        pulse.Beat();
        const double their = Milliseconds([&] {
            twin.book.Rows(rowsOf);
            for (const auto& slice : slices)
                twin.book.Change(slice);
        });
        if (run == 0) continue;
        ours.push_back(our);
        theirs.push_back(their);
        silences.push_back(pulse.Longest());
        beats.push_back(pulse.Beats());
    }
    table.Add(Compared(u"delete 1,000 checked lines, list painted"_s, entries, {Median(ours), Median(theirs)},
                       kBulkBound));
    table.Add(
        {u"  its longest time without an answer"_s, entries, Median(silences), 0, u"ms"_s, kClickBound});
    table.Add({u"  turns of the event loop meanwhile"_s, entries, Median(beats), 0, u"turns"_s, {}});
    State().gDB.Close();
}
