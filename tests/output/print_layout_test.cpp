// Where everything of a printed page stands, and how values become texts.

#include "ledger/list_print.h"
#include "ledger/record_query.h"
#include "output/print_columns.h"
#include "tests/support/printed.h"

using namespace Qt::StringLiterals;

namespace {

class PrintLayout : public Fixture {
 protected:
    PrintLayout() {
        OpenSample();
        State().settings.nGroup = 3;
    }
    static void Execute(const QString& sql) { State().gDB.Execute(sql); }
    /// A table of one column a, of the given width, with rows of the given number.
    static void MakeTable(int rows, int width) {
        Execute(
            u"create table tOne (a integer);"
            u"insert into tPrint (sKey,sDef,sTable,bListPrint,nListPrintW,nSort,nDist)"
            u" values ('a','列','tOne',1,%1,1,0);"
            u"insert into tOne with recursive n(i) as (select 1 union all select i+1 from n where i<%2)"
            u" select i from n"_s.arg(width)
                .arg(rows));
    }
    static PrintInfo One(const QString& title = u"一"_s) { return {u"tOne"_s, true, title, {}, {}}; }
    static QStringList ListTexts(const PrintDocument& document, size_t page = 0) {
        return Texts(document.pages[page], PrintFont::list);
    }
};

const QStringList kFoot{
    u"20,287 w180 left DefaultFont 【墨鹊理财v2016.2】"_s, u"20,287 w180 centre DefaultFont 页码:1 / 1"_s,
    u"20,287 w180 right DefaultFont 打印时间:2016-09-03 14:16:20"_s, u"20,287 to 200,287 BlackPen_00"_s};

}  // namespace

TEST_F(PrintLayout, EveryItemOfAListStandsInItsPlace) {
    const auto run = RunLayout({{u"tTjDate"_s, true, u"每月统计"_s, {}, u"1"_s}});
    ASSERT_EQ(run.document.pages.size(), 1);
    EXPECT_FALSE(run.document.turned);
    const QStringList told{u"20,25 w0 left TitleFont 每月统计"_s,    u"20,35 to 188,35 BlackPen_00"_s,
                           u"20,41 to 188,41 BlackPen_00"_s,         u"20.5,35 w7 left ListFont 序号"_s,
                           u"28.5,35 w39 left ListFont 期间"_s,      u"68.5,35 w39 left ListFont ￥增加额"_s,
                           u"108.5,35 w39 left ListFont ￥减少额"_s, u"148.5,35 w39 left ListFont ￥余额"_s,
                           u"20.5,41 w7 left ListFont 1"_s,          u"28.5,41 w39 centre ListFont 2016-01"_s,
                           u"68.5,41 w39 right ListFont 2,100"_s,    u"108.5,41 w39 right ListFont 2,100"_s,
                           u"148.5,41 w39 right ListFont 0"_s,       u"20,47 to 188,47 BlackPen_01"_s,
                           u"20,41 to 20,47 BlackPen_01"_s,          u"28,41 to 28,47 BlackPen_01"_s,
                           u"68,41 to 68,47 BlackPen_01"_s,          u"108,41 to 108,47 BlackPen_01"_s,
                           u"148,41 to 148,47 BlackPen_01"_s,        u"188,41 to 188,47 BlackPen_01"_s,
                           u"20.5,47 w7 left ListFont 2"_s,          u"28.5,47 w39 centre ListFont 2016-09"_s,
                           u"68.5,47 w39 right ListFont 18,500"_s,   u"108.5,47 w39 right ListFont 0"_s,
                           u"148.5,47 w39 right ListFont 18,500"_s,  u"20,53 to 188,53 BlackPen_01"_s,
                           u"20,47 to 20,53 BlackPen_01"_s,          u"28,47 to 28,53 BlackPen_01"_s,
                           u"68,47 to 68,53 BlackPen_01"_s,          u"108,47 to 108,53 BlackPen_01"_s,
                           u"148,47 to 148,53 BlackPen_01"_s,        u"188,47 to 188,53 BlackPen_01"_s};
    EXPECT_EQ(Printed(run.document.pages[0]).join(u'\n'), (told + kFoot).join(u'\n'));
    EXPECT_EQ(run.progress, (QStringList{u"1,1,0"_s, u"1,1,2"_s}));
}

