// The login window in every branch that a book or a user can drive it into.

#include "app/channel.h"
#include "app/frm_login.h"
#include "app/quiet_close.h"
#include "app/startup.h"
#include "app/windows.h"
#include "books/book_new.h"
#include "shell/commands.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_text.h"
#include "shell/file_dialog.h"
#include "shell/page.h"
#include "store/book_box.h"
#include "store/book_images.h"
#include "store/dialogs.h"
#include "store/errors.h"
#include "store/job.h"
#include "store/outside.h"
#include "tests/support/ui_fixture.h"

#include <QAbstractButton>
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

class Login : public UiFixture {
 protected:
    Login() {
        OpenSettingsStore();
        RegisterAll();
    }
    QString PutBook(const QString& name, const QString& change = {}) {
        const QString path = PutFile(name, SampleBookImage());
        if (change.isEmpty()) return path;
        cConnection book;
        book.Open(path);
        book.Execute(change);
        return path;
    }
    void Show() {
        State().settings.sDBPath = Path(u"box"_s);
        QDir().mkpath(State().settings.sDBPath);
        ScanBookBox(State().settings.sDBPath);
        ReadBookInfo();
        ChooseBook();
        login_ = std::make_unique<frmLogin>();
        login_->onEntered = [this] { ++entered_; };
        login_->onLeft = [this] { ++left_; };
        Present(login_.get());
    }
    KestroCombox* Books() { return Find<KestroCombox>(login_.get(), "comBook"); }
    KestroText* Pass() { return Find<KestroText>(login_.get(), "txtPass"); }
    void Choose(const QString& name) {
        for (int i = 0; i < Books()->Count(); ++i)
            if (Books()->Item(i).text == name) {
                Books()->SetCurrent(i);
                Books()->onChoose(name, Books()->Item(i).key);
            }
    }

    std::unique_ptr<frmLogin> login_;
    int entered_ = 0;
    int left_ = 0;
};

}  // namespace

TEST_F(Login, EnterOnAnEmptyPasswordIsTheShortestWay) {
    const QString path = PutBook(u"box/A.jotdb"_s);
    Show();
    EXPECT_EQ(Books()->text(), u"a"_s);
    EXPECT_TRUE(Wait([this] { return login_->focusWidget() == Pass(); }));
    EXPECT_EQ(State().gPopups, 1);
    QTest::keyClick(Pass(), Qt::Key_Return);
    EXPECT_EQ(entered_, 1);
    EXPECT_EQ(State().gPopups, 0);
    EXPECT_EQ(Rows(State().gSetDB, u"select sPreOpenDBFile from tSetting"_s), QStringList{path.toLower()});
}

TEST_F(Login, ASettingsFileThatCannotBeWrittenBarsNobody) {
    PutBook(u"box/a.jotdb"_s);
    Show();
    cConnection::Seams().beforeStatement = [](const QString& sql) {
        if (sql.startsWith(u"update tSetting"_s)) FailStatement(u"磁盘已满"_s, sql);
    };
    boxes.Expect(u"意外错误，错误信息："_s);
    QTest::keyClick(Pass(), Qt::Key_Return);
    EXPECT_EQ(entered_, 1);
}

TEST_F(Login, AWrongPasswordIsToldAndTheBookStaysChosen) {
    PutBook(u"box/locked.jotdb"_s, u"update tSet set Note1='鸟''1' where Key1='pass'"_s);
    Show();
    Pass()->setText(u"鸟1"_s);
    boxes.Expect(u"口令错误!"_s);
    QTest::keyClick(Pass(), Qt::Key_Return);
    EXPECT_EQ(Pass()->text(), QString());
    EXPECT_EQ(entered_, 0);
    Pass()->setText(u"鸟'1"_s);
    QTest::keyClick(Pass(), Qt::Key_Return);
    EXPECT_EQ(entered_, 1);
}

TEST_F(Login, BooksThatCannotBeOpenedAreToldOneByOne) {
    PutBook(u"box/old.jotdb"_s, u"update tSet set Note1='10.0 ' where Key1='dbversion'"_s);
    PutBook(u"box/nopass.jotdb"_s, u"delete from tSet where Key1='pass'"_s);
    PutFile(u"box/junk.jotdb"_s, QByteArray(4096, 'x'));
    State().settings.sPreOpenDBFile = Path(u"box/old.jotdb"_s).toLower();
    Show();
    EXPECT_EQ(Books()->Count(), 3);
    boxes.Expect(
        u"程序要求账本版本是：【10.0】\n当前账本版本是：【10.0 】\n账本版本不符不能打开! 请与开发商联系!"_s);
    login_->BtnEnterClicked();
    Choose(u"nopass"_s);
    boxes.Expect(u"口令检测错误!"_s);
    login_->BtnEnterClicked();
    boxes.Expect(u"意外错误，错误信息："_s);
    RunEvent([this] { Choose(u"junk"_s); });
    boxes.Expect(u"程序要求账本版本是"_s);
    login_->BtnEnterClicked();
    EXPECT_EQ(entered_, 0);
}

