// Changing and deleting entries: what becomes of the rows, their ties, the pictures and the balances.

#include "ledger/entry_edit.h"

#include "ledger/entry_delete.h"
#include "ledger/posting.h"
#include "store/errors.h"
#include "store/notices.h"
#include "store/picture_index.h"
#include "tests/support/entries.h"
#include "tests/support/fixture.h"

using namespace Qt::StringLiterals;

namespace {

class EntryEditTest : public Fixture {
 protected:
    EntryEditTest() {
        OpenSample();
        Book().Execute(u"pragma synchronous=off"_s);
        boxes.AnswerAll(1);
    }
    PostedIds Post(int shape) {
        auto e = SampleEntry(u"旧"_s, u"10"_s);
        SetShape(e, shape);
        return PostEntry(Book(), e);
    }
    qint64 Edit(qint64 opened, int shape) {
        auto e = SampleEntry(u"新"_s, u"20"_s);
        SetShape(e, shape);
        const auto outcome = SaveEditedEntry(Book(), e, ResolveMainRow(Book(), opened), opened);
        EXPECT_TRUE(outcome.done);
        return outcome.id;
    }
    QStringList EntryRows(qint64 from) {
        return Rows(Book(),
                    u"select Id1,IID,IIID,IIID1,bIsMain,Title1,Type1,Value1 from tAccount where Id1>="_s +
                        QString::number(from));
    }
    QStringList Records() {
        return Rows(Book(), u"select Id1,AccId,SubAccKey,Value1 from tSubAccItem where Id1>4"_s);
    }
    /// All that is typed in the entries from 8 on and in their records.
    QStringList Whole() {
        return Rows(Book(),
                    u"select "
                    u"Id1,IID,IIID,IIID1,Title1,Type1,TypeName1,Value1,nSign,Mark1,Date1,Time1,Note1,sPic,"
                    u"bIsMain from tAccount where Id1>7"_s) +
               Rows(Book(),
                    u"select Id1,AccId,Title1,SubAccKey,SubAccName1,TypeName1,Value1,nSign,Date1,Time1"
                    u" from tSubAccItem where Id1>4"_s);
    }
    QStringList Balances() {
        return Rows(Book(),
                    u"select Sort1,nAdd,nReduce,Money from tKind union all"
                    u" select 'a'||Sort1,nAdd,nReduce,Money from tSubAcc"_s);
    }
};

}  // namespace

TEST_F(EntryEditTest, AnyShapeBecomesAnyOther) {
    for (int from = 0; from < kShapes; ++from) {
        for (int to = 0; to < kShapes; ++to) {
            SCOPED_TRACE(std::to_string(from) + " to " + std::to_string(to));
            const auto ids = Post(from);
            EXPECT_EQ(Edit(ids.main, to), ids.main);
            const auto loaded = LoadEntry(Book(), ids.main);
            ASSERT_TRUE(loaded.has_value());
            const auto& e = loaded->values;
            EXPECT_EQ((e.kind2On ? 1 : 0) + (e.toAccount ? 2 : 0) + (e.account2On ? 2 : 0), to);
            EXPECT_EQ(e.title + e.money + e.hour + e.minute, u"新200930"_s);
            EXPECT_EQ(e.accountValue[0] + e.accountValue[1],
                      (to >= 2 ? u"20"_s : QString()) + (to >= 4 ? u"7.25"_s : QString()));
        }
    }
    EXPECT_EQ(BalanceBreaks(Book()), QStringList());
    EXPECT_EQ(TieBreaks(Book()), QStringList());
}

TEST_F(EntryEditTest, AnAddedSecondRowKnowsNothingOfOlderRecords) {
    Post(2);
    Edit(8, 3);
    EXPECT_EQ(EntryRows(8), (QStringList{u"8|9|5|-1|1|新|0102|20"_s, u"9|8|-1|-1|0|新|030202|20"_s}));
    Edit(9, 5);  // a record that comes later is tied to both rows
    EXPECT_EQ(EntryRows(8), (QStringList{u"8|9|5|6|1|新|0102|20"_s, u"9|8|-1|6|0|新|030202|20"_s}));
    EXPECT_EQ(Records(), (QStringList{u"5|8|0301|20"_s, u"6|8|02|7.25"_s}));
}

