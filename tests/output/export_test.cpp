// The three kinds of files, byte by byte and by a foreign reader, and what happens when they cannot be
// written.

#include "output/export.h"

#include "chart/chart_export.h"
#include "ledger/list_export.h"
#include "output/export_files.h"
#include "output/xls_file.h"
#include "stats/report_export.h"
#include "store/outside.h"
#include "tests/support/fixture.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace {

const QString kHead =
    u"<html>\r\n<head>\r\n<meta http-equiv=\"Content-Type\" content=\"text/html; charset=gb2312\" />\r\n"
    u"<title>墨鹊流理财-查询</title>\r\n<link href=\"Html/css.css\" rel=\"STYLESHEET\" type=\"text/css\">\r\n"
    u"</head>\r\n<body topmargin=\"0\">\r\n\r\n"
    u"<table background=\"Html/Banner.jpg\" class=\"st\" height=\"78\" "
    u"align=\"center\"><tr><td>\u3000</td></tr></table>"
    u"\r\n<table border=\"0\" cellpadding=\"5\" cellspacing=\"0\" class=\"st\"  align =\"center\" width=\"80%\" >\r\n"_s;

QString Foot(const QString& page) {
    return u"</table>\r\n\r\n<table border=\"0\" width=\"800px\" align=\"center\">\r\n<tr><td>"_s + page +
           u"</td></tr>\r\n<tr><td>查询时间：2016-09-03 14:16:20</td></tr>\r\n</table>\r\n</body></html>\r\n"_s;
}

class ExportTest : public Fixture {
 protected:
    ExportTest() {
        Outside().open = [this](const QString& path) {
            opened_ << path;
            return true;
        };
    }
    static QByteArray Bytes(const QString& name) { return BytesOf(ExportPath(name)); }
    static QString Page(const QString& name) { return QStringDecoder("GB18030").decode(Bytes(name)); }
    /// The lines that a foreign reader makes of a spreadsheet.
    static QStringList Sheet(const QString& name) {
        QProcess reader;
        reader.start(u"perl"_s, {QString::fromUtf8(KESTRO_READ_SHEET), ExportPath(name)});
        EXPECT_TRUE(reader.waitForFinished());
        EXPECT_EQ(reader.exitCode(), 0) << reader.readAllStandardError().constData();
        return QString::fromUtf8(reader.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    }
    QStringList Run(const ExportTable& table, ExportFormat format, int answer = 0) {
        boxes.Expect(u"文件已导出到【"_s, answer);
        return Export(table, format, {});
    }
    static ExportTable Entries(std::vector<RowTexts> rows) {
        return LinesExport(LineKind::entries, std::move(rows));
    }
    QStringList opened_;
};

std::vector<RowTexts> TwoRows() {
    return {
        {u"1"_s,
         u"2016-01-01  14:08"_s,
         u"0201<b>办公\"&'"_s,
         u"2100.50"_s,
         {},
         u"2100.50"_s,
         u"=购买\t办公桌😀"_s,
         u"000"_s},
        {u"2"_s, u"2016-09-01  14:13"_s, u"0303应收款"_s, {}, u"1234567"_s, u"-1232466.5"_s, {}, u"000"_s}};
}

}  // namespace