TEST_F(Login, AnEmptyBoxAsksForABook) {
    boxes.Expect(u"您目前没有任何【账本】,请先点击账本右边的【新】按钮,新建账本!"_s);
    Show();
    EXPECT_TRUE(Wait([this] { return boxes.Seen().size() == 1; }));
    login_->BtnEnterClicked();
    EXPECT_EQ(entered_, 0);
}

TEST_F(Login, OpensABookElsewhereByItsFile) {
    PutBook(u"box/a.jotdb"_s);
    const QString other = PutBook(u"Other.jotdb"_s, u"update tSet set Note1='2020' where Key1='year'"_s);
    Show();
    struct Case {
        QString path, message;
    };
    for (const auto& c :
         {Case{Path(u"none.jotdb"_s), u"文件【"_s + Path(u"none.jotdb"_s).toLower() + u"】不存在！"_s},
          Case{Path(u"Set.ini"_s), u"文件【"_s + Path(u"Set.ini"_s).toLower() + u"】不是账本文件！"_s}}) {
        boxes.Expect(c.message);
        login_->OpenBookFile(c.path);
    }
    login_->OpenBookFile(Path(u"box/a.jotdb"_s));  // the open book: without a word
    FileDialogSlot() = [&other](const FileRequest& request) {
        EXPECT_EQ(request.title, u"选择墨鹊账本文件"_s);
        return other;
    };
    login_->OpenBookFile({});
    EXPECT_EQ(Books()->text(), u"->other"_s);
    EXPECT_EQ(CurrentBook().Year, 2020);
    login_->BtnEnterClicked();
    EXPECT_EQ(entered_, 1);
}

TEST_F(Login, TheBookBoxMovesButNotIntoTheSystem) {
    PutBook(u"box/a.jotdb"_s);
    Show();
    QString answer = u"/usr/share"_s;
    FileDialogSlot() = [&answer](const FileRequest& request) {
        EXPECT_TRUE(request.wantsFolder);
        return answer;
    };
    boxes.Expect(
        u"『禁止』将账本盒路径指定到【Windows系统盘】的\n    【Program Files】\n    【Windows】\n"_s);
    login_->BtnPathClicked();
    EXPECT_EQ(State().settings.sDBPath, Path(u"box"_s));
    answer = Path(u"New Box"_s);
    QDir().mkpath(answer);
    QFile::copy(Path(u"box/a.jotdb"_s), answer + u"/B.jotdb"_s);
    login_->BtnPathClicked();
    EXPECT_EQ(State().settings.sDBPath, answer.toLower());
    EXPECT_EQ(Rows(State().gSetDB, u"select sDBPath from tSetting"_s), QStringList{answer.toLower()});
    ASSERT_EQ(Books()->Count(), 1);
    Choose(u"b"_s);
    login_->BtnEnterClicked();
    EXPECT_EQ(entered_, 1);
}

TEST_F(Login, ANewBookIsTheChosenOne) {
    Show();
    boxes.Expect(u"您目前没有任何【账本】"_s);
    EXPECT_TRUE(Wait([this] { return boxes.Seen().size() == 1; }));
    RegisterDialog(kDlgBook, [](QPoint) {
        EXPECT_EQ(BookDialog().isNew, 1);
        EXPECT_EQ(State().gPage, kDlgBook);
        BookForm form;
        form.name = u"Mine"_s;
        form.year = u"2017"_s;
        BookDialog().done = CreateBook(form).done ? 1 : 0;
    });
    boxes.Expect(u"创建成功!"_s);
    Find<QAbstractButton>(login_.get(), "btnNew")->click();
    EXPECT_EQ(Books()->text(), u"mine"_s);
    EXPECT_EQ(State().gDB.Path(), Path(u"box/mine.jotdb"_s));
    QTest::keyClick(login_.get(), Qt::Key_Return);
    EXPECT_EQ(entered_, 1);
}

TEST_F(Login, ItsMenuAnswers) {
    PutBook(u"box/a.jotdb"_s);
    Show();
    int about = 0;
    Commands().about = [&about] { ++about; };
    QString opened;
    Outside().open = [&opened](const QString& what) { return opened = what, true; };
    Menus::Choose(u"login"_s, u"about"_s);
    Menus::Choose(u"login"_s, u"help"_s);
    EXPECT_EQ(about, 1);
    EXPECT_FALSE(opened.isEmpty());
}

TEST_F(Login, EscapeAndCancelEndTheProgram) {
    PutBook(u"box/a.jotdb"_s);
    Show();
    QTest::keyClick(Pass(), Qt::Key_Escape);
    EXPECT_EQ(left_, 1);
    EXPECT_FALSE(State().gDB.IsOpen());
}

