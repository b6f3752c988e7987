// The driver's requests on reports, exports and the search.

#include "tests/support/drive_fixture.h"

using namespace Qt::StringLiterals;

namespace {

QStringList CellsOf(const QJsonObject& answer, int line) {
    return answer[u"lines"][line][u"cells"].toVariant().toStringList();
}

}  // namespace

TEST_F(DriveTest, ReportsAreAnsweredAndExportedFromTheDataFolder) {
    const QString data = Path(u"data"_s);
    const auto run =
        Drive(R"({"cmd":"period","table":"tKind","code":"0302","length":"day","date1":"","date2":"2016-09-02"}
{"cmd":"branches","table":"tSubAcc","date1":"2016-09-02","date2":""}
{"cmd":"period","table":"tSubAcc","code":"77","length":"year"}
{"cmd":"export","list":"report","mode":"date","format":"txt","now":"2016-09-03 14:16:20","answer":"file"}
{"cmd":"export","list":"report","mode":"kind","format":"html"}
{"cmd":"export","list":"entries","format":"html","kind":"02","stopAfter":1,"answer":"folder"}
{"cmd":"export","list":"accounts","format":"excel"}
{"cmd":"search","text":"软件"}
{"cmd":"export","list":"pages","format":"html"}
{"cmd":"texts","fn":"SplitSums","args":[13.75,-7.25]}
)",
              {u"--data"_s, data});
    ASSERT_EQ(run.answers.size(), 10);
    const auto& a = run.answers;
    EXPECT_EQ(a[0][u"caption"].toString(), u"【0302银行存款】按『日』在【？ 到 2016-09-02】期间统计"_s);
    EXPECT_EQ(CellsOf(a[0], 0), (QStringList{u"1"_s, u"2016-01-01"_s, u"0"_s, u"2100"_s, u"-2100"_s}));
    EXPECT_EQ(CellsOf(a[1], 0), (QStringList{u"1"_s, u"01东华公司"_s, u"5000"_s, u"0"_s, u"5000"_s}));
    EXPECT_EQ(a[2][u"message"].toString(), u"请选择一个账户!"_s);
    EXPECT_EQ(a[3][u"opened"].toString(), data + u"/Export/分类统计(期间).txt"_s);
    EXPECT_EQ(a[3][u"files"].toVariant().toStringList(), QStringList{data + u"/Export/分类统计(期间).txt"_s});
    EXPECT_EQ(a[4][u"message"].toString(), u"没有记录!"_s);
    EXPECT_EQ(a[5][u"boxes"][0][u"text"].toString(), u"已停止剩余部分导出!"_s);
    EXPECT_EQ(a[5][u"opened"].toString(), data + u"/Export"_s);
    EXPECT_TRUE(QFile::exists(data + u"/Export/账户.xls"_s));
    EXPECT_FALSE(a[6].contains(u"opened"_s));
    EXPECT_EQ(a[7][u"count"].toInt(), 1);
    EXPECT_EQ(a[7][u"opened"].toString(), data + u"/Export/Query_1.html"_s);
    EXPECT_TRUE(QFile::exists(data + u"/Export/Html/css.css"_s));
    EXPECT_EQ(a[8][u"error"].toString(), u"unknown list"_s);
    EXPECT_EQ(a[9][u"value"].toVariant().toStringList(), (QStringList{u"3"_s, u"10.75"_s}));
}
