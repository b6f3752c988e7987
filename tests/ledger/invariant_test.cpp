// Whatever is saved, changed, deleted and given an opening balance, in whatever order: balances equal the
// sums of the rows and all ties hold, but for the breaks that are known, each to the fen and to the row.

#include "chart/codes.h"
#include "chart/maintenance.h"
#include "ledger/entry_delete.h"
#include "ledger/entry_edit.h"
#include "ledger/posting.h"
#include "store/errors.h"
#include "store/money.h"
#include "tests/support/random_entries.h"

#include <cmath>
#include <set>

using namespace Qt::StringLiterals;

namespace {

/// An amount in the columns of increases and decreases.
struct Parts {
    double added = 0, reduced = 0;
};

Parts OfRow(double value, qint64 sign) {
    return sign == 1 ? Parts{value, 0} : Parts{0, value};
}

Parts OfOpening(double opening) {
    return opening > 0 ? Parts{opening, 0} : Parts{0, -opening};
}

/// A stored row by which a chart row's opening balance stands.
struct OpeningRow {
    bool there = false;
    QString code;
    double value = 0;
    qint64 sign = 1;
    qint64 other = -1;  ///< the entry of a record, the first record of an entry
    double Opening() const { return there ? value * static_cast<double>(sign) : 0; }
};

class InvariantTest : public RandomEntries {
 protected:
    void Act() {
        const auto dice = Roll(20);
        if (dice < 9)
            PostEntry(Book(), RandomEntry());
        else if (dice < 15)
            Change();
        else if (dice < 18)
            Remove();
        else
            Toss() ? MoveKindOpening() : MoveAccountOpening();
    }
    void CheckAll() {
        std::map<QString, BalanceGap> expected;
        for (const auto& [row, gap] : gaps_)
            for (const double part : {gap.added, gap.reduced, gap.balance})
                if (std::fabs(part) >= 0.005) expected[row] = gap;
        const auto found = BalanceGaps(Book());
        ASSERT_EQ(found.size(), expected.size()) << qPrintable(BalanceBreaks(Book()).join(u'\n'));
        for (const auto& [row, gap] : found) {
            ASSERT_NEAR(gap.added, expected[row].added, 0.005) << qPrintable(row);
            ASSERT_NEAR(gap.reduced, expected[row].reduced, 0.005) << qPrintable(row);
            ASSERT_NEAR(gap.balance, expected[row].balance, 0.005) << qPrintable(row);
        }
        QStringList ties = TieBreaks(Book());
        ties.sort();
        QStringList lost(lost_.begin(), lost_.end());
        ASSERT_EQ(ties, lost);
    }
    std::map<QString, BalanceGap> gaps_;
    std::set<QString> lost_;   ///< records that outlived their entry
    std::set<QString> cells_;  ///< of the tables of an edit, as "what: was-becomes"

 private:
    void Widen(const QString& chart, const QString& code, const Parts& by, double times) {
        auto& gap = gaps_[chart + u' ' + code];
        gap.added += times * by.added;
        gap.reduced += times * by.reduced;
        gap.balance += times * (by.added - by.reduced);
    }

    void Change() {
        const auto loaded = LoadEntry(Book(), AnyRow());
        ASSERT_TRUE(loaded.has_value());
        auto e = RandomEntry();
        if (!SaveEditedEntry(Book(), e, loaded->main, loaded->opened).done) return;
        const auto cell = [&](const QString& what, bool was, bool becomes) {
            cells_.insert(what + (was ? u"1"_s : u"0"_s) + (becomes ? u"1"_s : u"0"_s));
        };
        cell(u"kind"_s, loaded->values.kind2On, e.kind2On);
        cell(u"account"_s, loaded->values.toAccount, e.toAccount);
        cell(u"account2"_s, loaded->values.account2On, e.account2On);
        cells_.insert(loaded->opened == loaded->main ? u"by main"_s : u"by second"_s);
    }

    // By any row. A second row that an edit has added may know nothing of the records, which then stay.
    void Remove() {
        const qint64 id = AnyRow();
        const auto own = TiesOf(Book(), id), main = TiesOf(Book(), ResolveMainRow(Book(), id));
        for (const qint64 record : {main->record1, main->record2})
            if (record != -1 && record != own->record1 && record != own->record2)
                lost_.insert(u"record|"_s + QString::number(record));
        EXPECT_TRUE(DeleteEntry(Book(), id));
    }

    OpeningRow OpeningOf(const QString& rows, const QString& columns, qint64 id) {
        if (id < 1) return {};
        auto found = Book().Read(u"select Value1,nSign,"_s + columns + u" from "_s + rows + u" where Id1="_s +
                                 QString::number(id));
        if (!found.Next()) return {};
        return {true, found.Text(2), found.Number(0), found.Int(1), found.Int(3)};
    }

