// The note editor by its controls: its four jobs, what it saves, and what its keys do.

#include "notes/frm_note_new.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_option.h"
#include "shell/controls/kestro_text.h"
#include "tests/support/ui_fixture.h"

#include <QClipboard>

using namespace Qt::StringLiterals;

namespace {

class NoteWindow : public UiFixture {
 protected:
    NoteWindow() {
        OpenSettingsStore();
        OpenEmpty();
    }
    void Open(int id, const QString& mode, bool message = false) {
        ResetDlg(kDlgNote);
        NoteDialog note;
        note.isNew = id < 0 ? 1 : 0;
        note.id = id;
        note.mode = mode;
        note.isPlatform = message ? 1 : 0;
        window_ = std::make_unique<frmNoteNew>();
        Present(window_.get());
    }
    template <typename T>
    T* At(const char* name) {
        return Find<T>(window_.get(), name);
    }
    static QStringList Stored() {
        return Rows(State().gDB,
                    u"select ID1,Title1,Mark1,Note1,bWake,WakeDate,bWakeOk,sPic from tNotebook"_s);
    }

    std::unique_ptr<frmNoteNew> window_;
};

}  // namespace

TEST_F(NoteWindow, ANewReminderIsTypedAndSaved) {
    Open(-1, u"wake"_s);
    EXPECT_EQ(window_->windowTitle(), u"新提醒"_s);
    EXPECT_EQ(At<KestroLabel>("lblTip")->Text(), u"2016-09-03 14:16:20"_s);
    EXPECT_EQ(At<KestroText>("txtDate")->text(), u"2016-09-03"_s);
    EXPECT_EQ(State().gPopups, 1);
    boxes.Expect(u"【标题】不能为空!"_s);
    QTest::keyClick(At<QWidget>("txtTitle"), Qt::Key_Return);
    EXPECT_TRUE(At<KestroText>("txtTitle")->IsWrong());
    TypeInto(At<QWidget>("txtTitle"), u" 交房租"_s);
    TypeInto(At<QWidget>("editNote"), u"一"_s);
    QTest::keyClick(At<QWidget>("editNote"), Qt::Key_Return);
    TypeInto(At<QWidget>("editNote"), u"二"_s);
    At<KestroText>("txtDate")->setText(u"2016年9月5日"_s);
    At<KestroText>("txtDate")->setFocus();
    At<KestroText>("txtTitle")->setFocus();
    EXPECT_EQ(At<KestroText>("txtDate")->text(), u"2016-09-05"_s);
    QTest::keyClick(At<QWidget>("chkFlag"), Qt::Key_Space);
    boxes.Expect(u"新增成功!"_s);
    QTest::keyClick(At<QWidget>("editNote"), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(Stored(), QStringList{u"1|交房租|1|一\n二|1|2016-09-05|0|0"_s});
    EXPECT_EQ(NoteDialog().done, 1);
    EXPECT_EQ(NoteDialog().id, 1);
    window_.reset();
    EXPECT_EQ(State().gPopups, 0);
}

TEST_F(NoteWindow, AChangeOfTypeTakesTheReminderAway) {
    State().gDB.Execute(
        u"insert into tNotebook (ID1,Title1,Mark1,Date1,Time1,Note1,bWake,WakeDate,bWakeOk,sPic) values"
        u" (2,'交房租',1,'2016-09-02','08:00:00','y',1,'2016-09-03',0,'2')"_s);
    Open(2, u"wake"_s);
    EXPECT_EQ(window_->windowTitle(), u"提醒修改"_s);
    EXPECT_FALSE(At<KestroText>("txtTitle")->hasSelectedText());
    EXPECT_EQ(At<KestroButton>("btnCamera")->text(), u"图片 2"_s);
    EXPECT_FALSE(At<KestroButton>("btnCamera")->isEnabled());
    for (const char* type : {"optType0", "optType1", "optType0"}) {
        At<KestroOption>(type)->click();
        EXPECT_EQ(At<QWidget>("txtDate")->isEnabled(), type[7] == '1');
    }
    boxes.Expect(u"修改成功!"_s);
    Press(window_.get(), "btnEnter");
    EXPECT_EQ(Stored(), QStringList{u"2|交房租|1|y|0|2016-09-03|0|2"_s});
}

TEST_F(NoteWindow, AMessageIsReadAndCannotBeSaved) {
    State().gSetDB.Execute(
        u"insert into tAd (Id1,Title1,Note1,Date1,Time1,bWakeOk) values (1,'消息','内容','2016-09-01','08:00',0)"_s);
    RegisterDialog(kDlgPictures, [](QPoint) {});
    Open(1, u"web"_s, true);
    EXPECT_FALSE(At<QWidget>("btnCamera")->isEnabled());
    QTest::keyClick(At<QWidget>("editNote"), Qt::Key_X);
    EXPECT_EQ(window_->windowTitle(), u"平台信息查看"_s);
    EXPECT_EQ(At<KestroEditBox>("editNote")->Text(), u"内容"_s);
    EXPECT_FALSE(At<QWidget>("btnEnter")->isVisible());
    EXPECT_EQ(Rows(State().gSetDB, u"select bWakeOk from tAd"_s), QStringList{u"1"_s});
    // Its text can be taken out.
    for (const auto key : {Qt::Key_A, Qt::Key_C})
        QTest::keyClick(At<QWidget>("editNote"), key, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"内容"_s);
    QTest::keyClick(window_.get(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(window_->isVisible());

    boxes.Expect(u"意外错误!"_s);
    Open(9, u"note"_s);
    EXPECT_FALSE(window_->IsReady());
}
