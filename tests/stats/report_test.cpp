// The reports: what they answer, what they leave in the work tables, and that a failing one changes nothing.

#include "chart/codes.h"
#include "ledger/posting.h"
#include "stats/branch_report.h"
#include "stats/period_report.h"
#include "store/money.h"
#include "store/outside.h"
#include "tests/support/random_entries.h"

using namespace Qt::StringLiterals;

namespace {

const QString kDateTable = u"select * from tTjDate"_s;
const QString kKindTable = u"select ID1,Sort1,Name1,nAdd,nReduce,Money,nHasData from tTjKind"_s;

class ReportTest : public RandomEntries {
 protected:
    /// The sample book with figures on the middle level of 03, 0302, 030201.
    QString OpenStory() {
        const QString path = OpenSample();
        Book().Execute(
            u"insert into tAccount (Id1,IID,IIID,Title1,Type1,Value1,nSign,Date1,Time1,bIsMain) values"
            u" (8,-1,-1,'利息','0302',10.5,1,'2016-09-10','08:00',1),"
            u" (9,-1,-1,'手续费','0302',3.25,-1,'2016-09-20','08:00',1);"
            u"update tKind set nAdd=10.5, nReduce=3.25, Money=7.25 where Sort1='0302'"_s);
        return path;
    }
    QStringList ByPeriod(const QString& code, const QString& name, PeriodLength length,
                         const Period& period = {}, Chart chart = Chart::kinds) {
        Job job;
        const auto report = StatByPeriod(Book(), {chart, code + name, code, length, period}, job);
        return report ? LinesOf(*report) : QStringList{u"stopped"_s};
    }
    QStringList Branches(Chart chart, const Period& period = {}) {
        Job job;
        const auto report = StatAllByPeriod(Book(), chart, period, job);
        return report ? LinesOf(*report) : QStringList{u"stopped"_s};
    }
    QString caption_;

 private:
    QStringList LinesOf(const Report& report) {
        caption_ = report.caption;
        QStringList lines;
        for (const auto& line : report.lines)
            lines << QStringList(line.begin(), line.end()).join(u'|');
        return lines;
    }
};

}  // namespace

TEST_F(ReportTest, TheSmallerSideOfAPeriodLosesItsFraction) {
    struct Case {
        double all, signedSum, added, reduced;
    };
    constexpr Case cases[] = {
        {13.75, 7.25, 10.75, 3},   // 6.5 is rounded to 6
        {13.75, -7.25, 3, 10.75},  // the same with the sides changed
        {7.5, 0, 3.5, 4},          // 7.5 is rounded to 8
        {100, 100, 100, 0},        // one side alone
        {100, -100, 0, 100},
        {200, 0, 100, 100},  // equal sides count as an increase
        {10, 3, 7, 3},       // 7 is halved to 3
        {0, 0, 0, 0},
    };
    for (const auto& c : cases) {
        const auto split = SplitSums(c.all, c.signedSum);
        EXPECT_EQ(split.added, c.added) << c.all << ' ' << c.signedSum;
        EXPECT_EQ(split.reduced, c.reduced) << c.all << ' ' << c.signedSum;
    }
}

TEST_F(ReportTest, APeriodReportOfABranchStandsInListAndTable) {
    OpenStory();
    EXPECT_EQ(ByPeriod(u"03"_s, u"资产"_s, PeriodLength::month),
              (QStringList{u"1|2016-01|0|2100|-2100"_s, u"2|2016-09|13510.75|3|13507.25"_s}));
    EXPECT_EQ(caption_, u"【03资产】按『月份』在【所有日期】期间统计"_s);
    EXPECT_EQ(Rows(Book(), kDateTable),
              (QStringList{u"1|2016-01|0|2100|-2100"_s, u"2|2016-09|13510.75|3|13507.25"_s}));
    EXPECT_EQ(ByPeriod(u"0302"_s, u"银行存款"_s, PeriodLength::day),
              (QStringList{u"1|2016-01-01|0|2100|-2100"_s, u"2|2016-09-03|5000|0|5000"_s,
                           u"3|2016-09-10|10.50|0|10.50"_s, u"4|2016-09-20|0|3.25|-3.25"_s}));
    EXPECT_EQ(Rows(Book(), u"select count(*) from tTjDate"_s), QStringList{u"4"_s});
    EXPECT_EQ(ByPeriod(u"0303"_s, u"应收款"_s, PeriodLength::year), QStringList{u"1|2016|8500|0|8500"_s});
    const QDate first(2016, 9, 10), last(2016, 9, 20);
    EXPECT_EQ(ByPeriod(u"0302"_s, u"银行存款"_s, PeriodLength::month, {first, last}),
              QStringList{u"1|2016-09|10.75|3|7.25"_s});
    EXPECT_EQ(caption_, u"【0302银行存款】按『月份』在【2016-09-10 到 2016-09-20】期间统计"_s);
    EXPECT_EQ(ByPeriod(u"01"_s, u"东华公司"_s, PeriodLength::month, {first, {}}, Chart::accounts),
              QStringList());
    EXPECT_EQ(caption_, u"【01东华公司】按『月份』在【2016-09-10 到 ？】期间统计"_s);
    EXPECT_EQ(Rows(Book(), kDateTable), QStringList());
    EXPECT_EQ(ByPeriod(u"02"_s, u"大宇公司"_s, PeriodLength::day, {{}, first}, Chart::accounts),
              QStringList{u"1|2016-09-01|8500|0|8500"_s});
    EXPECT_EQ(caption_, u"【02大宇公司】按『日』在【？ 到 2016-09-10】期间统计"_s);
    EXPECT_EQ(WrongChoice({Chart::accounts, u"x"_s, {}, {}, {}}), u"请选择一个账户!"_s);
    EXPECT_EQ(WrongChoice({Chart::kinds, {}, u"03"_s, {}, {}}), u"请选择一个分类!"_s);
}