TEST_F(EntryEditTest, TheOpenedRowIsHandedBackUnlessItIsGone) {
    const auto ids = Post(3);
    EXPECT_EQ(ResolveMainRow(Book(), ids.second), ids.main);
    EXPECT_EQ(Edit(ids.second, 1), ids.second);
    EXPECT_EQ(Records(), QStringList());  // without the arrow both records go
    EXPECT_EQ(EntryRows(8), (QStringList{u"8|9|-1|-1|1|新|0102|20"_s, u"9|8|-1|-1|0|新|030202|20"_s}));
    EXPECT_EQ(Edit(ids.second, 0), -1);
    EXPECT_EQ(EntryRows(8), QStringList{u"8|-1|-1|-1|1|新|0102|20"_s});
    EXPECT_EQ(ResolveMainRow(Book(), 99), 99);
    EXPECT_FALSE(LoadEntry(Book(), 99).has_value());
    EXPECT_EQ(boxes.Last().text, u"意外错误：未找到记录!"_s);
    auto e = SampleEntry(u"x"_s, u"1"_s);
    EXPECT_FALSE(SaveEditedEntry(Book(), e, 99, 99).done);
    EXPECT_EQ(boxes.Last().text, u"意外错误：未找到记录!"_s);
}

TEST_F(EntryEditTest, AnEditRewritesEveryColumnThatWasTyped) {
    const auto ids = Post(5);
    int told = 0;
    const auto token = Notices().entriesChanged.Subscribe([&] { ++told; });
    auto e = RichEntry();
    EXPECT_TRUE(SaveEditedEntry(Book(), e, ids.main, ids.main).done);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(
        Whole(),
        (QStringList{u"8|9|5|6|O'Neil 的货款|0201|办公费用|20.5|-1|1|2016-12-31|23:05|第一行\n'第二行'|2|1"_s,
                     u"9|8|5|6|O'Neil 的货款|0301|现金|20.5|1|1|2016-12-31|23:05|第一行\n'第二行'|2|0"_s,
                     u"5|8|O'Neil 的货款|01|东华公司|办公费用|3.25|-1|2016-12-31|23:05"_s,
                     u"6|8|O'Neil 的货款|0301|软件开发|办公费用|17.25|1|2016-12-31|23:05"_s}));
    EXPECT_EQ(BalanceBreaks(Book()), QStringList());
}

TEST_F(EntryEditTest, AnEntryThatIsLoadedAndSavedIsAsBefore) {
    for (int shape = 0; shape < kShapes; ++shape) {
        SCOPED_TRACE(shape);
        auto e = RichEntry();
        e.kind2On = shape % 2 == 1;
        e.toAccount = shape >= 2;
        e.account2On = shape >= 4;
        const auto ids = PostEntry(Book(), e);
        const auto before = Whole() + Balances();
        auto loaded = LoadEntry(Book(), ids.main);
        ASSERT_TRUE(loaded.has_value());
        EXPECT_EQ(loaded->values.text[kKind1], u"0201办公费用"_s);
        EXPECT_EQ(loaded->values.text[kAccount2], shape >= 4 ? u"0301软件开发"_s : QString());
        EXPECT_TRUE(SaveEditedEntry(Book(), loaded->values, loaded->main, loaded->opened).done);
        EXPECT_EQ(Whole() + Balances(), before);
        EXPECT_TRUE(DeleteEntry(Book(), ids.main));
    }
}

