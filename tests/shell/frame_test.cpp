// The frame: tabs, menu routing, timer, messages of other processes, changing the book, leaving.

#include "shell/book_switch.h"
#include "shell/commands.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_menu.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/controls/kestro_status_bar.h"
#include "shell/frm_main.h"
#include "shell/menus.h"
#include "store/book_images.h"
#include "store/dates.h"
#include "store/dialogs.h"
#include "store/job.h"
#include "store/outside.h"
#include "tests/support/ui_fixture.h"

#include <QAccessible>
#include <QDialog>
#include <QEnterEvent>
#include <QFile>
#include <QGuiApplication>
#include <QHoverEvent>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QUrl>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

class Frame : public SampleStage {
 protected:
    Frame() {
        RegisterDialog(kDlgInput, [this](QPoint) {
            InputDialog input;
            asked_ << input.prompt;
            input.done = confirm_ ? 1 : 0;
            input.text = password_;
        });
        frame_ = std::make_unique<frmMain>();
        frame_->onUnloaded = [this] { ++unloaded_; };
        frame_->show();
        EXPECT_TRUE(Wait([this] { return List()->RowCount() == 3; }));
    }
    KestroList* List() { return Find<KestroList>(frame_.get(), "KestroList1"); }
    QString SecondBook(const QString& change = {}) {
        const QString path = PutFile(u"Zweites.jotdb"_s, EmptyBookImage());
        cConnection book;
        book.Open(path);
        if (!change.isEmpty()) book.Execute(change);
        return path;
    }

    std::unique_ptr<frmMain> frame_;
    QStringList asked_;
    QString password_;
    bool confirm_ = true;
    int unloaded_ = 0;
};

class FakePage : public Page {
 public:
    FakePage(QWidget* parent, QStringList& log) : Page(parent), log_(log) {}
    bool Can(Act act) const override { return act != Act::edit; }
    void Do(Act act) override { log_ << QString::number(static_cast<int>(act)); }
    void SetPeriod(const Period& period) override {
        log_ << (period.first ? DateText(*period.first) : QString()) + u'~' +
                    (period.second ? DateText(*period.second) : QString());
    }

 private:
    QStringList& log_;
};

}  // namespace

TEST_F(Frame, StandsOnTheEntryPageWithItsBookAndTime) {
    EXPECT_EQ(State().gPage, kPageAccount);
    EXPECT_EQ(frame_->SelectedTab(), 0);
    frame_->SetFormTab(kTabs);  // no page there
    EXPECT_EQ(frame_->CurrentTab(), 0);
    EXPECT_EQ(Rows(State().gSetDB, u"select sLogDateTime from tSetting"_s),
              QStringList{u"2016-09-03 14:16:20"_s});
    frame_->resize(1300, 850);
    EXPECT_EQ(frame_->GetWinhWnd(0)->size(), frame_->Body()->size());
    EXPECT_GT(frame_->Body()->width(), 1200);
    frame_->resize(300, 200);
    EXPECT_GE(frame_->NamedSize().width(), 666);
    EXPECT_GE(frame_->NamedSize().height(), 533);
    State().gDB.Execute(u"update tNotebook set bWake=1, WakeDate='2016-09-03', bWakeOk=0"_s);
    State().gSetDB.Execute(u"insert into tAd (Id1,bWakeOk) values (1,0),(2,1)"_s);
    frame_->MyTrak_ReceMsg({}, 3, 0);
    EXPECT_EQ(frame_->LogoNumber(), 2);
}