TEST_F(ReportTest, ABranchReportRollsUpWhatStoodBefore) {
    OpenStory();
    const QStringList all{u"1|00↑↓余额调整|0|0|0"_s,
                          u"2|01收入|5000|0|5000"_s,
                          u"3|      0101产品收入|5000|0|5000"_s,
                          u"4|      0102项目收入|0|0|0"_s,
                          u"5|02成本|2100|0|2100"_s,
                          u"6|      0201办公费用|2100|0|2100"_s,
                          u"7|      0202生产成本|0|0|0"_s,
                          u"8|03资产|13510.50|2103.25|11407.25"_s,
                          u"9|      0301现金|0|0|0"_s,
                          u"10|      0302银行存款|5010.50|2103.25|2907.25"_s,
                          u"11|            030201农行|5000|2100|2900"_s,
                          u"12|            030202工行|0|0|0"_s,
                          u"13|      0303应收款|8500|0|8500"_s,
                          u"14|04负债|0|0|0"_s,
                          u"15|      0401信用卡|0|0|0"_s};
    Book().Execute(u"update tKind set nHide=1 where Sort1='0303'"_s);
    QStringList statements;
    cConnection::Seams().beforeStatement = [&](const QString& sql) { statements << sql; };
    EXPECT_EQ(Branches(Chart::kinds), all);
    cConnection::Seams().beforeStatement = {};
    for (const auto& sql : statements)  // the kept totals answer
        EXPECT_FALSE(sql.contains(u"tAccount"_s, Qt::CaseInsensitive)) << qPrintable(sql);
    EXPECT_EQ(caption_, u"各分类【所有日期】期间统计"_s);
    EXPECT_EQ(
        Rows(Book(), kKindTable),
        (QStringList{
            u"1|00|↑↓余额调整|0|0|0|0"_s, u"2|01|收入|5000|0|5000|0"_s, u"3|0101|产品收入|5000|0|5000|1"_s,
            u"4|0102|项目收入|0|0|0|0"_s, u"5|02|成本|2100|0|2100|0"_s, u"6|0201|办公费用|2100|0|2100|1"_s,
            u"7|0202|生产成本|0|0|0|0"_s, u"8|03|资产|13510.5|2103.25|11407.25|0"_s, u"9|0301|现金|0|0|0|0"_s,
            u"10|0302|银行存款|5010.5|2103.25|2907.25|1"_s, u"11|030201|农行|5000|2100|2900|1"_s,
            u"12|030202|工行|0|0|0|0"_s, u"13|0303|应收款|8500|0|8500|1"_s, u"14|04|负债|0|0|0|0"_s,
            u"15|0401|信用卡|0|0|0|0"_s}));
    QStringList late = Branches(Chart::kinds, {QDate(2016, 9, 10), {}}).filter(u"|3.25|"_s);
    EXPECT_EQ(late, (QStringList{u"8|03资产|10.50|3.25|7.25"_s, u"10|      0302银行存款|10.50|3.25|7.25"_s}));
    EXPECT_EQ(Branches(Chart::accounts, {{}, QDate(2016, 9, 1)}),
              (QStringList{u"1|01东华公司|0|0|0"_s, u"2|02大宇公司|8500|0|8500"_s, u"3|03开发项目|0|0|0"_s,
                           u"4|      0301软件开发|0|0|0"_s}));
    EXPECT_EQ(caption_, u"各分类【？ 到 2016-09-01】期间统计"_s);
}