TEST_F(ExportTest, WebPagesAreAChainOfWholeFiles) {
    State().settings.nHtmPageSize = 1;
    EXPECT_EQ(Run(Entries(TwoRows()), ExportFormat::web, 2),
              (QStringList{ExportPath(u"记账_1.html"_s), ExportPath(u"记账_2.html"_s)}));
    EXPECT_EQ(boxes.Last().text, u"文件已导出到【"_s + ExportPath(u"记账_1.html"_s) +
                                     u"】是要打开【文件】还是打开文件所在【目录】,还是【取消】?"_s);
    EXPECT_EQ(boxes.Last().buttons, u"打开目录,取消,打开文件"_s);
    EXPECT_EQ(opened_, QStringList{State().gDataDir + u"/Export"_s});
    const QString head = kHead +
                         u"<tr><td colspan='7'>记账列表导出:2016-09-03 14:16:20</td></tr>"
                         "<tr><td class='sa2' width='40'  align='left'>No</td>"
                         "<td class='sa2' width='110' align='center'>记账日期</td>"
                         "<td class='sa2' width='180' align='left'>事情分类</td>"
                         "<td class='sa2' width='60'  align='right'>增加(元)</td>"
                         "<td class='sa2' width='60'  align='right'>减少(元)</td>"
                         "<td class='sa2' width='60'  align='right'>余额(元)</td>"
                         "<td class='sa2'             align='left'>事情</td></tr>\r\n"_s;
    EXPECT_EQ(Page(u"记账_1.html"_s),
              head +
                  u"<tr><td width='40'   class='s0'>1</td>"
                  "<td width='110'  class='s0' align='center'>2016-01-01  14:08</td>"
                  "<td width='180'  class='s0' align='left'>0201&lt;b&gt;办公&quot;&amp;'</td>"
                  "<td width='60'   class='s0' align='right'>2,100.5</td>"
                  "<td width='60'   class='s0' align='right'>&nbsp;</td>"
                  "<td width='60'   class='s0' align='right'>2,100.5</td>"
                  "<td              class='s0' align='left'>=购买\t办公桌😀</td></tr>\r\n"_s +
                  Foot(u"共2页，当前第1页， <a href='记账_1.html'>1</a> <a href='记账_2.html'>2</a>"_s));
    EXPECT_EQ(Page(u"记账_2.html"_s),
              head +
                  u"<tr><td width='40'   class='s1'>2</td>"
                  "<td width='110'  class='s1' align='center'>2016-09-01  14:13</td>"
                  "<td width='180'  class='s1' align='left'>0303应收款</td>"
                  "<td width='60'   class='s1' align='right'>&nbsp;</td>"
                  "<td width='60'   class='s1' align='right'>1,234,567</td>"
                  "<td width='60'   class='s1' align='right'>-1,232,466.5</td>"
                  "<td              class='s1' align='left'>&nbsp;</td></tr>\r\n"_s +
                  Foot(u"共2页，当前第2页， <a href='记账_1.html'>1</a> <a href='记账_2.html'>2</a>"_s));
    EXPECT_EQ(QDir(State().gDataDir + u"/Export"_s).entryList(QDir::Files).size(), 2);
}

TEST_F(ExportTest, PagesAreCountedByWholeAndRest) {
    struct Case {
        int rows, size, pages;
    };
    for (const auto& c : {Case{50, 50, 1}, {51, 50, 2}, {51, 0, 2}, {51, -3, 2}, {4, 2, 2}, {1, 500, 1}}) {
        State().settings.nHtmPageSize = c.size;
        EXPECT_EQ(
            Run(Entries(std::vector(static_cast<size_t>(c.rows), TwoRows()[0])), ExportFormat::web).size(),
            c.pages)
            << c.rows << " of " << c.size;
    }
    EXPECT_EQ(Page(u"记账_1.html"_s).count(u"<tr><td width"_s), 1);
    // What an earlier, longer chain left behind stays.
    EXPECT_TRUE(QFile::exists(ExportPath(u"记账_2.html"_s)));
}

TEST_F(ExportTest, TextsStandInColumns) {
    EXPECT_EQ(Run(Entries(TwoRows()), ExportFormat::text, 1), QStringList{ExportPath(u"记账.txt"_s)});
    EXPECT_EQ(opened_, QStringList{ExportPath(u"记账.txt"_s)});
    EXPECT_TRUE(Bytes(u"记账.txt"_s).startsWith("\xEF\xBB\xBF"));
    EXPECT_EQ(
        QString::fromUtf8(Bytes(u"记账.txt"_s)),
        u"记账列表导出:2016-09-03 14:16:20\r\n\r\n"
        "No    记账时间          分类名称            增加(元)       减少(元)       余额(元)       事情   "
        "             \r\n\r\n"
        "1     2016-01-01  14:08 0201<b>办公\"&'      2,100.5                       2,100.5        "
        "=购买\t办公桌😀    \r\n"
        "2     2016-09-01  14:13 0303应收款                         1,234,567      -1,232,466.5                       \r\n"_s);
}

