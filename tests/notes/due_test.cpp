// What is due: over days, changes, books, and without any query while nothing changes.

#include "store/due.h"

#include "store/platform_messages.h"
#include "tests/notes/note_fixture.h"

using namespace Qt::StringLiterals;

TEST_F(NotesTest, RemindersComeDueByTheirDayAndMessagesUntilTheyAreRead) {
    EXPECT_EQ(DueCount(), 0);
    PutNotes();
    PutMessages();
    EXPECT_EQ(DueCount(), 2);
    SetClock(u"2016-09-02 23:59:59"_s);
    EXPECT_EQ(DueCount(), 1);
    SetClock(u"2016-09-04 00:00:00"_s);
    EXPECT_EQ(DueCount(), 3);
    QStringList lines;
    for (const auto& line : ReadDueLines())
        lines << DueTypeText(line) + line.tag + QString::number(line.id) + line.title;
    EXPECT_EQ(lines, (QStringList{u"提醒wake3报税"_s, u"提醒wake2交房租"_s, u"平台web2新消息"_s}));
    MarkMessageRead(2);
    EXPECT_EQ(DueCount(), 2);
}

TEST_F(NotesTest, TheCountAsksTheTablesOnlyAfterAChange) {
    PutNotes();
    PutMessages();
    int queries = 0;
    cConnection::Seams().beforeStatement = [&](const QString& sql) {
        if (sql.startsWith(u"select")) ++queries;
    };
    DueCount();
    EXPECT_EQ(queries, 2);
    DueCount();
    EXPECT_EQ(queries, 2);
    cConnection other;
    other.Open(State().gDB.Path());
    other.Execute(u"update tNotebook set bWakeOk=1"_s);
    EXPECT_EQ(DueCount(), 1);
}

TEST_F(NotesTest, TheCountIsSafeWithoutABookOrSettings) {
    PutNotes();
    PutMessages();
    State().gDB.Close();
    EXPECT_EQ(DueCount(), 1);
    EXPECT_EQ(ReadDueLines().size(), 1U);
    State().gSetDB.Close();
    EXPECT_EQ(DueCount(), 0);
    EXPECT_EQ(ReadDueLines().size(), 0U);
    EXPECT_FALSE(FindMessage(1));
    OpenSample();
    EXPECT_EQ(DueCount(), 0);
}