TEST_F(ReportTest, CodesThatStandTwiceOrOddAndNegativeFiguresAreTakenAsTheyAre) {
    OpenSample();
    Book().Execute(
        u"insert into tKind (ID1,IID,Name1,Sort1,nAdd,nReduce,Money,nHide) values"
        u" (50,0,'又一个','0101',5000,0,5000,0), (51,0,'怪','02011',7,0,7,0);"
        u"insert into tAccount (Id1,IID,IIID,Type1,Value1,nSign,Date1,bIsMain)"
        u" values (8,-1,-1,'0401',-6,1,'2016-09-03',1)"_s);
    // Two rows of one code both add theirs; a code of odd length reaches the prefix two characters shorter.
    const auto kept = Branches(Chart::kinds);
    EXPECT_EQ(kept[1], u"2|01收入|10000|0|10000"_s);
    EXPECT_EQ(kept.filter(u"02成本"_s), QStringList{u"6|02成本|2100|0|2100"_s});
    const auto bounded = Branches(Chart::kinds, {QDate(2016, 1, 1), {}});
    EXPECT_EQ(bounded[1], u"2|01收入|10000|0|10000"_s);
    EXPECT_EQ(bounded.filter(u"0101"_s).size(), 2);
    EXPECT_EQ(bounded.filter(u"04"_s).last(), u"17|      0401信用卡|-6|0|0"_s);  // not above 0: not rolled up
    EXPECT_EQ(bounded.filter(u"04负债"_s), QStringList{u"16|04负债|0|0|0"_s});
}

// A random book: every figure once more by other statements.
TEST_F(ReportTest, ReportsAgreeWithSumsMadeAnotherWay) {
    OpenSample();
    Book().Execute(u"pragma synchronous=off"_s);
    Seed(std::random_device{}());
    for (int i = 0; i < 120; ++i)
        PostEntry(Book(), RandomEntry());
    for (const auto chart : {Chart::kinds, Chart::accounts}) {
        const auto& names = TableOf(chart);
        const auto lines = Branches(chart, {QDate(2000, 1, 1), {}});
        int row = 0;
        for (const auto& code : AllCodes(Book(), chart)) {
            const auto sum = [&](const QString& sign) {
                return MoneyText(
                    Val(Rows(Book(), u"select sum(Value1) from "_s + names.rows + u" where nSign="_s + sign +
                                         u" and Date1>='2000-01-01' and substr("_s + names.code + u",1,"_s +
                                         QString::number(code.code.size()) + u")='"_s + code.code + u'\'')
                            .value(0)));
            };
            const auto cells = lines[row++].split(u'|');
            EXPECT_EQ(cells.mid(2, 2), (QStringList{sum(u"1"_s), sum(u"-1"_s)})) << qPrintable(code.code);
            double signedSum = 0, all = 0;
            for (const auto& line :
                 ByPeriod(code.code, code.name, PeriodLength::month, {QDate(2000, 1, 1), {}}, chart)) {
                signedSum += Val(line.split(u'|')[4]);
                all += Val(line.split(u'|')[2]) + Val(line.split(u'|')[3]);
            }
            EXPECT_EQ(MoneyText(signedSum), MoneyText(Val(sum(u"1"_s)) - Val(sum(u"-1"_s))))
                << qPrintable(code.code);
            EXPECT_EQ(MoneyText(all), MoneyText(Val(sum(u"1"_s)) + Val(sum(u"-1"_s))))
                << qPrintable(code.code);
        }
    }
}

TEST_F(ReportTest, AStopLeavesTheSameRowsInListAndTable) {
    OpenStory();
    for (const int steps : {1, 3, 15}) {
        Job::StopAfter(steps);
        EXPECT_EQ(Branches(Chart::kinds).size(), steps);
        EXPECT_EQ(Rows(Book(), kKindTable).size(), steps);
        const int days = std::min(steps, 4);
        EXPECT_EQ(ByPeriod(u"0302"_s, {}, PeriodLength::day).size(), days);
        EXPECT_EQ(Rows(Book(), kDateTable).size(), days);
    }
    Job::StopAfter(-1);
}

