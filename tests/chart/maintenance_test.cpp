// Keeping the charts: the checks in their order, and what a change writes.

#include "chart/chart_checks.h"
#include "store/messages.h"
#include "tests/support/chart_fixture.h"

using namespace Qt::StringLiterals;

TEST_F(MaintenanceTest, ANewRowIsCheckedInOrder) {
    const QString form = u"格式错误!"_s;
    const QString reserved = u"系统保留分类【00】不可新增下一级!"_s;
    const QString kindThere = u"该编号的分类已存在!"_s, accountThere = u"该编号的账户已存在!"_s;
    const QString noParent = u"该编号的上一级编号不存在!"_s;
    const QString kindUsed = u"该分类编号的上一级，已经在记账中使用了。不能在该分类下新增子分类!"_s;
    const QString accountUsed = u"该编号的上一级，已经在记账中使用了。不能在其下新增子账户!"_s;
    const QString kindName = u"同一级内有相同的分类名称!"_s, accountName = u"同一级内有相同的账户名称!"_s;
    struct Case {
        Chart chart;
        QString text, message;
    };
    const Case cases[] = {
        {kKinds, u"0103 租金"_s, {}},
        {kKinds, u"05 农行"_s, {}},      // a deeper row may have the name
        {kKinds, u"0103 成本"_s, {}},    // as may one under another parent
        {kKinds, u"010201 定制"_s, {}},  // below a kind that no entry uses
        {kKinds, u"0x10 税"_s, form},
        {kKinds, u"1. 税"_s, {}},
        {kKinds, u"+1 税"_s, {}},
        {kKinds, u"０１０３ 税"_s, form},
        {kKinds, u"0103  税"_s, form},
        {kKinds, u"0103\u3000税"_s, form},
        {kKinds, u"0002 上月"_s, reserved},
        {kKinds, u"00 余额"_s, reserved},  // before the test whether it is there
        {kKinds, u"0101 产品收入"_s, kindThere},
        {kKinds, u"0601 产品"_s, noParent},
        {kKinds, u"020101 产品"_s, kindUsed},
        {kKinds, u"02010101 产品"_s, noParent},
        {kKinds, u"020101 办公费用"_s, kindUsed},
        {kKinds, u"0103 产品收入"_s, kindName},
        {kKinds, u"06 成本"_s, kindName},
        {kKinds, u"030203 工行"_s, kindName},
        {kAccounts, u"00 备用"_s, {}},
        {kAccounts, u"0302 上海"_s, {}},
        {kAccounts, u"04 软件开发"_s, {}},
        {kAccounts, u"01 甲"_s, accountThere},
        {kAccounts, u"0501 甲"_s, noParent},
        {kAccounts, u"0201 甲"_s, accountUsed},
        {kAccounts, u"0302 软件开发"_s, accountName},
        {kAccounts, u"04 大宇公司"_s, accountName},
    };
    for (const auto& c : cases) {
        const auto before = Dump(u"select count(*) from "_s + TableOf(c.chart).table);
        Tells(c.message, c.text, [&] {
            EXPECT_EQ(NewRow(Book(), c.chart, {c.text, 0, {}, false}).has_value(), c.message.isEmpty());
        });
        if (!c.message.isEmpty())
            EXPECT_EQ(Dump(u"select count(*) from "_s + TableOf(c.chart).table), before)
                << qPrintable(c.text);
        Book().Execute(u"delete from tKind where ID1 between 17 and 9998; delete from tSubAcc where Id1>7"_s);
    }
}

