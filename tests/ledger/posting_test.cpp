// What one saved entry leaves in a book, row for row.

#include "ledger/posting.h"

#include "tests/support/entries.h"
#include "tests/support/fixture.h"

using namespace Qt::StringLiterals;

namespace {

EntryValues Entry(const QString& title, const QString& money, const QString& date, const QString& time) {
    EntryValues e;
    e.title = title;
    e.money = money;
    e.date = date;
    e.hour = time.left(2);
    e.minute = time.mid(3);
    return e;
}

class PostingTest : public Fixture {
 protected:
    QStringList Entries() {
        return Rows(Book(),
                    u"select Id1,Title1,Type1,TypeName1,Value1,Date1,Time1,nSign,IID,IIID,IIID1,bIsMain,"
                    u"sPic,Mark1,sMe,Date2,Note1 from tAccount order by Id1"_s);
    }
};

}  // namespace

TEST_F(PostingTest, WorkedExamplesLeaveTheSampleBooksRows) {
    OpenSample();
    const QStringList told = Entries();
    const QStringList toldRecords =
        Rows(Book(),
             u"select Id1,AccId,Title1,SubAccKey,SubAccName1,TypeName1,Value1,nSign,"
             u"Date1,Time1 from tSubAccItem order by Id1"_s);
    const QStringList toldKinds =
        Rows(Book(), u"select Sort1,nAdd,nReduce,Money from tKind order by Sort1"_s);
    Book().Execute(
        u"delete from tAccount; delete from tSubAccItem; delete from tPic;"
        u"update tKind set nAdd=0,nReduce=0,Money=0; update tSubAcc set nAdd=0,nReduce=0,Money=0;"
        u"update tNum set Max1=3 where Table1 in ('taccount','tsubaccitem');"
        u"insert into tPic values (1,x'00','a.jpg','tAccount',-1,-1)"_s);

    auto first = Entry(u"购买办公桌"_s, u"2100.00"_s, u"2016-01-01"_s, u"14:08"_s);
    first.note = u"富华家俱城，1.2米"_s;
    first.kind2On = true;
    Choose(first, kKind1, u"0201"_s, u"办公费用"_s, true);
    Choose(first, kKind2, u"030201"_s, u"农行"_s, false);
    PostEntry(Book(), first);

    auto second = Entry(u"软件定制收入"_s, u"5000"_s, u"2016-09-03"_s, u"14:10"_s);
    second.note = u"合同号：98"_s;
    second.kind2On = second.toAccount = true;
    Choose(second, kKind1, u"030201"_s, u"农行"_s, true);
    Choose(second, kKind2, u"0101"_s, u"产品收入"_s, true);
    Choose(second, kAccount1, u"01"_s, u"东华公司"_s, true);
    second.accountValue[0] = u"5000"_s;
    PostEntry(Book(), second);

    auto third = Entry(u" 赊销选果机控制系统 "_s, u"8500"_s, u"2016-09-01"_s, u"14:13"_s);
    third.toAccount = true;
    third.pictures = u"1"_s;
    Choose(third, kKind1, u"0303"_s, u"应收款"_s, true);
    Choose(third, kAccount1, u"02"_s, u"大宇公司"_s, true);
    third.accountValue[0] = u"8500"_s;
    PostEntry(Book(), third);

    QStringList posted = Entries();
    EXPECT_TRUE(posted.last().endsWith(u'|'));  // an empty remark, where the stored sample has none
    posted.last() += u'-';
    EXPECT_EQ(posted, told);
    EXPECT_EQ(Rows(Book(),
                   u"select Id1,AccId,Title1,SubAccKey,SubAccName1,TypeName1,Value1,nSign,Date1,Time1 from"
                   u" tSubAccItem order by Id1"_s),
              toldRecords);
    EXPECT_EQ(Rows(Book(), u"select Sort1,nAdd,nReduce,Money from tKind order by Sort1"_s), toldKinds);
    EXPECT_EQ(Rows(Book(), u"select lFromId,lFromId1 from tPic"_s), QStringList{u"7|-1"_s});
    EXPECT_EQ(Rows(Book(), u"select Max1 from tNum where Table1 in ('taccount','tsubaccitem')"_s),
              (QStringList{u"8"_s, u"5"_s}));
}

TEST_F(PostingTest, AmountsAndTimesAreStoredAsTexts) {
    struct Case {
        QString money, hour, minute, value, time;
    };
    const Case cases[] = {
        {u"0.50"_s, u"7"_s, u"5"_s, u"0.5"_s, u"07:05"_s},
        {u"-5.00"_s, u"-1"_s, u"0"_s, u"-5"_s, u"-01:00"_s},
        {u"0.125"_s, u"23"_s, u"59.9"_s, u"0.12"_s, u"23:59"_s},
        {u"0"_s, u"00"_s, u"1e1"_s, u"0"_s, u"00:10"_s},
        {u"1"_s, u"-1e300"_s, u"0"_s, u"1"_s, u"-9999:00"_s},
    };
    OpenEmpty();
    for (const auto& c : cases) {
        auto e = Entry(u"x"_s, c.money, u"2016/1/5"_s, u"00:00"_s);
        e.hour = c.hour;
        e.minute = c.minute;
        Choose(e, kKind1, u"00"_s, u"↑↓余额调整"_s, true);
        const auto ids = PostEntry(Book(), e);
        EXPECT_EQ(
            Rows(Book(), u"select Value1,Date1,Time1 from tAccount where Id1="_s + QString::number(ids.main)),
            QStringList{c.value + u"|2016/1/5|"_s + c.time});
    }
    EXPECT_TRUE(BalanceBreaks(Book()).isEmpty());
}

TEST_F(PostingTest, ReversingAStoredRowRestoresItsBalance) {
    OpenSample();
    const auto before = Rows(Book(), u"select * from tKind"_s);
    UpdateBalance(Book(), 4, Chart::kinds, Effect::takeBack);
    EXPECT_EQ(Rows(Book(), u"select nAdd,nReduce,Money from tKind where Sort1='030201'"_s),
              QStringList{u"5000|0|5000"_s});
    UpdateBalance(Book(), 4, Chart::kinds, Effect::apply);
    for (const qint64 nothing : {-1, 999})
        UpdateBalance(Book(), nothing, Chart::kinds, Effect::apply);
    EXPECT_EQ(Rows(Book(), u"select * from tKind"_s), before);
}