TEST_F(ExportTest, ASpreadsheetIsReadByOthers) {
    const QString longText = QString(5000, u'长');
    auto rows = TwoRows();
    rows[0].Set(6, u"=购买\t办公桌");
    for (int i = 0; i < 20; ++i)
        rows.push_back(
            {QString::number(i + 3), {}, longText, u"0.5"_s, {}, u"1E+20"_s, longText + QString::number(i)});
    Run(Entries(rows), ExportFormat::sheet);
    EXPECT_TRUE(boxes.Last().text.contains(u"记账.xls 】是要打开"_s));
    auto lines = Sheet(u"记账.xls"_s);
    EXPECT_EQ(
        lines.mid(0, 4),
        (QStringList{
            u"6|18|30|12|12|12|40"_s,
            u"No[Tb0]|记账时间[Tb0]|分类名称[Tb0]|增加(元)[Tb2]|减少(元)[Tb2]|余额(元)[Tb2]|事情[Tb0]"_s,
            u"1[N0]|2016-01-01  14:08[T0]|0201<b>办公\"&'[T0]|2100.50[N3]|-|2100.50[N3]|=购买\t办公桌[T0]"_s,
            u"2[N0]|2016-09-01  14:13[T0]|0303应收款[T0]|-|1234567[N3]|-1232466.5[N3]|-"_s}));
    EXPECT_EQ(lines.size(), 24);
    lines.last().replace(longText, u"…"_s);
    EXPECT_EQ(lines.last(), u"22[N0]|-|…[T0]|0.5[N3]|-|1E+20[T3]|…19[T0]"_s);
}

TEST_F(ExportTest, AReportsAmountsAreGroupedInItsSheetToo) {
    const auto report = ReportExport(ReportMode::date, u"x"_s,
                                     {{u"1"_s, u"2016-09"_s, u"1234567.50"_s, u"999"_s, u"-0.5"_s}});
    const struct {
        int nGroup;
        QString line;
    } cases[] = {{3, u"1[N0]|2016-09[T0]|1,234,567.5[N3]|999[N3]|-0.5[N3]"_s},
                 {4, u"1[N0]|2016-09[T0]|123,4567.5[T3]|999[N3]|-0.5[N3]"_s},
                 {0, u"1[N0]|2016-09[T0]|1234567.5[N3]|999[N3]|-0.5[N3]"_s}};
    for (const auto& c : cases) {
        State().settings.nGroup = c.nGroup;
        Run(report, ExportFormat::sheet);
        const auto lines = Sheet(u"分类统计(期间).xls"_s);
        EXPECT_EQ(lines[0] + u'/' + lines[2], u"6|30|12|12|12/"_s + c.line);
    }
}

// More strings and sectors than one table of sectors can name, and a text that no cell can hold.
TEST_F(ExportTest, AHugeSheetIsWhole) {
    XlsSheet sheet;
    sheet.SetWidth(0, 6);
    const QString wide = QString(XlsSheet::kMostCharacters - 3, u'长');
    for (int row = 0; row < 130; ++row)
        sheet.AddText(row, 0, wide + QString::number(row));
    sheet.AddText(130, 0, wide + u"x😀😀"_s);
    sheet.AddText(131, 0, u"a\r\nb"_s);
    EXPECT_TRUE(EnsureExportFolder(false));
    WriteWholeFile(ExportPath(u"huge.xls"_s), sheet.File());
    EXPECT_GT(Bytes(u"huge.xls"_s).size(), 109 * 128 * 512);
    const auto lines = Sheet(u"huge.xls"_s);
    ASSERT_EQ(lines.size(), 1 + 132 + 1);  // the last text has two lines
    EXPECT_EQ(lines[130], wide + u"129[T0]"_s);
    EXPECT_EQ(lines[131], wide + u"x…[T0]"_s);
    EXPECT_EQ(lines[132], u"a"_s);
}

