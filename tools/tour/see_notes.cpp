#include "tools/tour/see_notes.h"

#include "shell/commands.h"
#include "shell/page.h"
#include "store/state.h"
#include "tools/tour/tour.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

QWidget* NotesInFront() {
    auto* page = PageOfCode(kPageNote);
    return page && page->isVisible() && !QApplication::activeModalWidget() ? page : nullptr;
}

void WriteReminder(Tour& tour) {
    tour.Add(
        u"statistics left"_s, [] { return WindowWith("barTip"); },
        [](QWidget* w) { Click(Tab(w, u"记  事"_s)); });
    tour.Add(u"notes page"_s, NotesInFront, [&tour](QWidget* page) {
        tour.Picture(page->window(), u"22-notes-empty"_s);
        Click(Control(page, "btnNew"));
    });
    tour.Add(
        u"note editor"_s, [] { return WindowWith("editNote"); },
        [](QWidget* w) {
            TypeText(Control(w, "txtTitle"), u"交第四季度房租，合同在书架第二层的蓝色文件夹里"_s);
            TypeText(Control(w, "editNote"), u"房东电话记在通讯录。"_s);
            Click(Control(w, "btnCamera"));
        });
    tour.Add(
        u"pictures of the note"_s, [] { return WindowWith("KestroListView1"); },
        [&tour](QWidget* w) {
            Key(Control(w, "KestroList1"), Qt::Key_Home);
            Key(Control(w, "KestroList1"), Qt::Key_Return);
            tour.Picture(w, u"23-note-pictures"_s);
            Click(Control(w, "btnSave"));
        });
    tour.Add(
        u"note editor with a picture"_s, [] { return WindowWith("editNote"); },
        [&tour](QWidget* w) {
            tour.Picture(w, u"24-note-editor"_s);
            Click(Control(w, "btnEnter"));
        });
    tour.Add(
        u"the note is saved"_s, [] { return MessageWith(u"确定"_s); },
        [](QWidget* w) { Key(w, Qt::Key_Return); });
    tour.Add(u"notes with a reminder"_s, NotesInFront, [&tour](QWidget* page) {
        auto& book = State().gDB;
        if (!book.Read(u"select 1 from tPic,tNotebook where lFromId=tNotebook.ID1 and sPic='1'"
                       " and sFromTable='tNoteBook' and length(bitPic)>0"_s)
                 .Next())
            return tour.Fail(u"the note has not got its picture"_s);
        tour.Picture(page->window(), u"25-notes"_s);
        Commands().openReminders();
    });
    tour.Add(
        u"reminder window"_s, [] { return WindowWith("btnWake"); },
        [&tour](QWidget* w) {
            tour.Picture(w, u"26-reminders"_s);
            Click(Control(w, "btnClose"));
        });
}

void SeePictures(Tour& tour) {
    tour.Add(
        u"notes left"_s, [] { return WindowWith("barTip"); },
        [](QWidget* w) {
            Click(Tab(w, u"记  账"_s));
            Key(Control(PageOfCode(kPageAccount), "KestroList1"), Qt::Key_Return);
        });
    tour.Add(
        u"entry with pictures"_s, [] { return WindowWith("btnCamera"); },
        [](QWidget* w) { Click(Control(w, "btnCamera")); });
    tour.Add(
        u"pictures"_s, [] { return WindowWith("KestroListView1"); },
        [&tour](QWidget* w) {
            tour.Picture(w, u"27-pictures"_s);
            Key(Control(w, "Picture1"), Qt::Key_Space);
            tour.Picture(w, u"28-pictures-big"_s);
            Key(Control(w, "Picture1"), Qt::Key_Space);
            Click(Control(w, "btnCancel"));
        });
    tour.Add(
        u"entry again"_s, [] { return WindowWith("btnCamera"); }, [](QWidget* w) { Key(w, Qt::Key_Escape); });
}

}  // namespace

void SeeNotes(Tour& tour) {
    WriteReminder(tour);
    SeePictures(tour);
}