TEST_F(Frame, MenusReachTheirActions) {
    QStringList log;
    for (const int tab : {3, 4})
        RegisterPage(tab, [&log](QWidget* parent) { return new FakePage(parent, log); });
    frame_->SetFormTab(3);
    EXPECT_EQ(State().gPage, kPageStats);
    Menus::Choose(u"shortdate"_s, u"Yestoday"_s);
    Menus::Choose(u"Export"_s, u"TXT"_s);
    Menus::Choose(u"print"_s, u"printview"_s);
    Menus::Choose(u"edit"_s, u"edit"_s);  // stands disabled here
    frame_->SetFormTab(4);
    Menus::Choose(u"delete"_s, u"deletesele"_s);
    Menus::Choose(u"shortdate"_s, u"premonth"_s);
    const auto done = [](Act act) { return QString::number(static_cast<int>(act)); };
    EXPECT_EQ(log, (QStringList{u"2016-09-02~2016-09-02"_s, done(Act::runPeriod), done(Act::exportText),
                                done(Act::preview), done(Act::deleteChecked), u"2016-08-01~2016-08-31"_s,
                                done(Act::runPeriod)}));
    int about = 0;
    Commands().about = [&about] { ++about; };
    Menus::Choose(u"file"_s, u"About"_s);
    EXPECT_EQ(about, 1);
    QString opened;
    Outside().open = [&opened](const QString& what) { return opened = what, true; };
    Menus::Choose(u"about"_s, u"help"_s);
    EXPECT_TRUE(opened.startsWith(u"https://"_s));
}

TEST_F(Frame, TheWebCheckRunsAtTheFirstTickAndThenEvery120th) {
    int checks = 0;
    Commands().webCheck = [&checks] { ++checks; };
    for (int tick = 1; tick <= 240; ++tick) {
        frame_->Timer1_Timer();
        EXPECT_EQ(checks, tick < 121 ? 1 : 2) << tick;
    }
}

TEST_F(Frame, OpensAnotherBookAfterItsPassword) {
    const QString path = SecondBook(u"update tSet set Note1='geheim' where Key1='pass'"_s);
    password_ = u"falsch"_s;
    boxes.Expect(u"口令不正确!"_s);
    OpenDBFile(path);
    EXPECT_EQ(asked_, QStringList{u"请输入账本【->zweites】口令："_s});
    EXPECT_EQ(State().gCurBook, 0);
    confirm_ = false;
    OpenDBFile(path);
    EXPECT_EQ(State().gBooks.size(), 2U);
    EXPECT_EQ(State().gCurBook, 0);
    confirm_ = true;
    password_ = u"geheim"_s;
    OpenDBFile(path);
    EXPECT_EQ(State().gCurBook, 1);
    EXPECT_EQ(State().gDB.Path(), path);
    EXPECT_EQ(List()->RowCount(), 0);
    EXPECT_EQ(Find<KestroScrollMenu>(frame_.get(), "KestroScrollMenu1")->SelectedKey(), u"_1"_s);
    boxes.Expect(u"当前打开的正是该账本：\n【"_s + path.toLower());
    OpenDBFile(path);
}

TEST_F(Frame, AnAndInABooksNameIsPartOfIt) {
    const QString path = Path(u"Brot & Butter.jotdb"_s);
    ASSERT_TRUE(QFile::copy(SecondBook(), path));
    OpenDBFile(path);
    EXPECT_EQ(State().gCurBook, 1);
    EXPECT_EQ(frame_->HeaderWidget(u"label"_s)->accessibleName(), u"账本: ->brot & butter"_s);
    auto* strip = QAccessible::queryAccessibleInterface(Find<QWidget>(frame_.get(), "KestroScrollMenu1"));
    QStringList names;
    for (int i = 0; i < strip->childCount(); ++i)
        names << strip->child(i)->text(QAccessible::Name);
    EXPECT_EQ(names.filter(u"brot"_s), QStringList{u"->brot & butter"_s});
    KestroMenu menu;
    EXPECT_EQ(menu.AddItem(u"a"_s, CurrentBook().Name)->iconText(), u"->brot & butter"_s);
}

