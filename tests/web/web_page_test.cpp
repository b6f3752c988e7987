// The page of the web ledger: its lists, buttons and bars, the panels of the main window, and what stays safe
// while a request runs.

#include "shell/book_switch.h"
#include "shell/commands.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_pgress.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/controls/kestro_status_bar.h"
#include "shell/frm_main.h"
#include "shell/menus.h"
#include "store/outside.h"
#include "tests/support/ui_fixture.h"
#include "tests/support/web_fixture.h"
#include "tests/support/web_service.h"
#include "web/frm_web_acc.h"
#include "web/network.h"

#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

class WebPageTest : public UiFixture {
 protected:
    WebPageTest() {
        qputenv("JOT_WEB_BASE", service_.Base().toLatin1());
        OpenSettingsStore();
        OpenSample();
        RegisterAll();
        Web().send = NetworkSend();
        Web().limitMs = 30000;
        auto& settings = State().settings;
        settings.sWebName = u"lin"_s;
        settings.sWebPass = u"geheim"_s;
        settings.bWebOk = 1;
        frame_ = std::make_unique<frmMain>();
        frame_->show();
        frame_->SetFormTab(kTabWeb);
        Look();
    }
    ~WebPageTest() override { qunsetenv("JOT_WEB_BASE"); }

    void Look() { page_ = dynamic_cast<frmWebAcc*>(frame_->GetWinhWnd(kTabWeb)); }
    KestroList* List(int which = 0) { return page_->Lists()[static_cast<size_t>(which)]; }
    void Press(const char* name) { QTest::mouseClick(Find<QWidget>(page_, name), Qt::LeftButton); }
    static bool WaitDone() {
        return Wait([] { return !Web().IsRunning(); });
    }
    KestroPGress* Foot() {
        return Find<KestroPGress>(Find<KestroStatusBar>(frame_.get(), "barTip"), "KestroPGress1");
    }
    QString Panel(int panel) { return Find<KestroStatusBar>(frame_.get(), "barTip")->PanelText(panel); }
    static QStringList Titles(const KestroList* list) {
        QStringList titles;
        for (int row = 0; row < list->RowCount(); ++row)
            titles << list->Cell(row, 1);
        return titles;
    }

    WebService service_;
    std::unique_ptr<frmMain> frame_;
    frmWebAcc* page_ = nullptr;
};

}  // namespace

TEST_F(WebPageTest, EntriesComeGoIntoTheBookAndStayInTheHistory) {
    EXPECT_EQ(State().gPage, kPageWeb);
    service_.entries = {SiteLine(u"voll"_s, FullFields()), SiteLine(u"ohne"_s, {{2, u"99"_s}}),
                        SiteLine(u"weg"_s)};
    boxes.Expect(u"收到【3】条新的记账!"_s);
    Press("btnCheck");
    EXPECT_TRUE(Find<KestroPGress>(page_, "KestroPGress1")->isVisible());
    EXPECT_FALSE(List()->isEnabled());
    ASSERT_TRUE(WaitDone());
    EXPECT_FALSE(Find<KestroPGress>(page_, "KestroPGress1")->isVisible());
    EXPECT_TRUE(List()->isEnabled());
    EXPECT_EQ(Titles(List()), (QStringList{u"voll"_s, u"ohne"_s, u"weg"_s}));
    EXPECT_EQ(List()->RowCells(0), (QStringList{u"1"_s, u"voll"_s, u"2016-09-03 08:15"_s, u"项目收入"_s,
                                                u"12.50"_s, u"现金"_s, u"12.50"_s, u"东华公司"_s, u"-7"_s}));
    EXPECT_EQ((QStringList{Panel(1), Panel(2), Panel(3)}),
              (QStringList{u"网账：正常"_s, u"未收网账：0 笔"_s, u"lin"_s}));

    boxes.Expect(u"无【选中】的需要删除的记录!"_s);
    Press("btnDel");
    List()->SetChecked(2, true);
    boxes.Expect(u"您确定要【删除】选定的一条或多条记录?"_s);
    boxes.Expect(u"删除成功!"_s);
    Menus::Choose(u"delete"_s, u"deletesele"_s);
    EXPECT_EQ(Titles(List()), (QStringList{u"voll"_s, u"ohne"_s}));

    boxes.Expect(u"您确定要将当前【所有记录】入账?"_s);
    boxes.Expect(u"已全部入账!"_s);
    Press("btnToBill");
    EXPECT_EQ(Titles(List()), QStringList());
    page_->ShowList(WebList::history);
    EXPECT_FALSE(Find<QWidget>(page_, "btnCheck")->isVisible());
    EXPECT_FALSE(Find<QWidget>(page_, "btnToBill")->isEnabled());
    QStringList fates;
    for (int row = 0; row < List(1)->RowCount(); ++row)
        fates << List(1)->Cell(row, 1) + List(1)->Cell(row, 9);
    EXPECT_EQ(fates, (QStringList{u"voll已入账"_s, u"ohne未入账"_s, u"weg未入账"_s}));
    // All its columns are there on a small screen with large letters.
    frame_->resize(910, 500);
    EXPECT_EQ(List(1)->horizontalScrollBar()->maximum(), 0);
    EXPECT_GE(List(1)->columnWidth(3), 118);
    // The entry list has it.
    frame_->SetFormTab(kTabAccount);
    const auto* entries = frame_->GetWinhWnd(kTabAccount)->Lists()[0];
    EXPECT_TRUE(Wait([&] {
        for (int row = 0; row < entries->RowCount(); ++row)
            if (entries->RowCells(row).contains(u"voll"_s)) return true;
        return false;
    }));
}

