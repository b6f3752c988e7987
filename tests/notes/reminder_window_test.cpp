// The reminder window: what it shows, what its buttons lead to, and every road by which it goes.

#include "notes/frm_wake.h"
#include "notes/note_change.h"
#include "shell/book_switch.h"
#include "shell/commands.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_tool_tip.h"
#include "shell/controls/png_button.h"
#include "store/dialogs.h"
#include "tests/notes/note_page_fixture.h"

#include <QHelpEvent>

using namespace Qt::StringLiterals;

namespace {

class ReminderWindow : public NotePage {
 protected:
    static frmWake* Opened() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (auto* window : QApplication::topLevelWidgets())
            if (window->objectName() == u"frmWake") return dynamic_cast<frmWake*>(window);
        return nullptr;
    }
    frmWake* Open() {
        frame_->onLogo();
        return Opened();
    }
};

}  // namespace

TEST_F(ReminderWindow, TheLogoOpensItBesideTheProgram) {
    frame_->SetFormTab(kTabAccount);
    auto* window = Open();
    ASSERT_NE(window, nullptr);
    EXPECT_FALSE(window->isModal());
    EXPECT_EQ(Find<KestroLabel>(window, "lblTip")->Text(), u"您有: 提醒2条"_s);
    auto* list = Find<KestroList>(window, "KestroList1");
    EXPECT_EQ(list->RowCells(0), (QStringList{u"提醒"_s, u"交房租"_s}));
    EXPECT_EQ(list->RowCells(1), (QStringList{u"平台"_s, u"消息"_s}));
    EXPECT_EQ(Open(), window);
    EXPECT_EQ(State().gPopups, 1);
    boxes.Expect(u"请【选择】一条记录!"_s);
    ::Press(window, "btnWake");
    list->SetCurrentRow(1);
    ::Press(window, "btnWake");
    EXPECT_EQ(frame_->CurrentTab(), kTabNote);
    page_ = dynamic_cast<frmNote*>(frame_->GetWinhWnd(kTabNote));
    EXPECT_EQ(Wake()->CurrentRow(), 2);
    QString opened;
    RegisterDialog(kDlgNote, [&](QPoint) {
        const NoteDialog note;
        opened = note.mode + QString::number(note.id) + QString::number(note.isPlatform);
    });
    list->onDoubleClick(1, 0);
    EXPECT_EQ(opened, u"web21"_s);
}

TEST_F(ReminderWindow, EveryRoadOutEndsItAndTheNextOneShowsThePresentState) {
    int reset = 0;
    Commands().resetHeadIco = [&] { ++reset; };
    const std::vector<std::function<void(frmWake*)>> roads{
        [](frmWake* w) { ::Press(w, "btnClose"); },
        [](frmWake* w) { ::Press(w, "btnResetHeadIco"); },
        [](frmWake* w) { QTest::keyClick(w, Qt::Key_Escape); },
        [](frmWake* w) { QTest::mouseClick(w->findChild<PngButton*>(), Qt::LeftButton); },
        [](frmWake* w) { w->close(); },
        [](frmWake*) { Commands().closeReminders(); },
    };
    for (size_t road = 0; road < roads.size(); ++road) {
        SCOPED_TRACE(road);
        auto* window = Open();
        ASSERT_NE(window, nullptr);
        EXPECT_TRUE(window->isVisible());
        roads[road](window);
        EXPECT_EQ(Opened(), nullptr);
        EXPECT_EQ(State().gPopups, 0);
    }
    EXPECT_EQ(reset, 1);
    auto* window = Open();
    boxes.AnswerAll(1);
    EXPECT_TRUE(FinishNote(State().gDB, NoteKey{2, kTagWake}));
    EXPECT_EQ(Find<KestroList>(window, "KestroList1")->RowCount(), 2);  // it stands as it opened
    window->close();
    Commands().resetHeadIco = {};
    window = Open();
    EXPECT_EQ(Find<KestroList>(window, "KestroList1")->RowCount(), 1);
    EXPECT_FALSE(Find<QWidget>(window, "btnResetHeadIco")->isEnabled());
}

