// Saving, finishing and deleting notes, with what each says and leaves in both stores.

#include "notes/note_change.h"

#include "notes/note_edit.h"
#include "store/errors.h"
#include "store/notices.h"
#include "store/picture_index.h"
#include "tests/notes/note_fixture.h"
#include "tests/support/fault_vfs.h"

using namespace Qt::StringLiterals;

namespace {

const QString kAsk = u"你确定要删除【选定】的一条记录?"_s;
const QString kAskTicked = u"您是否确定删除【选定】的一条或多条记录?"_s;

QStringList Row(qint64 id) {
    return Rows(State().gDB,
                u"select Title1,Mark1,Date1,Time1,Note1,bWake,WakeDate,bWakeOk,sMe,sPic from tNotebook"
                u" where ID1="_s +
                    QString::number(id));
}

}  // namespace

TEST_F(NotesTest, ANewNoteTakesThePicturesThatWaitedForIt) {
    auto& book = State().gDB;
    book.Execute(u"insert into tPic values (7,x'00','old','tNoteBook',-1,-1)"_s);
    const auto opened = OpenNote(book, {});
    EXPECT_EQ(opened->caption, u"新提醒"_s);
    EXPECT_EQ(opened->moment, u"2016-09-03 14:16:20"_s);
    EXPECT_EQ(opened->values.wakeDate, u"2016-09-03"_s);
    EXPECT_TRUE(opened->values.wake);
    EXPECT_EQ(Pictures(), QStringList());
    book.Execute(
        u"insert into tPic values (8,x'00','p','tNoteBook',-1,-1), (9,x'00','e','tAccount',-1,-1)"_s);
    ForgetPictureOwners();

    NoteValues values = opened->values;
    boxes.Expect(u"【标题】不能为空!"_s);
    EXPECT_TRUE(SaveNote(book, -1, values).titleMissing);
    EXPECT_EQ(Notes(), QStringList());

    int told = 0;
    const auto token = Notices().remindersChanged.Subscribe([&] { ++told; });
    values.title = u"  它's 租 "_s;
    values.note = u"一\n二"_s;
    values.wakeDate = u"2016年9月5日"_s;
    values.flag = true;
    values.pictures = u"1"_s;
    boxes.Expect(u"新增成功!"_s);
    EXPECT_EQ(SaveNote(book, -1, values).id, 1);
    EXPECT_EQ(Row(1), QStringList{u"它's 租|1|2016-09-03|14:16:20|一\n二|1|2016-09-05|0|记事|1"_s});
    EXPECT_EQ(Pictures(), (QStringList{u"8|tNoteBook|1|-1"_s, u"9|tAccount|-1|-1"_s}));
    EXPECT_EQ(told, 1);

    EXPECT_EQ(OpenNote(book, {.wakeMode = false})->caption, u"新记事"_s);
    EXPECT_EQ(Pictures(), QStringList{u"8|tNoteBook|1|-1"_s});
}

TEST_F(NotesTest, AChangeKeepsTheMomentOfCreation) {
    PutNotes();
    auto& book = State().gDB;
    const auto opened = OpenNote(book, {.id = 2});
    EXPECT_EQ(opened->caption, u"提醒修改"_s);
    EXPECT_EQ(opened->moment, u"2016-09-02 08:00:00"_s);
    auto values = opened->values;
    values.title = u" "_s;
    values.wake = false;
    values.done = true;
    values.wakeDate = u"月底"_s;
    boxes.Expect(u"修改成功!"_s);
    EXPECT_TRUE(SaveNote(book, 2, values).saved);
    EXPECT_EQ(Row(2), QStringList{u"|1|2016-09-02|08:00:00|y|0|月底|1|记事|1"_s});
    EXPECT_EQ(OpenNote(book, {.id = 2})->caption, u"记事修改"_s);

    book.Execute(u"delete from tNotebook where ID1=3"_s);
    boxes.Expect(u"意外错误,修改不成功!"_s);
    EXPECT_FALSE(SaveNote(book, 3, opened->values).saved);
    boxes.Expect(u"意外错误!"_s);
    EXPECT_FALSE(OpenNote(book, {.id = 3}));
}

