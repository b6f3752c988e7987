// What the list of account records reads: conditions, lines, sums, pages.

#include "ledger/record_query.h"

#include "ledger/posting.h"
#include "tests/support/entries.h"
#include "tests/support/fixture.h"

using namespace Qt::StringLiterals;

namespace {

class RecordQueryTest : public Fixture {
 protected:
    RecordQueryTest() {
        OpenSample();
        // An opening balance, and an entry of 300 that takes 200 from account 01 and brings 100 to 0301.
        Book().Execute(
            u"insert into tSubAccItem (Id1,AccId,Title1,SubAccKey,SubAccName1,Value1,nSign,Date1,Time1)"
            u" values (5,20,'账户期初余额','01','东华公司',50,1,'1900-01-01','08:30');"
            u"update tNum set Max1=6 where Table1='tsubaccitem'"_s);
        auto entry = SampleEntry(u"还款"_s, u"300"_s);
        SetShape(entry, kShapes - 1);
        Choose(entry, kAccount1, u"01"_s, u"东华公司"_s, false);
        Choose(entry, kAccount2, u"0301"_s, u"软件开发"_s, true);
        entry.accountValue = {u"200"_s, u"100"_s};
        PostEntry(Book(), entry);
    }
    QStringList Lines(const EntryFilter& filter, int page = 0) {
        QStringList lines;
        Job job;
        ReadRecordLines(Book(), BuildRecordQuery(filter), page, job, [&](EntryLine&& line) {
            lines << line.key + u'/' + line.subKey + u' ' + line.cells.All().join(u'|');
        });
        return lines;
    }
};

}  // namespace

TEST_F(RecordQueryTest, AllShowsSignedAmountsAndAnAccountItsRunningBalance) {
    EXPECT_EQ(Lines({}), (QStringList{u"5/20 1|1900-01-01 08:30|01东华公司|50||50|账户期初余额"_s,
                                      u"4/7 2|2016-09-01 14:13|02大宇公司|8500||8500|赊销选果机控制系统"_s,
                                      u"3/5 3|2016-09-03 14:10|01东华公司|5000||5000|软件定制收入"_s,
                                      u"6/8 4|2016-09-05 09:30|01东华公司||200|-200|还款"_s,
                                      u"7/8 5|2016-09-05 09:30|0301软件开发|100||100|还款"_s}));
    EntryFilter account;
    account.kind = u"01"_s;
    EXPECT_EQ(Lines(account), (QStringList{u"5/20 1|1900-01-01 08:30|01东华公司|50||50|账户期初余额"_s,
                                           u"3/5 2|2016-09-03 14:10|01东华公司|5000||5050|软件定制收入"_s,
                                           u"6/8 3|2016-09-05 09:30|01东华公司||200|4850|还款"_s}));
    account.period.first = QDate(2016, 9, 4);
    EXPECT_EQ(Lines(account), QStringList{u"6/8 1|2016-09-05 09:30|01东华公司||200|-200|还款"_s});
    account.period.second = QDate(2016, 9, 3);
    EXPECT_EQ(Lines(account), QStringList());
    EntryFilter text;
    text.text = u"还款"_s;
    EXPECT_EQ(Lines(text).size(), 2);
    text.text = u"O'N"_s;
    EXPECT_EQ(Lines(text), QStringList());
    EntryFilter subtree;
    subtree.kind = u"03"_s;
    EXPECT_EQ(Lines(subtree).size(), 1);
}

TEST_F(RecordQueryTest, TheDifferenceIsToldForAllAccountsToo) {
    struct Case {
        QString account, count, value, tag;
    };
    const Case cases[] = {
        {u"all"_s, u"笔数:5"_s, u"差额:13,450"_s, u"增加：13,650 元\n减少：200 元\n差额：13,450 元"_s},
        {u"01"_s, u"笔数:3"_s, u"差额:4,850"_s, u"增加：5,050 元\n减少：200 元\n差额：4,850 元"_s},
    };
    for (const auto& c : cases) {
        EntryFilter filter;
        filter.kind = c.account;
        const auto texts = RecordSumTexts(ReadSums(Book(), BuildRecordQuery(filter)));
        EXPECT_EQ((QStringList{texts.count, texts.value, texts.tag}), (QStringList{c.count, c.value, c.tag}));
    }
}

TEST_F(RecordQueryTest, PagesGoOnCountingAndStartTheBalanceAnew) {
    Book().Execute(
        u"with recursive n(i) as (select 1 union all select i+1 from n where i<10002)"
        u" insert into tSubAccItem (Id1,AccId,Title1,SubAccKey,SubAccName1,Value1,nSign,Date1,Time1)"
        u" select 100+i,20,'x','09','戊',0.1,1,'2017-01-01','08:00' from n"_s);
    EntryFilter filter;
    filter.kind = u"09"_s;
    EXPECT_EQ(Lines(filter).size(), kLinesPerPage);
    EXPECT_EQ(Lines(filter, 1), (QStringList{u"10101/20 10001|2017-01-01 08:00|09戊|0.10||0.10|x"_s,
                                             u"10102/20 10002|2017-01-01 08:00|09戊|0.10||0.20|x"_s}));
    EXPECT_EQ(Lines(filter, 2000000), QStringList());
}

TEST_F(RecordQueryTest, OneRecordIsReadForARewrittenLine) {
    const auto line = ReadOneRecord(Book(), 6, 4);
    ASSERT_TRUE(line.has_value());
    EXPECT_EQ(line->cells.All().join(u'|'), u"4|2016-09-05  09:30|01东华公司||200||还款"_s);
    EXPECT_EQ(line->signedAmount + line->key + line->subKey, u"-20068"_s);
    EXPECT_FALSE(ReadOneRecord(Book(), 99, 1).has_value());
    boxes.Expect(u"错误: 该记录可能已在【记账窗口】列表中删除记账时, 一起删除了! 请【刷新】此窗口列表!"_s);
    EXPECT_FALSE(CheckRecord(Book(), 99));
}