TEST_F(ReminderWindow, WhileTheWebLedgerIsWaitedForItCanOnlyBeClosed) {
    frame_->SetFormTab(kTabAccount);
    int reset = 0;
    Commands().resetHeadIco = [&] { ++reset; };
    auto* window = Open();
    auto* list = Find<KestroList>(window, "KestroList1");
    list->SetCurrentRow(0);
    int opened = 0;
    RegisterDialog(kDlgNote, [&](QPoint) { ++opened; });
    const auto begin = [&] {
        ::Press(window, "btnWake");
        const auto line = list->visualRect(list->model()->index(0, 1)).center();
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, line);
    };
    Notices().webBusy.Emit(true);
    begin();
    ::Press(window, "btnResetHeadIco");
    EXPECT_EQ(std::pair(frame_->CurrentTab(), opened), std::pair(int{kTabAccount}, 0));
    EXPECT_EQ(Opened(), window);
    Notices().webBusy.Emit(false);
    EXPECT_EQ(window->focusWidget(), list);
    begin();
    EXPECT_EQ(std::pair(frame_->CurrentTab(), opened), std::pair(int{kTabNote}, 1));
    Notices().webBusy.Emit(true);
    ::Press(window, "btnClose");
    EXPECT_EQ(Opened(), nullptr);
    EXPECT_EQ(reset, 0);
}

TEST_F(ReminderWindow, AReminderThatWasFinishedIsFoundBehindASearch) {
    auto* window = Open();
    boxes.AnswerAll(1);
    EXPECT_TRUE(FinishNote(State().gDB, NoteKey{2, kTagWake}));
    TypeInto(Find<QWidget>(page_, "txtSearch"), u"税"_s);
    QTest::keyClick(Find<QWidget>(page_, "chkWake"), Qt::Key_Space);
    EXPECT_EQ(Titles(All()), QStringList{u"报税"_s});
    Find<KestroList>(window, "KestroList1")->SetCurrentRow(0);
    ::Press(window, "btnWake");
    EXPECT_EQ(All()->RowCount(), 4);
    EXPECT_EQ(All()->Cell(All()->CurrentRow(), kNoteTitle), u"交房租"_s);
}

TEST_F(ReminderWindow, AnotherBookClosesIt) {
    const QString other = Path(u"other.jotdb"_s);
    ASSERT_TRUE(QFile::copy(State().gDB.Path(), other));
    State().gBooks.push_back({other, u"other"_s, 2016, u"10.0"_s});
    cConnection changed;
    changed.Open(other);
    changed.Execute(u"delete from tNotebook where ID1=2"_s);
    changed.Close();
    ASSERT_NE(Open(), nullptr);
    EXPECT_TRUE(ReloadPages(1));
    EXPECT_EQ(Opened(), nullptr);
    EXPECT_EQ(State().gPopups, 0);
    EXPECT_EQ(frame_->LogoNumber(), 1);
    EXPECT_EQ(Find<KestroList>(Open(), "KestroList1")->RowCells(0)[1], u"消息"_s);
}

TEST_F(ReminderWindow, APointerOnALineShowsItsNote) {
    auto* window = Open();
    auto* list = Find<KestroList>(window, "KestroList1");
    State().gDB.Execute(u"update tNotebook set Note1='"_s + QString(5000, u'长') + u"' where ID1=2"_s);
    const auto rest = [list](int row) {
        const QPoint at = list->visualRect(list->model()->index(row, 1)).center();
        QHelpEvent event(QEvent::ToolTip, at, list->viewport()->mapToGlobal(at));
        QApplication::sendEvent(list->viewport(), &event);
    };
    rest(0);
    EXPECT_TRUE(KestroToolTip::ShownText().startsWith(u"交房租(2016-09-02 08:00:00)\r\n长"_s));
    for (auto* tip : QApplication::topLevelWidgets())
        if (tip->objectName() == u"KestroToolTip")
            EXPECT_LE(tip->height(), tip->screen()->availableGeometry().height());
    rest(1);
    EXPECT_EQ(KestroToolTip::ShownText(), u"消息(2016-09-01 08:00:00)\r\n"_s);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(list->viewport(), &leave);
    EXPECT_EQ(KestroToolTip::ShownText(), QString());
}