TEST_F(NotesTest, ADateInAnotherFormComesDue) {
    const std::pair<QString, QString> cases[] = {{u"2016-9-5"_s, u"2016-09-05"_s},
                                                 {u"2016/09/05"_s, u"2016-09-05"_s},
                                                 {u"2016.9.5"_s, u"2016-09-05"_s},
                                                 {u" 2016年9月5日 "_s, u"2016-09-05"_s},
                                                 {u"2016-02-30"_s, u"2016-02-30"_s},
                                                 {u"下周"_s, u"下周"_s},
                                                 {QString(), QString()}};
    for (const auto& [typed, kept] : cases)
        EXPECT_EQ(WakeDateText(typed), kept);
}

TEST_F(NotesTest, OpeningAMessageMarksItReadEvenWhereThatFails) {
    PutNotes();
    PutMessages();
    const auto opened = OpenNote(State().gDB, {.id = 2, .message = true});
    EXPECT_EQ(opened->caption, u"平台信息查看"_s);
    EXPECT_EQ(opened->values.title + opened->values.note, u"新消息n"_s);
    EXPECT_FALSE(opened->canSave);
    EXPECT_EQ(Messages(), (QStringList{u"1|1"_s, u"2|1"_s}));
    EXPECT_EQ(Notes()[1], u"2|1|0"_s);

    cConnection::Seams().beforeStatement = [](const QString& sql) {
        if (sql.startsWith(u"update tAd")) FailStatement(u"磁盘已满"_s, sql);
    };
    boxes.Expect({});
    EXPECT_TRUE(OpenNote(State().gDB, {.id = 1, .message = true}));
}

TEST_F(NotesTest, FinishingRefusesInItsOrderAndLeavesMessagesAlone) {
    PutNotes();
    PutMessages();
    auto& book = State().gDB;
    const struct {
        std::optional<NoteKey> chosen;
        QString message;
    } single[] = {{{}, u"请【选择】一条记录!"_s},
                  {NoteKey{2, kTagWeb}, u"【平台信息】必须双击阅读!"_s},
                  {NoteKey{9, kTagWake}, u"意外错误!"_s}};
    const auto before = Notes();
    for (const auto& c : single) {
        boxes.Expect(c.message);
        EXPECT_FALSE(FinishNote(book, c.chosen));
    }
    boxes.Expect(u"没有【勾选】需要完成的记录!"_s);
    EXPECT_FALSE(FinishTicked(book, {}));
    boxes.Expect(u"【平台信息】不可处理，必须双击阅读!"_s);
    EXPECT_FALSE(FinishTicked(book, {{2, kTagWeb}}));
    EXPECT_EQ(Notes(), before);

    boxes.Expect(u"操作成功!"_s);
    EXPECT_TRUE(FinishNote(book, NoteKey{2, kTagWake}));
    EXPECT_EQ(Notes(), (QStringList{u"1|0|0"_s, u"2|1|1"_s, u"3|1|0"_s, u"4|1|1"_s}));
    boxes.Expect(u"操作成功（除【平台信息】之外）!"_s);
    EXPECT_TRUE(FinishTicked(book, {{3, kTagWake}, {2, kTagWeb}}));
    EXPECT_EQ(Notes()[2], u"3|1|1"_s);
    EXPECT_EQ(Messages(), (QStringList{u"1|1"_s, u"2|0"_s}));
}