TEST_F(MaintenanceTest, ANewRowBringsItsOpeningEntry) {
    struct Case {
        Chart chart;
        QString text;
        double opening;
        QString row;
    };
    const Case cases[] = {
        {kKinds, u" 0103 ABC "_s, 12.5, u"0103|abc|12.5|0|12.5|1"_s},
        {kKinds, u"0104 亏"_s, -0.25, u"0104|亏|0|0.25|-0.25|1"_s},
        {kKinds, u"0105 空"_s, 0, u"0105|空|0|0|0|0"_s},
        {kAccounts, u"04 O'Neil"_s, 7, u"04|o'neil|7|0|7|1"_s},
        {kAccounts, u"05 欠"_s, -8, u"05|欠|0|8|-8|1"_s},
        {kAccounts, u"06 空"_s, 0, u"06|空|0|0|0|0"_s},
    };
    SetClock(u"2016-09-05 08:00:00"_s);
    for (const auto& c : cases) {
        const auto added = NewRow(Book(), c.chart, {c.text, c.opening, u"备'注"_s, true});
        ASSERT_TRUE(added.has_value()) << qPrintable(c.text);
        EXPECT_EQ(Row(c.chart, added->record.code), c.row);
    }
    EXPECT_EQ(NewRow(Book(), kKinds, {u"  "_s, 1, {}, false}).has_value(), false);
    EXPECT_EQ(
        Dump(u"select ID1,Note1,Note2,nHide from tKind where ID1 between 17 and 20"_s),
        (QStringList{u"17|2016-09-05|备'注|1"_s, u"18|2016-09-05|备'注|1"_s, u"19|2016-09-05|备'注|1"_s}));
    EXPECT_EQ(Dump(u"select Id1,Date1,Note1,nHide from tSubAcc where Id1=8"_s),
              QStringList{u"8|2016-09-05|备'注|1"_s});
    EXPECT_EQ(Dump(u"select Id1,IID,IIID,Title1,Type1,TypeName1,Value1,nSign,bIsMain,Note1,sMe,sPic,Mark1"
                   u" from tAccount where Date1='1900-01-01' and Time1='08:30'"_s),
              (QStringList{u"8|-1|-1|分类期初余额|0103|abc|12.5|1|1|建分类时的期初余额|记账|0|0"_s,
                           u"9|-1|-1|分类期初余额|0104|亏|0.25|-1|1|建分类时的期初余额|记账|0|0"_s,
                           u"10|-1|5|账户期初余额|00|↑↓余额调整|7|1|1|建账户时的期初余额|记账|0|0"_s,
                           u"11|-1|6|账户期初余额|00|↑↓余额调整|8|-1|1|建账户时的期初余额|记账|0|0"_s}));
    EXPECT_EQ(Dump(u"select Id1,AccId,Title1,SubAccKey,SubAccName1,TypeName1,Value1,nSign,Date1,Time1"
                   u" from tSubAccItem where Id1>4"_s),
              (QStringList{u"5|10|账户期初余额|04|o'neil|↑↓余额调整|7|1|1900-01-01|08:30"_s,
                           u"6|11|账户期初余额|05|欠|↑↓余额调整|8|-1|1900-01-01|08:30"_s}));
}

TEST_F(MaintenanceTest, ACodeChangeIsCheckedInOrderAndAsksWhenEntriesUseIt) {
    const QString asked =
        u"修改之前的编号已经在记账中使用，且有2条记录已经使用，修改将涉及所有记账进行修改，是否继续？"_s;
    const QString there = u"欲修改的编号已经存在，不能修改!"_s;
    const QString notLast = u"该编号已经有下一级，不能修改编号!"_s;
    struct Case {
        Chart chart;
        QString from, to, message;
        bool good;
    };
    const Case cases[] = {
        {kKinds, u"0102"_s, u"0109"_s, {}, true},
        {kKinds, u"0102"_s, u"070809"_s, {}, true},  // a parent is not asked for
        {kKinds, u"0102"_s, u"0001"_s, {}, true},    // nor the reserved kind
        {kKinds, u"03"_s, u"01"_s, there, false},    // before the levels below
        {kKinds, u"03"_s, u"05"_s, notLast, false},
        {kKinds, u"030201"_s, u"030209"_s, asked, true},
        {kAccounts, u"03"_s, u"01"_s, there, false},
        {kAccounts, u"03"_s, u"09"_s, notLast, false},
    };
    for (const auto& c : cases)
        Tells(c.message, c.from + c.to, [&] {
            Book().Execute(u"savepoint one"_s);
            const auto check = CheckCodeChange(Book(), c.chart, c.to, c.from);
            Book().Execute(u"rollback to one; release one"_s);
            if (!check.complaint.isEmpty()) ShowMsg(check.complaint);
            if (check.uses > 0) ShowMsg(asked);
            EXPECT_EQ(check.complaint.isEmpty(), c.good) << qPrintable(c.from + c.to);
        });
    boxes.Expect(asked, 0);
    EXPECT_FALSE(Change(kKinds, u"030201"_s, {u"030209 农行"_s, 0, {}, false}));
    EXPECT_EQ(boxes.Last().buttons, u"否,是"_s);
    // Asks tAccount for a column that it has not: an account's code stays what it is.
    EXPECT_THROW(CheckCodeChange(Book(), kAccounts, u"0309"_s, u"0301"_s), DbError);
}

