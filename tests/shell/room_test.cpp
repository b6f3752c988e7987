// Every window at system fonts of several sizes and with long names: what stands in it has the room that it
// needs, and nothing is cut by its parent. Run once more at another device ratio.

#include "app/frm_login.h"
#include "books/frm_book_new.h"
#include "books/frm_export.h"
#include "chart/frm_tree.h"
#include "ledger/frm_account_new.h"
#include "ledger/frm_account_template.h"
#include "notes/frm_note_new.h"
#include "notes/frm_wake.h"
#include "output/frm_print.h"
#include "pictures/frm_import.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/controls/kestro_tiles.h"
#include "shell/controls/png_button.h"
#include "shell/frm_main.h"
#include "shell/input_dialog.h"
#include "shell/message_box.h"
#include "shell/skin.h"
#include "stats/frm_tj.h"
#include "store/messages.h"
#include "tests/support/ui_fixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QScreen>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString kLongName = u"很长的名字，谁也不会这样写，可是总有人写"_s.repeated(3);

bool HasFixedText(const QWidget* widget) {
    const auto* button = dynamic_cast<const KestroButton*>(widget);
    if (button) return !button->IsCompact();
    if (dynamic_cast<const PngButton*>(widget)) return false;  // a picture alone
    return dynamic_cast<const QLabel*>(widget) || dynamic_cast<const QAbstractButton*>(widget) ||
           dynamic_cast<const QLineEdit*>(widget);
}

// A box scrolls its text, so its hint is a wish in width and a need in height.
QSize NeedOf(const QWidget* widget) {
    const auto* label = dynamic_cast<const QLabel*>(widget);
    if (label && label->wordWrap()) return {0, label->heightForWidth(label->width())};
    if (dynamic_cast<const QLineEdit*>(widget))
        return {widget->minimumSizeHint().width(), widget->sizeHint().height()};
    return widget->sizeHint();
}

class Room : public UiFixture {
 protected:
    Room() {
        OpenSample();
        RegisterAll();
        State().gDB.Execute(u"update tKind set Name1='"_s + kLongName + u"' where Sort1 like '02%'"_s);
    }
    ~Room() override { Skin::SetSystemFont(10); }

    static void Check(QWidget& window, const char* name, int points) {
        QCoreApplication::sendPostedEvents();
        const auto told = [&](const QWidget* w) {
            return testing::Message() << name << " at " << points << " pt: " << qPrintable(w->objectName())
                                      << " \"" << qPrintable(w->accessibleName()) << '"';
        };
        int seen = 0;
        for (const auto* widget : window.findChildren<QWidget*>()) {
            if (!widget->isVisible() || widget->isWindow() || !HasFixedText(widget)) continue;
            ++seen;
            const QSize need = NeedOf(widget);
            EXPECT_LE(need.width(), widget->width()) << told(widget);
            EXPECT_LE(need.height(), widget->height()) << told(widget);
            EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry())) << told(widget);
        }
        EXPECT_GT(seen, 1) << name;
        const auto* dialog = dynamic_cast<KestroDialog*>(&window);
        const QSize size = dialog ? dialog->NamedSize() : window.size();
        EXPECT_EQ(size, size.boundedTo(window.screen()->availableGeometry().size())) << name;
    }

    static void AtEachFont(const std::function<void(int points)>& body) {
        for (const int points : {9, 12, 15}) {
            Skin::SetSystemFont(points);
            body(points);
        }
    }
};

}  // namespace

TEST_F(Room, EntryWindow) {
    AtEachFont([](int points) {
        ResetDlg(kDlgEntry);
        EntryDialog().isNew = 1;
        frmAccountNew window;
        window.show();
        for (const char* on : {"", "chkOther", "pngArrow", "chkOther1"}) {
            if (*on) Find<QAbstractButton>(&window, on)->click();
            Check(window, "entry window", points);
        }
        const QSize area = window.screen()->availableGeometry().size();
        EXPECT_GE(window.NamedSize().width(), std::min(770, area.width()));
        EXPECT_GE(window.NamedSize().height(), std::min(554, area.height()));
    });
}

TEST_F(Room, LoginWithItsStrip) {
    OpenSettingsStore();
    AtEachFont([](int points) {
        State().gBooks.front().Name = kLongName;
        frmLogin login;
        login.show();
        Check(login, "login", points);
        login.ToggleStrip();
        Check(login, "login with its strip", points);
        EXPECT_GE(login.NamedSize().height(), 278 + 130);
    });
}