TEST_F(NotesTest, ADeletionAsksFirstAndChecksThen) {
    PutNotes();
    PutMessages();
    auto& book = State().gDB;
    boxes.Expect(kAsk, 0);
    EXPECT_FALSE(DeleteNoteAsked(book, NoteList::wake, NoteKey{2, kTagWake}));
    const struct {
        NoteList list;
        std::optional<NoteKey> chosen;
        QString message;
        bool done;
    } cases[] = {
        {NoteList::wake, {}, u"没有【选定】任何需要删除的记录!"_s, false},
        {NoteList::wake, NoteKey{2, kTagWeb}, u"【平台信息】不可删除! 双击阅读后自动移除!"_s, false},
        {NoteList::note, NoteKey{2, kTagWeb}, u"成功删除! 除『未读』的【平台信息】外!"_s, true},
        {NoteList::note, NoteKey{1, kTagWeb}, u"成功删除! 除『未读』的【平台信息】外!"_s, true},
        {NoteList::note, NoteKey{1, kTagNote}, u"成功删除!"_s, true},
    };
    for (const auto& c : cases) {
        boxes.Expect(kAsk);
        boxes.Expect(c.message);
        EXPECT_EQ(DeleteNoteAsked(book, c.list, c.chosen), c.done);
    }
    EXPECT_EQ(Notes(), (QStringList{u"2|1|0"_s, u"3|1|0"_s, u"4|1|1"_s}));
    EXPECT_EQ(Messages(), QStringList{u"2|0"_s});
    // A note is the first owner of its pictures; what it is the second owner of stays.
    EXPECT_EQ(Pictures(), (QStringList{u"2|tNoteBook|2|1"_s, u"3|tAccount|1|2"_s}));
}

TEST_F(NotesTest, TickedLinesGoWithTheirPicturesAndTheMessagesThatAreRead) {
    PutNotes();
    PutMessages();
    auto& book = State().gDB;
    const struct {
        NoteList list;
        int lines;
        std::vector<NoteKey> ticked;
        QString message;
    } cases[] = {
        {NoteList::wake, 0, {}, u"请勾选一些记录!"_s},
        {NoteList::wake, 3, {}, u"没有【勾选】任何未完成提醒记录!"_s},
        {NoteList::note, 6, {}, u"没有【勾选】任何记事记录!"_s},
        {NoteList::wake,
         3,
         {{1, kTagWeb}, {2, kTagWeb}},
         u"成功删除记录【0】条!\n但有【2】条平台信息, 因【未读】, 所以不可删除!"_s},
        {NoteList::wake,
         3,
         {{2, kTagWake}, {2, kTagWeb}},
         u"成功删除记录【1】条!\n但有【1】条平台信息, 因【未读】, 所以不可删除!"_s},
        {NoteList::note,
         5,
         {{1, kTagNote}, {3, kTagNote}, {1, kTagWeb}, {2, kTagWeb}},
         u"成功删除记录【3】条!\n但【未读】的平台信息不可删除!"_s},
        {NoteList::note, 1, {{4, kTagNote}}, u"成功删除记录【1】条!"_s},
    };
    for (const auto& c : cases) {
        boxes.Expect(kAskTicked);
        boxes.Expect(c.message);
        DeleteTickedAsked(book, c.list, c.lines, c.ticked);
        EXPECT_EQ(boxes.Last().text, c.message);
    }
    EXPECT_EQ(Notes(), QStringList());
    EXPECT_EQ(Messages(), QStringList{u"2|0"_s});
    EXPECT_EQ(Pictures(), QStringList{u"3|tAccount|1|2"_s});
}

TEST_F(NotesTest, ADeletionThatFailsAtAnyWriteOrStatementLeavesTheBookAsItWas) {
    boxes.AnswerAll(1);
    QString path;
    QStringList before;
    const auto prepare = [&] {
        path = OpenEmpty();
        PutNotes();
        before = DumpBook(path);
        MoveToTestDisk();
    };
    const auto remove = [] {
        DeleteTickedAsked(State().gDB, NoteList::note, 4,
                          {{1, kTagNote}, {2, kTagNote}, {3, kTagNote}, {1, kTagWeb}});
    };
    const auto check = [&](bool done) {
        EXPECT_EQ(CheckBook(path), u"ok"_s);
        if (done) return;
        EXPECT_EQ(DumpBook(path), before);
        remove();
        EXPECT_EQ(Notes(), QStringList{u"4|1|1"_s});
    };
    const FaultStory story{prepare, remove, check};
    for (const auto operation : {DiskFaults::kWrite, DiskFaults::kSync, DiskFaults::kOpen})
        EXPECT_GT(FailEach({.failing = operation}, story), 0) << operation;
    EXPECT_GT(FailEachStatement(story), 0);
}