TEST_F(ReportTest, ALockedOrFailingBookKeepsItsWorkTables) {
    const QString path = OpenStory();
    Branches(Chart::kinds);
    const QString before = Rows(Book(), kKindTable).join(u'\n');
    cConnection other;
    other.Open(path);
    State().gDB.Close();
    Book().Open(path, {.waitMs = 10});
    other.Execute(u"begin exclusive"_s);
    EXPECT_THROW(Branches(Chart::accounts), DbError);
    EXPECT_FALSE(State().gBusy);
    other.Execute(u"rollback"_s);
    EXPECT_EQ(Rows(Book(), kKindTable).join(u'\n'), before);
    for (int n = 1;; ++n) {
        int left = n;
        cConnection::Seams().beforeStatement = [&](const QString&) {
            if (--left == 0) FailStatement(u"test"_s, {});
        };
        bool done = true;
        try {
            Branches(Chart::accounts);
        } catch (const DbError&) {
            done = false;
        }
        cConnection::Seams().beforeStatement = {};
        if (done) break;
        EXPECT_EQ(Rows(Book(), kKindTable).join(u'\n'), before) << n;
        ASSERT_LT(n, 30);
    }
    EXPECT_EQ(Rows(Book(), kKindTable).size(), 4);
}

// A long statement yields to the event loop; what the user does there must neither hurt it nor be lost.
TEST_F(ReportTest, AStopWhileTheBookIsReadChangesNothing) {
    OpenStory();
    Branches(Chart::kinds);
    ByPeriod(u"03"_s, {}, PeriodLength::day);
    const auto tables = [&] { return Rows(Book(), kKindTable) + Rows(Book(), kDateTable); };
    const auto before = tables();
    Book().Execute(
        u"pragma synchronous=off; insert into tAccount (Id1,IID,IIID,Type1,Value1,nSign,Date1,bIsMain) with "
        u"recursive n(i) as"
        u" (select 100 union all select i+1 from n where i<150000) select i,-1,-1,'0303',1,1,'2016-09-04',1 from n"_s);
    int yields = 0;
    Outside().yield = [&] {
        ++yields;
        EXPECT_THROW(Book().Read(u"select 1"_s), DbError);
        Job::Stop();
    };
    const Period all{QDate(2000, 1, 1), {}};
    EXPECT_EQ(ByPeriod(u"03"_s, {}, PeriodLength::day), QStringList{u"stopped"_s});
    EXPECT_EQ(Branches(Chart::kinds, all), QStringList{u"stopped"_s});
    EXPECT_EQ(yields, 2);
    Outside().yield = [] { FailStatement(u"from the event loop"_s, {}); };
    EXPECT_THROW(Branches(Chart::kinds, all), DbError);
    EXPECT_FALSE(State().gBusy);
    Outside().yield = {};
    EXPECT_EQ(tables(), before);
    EXPECT_EQ(Branches(Chart::kinds, all).filter(u"0303"_s),
              QStringList{u"13|      0303应收款|158401|0|158401"_s});
}

TEST_F(ReportTest, ManyDaysStandInTheTableOneByOne) {
    OpenSample();
    Book().Execute(
        u"insert into tAccount (Id1,IID,IIID,Type1,Value1,nSign,Date1,bIsMain) with recursive n(i) as"
        u" (select 0 union all select i+1 from n where i<1000) select i+100,-1,-1,'04',i,-1,date('2010-01-01',i||' days'),1 from n"_s);
    const auto lines = ByPeriod(u"04"_s, {}, PeriodLength::day);
    EXPECT_EQ(lines.size(), 1001);
    EXPECT_EQ(Rows(Book(), kDateTable), lines);
    Book().Execute(
        u"update tKind set nAdd=0,nReduce=-5,Money=5 where Sort1='0401'; update tAccount set Value1=9e999 where Id1=100"_s);
    EXPECT_EQ(Branches(Chart::kinds).filter(u"04"_s).filter(u"-5"_s).size(), 2);
    EXPECT_THROW(ByPeriod(u"04"_s, {}, PeriodLength::day), DbError);
    EXPECT_EQ(Rows(Book(), kDateTable), lines);
}

TEST_F(ReportTest, AReadOnlyBookIsReportedInTablesThatGoWithIt) {
    const QString path = OpenStory();
    State().gDB.Close();
    const QByteArray bytes = BytesOf(path);
    Book().Open(path, {.readOnly = true});
    EXPECT_EQ(Branches(Chart::accounts).size(), 4);
    EXPECT_EQ(Branches(Chart::kinds).size(), 15);
    EXPECT_EQ(Rows(Book(), kKindTable).size(), 15);
    EXPECT_EQ(ByPeriod(u"0302"_s, {}, PeriodLength::day).size(), 4);
    EXPECT_EQ(Rows(Book(), kDateTable).size(), 4);
    Book().Close();
    EXPECT_EQ(BytesOf(path), bytes);
}