TEST_F(Login, AMainWindowThatCannotBeShownGivesTheLoginBack) {
    PutBook(u"box/a.jotdb"_s);
    ScanBookBox(Path(u"box"_s));
    ReadBookInfo();
    ShowLogin();
    const auto login = [] {
        for (auto* window : QApplication::topLevelWidgets())
            if (auto* found = dynamic_cast<frmLogin*>(window); found && found->isVisible()) return found;
        return static_cast<frmLogin*>(nullptr);
    };
    auto* first = login();
    ASSERT_NE(first, nullptr);
    RegisterPage(0, [](QWidget*) -> Page* { FailStatement(u"没有账页"_s, {}); });
    boxes.Expect(u"意外错误，错误信息："_s);
    first->BtnEnterClicked();
    ASSERT_NE(login(), nullptr);
    EXPECT_NE(login(), first);
    RegisterAll();
    login()->BtnEnterClicked();
    EXPECT_EQ(login(), nullptr);
    EXPECT_TRUE(State().gDB.IsOpen());
}

TEST_F(Login, ADamagedNotebookBarsNobody) {
    PutBook(u"box/a.jotdb"_s, u"drop table tNotebook"_s);
    ScanBookBox(Path(u"box"_s));
    ReadBookInfo();
    ShowLogin();
    boxes.AnswerAll(1);
    for (auto* window : QApplication::topLevelWidgets())
        if (auto* login = dynamic_cast<frmLogin*>(window)) login->BtnEnterClicked();
    EXPECT_TRUE(boxes.Seen().front().startsWith(u"意外错误，错误信息："_s));
    EXPECT_TRUE(PageOfCode(kPageAccount));
}

TEST_F(Login, TheArrowGoesDownWithItsStrip) {
    PutBook(u"box/a.jotdb"_s);
    Show();
    auto* arrow = Find<QWidget>(login_.get(), "pngArrow");
    const auto low = [&] { return arrow->mapTo(arrow->window(), QPoint()).y(); };
    const int before = low();
    QTest::mouseClick(arrow, Qt::LeftButton);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(low(), before + 130);
    QTest::mouseClick(arrow, Qt::LeftButton);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(low(), before);
}

// Unlike in other windows, the focus does not matter to Enter here; the blank presses what has it.
TEST_F(Login, EnterIsTheLoginWhereverTheFocusStands) {
    PutBook(u"box/a.jotdb"_s);
    for (const char* control : {"btnCancel", "pngArrow", "comBook"}) {
        entered_ = 0;
        Show();
        Find<QWidget>(login_.get(), control)->setFocus(Qt::TabFocusReason);
        QTest::keyClick(login_->focusWidget(), Qt::Key_Return);
        EXPECT_EQ(entered_, 1) << control;
        EXPECT_EQ(left_, 0) << control;
    }
    Show();
    Find<QWidget>(login_.get(), "btnCancel")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(login_->focusWidget(), Qt::Key_Space);
    EXPECT_EQ(left_, 1);
}

TEST_F(Login, TheEndFromOutsideStopsAJobAndCancelsWhatIsOpen) {
    OpenSample();
    const auto entries = Rows(State().gDB, u"select count(*) from tAccount"_s);
    int ended = 0;
    auto job = std::make_unique<Job>();
    CloseQuietly([&ended] { ++ended; });
    EXPECT_TRUE(Wait([] { return State().gStop; }));
    EXPECT_EQ(ended, 0);
    job.reset();
    EXPECT_TRUE(Wait([&] { return ended == 1; }));

    ResetDlg(kDlgEntry);
    EntryDialog(State().gDlg[kDlgEntry]).isNew = 1;
    QTimer::singleShot(0, [&] { CloseQuietly([&ended] { ++ended; }); });
    OpenModal(kDlgEntry);
    EXPECT_EQ(EntryDialog(State().gDlg[kDlgEntry]).done, 0);
    EXPECT_TRUE(Wait([&] { return ended == 2; }));
    EXPECT_EQ(Rows(State().gDB, u"select count(*) from tAccount"_s), entries);
}

TEST_F(Login, AMessageMeantForAnotherRunIsNotHeard) {
    PutBook(u"box/a.jotdb"_s);
    PutBook(u"box/b.jotdb"_s);
    ScanBookBox(Path(u"box"_s));
    ReadBookInfo();
    ShowLogin();
    for (auto* window : QApplication::topLevelWidgets())
        if (auto* login = dynamic_cast<frmLogin*>(window)) login->BtnEnterClicked();
    ASSERT_TRUE(PageOfCode(kPageAccount));
    RegisterDialog(kDlgInput, [](QPoint) {
        InputDialog().done = 1;
        InputDialog().text.clear();
    });
    const int before = State().gCurBook;
    const QString other = State().gBooks.at(before == 0 ? 1 : 0).Path;
    State().gSetDB.Execute(u"update tSetting set sOutOpenDBFile="_s + Quote(other));
    MainChannel().onMessage({State().gRunHandle + 1, kCodeOpenBook, 0, {}});
    EXPECT_EQ(State().gCurBook, before);
    MainChannel().onMessage({State().gRunHandle, kCodeOpenBook, 0, {}});
    EXPECT_EQ(CurrentBook().Path, other);
}
