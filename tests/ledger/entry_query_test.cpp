// What the entry list reads: conditions, lines, sums, pages, the detail panel.

#include "ledger/entry_query.h"

#include "ledger/posting.h"
#include "tests/support/entries.h"
#include "tests/support/fixture.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class EntryQueryTest : public Fixture {
 protected:
    // The lines of a page as "cell|cell|…"; the job may be stopped after some lines.
    QStringList Lines(const EntryFilter& filter, int page = 0, bool* whole = nullptr) {
        QStringList lines;
        Job job;
        const bool all = ReadLines(Book(), BuildEntryQuery(filter), page, job,
                                   [&](EntryLine&& line) { lines << line.cells.All().join(u'|'); });
        if (whole) *whole = all;
        return lines;
    }
    QStringList Titles(const EntryFilter& filter) {
        QStringList titles;
        for (const auto& line : Lines(filter))
            titles << line.section(u'|', 6, 6);
        return titles;
    }
    void SaveTitles(const QStringList& titles) {
        for (const auto& title : titles)
            PostEntry(Book(), SampleEntry(title, u"1"_s));
    }
};

EntryFilter OfKind(const QString& code) {
    EntryFilter filter;
    filter.kind = code;
    return filter;
}

EntryFilter WithText(const QString& text) {
    EntryFilter filter;
    filter.text = text;
    return filter;
}

}  // namespace

TEST_F(EntryQueryTest, AnEntryIsOneLineAndAChosenKindShowsItsRows) {
    OpenSample();
    Book().Execute(u"update tAccount set Mark1=1 where Id1=3"_s);
    EXPECT_EQ(Lines({}), (QStringList{u"1|2016-01-01  14:08|0201办公费用|2100||2100|购买办公桌|100"_s,
                                      u"2|2016-09-01  14:13|0303应收款|8500||8500|赊销选果机控制系统|011"_s,
                                      u"3|2016-09-03  14:10|030201农行|5000||5000|软件定制收入|001"_s}));
    EXPECT_EQ(Lines(OfKind(u"03"_s)),
              (QStringList{u"1|2016-01-01  14:08|030201农行||2100|-2100|购买办公桌|"_s,
                           u"2|2016-09-01  14:13|0303应收款|8500||6400|赊销选果机控制系统|011"_s,
                           u"3|2016-09-03  14:10|030201农行|5000||11400|软件定制收入|001"_s}));
    EXPECT_EQ(Lines({u"all"_s, {}, {QDate(2016, 9, 2), QDate(2016, 9, 1)}, false}), QStringList());
    EXPECT_EQ(Titles({u"030201"_s, {}, {QDate(2016, 9, 1), {}}, false}), QStringList{u"软件定制收入"_s});
    EXPECT_EQ(Titles({u"all"_s, {}, {}, true}), QStringList{u"购买办公桌"_s});
}

TEST_F(EntryQueryTest, BothRowsOfAnEntryShowInACommonSubtree) {
    OpenSample();
    auto e = SampleEntry(u"转账"_s, u"100"_s);
    e.kind2On = true;
    Choose(e, kKind1, u"030201"_s, u"农行"_s, false);
    Choose(e, kKind2, u"030202"_s, u"工行"_s, true);
    PostEntry(Book(), e);
    const auto lines = Lines({u"0302"_s, u"转账"_s, {}, false});
    EXPECT_EQ(lines, (QStringList{u"1|2016-09-05  09:30|030201农行||100|-100|转账|"_s,
                                  u"2|2016-09-05  09:30|030202工行|100||0|转账|"_s}));
    const auto sums = ReadSums(Book(), BuildEntryQuery({u"0302"_s, u"转账"_s, {}, false}));
    EXPECT_EQ(sums.count * 1000000 + static_cast<int>(sums.in) * 1000 + static_cast<int>(sums.out), 2100100);
    EXPECT_EQ(Lines(WithText(u"转账"_s)), QStringList{u"1|2016-09-05  09:30|030201农行||100|-100|转账|"_s});
}

