// A made book has to be one that the program could have written: the speed table rests on it.

#include "tools/generate/book_maker.h"

#include "tests/support/fixture.h"

using namespace Qt::StringLiterals;

namespace {

class MadeBook : public Fixture {
 protected:
    cConnection Make(const QString& name, unsigned seed) {
        EXPECT_TRUE(MakeBook(Path(name), 600, seed));
        cConnection book;
        book.Open(Path(name));
        return book;
    }
};

TEST_F(MadeBook, HoldsEveryShapeWithItsTiesAndBalances) {
    auto book = Make(u"made.jotdb"_s, 7);
    EXPECT_EQ(BalanceBreaks(book), QStringList());
    EXPECT_EQ(TieBreaks(book), QStringList());
    EXPECT_EQ(Rows(book, u"select count(*) from tAccount where bIsMain=1"_s), QStringList(u"600"_s));
    EXPECT_EQ(
        Rows(book,
             u"select distinct IID>=0, IIID>=0, IIID1>=0 from tAccount where bIsMain=1 order by 1,2,3"_s),
        QStringList({u"0|0|0"_s, u"0|1|0"_s, u"0|1|1"_s, u"1|0|0"_s, u"1|1|0"_s, u"1|1|1"_s}));
}

TEST_F(MadeBook, KeepsIdsInOrderAndCountersBehindThem) {
    auto book = Make(u"made.jotdb"_s, 7);
    for (const auto& table : {u"tAccount"_s, u"tSubAccItem"_s, u"tPic"_s}) {
        EXPECT_EQ(Rows(book, u"select count(*) from "_s + table + u" where Id1<>rowid"_s),
                  QStringList(u"0"_s));
        EXPECT_EQ(Rows(book, u"select Max1-(select max(Id1) from "_s + table +
                                 u") from tNum where Table1="_s + Quote(table.toLower())),
                  QStringList(u"1"_s));
    }
    EXPECT_EQ(Rows(book,
                   u"select count(*) from tAccount a where sPic<>(select count(*) from tPic p where"
                   u" p.lFromId=a.Id1 or p.lFromId1=a.Id1)"_s),
              QStringList(u"0"_s));
}

TEST_F(MadeBook, IsTheSameForTheSameSeed) {
    const QString rows = u"select * from tAccount"_s;
    auto first = Make(u"a.jotdb"_s, 7);
    auto again = Make(u"b.jotdb"_s, 7);
    auto other = Make(u"c.jotdb"_s, 8);
    EXPECT_EQ(Rows(first, rows), Rows(again, rows));
    EXPECT_NE(Rows(first, rows), Rows(other, rows));
}

}  // namespace