TEST_F(PrintLayout, EntriesComeByDateWithTheirSignsMarksAndSheet) {
    Execute(u"update tAccount set Mark1=1 where Id1=7; update tAccount set Value1=null where Id1=4"_s);
    const auto query = BuildEntryQuery({.kind = u"03"_s, .text = {}, .period = {}});
    const auto info = EntryPrintInfo(query, u"03资产"_s, {});
    EXPECT_EQ(PrintInfoText({info}), u"tAccount/1/【03资产】账务列表/ and Type1>='03' and Type1<'04'/1"_s);
    const auto run = RunLayout({info});
    EXPECT_FALSE(run.document.turned);
    EXPECT_EQ(ListTexts(run.document).mid(10).join(u'|'),
              u"1|购买办公桌|030201|农行|－|0|2016-01-01|14:08|富华家俱城，1.2米|"
              u"2|赊销选果机控制系统|0303|应收款|8,500|2016-09-01|14:13|√|"
              u"3|软件定制收入|030201|农行|5,000|2016-09-03|14:10|合同号：98"_s);
}

TEST_F(PrintLayout, CheckedLinesAlone) {
    const auto records = BuildRecordQuery({});
    EXPECT_EQ(PrintInfoText({RecordPrintInfo(records, u"全部"_s, std::vector<qint64>{4, 9})}),
              u"tSubAccItem/1/【全部】账户记录列表/ and id1 in(4,9)/1"_s);
    const auto some = RunLayout({RecordPrintInfo(records, u"全部"_s, std::vector<qint64>{4, 9})});
    EXPECT_EQ(ListTexts(some.document).mid(8).join(u'|'),
              u"1|2016-09-01|14:13|8,500|赊销选果机控制系统|02|大宇公司"_s);
    const auto none = RunLayout({RecordPrintInfo(records, u"全部"_s, std::vector<qint64>{})});
    EXPECT_EQ(ListTexts(none.document).size(), 8);  // the head without rows
    EXPECT_EQ(none.progress, (QStringList{u"1,1,0"_s, u"1,1,2"_s}));
}

TEST_F(PrintLayout, APageIsFullAndTheHeadStandsOnEach) {
    MakeTable(81, 30);
    const auto run = RunLayout({One()});
    ASSERT_EQ(run.document.pages.size(), 3);
    EXPECT_EQ(ListTexts(run.document, 0).size(), 2 + 2 * 38);
    EXPECT_EQ(ListTexts(run.document, 1).size(), 2 + 2 * 42);
    const auto second = Printed(run.document.pages[1]);
    EXPECT_EQ(second[0], u"20,15 to 58,15 BlackPen_00"_s);
    EXPECT_EQ(second[4], u"20.5,21 w7 left ListFont 39"_s);
    EXPECT_TRUE(second.contains(u"20,273 to 58,273 BlackPen_01"_s));
    EXPECT_TRUE(Texts(run.document.pages[2], PrintFont::standard).contains(u"页码:3 / 3"_s));
    EXPECT_EQ(run.progress, (QStringList{u"3,3,0"_s, u"1,3,1"_s, u"2,3,1"_s, u"3,3,2"_s}));
}

TEST_F(PrintLayout, TheNextDocumentGoesOnWhereTheLastEnded) {
    MakeTable(2, 30);
    const auto run = RunLayout({One(), One(u"二"_s)});
    ASSERT_EQ(run.document.pages.size(), 1);
    const auto printed = Printed(run.document.pages[0]);
    EXPECT_TRUE(printed.contains(u"20,53 w0 left TitleFont 二"_s));
    EXPECT_TRUE(printed.contains(u"20.5,69 w7 left ListFont 1"_s));
    EXPECT_EQ(run.progress, (QStringList{u"1,1,0"_s, u"1,1,0"_s, u"1,1,2"_s}));
    // A title does not stand in the footer.
    Execute(u"insert into tOne select 1 from tPrint limit 36"_s);
    const auto next = RunLayout({One(), One(u"二"_s)});
    EXPECT_TRUE(Printed(next.document.pages[1]).contains(u"20,25 w0 left TitleFont 二"_s));
}

TEST_F(PrintLayout, TheQuestionComesOnceAtThe99thPage) {
    MakeTable(38 + 42 * 99 + 1, 30);  // 101 pages
    const QString question = u"超过100页，是否继续打印？ 如何继续将需要几分钟到十几分钟!"_s;
    boxes.Expect(question);
    EXPECT_EQ(RunLayout({One()}).document.pages.size(), 101);
    EXPECT_EQ(boxes.Last().title, u"提示"_s);
    EXPECT_EQ(boxes.Last().buttons, u"否,是"_s);
    boxes.Expect(question, 0);
    const auto less = RunLayout({One(), One(u"二"_s)}).document;
    EXPECT_EQ(less.pages.size(), 99);
    EXPECT_EQ(ListTexts(less, 98).size(), 2 + 2 * 42);
    EXPECT_TRUE(Texts(less.pages[98], PrintFont::standard).contains(u"页码:99 / 99"_s));
}

