// The search over entries and notes, and its pages.

#include "output/search.h"

#include "output/export_files.h"
#include "store/errors.h"
#include "store/outside.h"
#include "tests/support/fixture.h"

#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace {

class SearchTest : public Fixture {
 protected:
    SearchTest() {
        OpenSample();
        Outside().open = [this](const QString& path) {
            opened_ << path;
            return true;
        };
    }
    static QString Page(int page) {
        return QStringDecoder("GB18030").decode(BytesOf(ExportPath(u"Query_%1.html"_s.arg(page))));
    }
    /// The rows of a page, as text between its head and its foot.
    static QStringList RowsOf(int page) {
        return Page(page).split(u"\r\n"_s).filter(u"<tr><td width='40'"_s);
    }
    QStringList opened_;
};

}  // namespace

TEST_F(SearchTest, TheFirstHitIsMarkedAndNothingBecomesMarkup) {
    const QString on = u"<font color=#FF0000><span style='background-color:#FFFF00'>"_s,
                  off = u"</span></font>"_s;
    const struct {
        QString text, key, shown;
    } cases[] = {{u"签合同，合同号"_s, u"合同"_s, u"签"_s + on + u"合同"_s + off + u"，合同号"_s},
                 {u"an abc"_s, u"ABC"_s, u"an "_s + on + u"ABC"_s + off},
                 {u"<b>a&b</b>"_s, u"a&b"_s, u"&lt;b&gt;"_s + on + u"a&amp;b"_s + off + u"&lt;/b&gt;"_s},
                 {u"a&amp;b"_s, u"amp"_s, u"a&amp;"_s + on + u"amp"_s + off + u";b"_s},
                 {u"<i>"_s, {}, u"&lt;i&gt;"_s},
                 {u"100%"_s, u"0_"_s, u"100%"_s},
                 {{}, u"x"_s, {}}};
    for (const auto& c : cases)
        EXPECT_EQ(Highlight(c.text, c.key), c.shown);
}

TEST_F(SearchTest, EntriesCountOnceAndNotesAreFoundToo) {
    const auto all = RunSearch(u"  "_s, {});
    EXPECT_EQ(all.count, 4);
    EXPECT_EQ(opened_, QStringList{ExportPath(u"Query_1.html"_s)});
    const auto rows = RowsOf(1);
    ASSERT_EQ(rows.size(), 4);
    EXPECT_EQ(rows[0],
              u"<tr><td width='40'  class='s1'>1</td><td width='120'  class='s1'>2016-01-01 14:08</td>"
              "<td width='50' class='s1'>记账</td><td width='140'  class='s1'>购买办公桌</td>"
              "<td             class='s1'>富华家俱城，1.2米</td></tr>"_s);
    EXPECT_TRUE(rows[3].contains(u"class='s0'>记事</td>"_s));
    EXPECT_EQ(RunSearch(u"软件"_s, {}).count, 1);
    boxes.Expect(u"没有符合条件的记录!"_s);
    EXPECT_EQ(RunSearch(u"o'Neil"_s, {}).count, 0);
    EXPECT_FALSE(State().gBusy);
    EXPECT_EQ(opened_.size(), 2);
}

TEST_F(SearchTest, PagesHoldWholeNumbersOfRowsAndAStopClosesTheLast) {
    for (int i = 0; i < 9; ++i)
        State().gDB.Execute(
            u"insert into tNotebook (ID1,Title1,Date1,Time1,Note1,sMe,bIsMain) values (%1,'合同书','2017-01-0%2','08:00','','记事',1)"_s
                .arg(10 + i)
                .arg(i + 1));
    State().settings.nHtmPageSize = 3;
    EXPECT_EQ(RunSearch(u"合同书"_s, {}).files.size(), 3);
    EXPECT_EQ(RowsOf(3).size(), 3);
    State().settings.nHtmPageSize = 4;
    Job::StopAfter(5);
    boxes.Expect(u"已停止剩余部分导出!"_s);
    EXPECT_EQ(RunSearch(u"合同书"_s, {}).files.size(), 2);
    Job::StopAfter(-1);
    EXPECT_EQ(RowsOf(2).size(), 1);
    EXPECT_TRUE(Page(2).contains(u"共3页，当前第2页， <a href='Query_1.html'>"_s));
    EXPECT_FALSE(State().gBusy);
}

TEST_F(SearchTest, AFailureLeavesNothingBusy) {
    State().gDB.Execute(u"drop table tNotebook"_s);
    boxes.Expect(u"意外错误"_s);
    RunEvent([] { RunSearch(u"x"_s, {}); });
    EXPECT_FALSE(State().gBusy);
    EXPECT_EQ(opened_, QStringList());
}