TEST_F(Frame, ABookThatCannotBeOpenedLeavesTheOldOneOpen) {
    const QString old = SecondBook(u"update tSet set Note1='9.0' where Key1='dbversion'"_s);
    boxes.Expect(u"程序要求账本版本是"_s);
    OpenDBFile(old);
    const QString junk = PutFile(u"junk.jotdb"_s, QByteArray(3000, '?'));
    boxes.Expect(u"打开账本文件【"_s);
    OpenDBFile(junk);
    State().gBusy = true;
    boxes.Expect(u"有进程在运行，请等待结束后再试..."_s);
    OpenDBFile(junk);
    State().gBusy = false;
    EXPECT_EQ(AskBookPass({}, true), kPassFailed);
    EXPECT_EQ(AskBookPass(u"99"_s, true), kPassFailed);
    EXPECT_EQ(AskBookPass(u"0"_s, false), kPassSameBook);
    EXPECT_EQ(AskBookPass(u"0"_s, true), kPassRight);
    EXPECT_EQ(State().gCurBook, 0);
    EXPECT_EQ(List()->RowCount(), 3);
}

TEST_F(Frame, ABookThatVanishesBehindItsPasswordLeavesTheOldOneCurrent) {
    const QString path = SecondBook();
    confirm_ = false;
    OpenDBFile(path);
    ASSERT_EQ(State().gBooks.size(), 2U);
    QFile::remove(path);
    boxes.Expect(u"意外错误，错误信息："_s);
    EXPECT_FALSE(ReloadPages(1));
    EXPECT_EQ(State().gCurBook, 0);
    EXPECT_EQ(List()->RowCount(), 3);
}

TEST_F(Frame, ASecondCopysBookIsTakenUnlessAWindowIsOpen) {
    const QString path = SecondBook();
    State().gSetDB.Execute(u"update tSetting set sOutOpenDBFile="_s + Quote(path.toLower()));
    {
        const PopupScope popup;
        boxes.Expect(u"当前有【弹出窗口】正在操作, 无法打开!"_s);
        frame_->MyTrak.RaiseReceMsg({}, 1, 0);
    }
    EXPECT_EQ(State().gCurBook, 0);
    frame_->MyTrak.RaiseReceMsg({}, 1, 0);
    EXPECT_EQ(State().gCurBook, 1);
    boxes.Expect(u"当前打开的正是该账本："_s);
    frame_->MyTrak.RaiseReceMsg({}, 1, 0);
}

TEST_F(Frame, StaysWhileAJobRunsAndRemembersItsBook) {
    State().gBusy = true;
    boxes.Expect(u"有进程在运行，不可退出!"_s);
    frame_->onClose();
    boxes.Expect(u"有别的进程在运行，不可退出!"_s);
    Menus::Choose(u"File"_s, u"exit"_s);
    EXPECT_EQ(unloaded_, 0);
    State().gBusy = false;
    QStringList told;
    Commands().tellAgent = [&told](int code) { told << QString::number(code); };
    Commands().closeAll = [&told] { told << u"close"_s; };
    Menus::Choose(u"File"_s, u"exit"_s);
    EXPECT_EQ(unloaded_, 1);
    EXPECT_EQ(told, (QStringList{u"close"_s, u"1"_s, u"3"_s}));
    EXPECT_EQ(Rows(State().gSetDB, u"select sPreOpenDBFile from tSetting"_s),
              QStringList{CurrentBook().Path});
}

TEST_F(Frame, ASettingsFileThatCannotBeWrittenIsToldOnce) {
    frame_.reset();
    State().gSetDB.Open(State().gSetDB.Path(), {.readOnly = true});
    boxes.Expect(u"意外错误"_s);
    frame_ = std::make_unique<frmMain>();
    frame_->show();
    Menus::Choose(u"File"_s, u"exit"_s);
    EXPECT_EQ(boxes.Seen().size(), 1);
}

