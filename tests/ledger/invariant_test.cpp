// Whatever is saved, changed and deleted in whatever order: balances equal the sums of the rows, and all ties
// hold.

#include "ledger/entry_delete.h"
#include "ledger/entry_edit.h"
#include "ledger/posting.h"
#include "tests/support/entries.h"
#include "tests/support/fixture.h"

#include <random>

using namespace Qt::StringLiterals;

namespace {

struct CodeAndName {
    QString code, name;
};

class InvariantTest : public Fixture {
 protected:
    void Seed(unsigned seed) { dice_.seed(seed); }
    size_t Roll(size_t sides) { return std::uniform_int_distribution<size_t>(0, sides - 1)(dice_); }
    bool Toss() { return Roll(2) == 1; }

    const CodeAndName& Pick(const std::vector<CodeAndName>& from) { return from[Roll(from.size())]; }

    QString Amount() {
        static const QStringList odd{u"0"_s,     u".5"_s,          u"-5"_s,   u"1e3"_s,
                                     u"-0.01"_s, u"99999999.99"_s, u"0.125"_s};
        if (Roll(8) == 0) return odd[static_cast<qsizetype>(Roll(static_cast<size_t>(odd.size())))];
        return QString::number(static_cast<double>(Roll(1000000)) / 100, 'f', 2);
    }

    EntryValues RandomEntry() {
        static const std::vector<CodeAndName> kinds{{u"00"_s, u"↑↓余额调整"_s}, {u"0101"_s, u"产品收入"_s},
                                                    {u"0102"_s, u"项目收入"_s}, {u"0201"_s, u"办公费用"_s},
                                                    {u"0301"_s, u"现金"_s},     {u"030201"_s, u"农行"_s}};
        static const std::vector<CodeAndName> accounts{
            {u"01"_s, u"东华公司"_s}, {u"02"_s, u"大宇公司"_s}, {u"0301"_s, u"软件开发"_s}};
        auto e = SampleEntry(u"第'%1'笔 100%"_s.arg(Roll(1000)), Amount());
        SetShape(e, static_cast<int>(Roll(kShapes)));
        for (size_t slot = 0; slot < 4; ++slot) {
            const auto& choice = Pick(slot < kAccount1 ? kinds : accounts);
            Choose(e, slot, choice.code, choice.name, Toss());
        }
        e.accountValue = {Amount(), Amount()};
        e.mark = Toss();
        return e;
    }

    // Any row of any entry.
    qint64 AnyRow() {
        const auto ids = Rows(State().gDB, u"select Id1 from tAccount"_s);
        return ids[static_cast<qsizetype>(Roll(static_cast<size_t>(ids.size())))].toLongLong();
    }

    void SaveEditOrDelete() {
        auto& book = State().gDB;
        const auto dice = Roll(10);
        if (dice < 5) {
            PostEntry(book, RandomEntry());
        } else if (dice < 8) {
            const auto loaded = LoadEntry(book, AnyRow());
            ASSERT_TRUE(loaded.has_value());
            auto e = RandomEntry();
            SaveEditedEntry(book, e, loaded->main, loaded->opened);
        } else {
            // By the main row: a second row that an edit has added knows nothing of the records.
            EXPECT_TRUE(DeleteEntry(book, ResolveMainRow(book, AnyRow())));
        }
    }

    void SaveMany(unsigned seed, int count) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Seed(seed);
        OpenSample(u"seed%1.jotdb"_s.arg(seed));
        auto& book = State().gDB;
        book.Execute(u"pragma synchronous=off"_s);
        for (int i = 0; i < count; ++i)
            PostEntry(book, RandomEntry());
        EXPECT_EQ(BalanceBreaks(book), QStringList());
        EXPECT_EQ(TieBreaks(book), QStringList());
        EXPECT_EQ(Rows(book, u"pragma integrity_check"_s), QStringList{u"ok"_s});
        EXPECT_EQ(Rows(book, u"select count(*) from tAccount where bIsMain=1"_s),
                  QStringList{QString::number(count + 3)});
        EXPECT_EQ(
            Rows(book, u"select Max1-(select max(Id1) from tAccount) from tNum where Table1='taccount'"_s),
            QStringList{u"1"_s});
    }

 private:
    std::mt19937 dice_;
};

}  // namespace

TEST_F(InvariantTest, RandomSavesKeepBalancesAndTies) {
    SaveMany(20160903, 250);
    SaveMany(std::random_device{}(), 150);
}

TEST_F(InvariantTest, ReversingEverythingReturnsToTheStart) {
    OpenSample();
    auto& book = State().gDB;
    book.Execute(u"pragma synchronous=off"_s);
    const QString totals =
        u"select Sort1,round(nAdd,2),round(nReduce,2),round(Money,2) from tKind union all"
        u" select 'a'||Sort1,round(nAdd,2),round(nReduce,2),round(Money,2) from tSubAcc"_s;
    const auto before = Rows(book, totals);
    for (int i = 0; i < 40; ++i) {
        const auto ids = PostEntry(book, RandomEntry());
        UpdateBalance(book, ids.main, u"tKind"_s, u"-"_s);
        UpdateBalance(book, ids.second, u"tKind"_s, u"-"_s);
        UpdateBalance(book, ids.record1, u"tSubAcc"_s, u"-"_s);
        UpdateBalance(book, ids.record2, u"tSubAcc"_s, u"-"_s);
    }
    EXPECT_EQ(Rows(book, totals), before);
}

TEST_F(InvariantTest, RandomEditsAndDeletionsKeepThemToo) {
    boxes.AnswerAll(1);  // a draw of two equal kinds is refused, which has to leave everything as well
    const unsigned fresh = std::random_device{}();
    for (const unsigned seed : {20161231U, fresh}) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Seed(seed);
        OpenSample(u"edits%1.jotdb"_s.arg(seed));
        auto& book = State().gDB;
        book.Execute(u"pragma synchronous=off"_s);
        for (int i = 0; i < 10; ++i)
            PostEntry(book, RandomEntry());
        for (int i = 1; i <= 300; ++i) {
            SaveEditOrDelete();
            if (i % 50 != 0) continue;
            ASSERT_EQ(BalanceBreaks(book), QStringList()) << "after action " << i;
            ASSERT_EQ(TieBreaks(book), QStringList()) << "after action " << i;
        }
        EXPECT_EQ(Rows(book, u"pragma integrity_check"_s), QStringList{u"ok"_s});
    }
}