TEST_F(EntryEditTest, ARefusedEditLeavesTheEntry) {
    const auto ids = Post(5);
    const auto before = Whole() + Balances();
    auto e = RichEntry();
    e.title = u" "_s;
    auto outcome = SaveEditedEntry(Book(), e, ids.main, ids.main);
    EXPECT_FALSE(outcome.done);
    EXPECT_EQ(outcome.focus, EntryField::thing);
    EXPECT_EQ(boxes.Last().text, u"事情不能为空!"_s);
    boxes.AnswerAll(0);
    e = RichEntry();
    outcome = SaveEditedEntry(Book(), e, ids.main, ids.main);
    EXPECT_FALSE(outcome.done);
    EXPECT_TRUE(boxes.Last().text.startsWith(u"【事情】：O'Neil"_s));
    EXPECT_EQ(Whole() + Balances(), before);
}

TEST_F(EntryEditTest, AnAddedSecondRowLeavesTheRecordsWhenTheEntryGoesThroughIt) {
    const auto before = Balances();
    Post(2);
    Edit(8, 3);
    EXPECT_TRUE(DeleteEntry(Book(), 9));
    EXPECT_EQ(EntryRows(8), QStringList());
    EXPECT_EQ(Records(), QStringList{u"5|8|0301|20"_s});
    EXPECT_EQ(Rows(Book(), u"select Money from tSubAcc where Sort1='0301'"_s), QStringList{u"20"_s});
    Book().Execute(
        u"delete from tSubAccItem where Id1=5; update tSubAcc set nAdd=0,Money=0 where Sort1='0301'"_s);
    EXPECT_EQ(Balances(), before);
    // A checked second row leads to its main row, which knows the record.
    Post(2);
    Edit(10, 3);
    Job job;
    DeleteTally tally;
    DeleteLines(Book(), LineKind::entries, {11}, job, tally);
    EXPECT_EQ(tally.count, 1);
    EXPECT_EQ(EntryRows(8) + Records(), QStringList());
    EXPECT_EQ(Balances(), before);
}

TEST_F(EntryEditTest, NothingIsDeletedWhileAJobRuns) {
    const Job running;
    const auto before = Whole() + Balances();
    EXPECT_FALSE(DeleteAsked(Book(), LineKind::entries, 3));
    EXPECT_EQ(DeleteCheckedAsked(Book(), LineKind::entries, {3}, {}, {}), -1);
    const QString busy = u"有进程在运行，请等待结束后再试..."_s;
    EXPECT_EQ(boxes.Seen(), (QStringList{busy, busy}));
    EXPECT_EQ(Whole() + Balances(), before);
}

TEST_F(EntryEditTest, AFailureAmongTheCheckedIsToldAfterTheListIsRight) {
    std::vector<qint64> ids;
    for (int i = 0; i < 60; ++i)
        ids.push_back(Post(0).main);
    int slices = 0;
    cConnection::Seams().beforeStatement = [&](const QString& sql) {
        if (sql == u"commit"_s && ++slices == 2) FailStatement(u"磁盘已满"_s, sql);
    };
    qsizetype seenAfter = 0;
    std::vector<int> bar;
    JobBar shown;
    shown.start = [&](int most) { bar.push_back(most); };
    shown.end = [&] { bar.push_back(-1); };
    EXPECT_EQ(DeleteCheckedAsked(Book(), LineKind::entries, ids, shown,
                                 [&] {
                                     seenAfter = boxes.Seen().size();
                                     FailStatement(u"磁盘不见了"_s, {});
                                 }),
              50);
    cConnection::Seams().beforeStatement = {};
    ASSERT_EQ(boxes.Seen().size(), 3);
    EXPECT_EQ(seenAfter, 1);
    EXPECT_TRUE(boxes.Seen()[1].contains(u"磁盘已满"_s));
    EXPECT_EQ(boxes.Seen()[2], u"成功删除50条记账!"_s);
    EXPECT_EQ(bar, (std::vector<int>{60, -1}));
    EXPECT_FALSE(State().gBusy);
}