TEST_F(Frame, PagesAreUnloadedInTheirOrder) {
    QStringList log;
    for (const int tab : {kTabWeb, kTabStats, kTabNote})
        RegisterPage(tab, [&log](QWidget* parent) { return new FakePage(parent, log); });
    QList<int> gone;
    for (int tab = kTabs - 1; tab >= 0; --tab) {
        frame_->SetFormTab(tab);
        QObject::connect(frame_->GetWinhWnd(tab), &QObject::destroyed, [&gone, tab] { gone << tab; });
    }
    Commands().closeAll = [&gone] { gone << -1; };
    Menus::Choose(u"File"_s, u"exit"_s);
    EXPECT_EQ(gone, (QList<int>{kTabAccount, kTabSubAcc, kTabStats, kTabNote, kTabSetting, kTabWeb, -1}));
}

TEST_F(Frame, EveryListIsCalledByWhatItHolds) {
    for (const int tab : {kTabSubAcc, kTabSetting})
        frame_->SetFormTab(tab);
    QStringList names;
    for (const auto* list : frame_->findChildren<KestroList*>())
        if (!names.contains(list->accessibleName())) names << list->accessibleName();
    names.sort();
    QStringList wanted{u"记账列表"_s, u"账户记录列表"_s, u"当前记录的分类和账户"_s,
                       u"分类列表"_s, u"账户列表"_s,     u"账本列表"_s};
    wanted.sort();
    EXPECT_EQ(names, wanted);
}

TEST_F(Frame, KeepsItsSizeModeAndColumnsAndFitsTheScreen) {
    const QSize screen = QGuiApplication::primaryScreen()->availableGeometry().size();
    const QSize wanted = QSize(780, 590).boundedTo(screen);
    Commands().closeAll = {};  // the stores stay open for the next frame
    const auto again = [this] {
        Menus::Choose(u"File"_s, u"exit"_s);
        frame_ = std::make_unique<frmMain>();
        frame_->show();
    };
    frame_->SetNamedSize(wanted);
    frame_->onDisplayMode(2);
    ASSERT_TRUE(Wait([this] { return List()->RowCount() == 3; }));
    auto widths = List()->UserWidths();
    widths[1] = 150;
    List()->SetUserWidths(widths);
    again();
    EXPECT_EQ(frame_->NamedSize(), wanted);
    EXPECT_EQ(frame_->DisplayMode(), 2);
    EXPECT_EQ(List()->UserWidths(), widths);
    for (const QString& kept : {u"9000,9000,800,600,0,1"_s, u"0,0,99999,99999,0,1"_s, u"x"_s}) {
        State().gSetDB.Execute(u"update tSetting2 set Value1="_s + Quote(kept) + u" where Key1='Window'"_s);
        frame_.reset();
        frame_ = std::make_unique<frmMain>();
        EXPECT_LE(frame_->NamedSize().width(), screen.width()) << qPrintable(kept);
        EXPECT_LE(frame_->NamedSize().height(), screen.height()) << qPrintable(kept);
    }
}

TEST_F(Frame, TheStripOfANarrowPageOpensOverIt) {
    frame_->SetNamedSize({700, 540});
    auto* strip = Find<KestroScrollMenu>(frame_->GetWinhWnd(kTabAccount), "KestroScrollMenu1");
    auto* list = List();
    ASSERT_TRUE(Wait([&] { return strip->IsCollapsed(); }));
    const int left = list->mapTo(frame_.get(), QPoint()).x();
    const int narrow = strip->width();
    QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
    QApplication::sendEvent(strip, &enter);
    EXPECT_FALSE(strip->IsCollapsed());
    EXPECT_GT(strip->width(), narrow);
    EXPECT_EQ(list->mapTo(frame_.get(), QPoint()).x(), left);  // the page stays where it is
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(strip, &leave);
    EXPECT_TRUE(strip->IsCollapsed());
}