TEST_F(NotesTest, ASaveThatFailsAtAnyStatementLeavesTheBookAsItWas) {
    boxes.AnswerAll(1);
    int told = 0;
    const auto token = Notices().remindersChanged.Subscribe([&] { ++told; });
    for (const qint64 id : {-1, 2}) {
        SCOPED_TRACE(id);
        QString path;
        QStringList before;
        const auto prepare = [&] {
            path = OpenEmpty();
            PutNotes();
            State().gDB.Execute(u"insert into tPic values (8,x'00','p','tNoteBook',-1,-1)"_s);
            ForgetPictureOwners();
            before = DumpBook(path);
            told = 0;
        };
        const auto save = [&] {
            return SaveNote(State().gDB, id, {.title = u"新"_s, .wake = true, .pictures = u"1"_s}).id;
        };
        const auto check = [&](bool done) {
            EXPECT_EQ(told, done ? 1 : 0);
            if (done) return;
            EXPECT_EQ(DumpBook(path), before);
            EXPECT_EQ(save(), id < 0 ? 5 : 2);
            EXPECT_EQ(Pictures().last(), id < 0 ? u"8|tNoteBook|5|-1"_s : u"8|tNoteBook|-1|-1"_s);
        };
        EXPECT_GT(FailEachStatement({prepare, save, check}), id < 0 ? 3 : 1);
    }
}

TEST_F(NotesTest, ABookThatCannotBeWrittenIsReadAndKeepsItsNotes) {
    PutNotes();
    auto& book = State().gDB;
    const QString path = book.Path();
    book.Close();
    book.Open(path, {.readOnly = true, .waitMs = 0});
    EXPECT_EQ(OpenNote(book, {.id = 2})->values.title, u"交房租"_s);
    EXPECT_TRUE(OpenNote(book, {}));
    boxes.AnswerAll(1);
    const NoteKey key{2, kTagWake};
    const std::vector<NoteKey> ticked{key};
    const std::function<void()> writes[] = {[&] { SaveNote(book, -1, {.title = u"新"_s}); },
                                            [&] { SaveNote(book, 2, {.title = u"新"_s}); },
                                            [&] { FinishNote(book, key); },
                                            [&] { FinishTicked(book, ticked); },
                                            [&] { DeleteNoteAsked(book, NoteList::wake, key); },
                                            [&] { DeleteTickedAsked(book, NoteList::wake, 3, ticked); }};
    for (const auto& write : writes) {
        EXPECT_FALSE(Succeeds(write));
        EXPECT_FALSE(book.InTransaction());
    }
    EXPECT_EQ(Notes(), (QStringList{u"1|0|0"_s, u"2|1|0"_s, u"3|1|0"_s, u"4|1|1"_s}));
}

TEST_F(NotesTest, AnyTextComesBackAsItWasTyped) {
    auto& book = State().gDB;
    boxes.AnswerAll(1);
    const QString texts[] = {QString(5000, u'长'), u"'\"; drop table tNotebook; --"_s,
                             u"100%_\\ 😀👨‍👩‍👧 é"_s, u"一\n二\r\n\t三"_s};
    for (const auto& text : texts) {
        const auto saved = SaveNote(book, -1, {.title = text, .note = text, .wakeDate = text, .wake = true});
        const auto opened = OpenNote(book, {.id = saved.id});
        ASSERT_TRUE(opened);
        EXPECT_EQ(opened->values.title, text);
        EXPECT_EQ(opened->values.note, text);
        EXPECT_EQ(opened->values.wakeDate, text);
        QStringList found;
        Job job;
        ReadNotes(book, NoteList::note, NoteCondition({text.left(40)}), job,
                  [&](NoteLine&& line) { found << line.cells.Text(kNoteTitle); });
        EXPECT_TRUE(found.contains(text)) << qUtf8Printable(text.left(20));
        EXPECT_TRUE(NoteTipText(book, {saved.id, kTagWake}).endsWith(text));
    }
}