TEST_F(Room, PagesOfTheFrame) {
    OpenSettingsStore();
    AtEachFont([](int points) {
        frmMain frame;
        frame.show();
        for (const QSize size : {QSize(1100, 700), QSize(666, 533)}) {
            frame.SetNamedSize(size.boundedTo(frame.screen()->availableGeometry().size()));
            for (const Tab tab : {kTabAccount, kTabSubAcc, kTabWeb, kTabNote, kTabSetting}) {
                frame.SetFormTab(tab);
                Check(*frame.GetWinhWnd(tab), "page", points);
            }
        }
        Find<KestroScrollMenu>(frame.GetWinhWnd(kTabSubAcc), "KestroScrollMenu1")
            ->onClick(u"title1"_s, u"tongji"_s);
        frame.SetFormTab(kTabSubAcc);
        Check(*frame.GetWinhWnd(kTabSubAcc), "accounts", points);
        frame.SetFormTab(kTabSetting);
        for (const auto& part : {u"common"_s, u"book"_s}) {
            frame.GetWinhWnd(kTabSetting)->OpenSub(part);
            Check(*Find<QWidget>(frame.GetWinhWnd(kTabSetting), part == u"book" ? "books" : "common"),
                  qPrintable(part), points);
        }
        frame.SetFormTab(kTabStats);
        auto* stats = dynamic_cast<frmTJ*>(frame.GetWinhWnd(kTabStats));
        for (const auto& mode : ReportModes()) {
            stats->ShowMode(mode.key);
            stats->SetPeriod({QDate(2016, 1, 1), QDate(2016, 12, 31)});
            Check(*stats, "statistics", points);
        }
    });
}

TEST_F(Room, NoteEditor) {
    AtEachFont([](int points) {
        ResetDlg(kDlgNote);
        NoteDialog().isNew = 1;
        frmNoteNew window;
        window.show();
        Check(window, "note editor", points);
        frmWake reminders;
        reminders.show();
        Check(reminders, "reminders", points);
    });
}

TEST_F(Room, BookWindows) {
    OpenSettingsStore();
    State().gBooks.front().Name = kLongName;
    AtEachFont([](int points) {
        for (const int isNew : {1, 0}) {
            ResetDlg(kDlgBook);
            BookDialog().isNew = isNew;
            BookDialog().path = isNew ? QString() : State().gDB.Path();
            frmBookNew window;
            window.show();
            Check(window, "book window", points);
            if (isNew) Find<QAbstractButton>(&window, "chkOther")->click();
            Check(window, "book window with more options", points);
        }
        ResetDlg(kDlgBackup);
        frmExport backup;
        backup.show();
        Check(backup, "place of the backup", points);
        Find<KestroListView>(&backup, "KestroListView1")->SetCurrent(0);
        Find<QAbstractButton>(&backup, "btnNext")->click();
        Check(backup, "books of the backup", points);
    });
}

TEST_F(Room, TreeAndTemplates) {
    AtEachFont([](int points) {
        ResetDlg(kDlgTree);
        TreeDialog().key = u"tKind"_s;
        frmTree tree;
        tree.show();
        Check(tree, "tree", points);
        frmAccountTemplate templates;
        templates.show();
        Find<QAbstractButton>(&templates, "pngArrow")->click();
        Check(templates, "templates", points);
    });
}

TEST_F(Room, PrintPreview) {
    const PrintDocument document;
    AtEachFont([&](int points) {
        Job job;
        frmPrint preview(document, job);
        preview.show();
        preview.DoMenu(u"percent"_s, u"200%"_s);
        Check(preview, "print preview", points);
        EXPECT_FALSE(Find<QWidget>(&preview, "ScrollH")->isHidden());
    });
}

TEST_F(Room, Pictures) {
    AtEachFont([](int points) {
        ResetDlg(kDlgPictures);
        PictureDialog owner;
        owner.table = u"tAccount"_s;
        owner.id = 7;
        State().gBooks.front().Name = kLongName;
        frmImport window;
        window.show();
        Check(window, "pictures", points);
    });
}

TEST_F(Room, InputBoxAndMessages) {
    AtEachFont([](int points) {
        for (const int mode : {0, 7}) {
            DialogRecord record;
            record.Text1 = u"分类编号名称(编号+空格，如：0102 生产成本)"_s + kLongName;
            record.Num2 = mode;
            record.Flag1 = mode;
            frmInput box(record);
            box.show();
            Check(box, "input box", points);
        }
        InstallMessageBox();
        for (const QString& buttons :
             {u"确定"_s, u"不正确,正确"_s, u"其他的按钮,另外一个,取消操作,确定操作"_s}) {
            OnNextModal([points](QWidget* window) { Check(*window, "message box", points); });
            ShowMsg(kLongName, buttons);
        }
    });
}

// A prompt longer than the screen scrolls with its box, and the buttons stay in reach.
TEST_F(Room, WhatIsLongerThanTheScreenScrolls) {
    DialogRecord record;
    record.Text1 = kLongName.repeated(60);
    frmInput box(record);
    box.show();
    QApplication::setActiveWindow(&box);
    QCoreApplication::sendPostedEvents();
    EXPECT_LE(box.NamedSize().height(), box.screen()->availableGeometry().height());
    EXPECT_GE(box.y() + box.BodyRect().y(), box.screen()->availableGeometry().y());
    const auto inside = [&](const char* name) {
        const auto* control = Find<QWidget>(&box, name);
        return box.rect().contains(QRect(control->mapTo(&box, QPoint()), control->size())) &&
               !control->visibleRegion().isEmpty();
    };
    EXPECT_TRUE(inside("btnEnter"));
    EXPECT_TRUE(Wait([&] { return inside("txtNote"); }));
}
