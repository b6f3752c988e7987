// What waits of the web ledger becomes entries: row for row, never twice, never lost.

#include "store/notices.h"
#include "tests/support/web_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class WebPostingTest : public WebFixture {
 protected:
    void Fetch(const QStringList& lines) {
        boxes.AnswerAll(1);
        StoreWebLines(Book(), lines.join(u"\r\n"_s));
    }
    // Both counts as "posted/not posted".
    static QString Post() {
        const auto done = PostWebRowsAsked(Book(), ReadChartIds(Book()), {});
        return done ? u"%1/%2"_s.arg(done->posted).arg(done->notPosted) : u"-"_s;
    }
    static QStringList NewEntries() {
        return Dump(
            u"select "
            u"Id1,IID,IIID,IIID1,Title1,Type1,TypeName1,Value1,nSign,Mark1,Date1,Time1,Note1,bIsMain,sMe,sPic"
            u" from tAccount where Id1>7"_s);
    }
    static QStringList Totals() {
        return Dump(
            u"select Sort1,nAdd,nReduce,Money from tKind where Sort1 in ('0102','0301') union all"
            u" select 'a'||Sort1,nAdd,nReduce,Money from tSubAcc where Sort1='01'"_s);
    }
    static QStringList Fates() { return Dump(u"select Title1,bPassIdChk from tAccountWebDel"_s); }
};

}  // namespace

TEST_F(WebPostingTest, RowsBecomeEntriesWithCodesTiesAndBalances) {
    Fetch({SiteLine(u"voll"_s, FullFields()), SiteLine(u"schlicht"_s, {{4, u"2"_s}, {5, u"3.456"_s}}),
           SiteLine(u"Konto"_s,
                    {{13, u"4"_s}, {14, u"东华公司"_s}, {15, u"9"_s}, {16, u"1"_s}, {7, u"2016/9/3"_s}})});
    int entries = 0, rows = 0;
    const auto a = Notices().entriesChanged.Subscribe([&] { ++entries; });
    const auto b = Notices().webRowsChanged.Subscribe([&] { ++rows; });
    EXPECT_EQ(Post(), u"3/0"_s);
    EXPECT_EQ(boxes.Seen().last(), u"已全部入账!"_s);
    EXPECT_EQ((std::pair{entries, rows}), (std::pair{1, 1}));
    EXPECT_EQ(NewEntries(),
              (QStringList{u"8|9|5|-1|voll|0102|项目收入|12.5|1|0|2016-09-03|08:15|一\r\n二|1|记账|-1"_s,
                           u"9|8|5|-1|voll|0301|现金|12.5|1|0|2016-09-03|08:15|一\r\n二|0|记账|-1"_s,
                           u"10|-1|-1|-1|schlicht|0102|项目收入|3.46|-1|0|2016-09-03|08:15||1|记账|-1"_s,
                           u"11|-1|6|-1|Konto|0102|项目收入|12.5|1|0|2016/9/3|08:15||1|记账|-1"_s}));
    EXPECT_EQ(Dump(u"select Id1,AccId,Title1,SubAccKey,SubAccName1,TypeName1,Value1,nSign,Date1,Time1 from"
                   u" tSubAccItem where Id1>4"_s),
              (QStringList{u"5|8|voll|01|东华公司|项目收入|7|-1|2016-09-03|08:15"_s,
                           u"6|11|Konto|01|东华公司|项目收入|9|1|2016/9/3|08:15"_s}));
    EXPECT_EQ(Totals(),
              (QStringList{u"0102|25|3.46|21.54"_s, u"0301|12.5|0|12.5"_s, u"a01|5012.5|12.5|5000"_s}))
        << "the account moves by the entry's amount";
    EXPECT_EQ(Waiting(), QStringList());
    EXPECT_EQ(
        History().first(),
        u"1|voll|3|项目收入|12.5|2016-09-03|08:15|1|8|现金|1|一\r\n二|1|4|东华公司|7|-1|备\r\n注|2016-09-03 14:16:20"_s);
    EXPECT_EQ(TieBreaks(Book()), QStringList());
    // Nothing else differs from the sums of the rows than the account's own amounts: -7 and 9 against 12.50
    // each.
    const auto gaps = BalanceGaps(Book());
    ASSERT_EQ(gaps.size(), 1U);
    const auto& gap = gaps.at(u"tSubAcc 01"_s);
    EXPECT_EQ((std::array{gap.added, gap.reduced, gap.balance}),
              (std::array{12.5 - 9, 12.5 - 7, 0.0 - (9 - 7)}));
}

