// A change to a chart is one: what it takes along, what a failure and another program leave.

#include "ledger/entry_edit.h"
#include "ledger/posting.h"
#include "store/errors.h"
#include "store/picture_index.h"
#include "tests/support/chart_fixture.h"
#include "tests/support/entries.h"
#include "tests/support/fault_vfs.h"

using namespace Qt::StringLiterals;

TEST_F(MaintenanceTest, AnOpeningSetToNothingTakesAlongWhatItsEntryWasGiven) {
    const auto balances = [&] {
        return Dump(u"select Sort1,nAdd,nReduce,Money from tKind"_s) +
               Dump(u"select Sort1,nAdd,nReduce,Money from tSubAcc"_s);
    };
    const auto before = balances();
    boxes.AnswerAll(1);
    const auto openings = [&](double amount) {
        ASSERT_TRUE(Change(kKinds, u"0301"_s, {u"0301 现金"_s, amount, {}, false}));
        ASSERT_TRUE(Change(kAccounts, u"0301"_s, {u"0301 软件开发"_s, amount, {}, false}));
    };
    openings(100);
    for (const QString& entry : Dump(u"select Id1 from tAccount where Date1='1900-01-01'"_s)) {
        auto loaded = LoadEntry(Book(), entry.toLongLong());
        ASSERT_TRUE(loaded.has_value());
        auto& e = loaded->values;
        e.kind2On = true;
        e.code[kKind2] = u"0201"_s;
        e.text[kKind2] = u"0201办公费用"_s;
        e.toAccount = e.account2On = true;
        for (const size_t slot : {kAccount1, kAccount2}) {
            if (!e.code[slot].isEmpty()) continue;
            e.code[slot] = slot == kAccount1 ? u"01"_s : u"02"_s;
            e.text[slot] = e.code[slot] + u"公司"_s;
            e.accountValue[slot - kAccount1] = u"7"_s;
        }
        ASSERT_TRUE(SaveEditedEntry(Book(), e, loaded->main, loaded->opened).done);
        Book().Execute(
            u"insert into tPic (ID1,sFromTable,lFromId,lFromId1) values (%1,'tAccount',%1,-1)"_s.arg(entry));
    }
    ForgetPictureOwners();
    openings(0);
    EXPECT_EQ(balances(), before);
    EXPECT_EQ(Dump(u"select count(*) from tAccount"_s) + Dump(u"select count(*) from tSubAccItem"_s) +
                  Dump(u"select count(*) from tPic"_s),
              (QStringList{u"5"_s, u"2"_s, u"1"_s}));
}

// What has moved no balance, or moved it through the chart's row, is not taken back; what an edit has moved
// is.
TEST_F(MaintenanceTest, AnEditedOpeningSetToNothingTakesBackWhatMoved) {
    const auto balances = [&] {
        return Dump(u"select Sort1,nAdd,nReduce,Money from tKind where Sort1<>'00'"_s) +
               Dump(u"select Sort1,nAdd,nReduce,Money from tSubAcc"_s);
    };
    struct Case {
        const char* what;
        bool ownKind;  ///< its main row was given a kind of its own
        bool swapped;  ///< its record stands second
    };
    for (const Case& c : {Case{"a real kind", true, false}, Case{"the second record", false, true}}) {
        SCOPED_TRACE(c.what);
        const auto before = balances();
        boxes.AnswerAll(1);
        ASSERT_TRUE(Change(kAccounts, u"0301"_s, {u"0301 软件开发"_s, 100, {}, false}));
        const QString entry = Dump(u"select Id1 from tAccount where Date1='1900-01-01'"_s).value(0);
        auto loaded = LoadEntry(Book(), entry.toLongLong());
        auto& e = loaded->values;
        if (c.ownKind) {
            e.code[kKind1] = u"0201"_s;
            e.text[kKind1] = u"0201办公费用"_s;
        }
        if (c.swapped) {
            e.account2On = true;
            e.code[kAccount2] = u"02"_s;
            e.text[kAccount2] = u"02公司"_s;
            e.accountValue[1] = u"7"_s;
        }
        ASSERT_TRUE(SaveEditedEntry(Book(), e, loaded->main, loaded->opened).done);
        if (c.swapped) Book().Execute(u"update tAccount set IIID=IIID1, IIID1=IIID where Id1="_s + entry);
        ASSERT_TRUE(Change(kAccounts, u"0301"_s, {u"0301 软件开发"_s, 0, {}, false}));
        EXPECT_EQ(balances(), before);
    }
}

// Another program has changed the opening since the row was read: the new amount replaces what stands.
TEST_F(MaintenanceTest, TheOpeningThatStandsIsReplacedNotTheOneThatWasRead) {
    const qint64 id = NewRow(Book(), kKinds, {u"0309 甲"_s, 100, {}, false})->id;
    const auto stored = ReadChartRecord(Book(), id, kKinds);
    Book().Execute(
        u"update tAccount set Value1=150 where Date1='1900-01-01';"
        u"update tKind set nAdd=150, Money=150 where Sort1='0309'"_s);
    boxes.AnswerAll(1);
    ASSERT_TRUE(ChangeRow(Book(), kKinds, *stored, {u"0309 甲"_s, 40, {}, false}));
    EXPECT_EQ(Row(kKinds, u"0309"_s), u"0309|甲|40|0|40|1"_s);
    EXPECT_EQ(BalanceBreaks(Book()), QStringList());
}