TEST_F(MaintenanceTest, ANameMustBeFreeBelowTheSameParentAtAnyDepth) {
    struct Case {
        Chart chart;
        QString code, name;
        bool good;
    };
    const Case cases[] = {
        {kKinds, u"0102"_s, u"项目"_s, true},       {kKinds, u"0102"_s, u"办公费用"_s, true},
        {kKinds, u"0102"_s, u"产品收入"_s, false},  {kKinds, u"0301"_s, u"农行"_s, false},
        {kKinds, u"04"_s, u"农行"_s, false},        {kKinds, u"0302"_s, u"银行存款"_s, true},
        {kAccounts, u"01"_s, u"软件开发"_s, false}, {kAccounts, u"01"_s, u"x' or '1"_s, true},
    };
    for (const auto& c : cases)
        EXPECT_EQ(NameComplaint(Book(), c.chart, {c.code, c.name}),
                  c.good ? QString() : u"同一级内有相同的名称!"_s)
            << qPrintable(c.name);
}

TEST_F(MaintenanceTest, AKindsOpeningMovesItsTotalsAndItsRow) {
    struct Case {
        double opening;
        QString row;
        QStringList entry;
    };
    // On top of the posted increase of 5,000 and decrease of 2,100.
    const Case cases[] = {
        {100, u"030201|农行|5100|2100|3000|1"_s, {u"100|1"_s}},
        {-50, u"030201|农行|5000|2150|2850|1"_s, {u"50|-1"_s}},
        {0.5, u"030201|农行|5000.5|2100|2900.5|1"_s, {u"0.5|1"_s}},
        {0, u"030201|农行|5000|2100|2900|0"_s, {}},
        {0, u"030201|农行|5000|2100|2900|0"_s, {}},
        {-1, u"030201|农行|5000|2101|2899|1"_s, {u"1|-1"_s}},
    };
    for (const auto& c : cases) {
        EXPECT_TRUE(Change(kKinds, u"030201"_s, {u"030201 农行"_s, c.opening, {}, false})) << c.opening;
        EXPECT_EQ(Row(kKinds, u"030201"_s), c.row);
        EXPECT_EQ(Dump(u"select Value1,nSign from tAccount where Date1='1900-01-01'"_s), c.entry);
        EXPECT_EQ(BalanceBreaks(Book()), QStringList());
    }
}

TEST_F(MaintenanceTest, AnAccountsOpeningChangesByWayOfNothing) {
    const auto change = [&](double opening) {
        return Change(kAccounts, u"01"_s, {u"01 东华公司"_s, opening, {}, false});
    };
    const QString entry =
        u"select a.Type1,a.Value1,r.SubAccKey,r.Value1,r.nSign from tAccount a join tSubAccItem r on "
        u"r.Id1=a.IIID"
        u" where a.Date1='1900-01-01'"_s;
    EXPECT_TRUE(change(100));
    EXPECT_EQ(Row(kAccounts, u"01"_s), u"01|东华公司|5100|0|5100|1"_s);
    EXPECT_EQ(Dump(entry), QStringList{u"00|100|01|100|1"_s});
    // The statement writes columns that the chart has not: the change is undone.
    EXPECT_THROW(change(-50), DbError);
    EXPECT_EQ(Row(kAccounts, u"01"_s), u"01|东华公司|5100|0|5100|1"_s);
    EXPECT_EQ(Dump(entry), QStringList{u"00|100|01|100|1"_s});
    EXPECT_TRUE(change(0));
    EXPECT_EQ(Dump(entry), QStringList());
    EXPECT_EQ(Dump(u"select count(*) from tSubAccItem"_s), QStringList{u"2"_s});
    EXPECT_TRUE(change(-50));
    EXPECT_EQ(Dump(entry), QStringList{u"00|50|01|50|-1"_s});
}