// A box that opens while a job yields must be answered; keys and shortcuts before it are not heard.
TEST_F(Frame, DuringAJobOnlyTheStopIsHeardAndABoxCanBeAnswered) {
    int shortcuts = 0;
    QShortcut shortcut(QKeySequence(Qt::Key_F8), frame_.get());
    QObject::connect(&shortcut, &QShortcut::activated, frame_.get(), [&shortcuts] { ++shortcuts; });
    QApplication::setActiveWindow(frame_.get());
    QTest::keyClick(List(), Qt::Key_F8);
    ASSERT_EQ(shortcuts, 1);
    int answered = 0;
    Job job;
    QTimer::singleShot(0, frame_.get(), [&] {
        QTest::keyClick(List(), Qt::Key_F8);
        QTest::keyClick(List(), Qt::Key_Delete);
        QDialog box;
        QTimer::singleShot(0, &box, [&box] { QTest::keyClick(&box, Qt::Key_Escape); });
        box.exec();
        ++answered;
    });
    for (int i = 0; i < 20 && answered == 0; ++i)
        Outside().yield();
    EXPECT_EQ(answered, 1);
    EXPECT_EQ(shortcuts, 1);
    EXPECT_FALSE(job.Stopped());
    QTimer::singleShot(0, frame_.get(), [this] { QTest::keyClick(List(), Qt::Key_Escape); });
    for (int i = 0; i < 20 && !job.Stopped(); ++i)
        Outside().yield();
    EXPECT_TRUE(job.Stopped());
}

TEST_F(Frame, AfterTheLockTheKeyboardIsWhereItWasOrOnThePageOnShow) {
    Present(frame_.get());
    frame_->GetWinhWnd(kTabAccount)->findChild<QWidget*>(u"txtSearch"_s)->setFocus();
    const auto* before = frame_->focusWidget();
    ASSERT_NE(before, List());
    Notices().webBusy.Emit(true);
    EXPECT_FALSE(frame_->GetWinhWnd(kTabAccount)->isEnabled());
    EXPECT_NE(frame_->focusWidget(), before);
    Notices().webBusy.Emit(false);
    EXPECT_EQ(frame_->focusWidget(), before);

    Notices().webBusy.Emit(true);
    frame_->SetFormTab(kTabSubAcc);
    const auto* records = frame_->GetWinhWnd(kTabSubAcc);
    EXPECT_FALSE(records->isEnabled());
    Notices().webBusy.Emit(false);
    EXPECT_TRUE(records->isEnabled());
    EXPECT_EQ(frame_->focusWidget(), records->Lists()[0]);
}

TEST_F(Frame, TheLockLetsNoDropAndNoPanelBegin) {
    QMimeData book;
    book.setUrls({QUrl::fromLocalFile(SecondBook())});
    QStringList opened;
    Outside().open = [&opened](const QString& what) { return opened << what, true; };
    auto* bar = Find<KestroStatusBar>(frame_.get(), "barTip");
    const auto begin = [&] {
        frame_->MyTrak.DropFiles(book);
        for (int panel = 1; panel < 5; ++panel)
            bar->onClick(panel);
    };
    int home = 0;
    Commands().webHome = [&home] { ++home; };
    Notices().webBusy.Emit(true);
    begin();
    EXPECT_EQ(std::tuple(State().gBooks.size(), opened.size(), home), std::tuple(1, 0, 0));
    Notices().webBusy.Emit(false);
    begin();
    EXPECT_EQ(std::tuple(State().gBooks.size(), opened.size(), home), std::tuple(2, 1, 1));
}

TEST_F(Frame, AClickOnTheBarStopsTheJobAndTheNextOneTheRequest) {
    int stops = 0;
    Commands().webStop = [&stops] { ++stops; };
    Notices().webBusy.Emit(true);
    auto* bar = Find<QWidget>(Find<QWidget>(frame_.get(), "barTip"), "KestroPGress1");
    {
        const Job job;
        QTest::mouseClick(bar, Qt::LeftButton);
        EXPECT_TRUE(job.Stopped());
        EXPECT_EQ(stops, 0);
    }
    QTest::mouseClick(bar, Qt::LeftButton);
    EXPECT_EQ(stops, 1);
    Notices().webBusy.Emit(false);
}

