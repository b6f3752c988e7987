#pragma once
// A book with notes and a settings file with messages, both counting from 1.

#include "notes/note_list.h"
#include "store/settings_file.h"
#include "tests/support/fixture.h"

#include <QFile>

class NotesTest : public Fixture {
 protected:
    NotesTest() {
        const QString settings = Path(QStringLiteral("Set.ini"));
        EXPECT_TRUE(QFile::copy(QString::fromUtf8(KESTRO_SET_INI), settings));
        QFile::setPermissions(settings, QFile::ReadOwner | QFile::WriteOwner);
        OpenSettings(settings);
        OpenEmpty();
    }
    ~NotesTest() override { State().gSetDB.Close(); }

    /// Note 1, reminders 2 (open, due, important), 3 (open, tomorrow) and 4 (done), pictures of 1 and 2.
    void PutNotes() {
        State().gDB.Execute(QStringLiteral(
            "insert into tNotebook (ID1,Title1,Mark1,Date1,Time1,Note1,bWake,WakeDate,bWakeOk,sPic) values"
            " (1,'便签',0,'2016-09-01','08:00:00','x',0,'2016-09-01',0,'1'),"
            " (2,'交房租',1,'2016-09-02','08:00:00','y',1,'2016-09-03',0,'1'),"
            " (3,'报税',0,'2016-09-02','07:00:00','',1,'2016-09-04',0,'0'),"
            " (4,'旧事',0,'2016-08-01','07:00:00','',1,'2016-08-04',1,'0');"
            " update tNum set Max1=5 where Table1='tnotebook';"
            " insert into tPic values (1,x'01','a','tNoteBook',1,-1), (2,x'02','b','tNoteBook',2,1),"
            " (3,x'03','c','tAccount',1,2)"));
    }
    /// Message 1 is read, 2 is not.
    void PutMessages() {
        State().gSetDB.Execute(QStringLiteral(
            "insert into tAd (Id1,Title1,Note1,Date1,Time1,bWakeOk,iid) values"
            " (1,'旧消息','m','2016-08-01','09:00:00',1,1), (2,'新消息','n','2016-09-02','09:00:00',0,2)"));
    }
    static QStringList Notes() {
        return Rows(State().gDB, QStringLiteral("select ID1,bWake,bWakeOk from tNotebook order by ID1"));
    }
    static QStringList Pictures() {
        return Rows(State().gDB,
                    QStringLiteral("select ID1,sFromTable,lFromId,lFromId1 from tPic order by ID1"));
    }
    static QStringList Messages() {
        return Rows(State().gSetDB, QStringLiteral("select Id1,bWakeOk from tAd order by Id1"));
    }
};
