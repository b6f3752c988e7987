#include "tools/tour/see_notes.h"

#include "shell/commands.h"
#include "shell/page.h"
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
        [&tour](QWidget* w) {
            TypeText(Control(w, "txtTitle"), u"交第四季度房租，合同在书架第二层的蓝色文件夹里"_s);
            TypeText(Control(w, "editNote"), u"房东电话记在通讯录。"_s);
            tour.Picture(w, u"23-note-editor"_s);
            Click(Control(w, "btnEnter"));
        });
    tour.Add(
        u"the note is saved"_s, [] { return MessageWith(u"确定"_s); },
        [](QWidget* w) { Key(w, Qt::Key_Return); });
    tour.Add(u"notes with a reminder"_s, NotesInFront, [&tour](QWidget* page) {
        tour.Picture(page->window(), u"24-notes"_s);
        Commands().openReminders();
    });
    tour.Add(
        u"reminder window"_s, [] { return WindowWith("btnWake"); },
        [&tour](QWidget* w) {
            tour.Picture(w, u"25-reminders"_s);
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
            tour.Picture(w, u"26-pictures"_s);
            Key(Control(w, "Picture1"), Qt::Key_Space);
            tour.Picture(w, u"27-pictures-big"_s);
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