TEST_F(PrintLayout, AStopKeepsWhatIsLaidOut) {
    MakeTable(100, 30);
    for (const int rows : {1, 50, 100}) {
        Job::StopAfter(rows);
        const auto run = RunLayout({One(), One()});
        Job::StopAfter(-1);
        int numbers = 0;
        for (size_t page = 0; page < run.document.pages.size(); ++page)
            numbers += static_cast<int>(ListTexts(run.document, page).size() - 2) / 2;
        EXPECT_EQ(numbers, rows);
        EXPECT_FALSE(State().gBusy);
    }
}

TEST_F(PrintLayout, TheSheetIsTurnedOnlyWhereThatHelps) {
    struct Case {
        int width;
        bool turned;
    };
    MakeTable(60, 30);
    for (const auto& [width, turned] :
         {Case{182, false}, {183, true}, {269, true}, {270, false}, {0, false}}) {
        Execute(u"update tPrint set nListPrintW=%1 where sTable='tOne'"_s.arg(width));
        const auto document = RunLayout({One(), {u"tTjDate"_s, true, u"x"_s, {}, {}}}).document;
        EXPECT_EQ(document.turned, turned) << width;
        const auto last = Printed(document.pages.back());
        EXPECT_EQ(last.last(),
                  turned ? u"20,200 to 287,200 BlackPen_00"_s : u"20,287 to 200,287 BlackPen_00"_s);
        if (width == 270) {
            EXPECT_TRUE(Printed(document.pages[0]).contains(u"20,47 to 298,47 BlackPen_01"_s));
        }
        if (width == 0) {
            EXPECT_EQ(ListTexts(document).mid(0, 3), (QStringList{u"序号"_s, u"1"_s, u"2"_s}));
        }
        EXPECT_EQ(document.pages.size(), turned ? 3 : 2) << width;
    }
}

TEST_F(PrintLayout, WhatCannotBePrintedLeavesItsTitle) {
    const QStringList title{u"20,25 w0 left TitleFont 题"_s};
    const auto printed = [](const PrintInfo& info) {
        const auto run = RunLayout({info});
        EXPECT_EQ(run.document.pages.size(), 1);
        EXPECT_EQ(run.progress, QStringList{u"0,0,2"_s});
        return Printed(run.document.pages[0]);
    };
    EXPECT_EQ(printed({u"tKind"_s, true, u"题"_s, {}, {}}), title + kFoot);
    EXPECT_EQ(printed({u"tAccount"_s, true, u"题"_s, {}, u"没有"_s}), title + kFoot);
    EXPECT_EQ(printed({u"tAccount"_s, true, u"题"_s, u" and nothing=1"_s, {}}), title + kFoot);
    Execute(u"update tPrint set sKey='没有' where ID1=2"_s);
    EXPECT_EQ(printed({u"tAccount"_s, true, u"题"_s, {}, {}}), title + kFoot);
    const auto empty = RunLayout({});
    ASSERT_EQ(empty.document.pages.size(), 1);
    EXPECT_EQ(Printed(empty.document.pages[0]), kFoot);
}

TEST_F(PrintLayout, AMarkPicksItsRowsAndAnotherLayoutPrintsTheCharts) {
    Execute(u"update tPrint set sMark='短' where ID1 in (16, 20)"_s);
    const auto marked = RunLayout({{u"tTjDate"_s, true, u"x"_s, u" and Id1=2"_s, u"短"_s}});
    EXPECT_EQ(ListTexts(marked.document).join(u'|'), u"序号|期间|￥余额|1|2016-09|18,500"_s);
    const auto chart = RunLayout({{.table = u"tSubAcc"_s, .title = u"账户"_s, .layout = u"tTjKind"_s}});
    EXPECT_EQ(ListTexts(chart.document).mid(6, 12).join(u'|'),
              u"1|01|东华公司|5,000|0|5,000|2|02|大宇公司|8,500|0|8,500"_s);
}