TEST_F(MaintenanceTest, AnOpeningWhoseRowHasGoneIsWrittenAnew) {
    for (const auto chart : {kKinds, kAccounts}) {
        const QString table = TableOf(chart).table;
        Book().Execute(u"update "_s + table + u" set IID=777 where Sort1='0301'"_s);
        const QString name = Dump(u"select Name1 from "_s + table + u" where Sort1='0301'"_s).value(0);
        EXPECT_TRUE(Change(chart, u"0301"_s, {u"0301 "_s + name, 9, {}, false}));
        EXPECT_EQ(Row(chart, u"0301"_s), u"0301|"_s + name + u"|9|0|9|1"_s);
    }
    EXPECT_EQ(Dump(u"select Type1,Value1 from tAccount where Date1='1900-01-01'"_s),
              (QStringList{u"0301|9"_s, u"00|9"_s}));
}

TEST_F(MaintenanceTest, ACodeIsFollowedByEntriesAndANameOnlyByTheWeb) {
    Book().Execute(
        u"insert into tAccountWeb (Title1,Type1,TypeName1,Type2,TypeName2) values"
        u" ('a','030201','农行','0201','办公费用'), ('b','0201','办公费用','030201','农行')"_s);
    boxes.Expect(u"修改之前的编号已经在记账中使用，且有2条记录"_s);
    EXPECT_TRUE(Change(kKinds, u"030201"_s, {u"030209 农行卡"_s, 0, u"新"_s, true}));
    EXPECT_EQ(Dump(u"select Sort1,Name1,nHide,Note2,Money from tKind where ID1=12"_s),
              QStringList{u"030209|农行卡|1|新|2900"_s});
    EXPECT_EQ(Dump(u"select Id1,Type1,TypeName1 from tAccount where Id1 in (4,5)"_s),
              (QStringList{u"4|030209|农行"_s, u"5|030209|农行"_s}));
    // Web rows hold ids, which a code must not touch; their names follow.
    EXPECT_EQ(Dump(u"select Type1,TypeName1,Type2,TypeName2 from tAccountWeb"_s),
              (QStringList{u"30201|农行卡|201|办公费用"_s, u"201|办公费用|30201|农行卡"_s}));
    EXPECT_EQ(BalanceBreaks(Book()), QStringList());
}

TEST_F(MaintenanceTest, AnAccountsNewNameReachesEveryRecordOfTheOldName) {
    Book().Execute(u"update tSubAccItem set SubAccName1='东华公司' where Id1=4"_s);
    EXPECT_TRUE(Change(kAccounts, u"01"_s, {u"01 O'Neil"_s, 0, {}, false}));
    EXPECT_EQ(Dump(u"select SubAccKey,SubAccName1 from tSubAccItem"_s),
              (QStringList{u"01|o'neil"_s, u"02|o'neil"_s}));
}

TEST_F(MaintenanceTest, OnlyUnusedRowsAtTheLastLevelMayGo) {
    struct Case {
        Chart chart;
        QString code, message;
    };
    const Case cases[] = {
        {kKinds, u"00"_s, u"【余额调整】是软件『保留分类』，不可删除！"_s},
        {kKinds, u"0201"_s, u"该分类已在记账中被【引用（使用）过】! 因此不能删除"_s},
        {kKinds, u"01"_s, u"该分类不是【最末】一级分类! 因此不能删除"_s},
        {kAccounts, u"01"_s, u"该账户已在记账中被【引用（使用）过】! 因此不能删除"_s},
        {kAccounts, u"03"_s, u"该账户不是【最末】一级! 因此不能删除"_s},
    };
    for (const auto& c : cases)
        Tells(c.message, c.code, [&] { EXPECT_FALSE(DeleteRowAsked(Book(), c.chart, c.code, {})); });
    // Use is told before the levels below, and an opening balance is a use.
    Book().Execute(u"insert into tKind (ID1,Name1,Sort1) values (20,'孙','020101')"_s);
    Tells(cases[1].message, u"used"_s, [&] { EXPECT_FALSE(DeleteRowAsked(Book(), kKinds, u"0201"_s, {})); });
    ASSERT_TRUE(NewRow(Book(), kAccounts, {u"09 甲"_s, 5, {}, false}));
    Tells(cases[3].message, u"opening"_s,
          [&] { EXPECT_FALSE(DeleteRowAsked(Book(), kAccounts, u"09"_s, {})); });
}