TEST_F(WebPageTest, ThePageKnowsTheChartsOfItsLastLoad) {
    service_.entries = {SiteLine(u"a"_s, {{2, u"17"_s}})};
    boxes.Expect(u"收到【1】"_s);
    Press("btnCheck");
    ASSERT_TRUE(WaitDone());
    frame_->SetFormTab(kTabAccount);
    State().gDB.Execute(u"insert into tKind (ID1,Name1,Sort1) values (17,'新','0103')"_s);
    Notices().chartChanged.Emit(Chart::kinds);
    frame_->SetFormTab(kTabWeb);
    boxes.AnswerAll(1);
    Press("btnToBill");
    EXPECT_EQ(Rows(State().gDB, u"select Type1 from tAccount where Title1='a'"_s), QStringList{u"0103"_s});
}

TEST_F(WebPageTest, TheUploadAsksAndSaysWhatBecameOfIt) {
    boxes.Expect(u"您确定要【上传】账本分类到网站上您的账户?"_s, 0);
    Press("btnSet");
    EXPECT_FALSE(Web().IsRunning());
    boxes.Expect(u"您确定要【上传】"_s);
    boxes.Expect(u"已成功【上传】事情分类到网站上您的账户【lin】!"_s);
    Press("btnSet");
    ASSERT_TRUE(WaitDone());
    EXPECT_EQ(service_.uploads.size(), 1U);
}

TEST_F(WebPageTest, TheTimerChecksWithoutThePageAndThePanelsTell) {
    service_.entries = {SiteLine(u"a"_s), SiteLine(u"b"_s)};
    EXPECT_EQ((QStringList{Panel(1), Panel(2), Panel(3)}),
              (QStringList{u"网账：未连接"_s, u"未收网账： 笔"_s, QString()}));
    frame_->SetFormTab(kTabAccount);
    const int due = frame_->LogoNumber();
    frame_->Timer1_Timer();
    EXPECT_TRUE(frame_->Body()->isEnabled());
    ASSERT_TRUE(WaitDone());
    EXPECT_EQ((QStringList{Panel(1), Panel(2), Panel(3)}),
              (QStringList{u"网账：正常"_s, u"未收网账：2 笔"_s, u"lin"_s}));
    EXPECT_EQ(frame_->LogoNumber(), due + 1);
    service_.users.clear();
    Commands().webCheck();
    ASSERT_TRUE(WaitDone());
    EXPECT_EQ(Panel(1), u"网账：用户无效"_s);
    service_.moods = {{u"getListCount.asp"_s, Mood::notFound}};
    boxes.Expect(u"无法访问：您是否已联网？"_s);
    Commands().webCheck();
    ASSERT_TRUE(WaitDone());
    EXPECT_EQ(Panel(1), u"网账：无法访问"_s);
    QString opened;
    Outside().open = [&](const QString& what) { return opened = what, true; };
    QTest::mouseClick(frame_->HeaderWidget(u"web"_s), Qt::LeftButton);
    EXPECT_EQ(opened, service_.Base() + u"/jotAcc/index.asp"_s);
}