TEST_F(PrintLayout, ValuesAreReplacedAndAmountsGrouped) {
    struct Case {
        QString value, told, printed;
    };
    const Case cases[] = {{u"-1"_s, u"-1/1,－/"_s, u"－"_s},  {u"1"_s, u"-1/1,－/"_s, u""_s},
                          {u"2"_s, u"-1/1,－/"_s, u"2"_s},    {u"TRUE"_s, u"True/False,√/"_s, u"√"_s},
                          {u""_s, u"True/False,√/"_s, u""_s}, {u""_s, u"/1,空/一"_s, u"空"_s},
                          {u"1"_s, u"1/2,一"_s, u"1"_s},      {u"1"_s, u"1/2,一/二/三"_s, u"1"_s},
                          {u"1"_s, u"1,一,二"_s, u"1"_s},     {u"1"_s, u"1/2"_s, u"1"_s},
                          {u"1"_s, u"1,一"_s, u"一"_s},       {u"x"_s, u""_s, u"x"_s}};
    for (const auto& c : cases)
        EXPECT_EQ(ReplaceValue(c.value, c.told), c.printed) << c.told.toStdString();

    Execute(
        u"create table tCell (a, b bit);"
        u"insert into tPrint (sKey,sDef,sTable,bListPrint,nListPrintW,nSort,sReplace,sType)"
        u" values ('a','a','tCell',1,50,1,'7/8,12.5/x','money'), "
        u"('b','b','tCell',1,50,2,'True/False,是/否','');"
        u"insert into tCell values (1234567.89,1), (0.1+0.2,0), (null,null), ('',5), ('1234.5元',1), (7,1),"
        u" (8,1), (1234.567,1), (-2000,1), (123456789012,1), (1e20,1), (1999000.0000000047,1)"_s);
    const auto cells = ListTexts(RunLayout({{u"tCell"_s, true, u"x"_s, {}, {}}}).document).mid(3);
    QStringList amounts, flags;
    for (qsizetype i = 0; i + 2 < cells.size(); i += 3) {
        amounts << cells[i + 1];
        flags << cells[i + 2];
    }
    EXPECT_EQ(amounts,
              (QStringList{u"1,234,567.89"_s, u"0.3"_s, u"0"_s, u"0"_s, u"1,234.5"_s, u"12.5"_s, u"0"_s,
                           u"1,234.567"_s, u"-2,000"_s, u"123,456,789,012"_s, u"1E+20"_s, u"1,999,000"_s}));
    EXPECT_EQ(flags.mid(0, 4), (QStringList{u"是"_s, u"否"_s, u"否"_s, u"是"_s}));
}

TEST_F(PrintLayout, ARecordWrapsItsTexts) {
    // 86 units of 2 mm are between the margins, 4 go to the caption and its blanks.
    Execute(u"update tNotebook set Title1='', Mark1=1, Note1='"_s + u"一"_s.repeated(81) +
            u" word\n\nO''Neil\t/#😀'"_s);
    const auto run = RunLayout({{u"tNoteBook"_s, false, u"记事（提醒）"_s, u" and id1=1"_s, {}}});
    const QStringList told{
        u"20,25 w0 left TitleFont 记事（提醒）"_s,   u"20,35 w0 left DefaultFont 标题：  "_s,
        u"20,41 w0 left DefaultFont 重要：  "_s,     u"30,41 w0 left DefaultFont √"_s,
        u"20,47 w0 left DefaultFont 增加日期：  "_s, u"34,47 w0 left DefaultFont 2016-09-03"_s,
        u"20,53 w0 left DefaultFont 增加时间：  "_s, u"34,53 w0 left DefaultFont 14:16:20"_s,
        u"20,59 w0 left DefaultFont 内容：  "_s,     u"30,59 w0 left DefaultFont "_s + u"一"_s.repeated(80),
        u"30,65 w0 left DefaultFont 一 word"_s,      u"30,77 w0 left DefaultFont O'Neil /#😀"_s};
    EXPECT_EQ(Printed(run.document.pages[0]).join(u'\n'), (told + kFoot).join(u'\n'));
    EXPECT_EQ(run.progress, (QStringList{u"1,1,0"_s, u"1,1,2"_s}));
}