TEST_F(EntryQueryTest, SearchedTextsChangeNoStatementAndPercentIsAWildcard) {
    OpenSample();
    Book().Execute(u"delete from tAccount"_s);
    SaveTitles({u"O'Neil"_s, u"50% off"_s, u"a_b"_s, u"axb"_s, u"'; delete from tAccount; --"_s});
    const std::pair<QString, int> cases[] = {{u"O'N"_s, 1},     {u"o'neil"_s, 1},     {u"'"_s, 2},
                                             {u"0% o"_s, 1},    {u"%"_s, 5},          {u"a_b"_s, 2},
                                             {u"' or '1"_s, 0}, {u" off"_s, 1},       {u" off "_s, 0},
                                             {u"\""_s, 0},      {u"delete from"_s, 1}};
    for (const auto& [text, count] : cases) {
        EXPECT_EQ(Lines(WithText(text)).size(), count) << qPrintable(text);
        EXPECT_EQ(ReadSums(Book(), BuildEntryQuery(WithText(text))).count, count) << qPrintable(text);
    }
    EXPECT_EQ(Lines(OfKind(u"x'"_s)), QStringList());
}

TEST_F(EntryQueryTest, SumsAreGroupedAndHiddenForAll) {
    struct Case {
        int nGroup;
        bool all;
        EntrySums sums;
        QString texts;
    };
    const Case cases[] = {
        {3,
         false,
         {13500, 2100.5, 1234},
         u"笔数:1,234/差额:11,399.50/笔数 1,234/增加 13,500/减少 2,100.50/差额 11,399.50/"
         u"笔数：1,234 笔\n增加：13,500 元\n减少：2,100.50 元\n差额：11,399.50 元"_s},
        {4,
         false,
         {0.3 - 0.1 - 0.2, 12345, 0},
         u"笔数:0/差额:-1,2345/笔数 0/增加 0/减少 1,2345/差额 -1,2345/"
         u"笔数：0 笔\n增加：0 元\n减少：1,2345 元\n差额：-1,2345 元"_s},
        {0,
         true,
         {13500, 1, 10000},
         u"笔数:10000/差额:－/笔数 10000/增加 －/减少 －/差额 －/笔数：10000 笔"_s},
    };
    for (const auto& c : cases) {
        State().settings.nGroup = c.nGroup;
        const auto t = ShowSumTexts(c.sums, c.all);
        EXPECT_EQ((QStringList{t.count, t.value, t.bill, t.money, t.sumbill, t.summoney, t.tag}).join(u'/'),
                  c.texts);
    }
    OpenSample();
    Book().Execute(
        u"update tAccount set Value1=0.1 where Id1=3; update tAccount set Value1=0.2 where Id1=4"_s);
    State().settings.nGroup = 3;
    const auto texts = ShowSumTexts(ReadSums(Book(), BuildEntryQuery(OfKind(u"03"_s))), false);
    EXPECT_EQ(texts.tag, u"笔数：3 笔\n增加：13,500 元\n减少：0.20 元\n差额：13,499.80 元"_s);
}

TEST_F(EntryQueryTest, PagesHoldTenThousandLines) {
    struct Case {
        int count;
        QString items;
    };
    const Case cases[] = {
        {0, u"00001 - 00000=0"_s},      {1, u"00001 - 00001=0"_s},
        {10000, u"00001 - 10000=0"_s},  {10001, u"00001 - 10000=0,10001 - 10001=1"_s},
        {123456, u"00001 - 10000=0"_s},
    };
    for (const auto& c : cases) {
        QStringList items;
        for (const auto& item : PageItems(c.count))
            items << item.text + u'=' + item.key;
        EXPECT_TRUE(items.join(u',').startsWith(c.items)) << c.count;
        EXPECT_EQ(items.size(), std::max(1, (c.count + 9999) / 10000));
    }
    EXPECT_EQ(PageItems(123456).back().text, u"120001 - 123456"_s);

    OpenEmpty();
    Book().Execute(
        u"with recursive n(i) as (select 1 union all select i+1 from n where i<10050)"
        u" insert into tAccount (Id1,Title1,Type1,TypeName1,Value1,Date1,Time1,nSign,bIsMain)"
        u" select i,'第'||i,'00','x',1,'2016-01-01','08:00',1,1 from n"_s);
    EXPECT_EQ(ReadSums(Book(), BuildEntryQuery({})).count, 10050);
    const auto first = Lines(OfKind(u"00"_s), 0);
    ASSERT_EQ(first.size(), 10000);
    EXPECT_EQ(first.last(), u"10000|2016-01-01  08:00|00x|1||10000|第10000|"_s);
    const auto second = Lines(OfKind(u"00"_s), 1);
    ASSERT_EQ(second.size(), 50);
    EXPECT_EQ(second.first(), u"10001|2016-01-01  08:00|00x|1||1|第10001|"_s);  // the balance starts anew
    EXPECT_EQ(Lines({}, 2), QStringList());

    bool whole = true;
    Job::StopAfter(120);
    EXPECT_EQ(Lines({}, 0, &whole).size(), 120);
    EXPECT_FALSE(whole);
    EXPECT_FALSE(State().gBusy);
    Job::StopAfter(-1);
    Lines({}, 1, &whole);
    EXPECT_TRUE(whole);
    boxes.Expect(u"已停止剩余部分导出!"_s);
    TellStopped();
}