    // Rows that an edit has tied to others are left to the lists.
    bool StandsAlone(qint64 entry) {
        const auto ties = TiesOf(Book(), entry);
        return !ties || (ties->second == -1 && (ties->record1 == -1 || ties->record2 == -1));
    }

    double Opening() { return Roll(3) == 0 ? 0 : std::round(Val(Amount()) * 100) / 100 * (Toss() ? 1 : -1); }

    std::optional<ChartRecord> Stored(Chart chart, const QString& code, qint64* link) {
        auto row =
            Book().Read(u"select Id1,IID from "_s + TableOf(chart).table + u" where Sort1="_s + Quote(code));
        if (!row.Next()) return {};
        *link = row.Int(1);
        return ReadChartRecord(Book(), row.Int(0), chart);
    }

    void MoveKindOpening() {
        const QString code = Pick(Kinds()).code;
        qint64 link = 0;
        const auto stored = Stored(Chart::kinds, code, &link);
        if (code == kReservedKind || !StandsAlone(link)) return;
        auto row = OpeningOf(u"tAccount"_s, u"Type1,IIID"_s, link);
        if (row.there && row.other != -1) return;  // it has got an account
        if (row.code != code) row = {};            // it is another kind's entry by now
        const double opening = Opening();
        ASSERT_TRUE(
            ChangeRow(Book(), Chart::kinds, *stored, {code + u' ' + stored->name, opening, {}, false}));
        Widen(u"tKind"_s, code, OfOpening(opening), 1);
        Widen(u"tKind"_s, code, OfOpening(row.Opening()), -1);
        if (row.there) Widen(u"tKind"_s, row.code, OfRow(row.value, row.sign), 1);
        if (opening != 0) Widen(u"tKind"_s, row.there ? row.code : code, OfOpening(opening), -1);
    }

    // The other side of an account's opening stands under the reserved kind and moves no totals.
    void MoveAccountOpening() {
        const QString code = Pick(Accounts()).code;
        qint64 link = 0;
        const auto stored = Stored(Chart::accounts, code, &link);
        auto row = OpeningOf(u"tSubAccItem"_s, u"SubAccKey,AccId"_s, link);
        if (!StandsAlone(row.other)) return;
        if (row.code != code) row = {};
        const auto entry = OpeningOf(u"tAccount"_s, u"Type1,IIID"_s, row.other);
        const double opening = Opening();
        const bool done = Succeeds([&] {
            ChangeRow(Book(), Chart::accounts, *stored, {code + u' ' + stored->name, opening, {}, false});
        });
        EXPECT_EQ(done, opening == 0 || !row.there);  // an opening that stands changes by way of 0
        if (!done) return;                            // undone whole
        Widen(u"tSubAcc"_s, code, OfOpening(opening), 1);
        Widen(u"tSubAcc"_s, code, OfOpening(row.Opening()), -1);
        if (row.there) Widen(u"tSubAcc"_s, row.code, OfRow(row.value, row.sign), 1);
        if (entry.there && entry.code == kReservedKind)
            Widen(u"tKind"_s, entry.code, OfRow(entry.value, entry.sign), 1);
        if (row.there) lost_.erase(u"record|"_s + QString::number(link));
        if (opening == 0) return;
        Widen(u"tSubAcc"_s, code, OfOpening(opening), -1);
        Widen(u"tKind"_s, kReservedKind, OfOpening(opening), -1);
    }
};

}  // namespace

TEST_F(InvariantTest, OnlyTheKnownBreaksAppear) {
    boxes.AnswerAll(1);  // a draw of two equal kinds is refused, which has to leave everything as well
    const unsigned fresh = std::random_device{}();
    for (const unsigned seed : {20161231U, fresh}) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Seed(seed);
        OpenSample(u"changes%1.jotdb"_s.arg(seed));
        Book().Execute(u"pragma synchronous=off"_s);
        gaps_.clear();
        lost_.clear();
        cells_.clear();
        for (int i = 1; i <= 500; ++i) {
            Act();
            if (i % 20 == 0) CheckAll();
            if (HasFatalFailure()) FAIL() << "after action " << i;
        }
        EXPECT_EQ(cells_.size(), 14U);  // twelve cells, opened by both rows
        if (seed != fresh) EXPECT_FALSE(gaps_.empty() || lost_.empty());
        EXPECT_EQ(Rows(Book(), u"pragma integrity_check"_s), QStringList{u"ok"_s});
    }
}