TEST_F(PrintLayout, ARecordThatIsTooLongSaysWhatIsMissing) {
    Execute(
        u"insert into tNotebook select 2, '第二', 0, '2016-09-04', '08:00', '短', 0, '', 0, '记事', '0', 1"_s);
    Execute(u"update tNotebook set Note1='"_s + u"一"_s.repeated(5000) + u"' where ID1=1"_s);
    const auto document = RunLayout({{u"tNoteBook"_s, false, u"x"_s, {}, {}}}).document;
    ASSERT_EQ(document.pages.size(), 2);
    const auto first = Printed(document.pages[0]);
    EXPECT_EQ(first[first.size() - 5], u"30,275 w0 left DefaultFont ......有省略内容（墨鹊理财提示）"_s);
    EXPECT_EQ(first[first.size() - 6], u"30,269 w0 left DefaultFont "_s + u"一"_s.repeated(80));
    EXPECT_EQ(Printed(document.pages[1])[0], u"20,15 w0 left DefaultFont 标题：  "_s);
}

TEST_F(PrintLayout, WhatUsersTypeStaysInItsCell) {
    const QString typed = u"O'Neil \"3/4\" # <b>&\t第一\n第二😀"_s + u"长"_s.repeated(5000);
    Execute(u"update tAccount set Title1="_s + Quote(typed) + u" where Id1=7"_s);
    const auto query = BuildEntryQuery({.text = u"3/4\" #"_s, .period = {}});
    const auto document = RunLayout({EntryPrintInfo(query, u"0401电脑/配件#1"_s, {})}).document;
    ASSERT_EQ(document.pages.size(), 1);
    EXPECT_EQ(Texts(document.pages[0], PrintFont::title), QStringList{u"【0401电脑/配件#1】账务列表"_s});
    EXPECT_EQ(ListTexts(document)[11], u"O'Neil \"3/4\" # <b>& 第一 第二😀"_s + u"长"_s.repeated(5000));
}

TEST(PrintInfoTexts, AreReadAsTheyAreWritten) {
    struct Case {
        QString text, parts;
    };
    const Case cases[] = {
        {u""_s, u""_s},
        {u"  "_s, u""_s},
        {u"tAccount/1/【全部】账务列表/ and bIsMain=1/1"_s,
         u"tAccount|1|【全部】账务列表| and bIsMain=1|1"_s},
        {u"tNoteBook/1/记事列表/"_s, u"tNoteBook|1|记事列表||"_s},
        {u"tNoteBook/0/记事（提醒）/ and id1=5"_s, u"tNoteBook|0|记事（提醒）| and id1=5|"_s},
        {u"tTjKind/1/各分类【2016/1/5 - 2016/2/1】期间统计//1"_s,
         u"tTjKind|1|各分类【2016/1/5 - 2016/2/1】期间统计||1"_s},
        {u" tTjDate / 1 / 题 / and 1=1 / 短 "_s, u"tTjDate|1|题| and 1=1|短"_s},
        {u"tTjDate/1/题"_s, u"tTjDate|1|题||"_s},
        {u"tTjDate/1"_s, u"tTjDate|1|||"_s},
        {u"tAccount/1/甲/ and a='1'#tTjDate/1/乙//1"_s, u"tAccount|1|甲| and a='1'|;tTjDate|1|乙||1"_s},
        {u"tAccount/1/【电脑/配件#2】/ and Title1 like '%3/4%'/1"_s,
         u"tAccount|1|【电脑/配件#2】| and Title1 like '%3/4%'|1"_s},
        {u"tAccount/1/题/ and date1>='2016/1/5' and x='a#b'"_s,
         u"tAccount|1|题| and date1>='2016/1/5' and x='a#b'|"_s},
        {u"tAccount/1/题/ and x='a/1"_s, u"tAccount|1|题| and x='a/1|"_s},
        {u"tAccount/1/3/4 列表/"_s, u"tAccount|1|3/4 列表||"_s},
    };
    for (const auto& c : cases) {
        QStringList parsed;
        for (const auto& info : ParsePrintInfo(c.text))
            parsed << QStringList{info.table, info.list ? u"1"_s : u"0"_s, info.title, info.condition,
                                  info.mark}
                          .join(u'|');
        EXPECT_EQ(parsed.join(u';'), c.parts) << c.text.toStdString();
    }
    const std::vector<PrintInfo> written{{u"tNoteBook"_s, false, u"记事（提醒）"_s, u" and id1=5"_s, {}},
                                         {u"tTjKind"_s, true, u"题"_s, {}, u"1"_s}};
    EXPECT_EQ(PrintInfoText(written), u"tNoteBook/0/记事（提醒）/ and id1=5#tTjKind/1/题//1"_s);
}