TEST_F(ExportTest, ASpreadsheetProgramReadsItToo) {
    const QString program = QStandardPaths::findExecutable(u"soffice"_s);
    if (program.isEmpty()) GTEST_SKIP() << "left out: no spreadsheet program is installed";
    Run(Entries(TwoRows()), ExportFormat::sheet);
    QProcess convert;
    convert.start(program, {u"-env:UserInstallation=file://"_s + Path(u"office"_s), u"--headless"_s,
                            u"--convert-to"_s, u"csv:Text - txt - csv (StarCalc):44,34,76"_s, u"--outdir"_s,
                            Path({}), ExportPath(u"记账.xls"_s)});
    ASSERT_TRUE(convert.waitForFinished(60000));
    EXPECT_EQ(QString::fromUtf8(BytesOf(Path(u"记账.csv"_s))).split(u'\n', Qt::SkipEmptyParts),
              (QStringList{u"No,记账时间,分类名称,增加(元),减少(元),余额(元),事情"_s,
                           u"1,2016-01-01  14:08,\"0201<b>办公\"\"&'\",2100.50,,2100.50,=购买\t办公桌😀"_s,
                           u"2,2016-09-01  14:13,0303应收款,,1234567,-1232466.5,"_s}));
}

TEST_F(ExportTest, RecordsHaveWordsOfTheirOwn) {
    const auto records = LinesExport(LineKind::records, {TwoRows()[1]});
    Run(records, ExportFormat::web);
    EXPECT_TRUE(
        Page(u"账户记录_1.html"_s)
            .contains(u"<tr><td colspan='9'>账户记录列表导出:2016-09-03 14:16:20</td></tr><tr align='left'>"
                      "<td class='sa2' width='40'  align='left'>No</td>"
                      "<td class='sa2' width='110' align='center'>记账日期</td>"
                      "<td class='sa2' width='180' align='left'>账户名称</td>"_s));
    Run(records, ExportFormat::text);
    EXPECT_TRUE(
        QString::fromUtf8(Bytes(u"账户记录.txt"_s))
            .startsWith(
                u"账户列表记录导出:2016-09-03 14:16:20\r\n\r\nNo    记账时间          账户名称            "_s));
    Run(ReportExport(ReportMode::date, u"【<b>】"_s, {{u"1"_s, u"2016-09"_s, u"1"_s, u"0"_s, u"1"_s}}),
        ExportFormat::web);
    EXPECT_TRUE(
        Page(u"统计(期间)_1.html"_s).contains(u"<td colspan='5'>【&lt;b&gt;】2016-09-03 14:16:20</td>"_s));
    EXPECT_TRUE(
        Page(u"统计(期间)_1.html"_s).contains(u"<td class='sa2'             align='center'>期间</td>"_s));
}