TEST_F(MaintenanceTest, AChangeThatFailsAnywhereLeavesTheBookAsItWas) {
    const auto whole = [&] {
        QStringList rows;
        for (const QString& table : {u"tKind"_s, u"tSubAcc"_s, u"tAccount"_s, u"tSubAccItem"_s, u"tNum"_s})
            rows += Dump(u"select * from "_s + table);
        return rows;
    };
    const auto kind = ReadChartRecord(Book(), 12, kKinds);
    const std::function<void()> changes[] = {
        [&] {
            ChangeRow(Book(), kKinds, *kind, {u"030299 农行卡"_s, 5, u"x"_s, true});
        },
        [&] {
            NewRow(Book(), kAccounts, {u"09 甲"_s, 5, {}, false});
        },
        [&] { DeleteRowAsked(Book(), kKinds, u"0102"_s, {}); },
    };
    boxes.AnswerAll(1);
    QStringList before;
    const auto check = [&](bool done) {
        if (!done) EXPECT_EQ(whole(), before);
    };
    for (const auto& change : changes)
        EXPECT_GT(FailEachStatement({[&] { before = whole(); }, change, check}), 0);
    // The other side of the account's opening moves no totals.
    EXPECT_EQ(BalanceBreaks(Book()), QStringList{u"tKind 00: stored -5 0 -5 more than its rows"_s});
}

TEST_F(MaintenanceTest, AUseThatCameInBehindTheQuestionRefusesTheChange) {
    const auto use = [&](const QString& code) {
        Book().Execute(u"insert into tAccount (Id1,Type1,IID,bIsMain) values (60,'%1',-1,1)"_s.arg(code));
    };
    boxes.Expect(u"你确定要【删除选定】的分类名称?"_s, 1, [&] { use(u"0102"_s); });
    boxes.Expect(u"该分类已在记账中被【引用（使用）过】! 因此不能删除"_s);
    EXPECT_FALSE(DeleteRowAsked(Book(), kKinds, u"0102"_s, {}));
    EXPECT_EQ(Row(kKinds, u"0102"_s), u"0102|项目收入|0|0|0|0"_s);
    Book().Execute(u"update tAccount set Id1=61 where Id1=60"_s);
    boxes.Expect(u"修改之前的编号已经在记账中使用，且有1条记录"_s, 1, [&] { use(u"0102"_s); });
    boxes.Expect(u"该编号刚刚又有新的记账使用，请重新修改!"_s);
    EXPECT_FALSE(Change(kKinds, u"0102"_s, {u"0109 项目收入"_s, 0, {}, false}));
    EXPECT_EQ(Row(kKinds, u"0102"_s), u"0102|项目收入|0|0|0|0"_s);
}

// An edit has given the opening's record to another account: it is that account's now.
TEST_F(MaintenanceTest, AnOpeningThatWasMovedElsewhereIsLeftAlone) {
    const auto added = NewRow(Book(), kAccounts, {u"0309 甲"_s, 100, {}, false});
    ASSERT_TRUE(added.has_value());
    boxes.AnswerAll(1);
    const qint64 entry = Dump(u"select Id1 from tAccount where Date1='1900-01-01'"_s).value(0).toLongLong();
    auto loaded = LoadEntry(Book(), entry);
    loaded->values.code[kAccount1] = u"0301"_s;
    loaded->values.text[kAccount1] = u"0301软件开发"_s;
    ASSERT_TRUE(SaveEditedEntry(Book(), loaded->values, loaded->main, loaded->opened).done);
    EXPECT_EQ(ReadChartRecord(Book(), added->id, kAccounts)->oldOpening, 0);
    ASSERT_TRUE(Change(kAccounts, u"0309"_s, {u"0309 甲"_s, 7, {}, false}));
    ASSERT_TRUE(Change(kAccounts, u"0309"_s, {u"0309 甲"_s, 0, {}, false}));
    EXPECT_EQ(Row(kAccounts, u"0309"_s), u"0309|甲|0|0|0|0"_s);
    EXPECT_EQ(Row(kAccounts, u"0301"_s), u"0301|软件开发|100|0|100|0"_s);
    EXPECT_EQ(Dump(u"select SubAccKey,Value1 from tSubAccItem where Id1>4"_s), QStringList{u"0301|100"_s});
}

TEST_F(MaintenanceTest, AnEntryIsNotPostedUnderAKindThatHasGone) {
    auto e = SampleEntry(u"迟到"_s, u"5"_s);
    Choose(e, kKind1, u"0102"_s, u"项目收入"_s, true);
    Book().Execute(u"delete from tKind where Sort1='0102'"_s);
    const auto before = Dump(u"select * from tAccount"_s);
    EXPECT_THROW(PostEntry(Book(), e), DbError);
    EXPECT_EQ(Dump(u"select * from tAccount"_s), before);
    Choose(e, kKind1, u"0302"_s, u"银行存款"_s, true);  // has levels below
    EXPECT_THROW(PostEntry(Book(), e), DbError);
}
