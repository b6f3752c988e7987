#include "tools/bench/note_bench.h"

#include "notes/frm_note.h"
#include "notes/note_change.h"
#include "shell/controls/kestro_list.h"
#include "store/book_images.h"
#include "store/dates.h"
#include "store/due.h"
#include "store/state.h"
#include "tools/bench/raw_book.h"
#include "tools/bench/stage.h"

#include <QFile>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kNotes = 10000, kTicked = 1000, kMessages = 50;

// Half of them reminders, half of these open; every tenth has a picture.
const QString kFillBook =
    u"with recursive n(i) as (select 1 union all select i+1 from n where i<%1)"
    " insert into tNotebook (ID1,Title1,Mark1,Date1,Time1,Note1,bWake,WakeDate,bWakeOk,sPic)"
    " select i,'记事的标题 '||i,i%3=0,date('2016-01-01','+'||(i/30)||' days'),'08:00:00','正文 '||i,i%2,"
    " date('2016-01-01','+'||(i/20)||' days'),i%4=1,'0' from n;"
    " insert into tPic select ID1,zeroblob(2000),'p','tNoteBook',ID1,-1 from tNotebook where ID1%10=0;"_s;
const QString kFillSettings =
    u"create table if not exists tAd (Id1 integer primary key autoincrement,iid integer,Title1 text,"
    " Note1 text,date1 text,Time1 text,bWakeOk integer);"
    " with recursive n(i) as (select 1 union all select i+1 from n where i<%1)"
    " insert into tAd (Title1,date1,Time1,bWakeOk) select '消息 '||i,'2016-09-01','08:00:00',i%2 from n"_s;

const std::string kOpenNotes =
    "select Id1,Title1,Mark1,Date1,Time1,Mark1,bWake,bWakeOk,WakeDate from tNoteBook"
    " where bWake=1 and bWakeOk=0 order by date1,time1,id1";
const std::string kAllNotes =
    "select Id1,Date1,Title1,Mark1,Time1,bWake from tNoteBook order by date1,time1,id1";
const std::string kUnread = "select Id1,Title1,Date1,Time1,bWakeOk from tAd where bWakeOk=0";

struct Files {
    QString book, twin, settings;
};

Files MakeFiles(const QString& folder) {
    Files files{folder + u"/notes.jotdb"_s, folder + u"/notes-twin.jotdb"_s, folder + u"/notes.ini"_s};
    for (const auto& path : {files.book, files.settings}) {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly)) std::abort();
        file.write(EmptyBookImage());
    }
    OpenBook(files.book);
    State().gDB.Execute(kFillBook.arg(kNotes));
    State().gDB.Close();
    QFile::remove(files.twin);
    if (!QFile::copy(files.book, files.twin)) std::abort();
    State().gSetDB.Open(files.settings);
    State().gSetDB.Execute(kFillSettings.arg(kMessages));
    return files;
}

void MeasureLists(SpeedTable& table, const Files& files, int runs) {
    Stage<frmNote> stage;
    RawBook book(files.book.toStdString());
    RawBook settings(files.settings.toStdString());
    for (const auto which : {NoteList::wake, NoteList::note}) {
        stage.content->ShowList(which);
        Stage<frmNote>::Settle();
        auto* list = stage.content->Lists()[static_cast<size_t>(which)];
        const auto ours = [&] {
            stage.content->ReloadData();
            list->viewport()->repaint();
        };
        const auto theirs = [&] {
            book.Rows(kOpenNotes);
            settings.Rows(kUnread);
            book.Rows(kAllNotes);
            settings.Rows("select id1,title1,date1,time1,bWakeOk from tAd");
        };
        const QString shown = which == NoteList::wake ? u"the open reminders"_s : u"all notes"_s;
        table.Add(Compared(u"notes: both lists of 10000, "_s + shown + u" painted"_s, 0,
                           InTurns(runs, ours, theirs), kReadBound));
    }
}

void MeasureDue(SpeedTable& table, const Files& files, int runs) {
    RawBook book(files.book.toStdString());
    RawBook settings(files.settings.toStdString());
    const std::string due =
        "select bWake,bWakeOk from tNoteBook where bWake=1 and bWakeOk=0 and wakedate<='" +
        TodayText(u"-"_s).toStdString() + "'";
    State().gDB.Execute(u"update tNotebook set WakeDate='2099'||substr(WakeDate,5) where ID1%8>0"_s);
    int queries = 0;
    const auto ours = [&] {
        State().gDB.Execute(u"update tNotebook set Mark1=1 where rowid=1"_s);
        return Milliseconds([] { DueCount(); });
    };
    const auto theirs = [&] {
        book.Run("update tNotebook set Mark1=1 where rowid=1");
        return Milliseconds([&] {
            book.Rows(due);
            settings.Rows("select id1,bWakeOk from tAd where bWakeOk=0");
        });
    };
    table.Add({u"notes: what is due counted after a change"_s, 0, MedianTime(runs, ours),
               MedianTime(runs, theirs), u"ms"_s, kReadBound});
    DueCount();
    cConnection::Seams().beforeStatement = [&](const QString& sql) {
        if (sql.startsWith(u"select")) ++queries;
    };
    for (int i = 0; i < 100; ++i)
        DueCount();
    cConnection::Seams().beforeStatement = {};
    table.Add({u"  its queries while nothing changes"_s, 0, static_cast<double>(queries), 0, u"reads"_s, 0});
}

void MeasureDeletion(SpeedTable& table, const Files& files, int runs) {
    const Consent consent;
    RawBook twin(files.twin.toStdString());
    std::vector<double> ours, theirs;
    for (int run = 0; run <= runs; ++run) {
        std::vector<NoteKey> ticked;
        std::string ids;
        for (int i = 0; i < kTicked; ++i) {
            const qint64 id = 1 + i * (kNotes / kTicked) + run;  // spread over the whole table
            ticked.push_back({id, kTagNote});
            ids += (i == 0 ? "" : ",") + std::to_string(id);
        }
        const double our =
            Milliseconds([&] { DeleteTickedAsked(State().gDB, NoteList::note, kNotes, ticked); });
        const double their = Milliseconds([&] {
            twin.Change({"delete from tNoteBook where id1 in (" + ids + ")",
                         "delete from tPic where sFromTable='tNoteBook' and (lFromId in(" + ids + "))"});
        });
        if (run == 0) continue;
        ours.push_back(our);
        theirs.push_back(their);
    }
    table.Add(Compared(u"notes: 1000 ticked ones deleted"_s, 0, {Median(ours), Median(theirs)}, kReadBound));
}

}  // namespace

void MeasureNotes(SpeedTable& table, const QString& folder, int runs) {
    constexpr int kMostDeletions = kNotes / kTicked - 1;
    const auto files = MakeFiles(folder);
    OpenBook(files.book);
    MeasureLists(table, files, runs);
    MeasureDue(table, files, runs);
    MeasureDeletion(table, files, std::min(runs, kMostDeletions));
    State().gDB.Close();
    State().gSetDB.Close();
}