TEST_F(WebPageTest, ARequestLocksAllButTheCloseButtonAndABookSwitchIsSafe) {
    QFile second(Path(u"second.jotdb"_s));
    ASSERT_TRUE(QFile::copy(State().gDB.Path(), second.fileName()));
    service_.entries = {SiteLine(u"a"_s)};
    service_.moods = {{u"getListData.asp"_s, Mood::late}};
    Press("btnCheck");
    EXPECT_TRUE(frame_->IsLocked());
    QTest::keySequence(frame_.get(), QKeySequence(u"Ctrl+1"_s));
    EXPECT_EQ(frame_->CurrentTab(), kTabWeb);
    // Another program hands a book over: the page goes, the conversation goes on.
    State().gBooks.push_back({second.fileName().toLower(), u"second"_s, 2016, u"10.0"_s});
    ASSERT_TRUE(ReloadPages(1));
    EXPECT_EQ(frame_->GetWinhWnd(kTabWeb), nullptr);
    EXPECT_TRUE(Foot()->isVisible());
    EXPECT_FALSE(frame_->GetWinhWnd(kTabAccount)->isEnabled());
    frame_->SetFormTab(kTabWeb);
    EXPECT_FALSE(Foot()->isVisible());
    Look();
    EXPECT_TRUE(Find<KestroPGress>(page_, "KestroPGress1")->isVisible());
    boxes.Expect(u"网账需要的账本是：book，而您当前的账本是：second"_s);
    ASSERT_TRUE(WaitDone());
    EXPECT_FALSE(frame_->IsLocked());
    EXPECT_FALSE(Find<KestroPGress>(page_, "KestroPGress1")->isVisible());

    bool closed = false;
    frame_->onUnloaded = [&] { closed = true; };
    service_.moods = {{u"getListData.asp"_s, Mood::never}};
    Press("btnCheck");
    ASSERT_TRUE(Wait([&] { return service_.seen.size() == 2; }));
    frame_->onClose();
    EXPECT_TRUE(closed);
    EXPECT_FALSE(frame_->isVisible());
}

TEST_F(WebPageTest, AClickOnTheBarOrEscapeEndsWhatTheUserWaitsFor) {
    service_.entries = {SiteLine(u"a"_s)};
    service_.moods = {{u"getListData.asp"_s, Mood::never}, {u"getRegInfo.asp"_s, Mood::never}};
    const auto stopped = [&](int asked, const QString& told, const std::function<void()>& stop) {
        ASSERT_TRUE(Wait([&] { return service_.seen.size() == asked; }));
        ASSERT_TRUE(frame_->IsLocked());
        boxes.Expect(told);
        stop();
        EXPECT_FALSE(Web().IsRunning());
        EXPECT_FALSE(frame_->IsLocked());
        EXPECT_EQ(Panel(1), u"网账：未连接"_s);
    };
    auto* bar = Find<KestroPGress>(page_, "KestroPGress1");
    Press("btnCheck");
    stopped(1, u"收取已停止!"_s, [&] { QTest::mouseClick(bar, Qt::LeftButton); });
    EXPECT_FALSE(bar->isVisible());
    Press("btnCheck");
    stopped(2, u"收取已停止!"_s, [&] { QTest::keyClick(frame_.get(), Qt::Key_Escape); });

    frame_->SetFormTab(kTabSetting);
    auto* foot = Foot();
    EXPECT_FALSE(foot->isVisible());
    Commands().webValidate(u"lin"_s, u"geheim"_s);
    EXPECT_TRUE(foot->isVisible());
    EXPECT_FALSE(frame_->GetWinhWnd(kTabSetting)->isEnabled());
    stopped(3, u"验证已停止!"_s, [&] { QTest::mouseClick(foot, Qt::LeftButton); });
    EXPECT_FALSE(foot->isVisible());
    EXPECT_TRUE(frame_->GetWinhWnd(kTabSetting)->isEnabled());

    frame_->SetFormTab(kTabWeb);
    service_.moods.clear();
    boxes.Expect(u"收到【1】"_s);
    Press("btnCheck");
    ASSERT_TRUE(WaitDone());
    EXPECT_EQ(Titles(List()), QStringList{u"a"_s});
}

TEST_F(WebPageTest, AnAnswerThatComesDuringAJobWaitsForItsEnd) {
    service_.entries = {SiteLine(u"a"_s)};
    Press("btnCheck");
    State().gBusy = true;
    ASSERT_TRUE(Wait([&] { return !service_.seen.isEmpty(); }));
    QTest::qWait(150);
    EXPECT_EQ(Rows(State().gDB, u"select * from tAccountWeb"_s), QStringList());
    State().gBusy = false;
    boxes.Expect(u"收到【1】"_s);
    ASSERT_TRUE(WaitDone());
    EXPECT_EQ(List()->RowCount(), 1);
}
