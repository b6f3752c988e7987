// Both lists, what a search asks for, and what is printed.

#include "tests/notes/note_fixture.h"

using namespace Qt::StringLiterals;

namespace {

QStringList Lines(NoteList list, const QString& condition = {}) {
    QStringList lines;
    Job job;
    ReadNotes(State().gDB, list, condition, job, [&](NoteLine&& line) {
        const QStringList cells = line.cells.All();
        lines << line.key.tag + QString::number(line.key.id) + u' ' + cells.join(u'|');
    });
    return lines;
}

}  // namespace

TEST_F(NotesTest, EachListShowsItsRowsOfBothStores) {
    PutNotes();
    PutMessages();
    EXPECT_EQ(Lines(NoteList::wake), (QStringList{u"wake3 1|2016-09-02 07:00:00|2016-09-04|报税|"_s,
                                                  u"wake2 2|2016-09-02 08:00:00|2016-09-03|交房租|flag"_s,
                                                  u"web2 3|2016-09-02 09:00:00||新消息|"_s}));
    EXPECT_EQ(
        Lines(NoteList::note),
        (QStringList{
            u"note4 1|2016-08-01 07:00:00|提醒|旧事|"_s, u"note1 2|2016-09-01 08:00:00|记事|便签|"_s,
            u"note3 3|2016-09-02 07:00:00|提醒|报税|"_s, u"note2 4|2016-09-02 08:00:00|提醒|交房租|flag"_s,
            u"web1 5|2016-08-01 09:00:00|平台|旧消息|"_s, u"web2 6|2016-09-02 09:00:00|平台|新消息|"_s}));
}

TEST_F(NotesTest, ASearchFindsNotesAloneByTheTextAsItIsTyped) {
    PutNotes();
    PutMessages();
    const auto all = PeriodOfKey(u"all"_s);
    const struct {
        NoteFilter filter;
        QString condition;
        QStringList titles;
    } cases[] = {
        {{u" 房 "_s}, u" and Title1 like '%房%'"_s, {u"交房租"_s}},
        {{{}, true, true, all}, u" and Mark1=1 and bWake=1"_s, {u"交房租"_s}},
        {{u"消息"_s}, u" and Title1 like '%消息%'"_s, {}},
        {{u"'; drop table tNotebook"_s}, u" and Title1 like '%''; drop table tNotebook%'"_s, {}},
        {{u"税"_s, false, true, {QDate(2016, 9, 2), {}}},
         u" and bWake=1 and Title1 like '%税%' and Date1>='2016-09-02'"_s,
         {u"报税"_s}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(NoteCondition(c.filter), c.condition);
        QStringList titles;
        Job job;
        ReadNotes(State().gDB, NoteList::note, c.condition, job,
                  [&](NoteLine&& line) { titles << line.cells.Text(kNoteTitle); });
        EXPECT_EQ(titles, c.titles) << qUtf8Printable(c.condition);
    }
    EXPECT_EQ(NoteCondition({u"　 "_s}), QString());
}

TEST_F(NotesTest, ALineIsReadAgainWhileItBelongsToItsList) {
    PutNotes();
    auto& book = State().gDB;
    EXPECT_EQ(ReadNote(book, NoteList::wake, 2, 7)->cells.Text(kNoteNumber), u"7"_s);
    EXPECT_FALSE(ReadNote(book, NoteList::wake, 4, 1));  // done
    EXPECT_FALSE(ReadNote(book, NoteList::wake, 1, 1));  // no reminder
    EXPECT_TRUE(ReadNote(book, NoteList::note, 4, 1));
    EXPECT_FALSE(ReadNote(book, NoteList::note, 9, 1));
}

TEST_F(NotesTest, WhatIsPrintedLeavesMessagesOut) {
    const QString head = u"tNoteBook/1/记事列表/"_s;
    const std::pair<PrintInfo, QString> cases[] = {
        {NotePrintInfo(NoteList::note, u" and Mark1=1"_s,
                       std::vector<NoteKey>{{2, kTagNote}, {2, kTagWeb}, {4, kTagNote}}),
         head + u" and id1 in(2,4)/1"_s},
        {NotePrintInfo(NoteList::wake, {}, std::vector<NoteKey>{{1, kTagWeb}}), head + u" and id1=-1/1"_s},
        {NotePrintInfo(NoteList::note, {}, {}), head + u"/1"_s},
        {NoteRecordInfo(3), u"tNoteBook/0/记事（提醒）/ and id1=3/1"_s},
    };
    for (const auto& [info, text] : cases)
        EXPECT_EQ(PrintInfoText({info}), text);
}