TEST_F(ExportTest, ChartsAndReportsHaveTheirOwnColumnsAndWords) {
    OpenSample();
    State().gDB.Execute(
        u"update tSubAcc set Note1='第一行'||char(13)||char(10)||'第二行' where Sort1='01'; delete from tSubAcc where Sort1>'01'"_s);
    const auto accounts = ChartExport(State().gDB, Chart::accounts);
    Run(accounts, ExportFormat::text);
    EXPECT_EQ(
        QString::fromUtf8(Bytes(u"账户.txt"_s)).split(u"\r\n"_s),
        (QStringList{
            u"账户列表导出:2016-09-03 14:16:20"_s,
            {},
            u"No    账户名称            增加日期    增加(元)       减少(元)       余额(元)       备注                "_s,
            {},
            u"1     01东华公司          2016-08-27  5,000          0              5,000          第一行第二行        "_s,
            {}}));
    Run(accounts, ExportFormat::web);
    const QString page = Page(u"账户_1.html"_s);
    EXPECT_TRUE(page.contains(u"<td colspan='7'>账户列表导出:2016-09-03 14:16:20</td>"_s));
    EXPECT_TRUE(
        page.contains(u"<td width='70'   class='s0' align='left'>2016-08-27</td>"
                      "<td width='80'   class='s0' align='right'>5,000</td>"
                      "<td width='80'   class='s0' align='right'>0</td>"
                      "<td width='80'   class='s0' align='right'>5,000</td>"
                      "<td              class='s0' align='center'>第一行第二行</td></tr>"_s));
    EXPECT_TRUE(page.contains(u"align='center'>说明</td>"_s));
    const auto report = ReportExport(ReportMode::acckind, u"各分类【所有日期】期间统计"_s,
                                     {{u"1"_s, u"      0301<软件>"_s, u"1000"_s, u"0"_s, u"1000"_s}});
    Run(report, ExportFormat::web);
    EXPECT_TRUE(
        boxes.Last().text.endsWith(u"统计(账户)_1.html】是要【打开文件】还是【打开目录】或是【取消】?"_s));
    EXPECT_TRUE(Page(u"统计(账户)_1.html"_s)
                    .contains(u"<td colspan='5'>各分类【所有日期】期间统计2016-09-03 14:16:20</td>"_s));
    EXPECT_TRUE(
        Page(u"统计(账户)_1.html"_s)
            .contains(u"<td              class='s0' align='left'>&nbsp;&nbsp;&nbsp;0301&lt;软件&gt;</td>"_s));
    Run(report, ExportFormat::text);
    EXPECT_EQ(
        QString::fromUtf8(Bytes(u"统计(账户).txt"_s)).split(u"\r\n"_s),
        (QStringList{u"各分类【所有日期】期间统计"_s,
                     {},
                     u"No    账户名称                      增加(元)       减少(元)       余额(元)       "_s,
                     u"1           0301<软件>              1,000          0              1,000          "_s,
                     {}}));
    Run(ReportExport(ReportMode::accdate, u"x"_s, {{u"1"_s, u"2016-09"_s, u"1000"_s, u"0"_s, u"1000"_s}}),
        ExportFormat::sheet);
    EXPECT_EQ(Sheet(u"账户统计(期间).xls"_s)[2], u"1[N0]|2016-09[T0]|1,000[N3]|0[N3]|1,000[N3]"_s);
}

TEST_F(ExportTest, AnEmptyListIsToldByItsKind) {
    OpenSample();
    State().gDB.Execute(u"delete from tKind"_s);
    const auto entries = Entries({}), records = LinesExport(LineKind::records, {});
    const auto kinds = ChartExport(State().gDB, Chart::kinds);
    const auto report = ReportExport(ReportMode::date, {}, {});
    const struct {
        const ExportTable& table;
        QString web, text, sheet;
    } cases[] = {{entries, u"没有记录!"_s, u"列表【无记录】!"_s, u"没有需要导出的【记录】!"_s},
                 {records, u"没有记录!"_s, u"列表【无记录】!"_s, u"列表【无记录】!"_s},
                 {kinds, u"没有分类记录!"_s, u"分类【无记录】!"_s, u"分类【无记录】!"_s},
                 {report, u"没有记录!"_s, u"列表无记录!"_s, u"列表无记录!"_s}};
    for (const auto& c : cases)
        for (const auto& [format, text] :
             {std::pair(ExportFormat::web, c.web), std::pair(ExportFormat::text, c.text),
              std::pair(ExportFormat::sheet, c.sheet)}) {
            boxes.Expect(text);
            EXPECT_EQ(Export(c.table, format, {}), QStringList());
            EXPECT_EQ(boxes.Last().text, text);
        }
    EXPECT_FALSE(QFile::exists(State().gDataDir + u"/Export"_s));
}

TEST_F(ExportTest, AStoppedExportKeepsWhatItWroteAndStillOffersIt) {
    State().settings.nHtmPageSize = 1;
    const auto table = Entries({TwoRows()[0], TwoRows()[1], TwoRows()[0]});
    for (const int steps : {1, 2}) {
        for (const auto format : {ExportFormat::web, ExportFormat::text, ExportFormat::sheet}) {
            Job::StopAfter(steps);
            boxes.Expect(u"已停止剩余部分导出!"_s);
            EXPECT_EQ(Run(table, format).size(), format == ExportFormat::web ? steps : 1);
            EXPECT_FALSE(State().gBusy);
        }
        EXPECT_TRUE(Page(u"记账_%1.html"_s.arg(steps)).contains(u"共3页，当前第%1页，"_s.arg(steps)));
        EXPECT_EQ(Bytes(u"记账.txt"_s).count("\r\n"), 4 + steps);
        EXPECT_EQ(Sheet(u"记账.xls"_s).size(), 2 + steps);
    }
    Job::StopAfter(-1);
    State().gBusy = true;
    boxes.Expect(u"有进程在运行"_s);
    EXPECT_EQ(Export(table, ExportFormat::text, {}), QStringList());
}

