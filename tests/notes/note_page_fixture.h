#pragma once
// The main window on its page of notes: a note, a reminder that is due, one of tomorrow, and a message.

#include "notes/frm_note.h"
#include "shell/controls/kestro_list.h"
#include "shell/frm_main.h"
#include "tests/support/ui_fixture.h"

class NotePage : public UiFixture {
 protected:
    NotePage() {
        OpenSettingsStore();
        OpenEmpty();
        RegisterAll();
        State().gDB.Execute(QStringLiteral(
            "insert into tNotebook (ID1,Title1,Mark1,Date1,Time1,Note1,bWake,WakeDate,bWakeOk,sPic) values"
            " (1,'便签',0,'2016-09-01','08:00:00','x',0,'',0,'0'),"
            " (2,'交房租',1,'2016-09-02','08:00:00','y',1,'2016-09-03',0,'0'),"
            " (3,'报税',0,'2016-09-02','09:00:00','',1,'2016-09-04',0,'0')"));
        State().gSetDB.Execute(QStringLiteral(
            "insert into tAd (Id1,Title1,Date1,Time1,bWakeOk) values (2,'消息','2016-09-01','08:00:00',0)"));
        frame_ = std::make_unique<frmMain>();
        frame_->show();
        frame_->SetFormTab(kTabNote);
        page_ = dynamic_cast<frmNote*>(frame_->GetWinhWnd(kTabNote));
    }
    KestroList* Wake() { return page_->Lists()[0]; }
    KestroList* All() { return page_->Lists()[1]; }
    static QStringList Titles(const KestroList* list) { return Column(list, kNoteTitle); }
    void Press(const char* name) { ::Press(page_, name); }

    std::unique_ptr<frmMain> frame_;
    frmNote* page_ = nullptr;
};
