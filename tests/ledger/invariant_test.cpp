// Whatever is saved in whatever order: balances equal the sums of the rows, and all ties hold.

#include "ledger/posting.h"
#include "tests/support/random_entries.h"

using namespace Qt::StringLiterals;

namespace {

class InvariantTest : public RandomEntries {
 protected:
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
        UpdateBalance(book, ids.main, Chart::kinds, Effect::takeBack);
        UpdateBalance(book, ids.second, Chart::kinds, Effect::takeBack);
        UpdateBalance(book, ids.record1, Chart::accounts, Effect::takeBack);
        UpdateBalance(book, ids.record2, Chart::accounts, Effect::takeBack);
    }
    EXPECT_EQ(Rows(book, totals), before);
}