TEST_F(MaintenanceTest, ADeletedKindTakesItsRestAlong) {
    const auto erase = [&](const QString& code, Chart chart, const QString& question) {
        boxes.Expect(question, 0);
        EXPECT_FALSE(DeleteRowAsked(Book(), chart, code, {}));
        boxes.Expect(question);
        boxes.Expect(u"已成功删除分类!"_s);
        EXPECT_TRUE(DeleteRowAsked(Book(), chart, code, {}));
        EXPECT_EQ(Row(chart, code), QString());
    };
    Book().Execute(u"insert into tAccount (Id1,Type1,IID,bIsMain) values (50,'0102',9999,1)"_s);
    erase(u"0102"_s, kKinds, u"你确定要【删除选定】的分类名称?"_s);
    EXPECT_EQ(Dump(u"select Id1 from tAccount where Id1=50"_s), QStringList());
    erase(u"0301"_s, kAccounts, u"你确定要【删除选定】的账户?"_s);
    EXPECT_EQ(Dump(u"select count(*) from tAccount"_s), QStringList{u"5"_s});
}

TEST_F(MaintenanceTest, AVanishedRowChangesNothing) {
    auto stored = ReadChartRecord(Book(), 3, kKinds);
    ASSERT_TRUE(stored.has_value());
    Book().Execute(u"delete from tKind where ID1=3"_s);
    const auto before = Dump(u"select * from tKind"_s) + Dump(u"select * from tAccount"_s);
    boxes.Expect(u"意外错误!"_s);
    EXPECT_FALSE(ChangeRow(Book(), kKinds, *stored, {u"0102 新名"_s, 5, {}, false}));
    EXPECT_EQ(Dump(u"select * from tKind"_s) + Dump(u"select * from tAccount"_s), before);
    EXPECT_FALSE(ReadChartRecord(Book(), 3, kKinds).has_value());
}

TEST_F(MaintenanceTest, TheListShowsFiguresAtTheLastLevelAndCountsNoEntries) {
    Book().Execute(u"insert into tKind (ID1,Name1,Sort1,nAdd,Money) values (20,'孤','070801',1,1)"_s);
    ASSERT_TRUE(Change(kKinds, u"0301"_s, {u"0301 现金"_s, 12.5, u"钱包"_s, true}));
    QStringList passes;
    cConnection::Seams().onScan = [&](const QString& sql) { passes << sql.toLower(); };
    const auto lines = ReadChart(Book(), kKinds);
    cConnection::Seams().onScan = {};
    // Finding opening rows proves the order of the ids once.
    passes.removeDuplicates();
    passes.removeOne(u"select id1 from taccount order by rowid"_s);
    EXPECT_EQ(passes.filter(u"taccount"_s), QStringList());
    QStringList shown;
    for (const auto& line : lines)
        if (line.code.startsWith(u"03"_s) || line.code.startsWith(u"07"_s)) shown << line.cells.join(u'|');
    EXPECT_EQ(
        shown,
        (QStringList{u"8|03资产||-|-|-|-|"_s, u"9|      0301现金|隐藏|12.5|12.50|0|12.50|钱包"_s,
                     u"10|      0302银行存款||-|-|-|-|"_s, u"11|            030201农行||0|5000|2100|2900|"_s,
                     u"12|            030202工行||0|0|0|0|"_s, u"13|      0303应收款||0|8500|0|8500|"_s,
                     u"16|            070801孤||0|1|0|1|"_s}));
}