TEST_F(EntryEditTest, AnotherSignMovesTheBalanceByTwiceTheAmount) {
    auto loaded = LoadEntry(Book(), 7);
    ASSERT_TRUE(loaded.has_value());
    loaded->values.add[kKind1] = false;
    EXPECT_TRUE(SaveEditedEntry(Book(), loaded->values, 7, 7).done);
    EXPECT_EQ(Rows(Book(), u"select nAdd,nReduce,Money from tKind where Sort1='0303'"_s),
              QStringList{u"0|8500|-8500"_s});
    EXPECT_EQ(Rows(Book(), u"select lFromId,lFromId1 from tPic"_s), QStringList{u"7|-1"_s});
}

TEST_F(EntryEditTest, ADeletedEntryLeavesNoTrace) {
    for (int shape = 0; shape < kShapes; ++shape) {
        for (const bool bySecond : {false, true}) {
            SCOPED_TRACE(shape);
            const auto before = Balances();
            const auto ids = Post(shape);
            EXPECT_NE(Balances(), before);
            Book().Execute(
                u"insert into tPic values (9,x'00','p','tAccount',%1,%2), (10,x'00','n','tNotebook',%1,-1)"_s
                    .arg(ids.main)
                    .arg(ids.second));
            ForgetPictureOwners();
            const qint64 id = bySecond && ids.second > 0 ? ids.second : ids.main;
            EXPECT_TRUE(DeleteEntry(Book(), id));
            EXPECT_FALSE(DeleteEntry(Book(), id));
            EXPECT_EQ(EntryRows(8) + Records(), QStringList());
            EXPECT_EQ(Balances(), before);
            EXPECT_EQ(Rows(Book(), u"select ID1 from tPic"_s), (QStringList{u"1"_s, u"10"_s}));
            Book().Execute(u"delete from tPic where ID1=10"_s);
        }
    }
}

TEST_F(EntryEditTest, AnIdThatIsNoneTakesNoForeignEntryAlong) {
    Post(0);
    const auto before = Rows(Book(), u"select * from tAccount"_s);
    DeleteTally tally;
    Job job;
    DeleteLines(Book(), LineKind::entries, {-1, 0}, job, tally);
    EXPECT_EQ(tally.count, 0);
    DeleteLines(Book(), LineKind::entries, {-1, 3}, job, tally);
    EXPECT_EQ(tally.count, 2);
    EXPECT_EQ(Rows(Book(), u"select * from tAccount"_s).size(), before.size() - 2);
}

TEST_F(EntryEditTest, CheckedEntriesGoInSlicesAndAStopOrAFailureKeepsTheRest) {
    std::vector<qint64> ids;
    for (int i = 0; i < 180; ++i)
        ids.push_back(Post(0).main);
    ids.push_back(Post(1).main);  // brings its second row along
    const auto remove = [&] {
        Job job;
        DeleteTally tally;
        Succeeds([&] { DeleteLines(Book(), LineKind::entries, ids, job, tally); });
        return tally.count;
    };
    Job::StopAfter(50);
    EXPECT_EQ(remove(), 50);
    EXPECT_EQ(StillThere(Book(), LineKind::entries, ids).size(), 131U);
    Job::StopAfter(-1);
    int slices = 0;
    cConnection::Seams().beforeStatement = [&](const QString& sql) {
        if (sql == u"commit"_s && ++slices == 2) FailStatement(u"刺探"_s, sql);
    };
    EXPECT_EQ(remove(), 50);
    cConnection::Seams().beforeStatement = {};
    EXPECT_EQ(StillThere(Book(), LineKind::entries, ids).size(), 81U);
    EXPECT_EQ(BalanceBreaks(Book()) + TieBreaks(Book()), QStringList());
    EXPECT_EQ(remove(), 82);  // a two-kind entry counts as two
    EXPECT_EQ(EntryRows(8), QStringList());
    EXPECT_EQ(BalanceBreaks(Book()) + TieBreaks(Book()), QStringList());
}