TEST_F(EntryQueryTest, OnlyOneJobRunsAtATime) {
    const Job running;
    boxes.Expect(u"有进程在运行，请等待结束后再试..."_s);
    const Job second;
    EXPECT_TRUE(second.Refused());
    EXPECT_FALSE(running.Refused());
    EXPECT_FALSE(running.Stopped());
    Job::Stop();
    EXPECT_TRUE(running.Stopped());
}

TEST_F(EntryQueryTest, OneLineIsReadWithoutABalance) {
    OpenSample();
    const auto line = ReadOneLine(Book(), 4, 12);
    ASSERT_TRUE(line.has_value());
    EXPECT_EQ(line->cells.All().join(u'|'), u"12|2016-01-01  14:08|030201农行||2100||购买办公桌|"_s);
    EXPECT_EQ(line->key + u'/' + line->subKey, u"4/030201"_s);
    for (const qint64 gone : {-1, 2, 99})
        EXPECT_FALSE(ReadOneLine(Book(), gone, 1).has_value()) << gone;
}

TEST_F(EntryQueryTest, TheDetailShowsBothKindsAndAccounts) {
    OpenSample();
    auto e = SampleEntry(u"送货"_s, u"12.50"_s);
    SetShape(e, 5);
    e.mark = true;
    e.pictures = u"2"_s;
    Book().Execute(
        u"insert into tPic values (2,x'00','a','tAccount',-1,-1), (3,x'00','b','tAccount',-1,-1),"
        u" (4,x'00','c','tNotebook',8,9)"_s);
    const auto ids = PostEntry(Book(), e);
    const auto shown = [this](qint64 id) {
        const auto detail = ReadDetail(Book(), id);
        QStringList lines{detail.title};
        for (const auto& row : detail.rows)
            lines << row.join(u'|');
        return lines;
    };
    const QStringList rest{u"账户一|0301软件开发|12.50"_s, u"账户一|02大宇公司|-7.25"_s, u"照    片|2  张|"_s,
                           u"标    记|    √|"_s};
    EXPECT_EQ(shown(ids.main),
              (QStringList{u"送货"_s, u"分类一|0102项目收入|12.50"_s, u"分类二|030202工行|-12.50"_s} + rest));
    EXPECT_EQ(shown(ids.second),
              (QStringList{u"送货"_s, u"分类一|030202工行|-12.50"_s, u"分类二|0102项目收入|12.50"_s} + rest));
    EXPECT_EQ(shown(7), (QStringList{u"赊销选果机控制系统"_s, u"分类一|0303应收款|8500"_s, u"分类二||"_s,
                                     u"账户一|02大宇公司|8500"_s, u"账户一||"_s, u"照    片|1  张|"_s,
                                     u"标    记||"_s}));
    EXPECT_EQ(shown(99), (QStringList{{},
                                      u"分类一||"_s,
                                      u"分类二||"_s,
                                      u"账户一||"_s,
                                      u"账户一||"_s,
                                      u"照    片||"_s,
                                      u"标    记||"_s}));
}
