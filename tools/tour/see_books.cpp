#include "tools/tour/see_books.h"

#include "shell/book_switch.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_tiles.h"
#include "shell/page.h"
#include "store/state.h"
#include "tools/tour/tour.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

QWidget* SettingsInFront() {
    auto* page = PageOfCode(kPageSetting);
    return page && page->isVisible() && !QApplication::activeModalWidget() ? page : nullptr;
}

void Answer(Tour& tour, const QString& name, const char* window) {
    tour.Add(
        name, [window] { return WindowWith(window); }, [](QWidget* w) { Key(w, Qt::Key_Return); });
}

void Confirm(Tour& tour, const QString& name) {
    tour.Add(
        name, [] { return MessageWith(u"确定"_s); }, [](QWidget* w) { Key(w, Qt::Key_Return); });
}

void SeeSettings(Tour& tour) {
    tour.Add(
        u"notes left for the settings"_s, [] { return WindowWith("barTip"); },
        [](QWidget* w) { Click(Tab(w, u"设  置"_s)); });
    tour.Add(u"settings"_s, SettingsInFront, [&tour](QWidget* page) {
        page->window()->setFocus();
        dynamic_cast<Page*>(page)->OpenSub(u"common"_s);
        tour.Picture(page->window(), u"30-general-settings"_s);
        dynamic_cast<Page*>(page)->OpenSub(u"book"_s);
        dynamic_cast<KestroList*>(Control(page, "KestroList2"))->SetCurrentRow(0);
        tour.Picture(page->window(), u"31-books"_s);
        Click(Control(Control(page, "books"), "btnNew"));
    });
}

void MakeBook(Tour& tour) {
    tour.Add(
        u"new book"_s, [] { return WindowWith("txtPass1"); },
        [&tour](QWidget* w) {
            TypeText(Control(w, "txtName"), u"青禾工作室2017"_s);
            tour.Picture(w, u"32-new-book"_s);
            Click(Control(w, "chkOther"));
            auto* books = dynamic_cast<KestroCombox*>(Control(w, "comBook"));
            books->setFocus();
            Key(books, Qt::Key_Down);
        });
    Answer(tour, u"password of the reference"_s, "txtNote");
    tour.Add(
        u"what the reference offers"_s, [] { return WindowWith("txtPass1"); },
        [&tour](QWidget* w) {
            Click(Control(w, "chkTransfer"));
            Click(Control(w, "chkSubAcc"));
            auto* kinds = dynamic_cast<KestroList*>(Control(w, "KestroList1"));
            for (const int row : {2, 5, 12, 14})
                kinds->SetChecked(row, true);
            dynamic_cast<KestroList*>(Control(w, "KestroList2"))->CheckAll(true);
            tour.Picture(w, u"33-new-book-more"_s);
            Click(Control(w, "btnEnter"));
        });
    Confirm(tour, u"the book is made"_s);
}

void BackUp(Tour& tour) {
    tour.Add(u"two books"_s, SettingsInFront, [&tour](QWidget* page) {
        tour.Picture(page->window(), u"34-books-two"_s);
        Click(Control(Control(page, "books"), "btnBackUp"));
    });
    tour.Add(
        u"place of the backup"_s, [] { return WindowWith("btnFresh"); },
        [&tour](QWidget* w) {
            auto* places = dynamic_cast<KestroListView*>(Control(w, "KestroListView1"));
            places->SetCurrent(0);
            tour.Picture(w, u"35-backup-place"_s);
            Click(Control(w, "btnNext"));
            tour.Picture(w, u"36-backup-books"_s);
            Click(Control(w, "btnNext"));
        });
    tour.Add(
        u"the backup is made"_s, [] { return MessageWith(u"确定"_s); },
        [&tour](QWidget* w) {
            tour.Picture(w->parentWidget(), u"37-backup-done"_s);
            tour.Picture(w, u"38-backup-count"_s);
            Key(w, Qt::Key_Return);
        });
}

void ShowKind(const QString& key) {
    auto* kinds = dynamic_cast<KestroCombox*>(Control(PageOfCode(kPageAccount), "comKind"));
    if (kinds->SetCurrentKey(key)) kinds->onChoose(kinds->text(), key);
}

void OpenIt(Tour& tour) {
    tour.Add(u"settings again"_s, SettingsInFront, [](QWidget*) {
        const QString last = QString::number(State().gBooks.size() - 1);
        SwitchBook(last);
    });
    Answer(tour, u"password of the new book"_s, "txtNote");
    tour.Add(
        u"list of the new book"_s,
        [] {
            auto* w = WindowWith("barTip");
            return w && CurrentBook().Name.contains(u"2017"_s) ? w : nullptr;
        },
        [](QWidget*) { ShowKind(u"0101"_s); });
    tour.Add(
        u"balance that came along"_s,
        [] {
            auto* page = PageOfCode(kPageAccount);
            return dynamic_cast<KestroList*>(Control(page, "KestroList1"))->RowCount() == 1 ? page : nullptr;
        },
        [&tour](QWidget* page) {
            tour.Picture(page->window(), u"39-first-list"_s);
            ShowKind(u"all"_s);
        });
}

}  // namespace

void SeeBooks(Tour& tour) {
    SeeSettings(tour);
    MakeBook(tour);
    BackUp(tour);
    OpenIt(tour);
}