TEST_F(ExportTest, ASpreadsheetThatIsOpenStays) {
    Run(Entries(TwoRows()), ExportFormat::sheet);
    const QByteArray before = Bytes(u"记账.xls"_s);
    PutFile(u"data/Export/.~lock.记账.xls#"_s);
    boxes.Expect(u"意外错误"_s);
    RunEvent([&] { Export(Entries({TwoRows()[0]}), ExportFormat::sheet, {}); });
    EXPECT_TRUE(boxes.Last().text.endsWith(u"之前导出文件打开后未关闭"_s));
    EXPECT_EQ(Bytes(u"记账.xls"_s), before);
    PutFile(u"data/Export/.~lock.分类统计(期间).xls#"_s);
    boxes.Expect(u"意外错误"_s);
    RunEvent([&] {
        Export(ReportExport(ReportMode::date, {}, {{}, {}, {}, {}, {}}), ExportFormat::sheet, {});
    });
    EXPECT_TRUE(boxes.Last().text.endsWith(u"之前导出的文件打开后未关闭，又重新导出!"_s));
    EXPECT_FALSE(State().gBusy);
}

TEST_F(ExportTest, AFullDiskLeavesNoHalfFile) {
    Run(Entries(TwoRows()), ExportFormat::text);
    const QByteArray before = Bytes(u"记账.txt"_s);
    const auto rows = std::vector(100, TwoRows()[0]);
    for (const qint64 most : {0, 100, 4096}) {
        {
            const FullDisk disk(most);
            boxes.Expect(u"意外错误"_s);
            EXPECT_FALSE(RunEvent([&] { Export(Entries(rows), ExportFormat::text, {}); }));
            EXPECT_TRUE(boxes.Last().text.contains(u"记账.txt】写入失败："_s));
            EXPECT_FALSE(boxes.Last().text.contains(u"Unknown"_s));
            boxes.Expect(u"意外错误"_s);
            EXPECT_FALSE(RunEvent([&] { Export(Entries(rows), ExportFormat::web, {}); }));
        }
        EXPECT_EQ(Bytes(u"记账.txt"_s), before);
        EXPECT_EQ(QDir(State().gDataDir + u"/Export"_s).entryList(QDir::Files), QStringList{u"记账.txt"_s});
        EXPECT_FALSE(State().gBusy);
    }
}

// A first fill that failed is made up for, and so is a folder that has gone.
TEST_F(ExportTest, ThePagesFilesAreThereWithThePages) {
    const QString css = State().gDataDir + u"/Export/Html/css.css"_s;
    State().gProgramFolder = Path(u"program"_s);
    QDir().mkpath(Path(u"program/Skin"_s));
    boxes.Expect(u"创建临时文件夹错误!"_s);
    EXPECT_EQ(Export(Entries(TwoRows()), ExportFormat::web, {}), QStringList());
    PutFile(u"program/Skin/Html/css.css"_s);
    for (int time = 0; time < 2; ++time) {
        Run(Entries(TwoRows()), ExportFormat::web);
        EXPECT_TRUE(QFile::exists(css));
        QDir(State().gDataDir + u"/Export/Html"_s).removeRecursively();
    }
}

TEST_F(ExportTest, AFileInThePlaceOfTheFolderIsTold) {
    PutFile(u"data/Export"_s);
    boxes.Expect(u"创建临时文件夹错误!"_s);
    EXPECT_EQ(Export(Entries(TwoRows()), ExportFormat::web, {}), QStringList());
    EXPECT_FALSE(State().gBusy);
}