TEST_F(WebPostingTest, WhatTheBookDoesNotKnowGoesToTheHistoryAlone) {
    const auto ids = ReadChartIds(Book());
    Book().Execute(
        u"insert into tKind (ID1,Name1,Sort1) values (17,'新','0103'); update tKind set nHide=1 where ID1=8;"
        u"delete from tKind where ID1=13"_s);
    const QMap<QString, QMap<int, QString>> bad{{u"ids 0"_s, {{2, u"0"_s}}},
                                                {u"ids -1"_s, {{2, u"-1"_s}}},
                                                {u"ids 32768"_s, {{2, u"32768"_s}}},
                                                {u"no id"_s, {{2, u"3.5"_s}}},
                                                {u"id and x"_s, {{2, u"8x"_s}}},
                                                {u"id too large"_s, {{2, u"1e999"_s}}},
                                                {u"related x"_s, {{11, u"3x"_s}}},
                                                {u"thirteen"_s, {{5, u"1234567890123"_s}}},
                                                {u"account's 13"_s, {{13, u"4"_s}, {15, u"-1e12"_s}}},
                                                {u"made since"_s, {{2, u"17"_s}}},
                                                {u"gone since"_s, {{2, u"13"_s}}},
                                                {u"related"_s, {{11, u"99"_s}}},
                                                {u"account"_s, {{13, u"99"_s}, {15, u"1"_s}}},
                                                {u"empty"_s, {{5, QString()}}},
                                                {u"word"_s, {{5, u"abc"_s}}},
                                                {u"huge"_s, {{5, u"1e999"_s}}},
                                                {u"wide"_s, {{5, u"１２"_s}}},
                                                {u"account's"_s, {{13, u"4"_s}, {15, u"x"_s}}}};
    const QMap<QString, QMap<int, QString>> good{
        {u"hidden"_s, {{2, u"8"_s}}},       {u"parent"_s, {{2, u"1"_s}}},
        {u"adjusting"_s, {{2, u"9999"_s}}}, {u"minus"_s, {{5, u"-5"_s}}},
        {u"sign 0"_s, {{4, u"0"_s}}},       {u"sign x"_s, {{4, u"x"_s}}},
        {u"no date"_s, {{7, QString()}}},   {u"no relation"_s, {{11, u"-3"_s}}}};
    QStringList lines, fates;
    for (const auto& [set, fate] : {std::pair{bad, u"|0"_s}, {good, u"|1"_s}})
        for (auto one = set.begin(); one != set.end(); ++one) {
            lines << SiteLine(one.key(), one.value());
            fates << one.key() + fate;
        }
    Fetch(lines);
    const auto done = PostWebRowsAsked(Book(), ids, {});
    ASSERT_TRUE(done);
    EXPECT_EQ((std::pair{done->posted, done->notPosted}), (std::pair{8, 18}));
    EXPECT_EQ(boxes.Seen().last(), u"已全部入账!"_s);
    EXPECT_EQ(Fates(), fates);
    EXPECT_EQ(Dump(u"select Value1 from tAccountWebDel where Title1 in ('huge','wide')"_s),
              (QStringList{u"1e999"_s, u"１２"_s}));
    EXPECT_EQ(Dump(u"select Title1,Type1,nSign,Value1 from tAccount where Id1>7"_s),
              (QStringList{u"adjusting|00|1|12.5"_s, u"hidden|0301|1|12.5"_s, u"minus|0102|1|-5"_s,
                           u"no date|0102|1|12.5"_s, u"no relation|0102|1|12.5"_s, u"parent|01|1|12.5"_s,
                           u"sign 0|0102|-1|12.5"_s, u"sign x|0102|-1|12.5"_s}));
    EXPECT_EQ(BalanceBreaks(Book()), QStringList());
}

TEST_F(WebPostingTest, AsksFirstAndRefusesWithoutRowsOrUser) {
    boxes.Expect(u"【没有】需要入账的记录!"_s);
    EXPECT_EQ(Post(), u"-"_s);
    StoreWebLines(Book(), SiteLine(u"a"_s));
    boxes.Expect(u"您确定要将当前【所有记录】入账?"_s, 0);
    EXPECT_EQ(Post(), u"-"_s);
    State().settings.bWebOk = 0;
    boxes.Expect(u"您确定要将当前【所有记录】入账?"_s);
    boxes.Expect(u"与网账同名的账本不存在!"_s);
    EXPECT_EQ(Post(), u"-"_s);
    boxes.Expect(u"无【选中】的需要删除的记录!"_s);
    EXPECT_FALSE(DeleteWebRowsAsked(Book(), WebList::waiting, {}));
    boxes.Expect(u"您确定要【删除】选定的一条或多条记录?"_s, 0);
    EXPECT_FALSE(DeleteWebRowsAsked(Book(), WebList::waiting, {1}));
    EXPECT_EQ(Waiting().size(), 1);
}

TEST_F(WebPostingTest, ADeletedRowLeavesACopyUntilTheHistoryIsDeleted) {
    Fetch({SiteLine(u"a"_s), SiteLine(u"b"_s), SiteLine(u"c"_s)});
    EXPECT_TRUE(DeleteWebRowsAsked(Book(), WebList::waiting, {1, 3}));
    EXPECT_EQ(Dump(u"select ID1,Title1,bPassIdChk,sDelDate from tAccountWebDel"_s),
              (QStringList{u"1|a|0|2016-09-03 14:16:20"_s, u"3|c|0|2016-09-03 14:16:20"_s}));
    EXPECT_EQ(Dump(u"select ID1,Title1 from tAccountWeb"_s), QStringList{u"2|b"_s});
    // A book whose counter was set back gives an id again that the history has.
    Book().Execute(u"update tAccountWeb set ID1=1"_s);
    EXPECT_TRUE(DeleteWebRowsAsked(Book(), WebList::waiting, {1}));
    EXPECT_EQ(Dump(u"select ID1,Title1 from tAccountWebDel"_s), (QStringList{u"1|a"_s, u"3|c"_s, u"4|b"_s}));
    EXPECT_TRUE(DeleteWebRowsAsked(Book(), WebList::history, {3, 4}));
    EXPECT_EQ(Fates(), QStringList{u"a|0"_s});
}

TEST_F(WebPostingTest, AStoppedPostingSaysItsCountAndLeavesTheRest) {
    Fetch({SiteLine(u"a"_s), SiteLine(u"b"_s, {{2, u"99"_s}}), SiteLine(u"c"_s)});
    Job::StopAfter(2);
    EXPECT_EQ(Post(), u"1/1"_s);
    Job::StopAfter(-1);
    EXPECT_TRUE(boxes.Seen().last().contains(u"【2】"_s));
    EXPECT_EQ(Fates(), (QStringList{u"a|1"_s, u"b|0"_s}));
    EXPECT_EQ(Post(), u"1/0"_s);
    EXPECT_EQ(NewEntries().size(), 2);
}