TEST_F(Frame, TipsStayAfterLayoutAndPointer) {
    EXPECT_TRUE(Find<QWidget>(frame_.get(), "btnNew")->toolTip() == u"新增记账");
    auto* search = frame_->GetWinhWnd(0)->findChild<QWidget*>(u"txtSearch"_s);
    QTest::mouseMove(search, {10, 10});
    QTest::mouseMove(search, {search->width() - 5, 10});
    QTest::mouseMove(search, {12, 10});
    EXPECT_TRUE(search->toolTip().startsWith(u"1.关键词限于【事情标题】"_s));
    EXPECT_TRUE(frame_->HeaderWidget(u"label"_s)->toolTip().contains(u"单击【查看、修改、备份】账本"_s));
}

// The pointer has to rest for the hover time; moving on begins it anew, leaving ends it.
TEST(Tracker, HoverComesAfterARest) {
    QWidget window;
    clsTrackInfo tracker;
    tracker.hwnd = &window;
    tracker.hoverTime = 30;
    int hovers = 0;
    tracker.MouseHover = [&hovers] { ++hovers; };
    TrackAdd(tracker);
    const auto send = [&window](QEvent::Type type) {
        QHoverEvent event(type, QPointF(3, 3), QPointF(3, 3), QPointF());
        QApplication::sendEvent(&window, &event);
    };
    send(QEvent::HoverEnter);
    EXPECT_EQ(hovers, 0);
    QTest::qWait(60);
    EXPECT_EQ(hovers, 1);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&window, &leave);
    send(QEvent::HoverEnter);
    QApplication::sendEvent(&window, &leave);
    QTest::qWait(60);
    EXPECT_EQ(hovers, 1);
    TrackRemove(tracker);
}

TEST(Tracker, TurnsEventsOfItsWindowIntoItsOwn) {
    QWidget window;
    QWidget other;
    clsTrackInfo tracker;
    clsTrackInfo second;
    tracker.hwnd = &window;
    second.hwnd = &other;
    QStringList log;
    tracker.DragDropFiles = [&log](const QString& names, int count) {
        log << names + u'#' + QString::number(count);
    };
    tracker.MouseHover = [&log] { log << u"hover"_s; };
    tracker.MouseLeave = [&log] { log << u"leave"_s; };
    tracker.MouseWheel = [&log](int direction) { log << QString::number(direction); };
    TrackAdd(tracker);
    TrackAdd(second);
    EXPECT_EQ(TrackOf(&window), &tracker);
    QMimeData files;
    files.setUrls(
        {QUrl::fromLocalFile(u"/a.jotdb"_s), QUrl::fromLocalFile(u"/b"_s), QUrl::fromLocalFile(u"/c d"_s)});
    tracker.DropFiles(files);
    tracker.RaiseMouseHover();
    tracker.RaiseMouseHover();
    tracker.RaiseMouseLeave();
    tracker.RaiseMouseHover();
    tracker.RaiseMouseLeave();
    QWheelEvent up({}, {}, {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QWheelEvent down({}, {}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&window, &up);
    QApplication::sendEvent(&window, &down);
    QApplication::sendEvent(&other, &up);
    // Smooth wheels send small steps, which add up to notches.
    QWheelEvent step({}, {}, {}, {0, 40}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    for (int i = 0; i < 4; ++i)
        QApplication::sendEvent(&window, &step);
    EXPECT_EQ(log, (QStringList{u"/a.jotdb\n/b\n/c d#3"_s, u"hover"_s, u"hover"_s, u"leave"_s, u"-1"_s,
                                u"1"_s, u"-1"_s}));
    TrackRemove(tracker);
    TrackRemove(tracker);
    EXPECT_EQ(TrackCount(), 1);
    TrackRemove(second);
    EXPECT_EQ(TrackCount(), 0);
}
