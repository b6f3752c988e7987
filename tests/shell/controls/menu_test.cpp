// Menus, strips, trees, bars and options, driven as a user drives them.

#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_dialog.h"
#include "shell/controls/kestro_link.h"
#include "shell/controls/kestro_menu.h"
#include "shell/controls/kestro_option.h"
#include "shell/controls/kestro_pgress.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/controls/kestro_status_bar.h"
#include "shell/controls/kestro_tool_tip.h"
#include "shell/controls/kestro_tree.h"
#include "shell/menus.h"
#include "store/state.h"

#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>
#include <vector>

using namespace Qt::StringLiterals;

class MenuTest : public testing::Test {
 protected:
    void SetUp() override {
        State() = ProgramState{};
        Menus::Reset();
        Menus::SetOnMenu([this](const QString& menu, const QString& item) { heard_ << menu + u'/' + item; });
    }
    void TearDown() override { Menus::Reset(); }

    QStringList heard_;
};

TEST_F(MenuTest, ChoicesArriveInLowerCase) {
    Menus::AddMenu(u"Export"_s);
    Menus::AddItem(u"EXPORT"_s, u"Html"_s, u"网页"_s);
    Menus::AddItem(u"export"_s, u"Txt"_s, u"文本"_s, {}, {}, [] { return false; });
    Menus::Popup(u"eXport"_s, {10, 10});
    const auto* menu = dynamic_cast<KestroMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 2);
    EXPECT_FALSE(menu->actions()[1]->isEnabled());
    menu->actions()[0]->trigger();
    Menus::Choose(u"export"_s, u"txt"_s);  // stands disabled
    EXPECT_EQ(heard_, QStringList(u"export/html"_s));
    QApplication::activePopupWidget()->close();
    Menus::Popup(u"nowhere"_s, {10, 10});
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(MenuTest, AChoiceBelowIsReportedUnderTheNameOfItsMenu) {
    Menus::AddMenu(u"main"_s);
    Menus::AddMenu(u"shortdate"_s);
    Menus::AddItem(u"shortdate"_s, u"today"_s, u"今天"_s);
    Menus::AddSubMenu(u"main"_s, u"shortdate"_s, u"快捷日期"_s);
    Menus::Popup(u"main"_s, {10, 10});
    QWidget* const menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    menu->actions()[0]->menu()->actions()[0]->trigger();
    EXPECT_EQ(heard_, QStringList(u"shortdate/today"_s));
    menu->close();
}

// The pointer went away while the menu had the mouse.
TEST_F(MenuTest, NothingStaysHoveredBehindAMenu) {
    QWidget window;
    auto* button = new KestroButton(ButtonLook::plain, u"菜单"_s, {}, &window);
    window.show();
    KestroMenu menu(&window);
    menu.AddItem(u"a"_s, u"甲"_s);
    button->setAttribute(Qt::WA_UnderMouse);
    QCursor::setPos(window.mapToGlobal(QPoint(window.width() + 50, 0)));
    menu.PopupAt(window.mapToGlobal(QPoint(0, 30)));
    menu.close();
    EXPECT_FALSE(button->underMouse());
}

TEST_F(MenuTest, MenusOfTheToolkitAreFramelessToo) {
    QMenu menu;
    menu.addAction(u"甲"_s);
    menu.ensurePolished();
    EXPECT_TRUE(menu.windowFlags().testFlag(Qt::FramelessWindowHint));
}

class StripTest : public testing::Test {
 protected:
    void SetUp() override {
        strip_.resize(196, 300);
        strip_.AddSection(u"one"_s, u"统计"_s);
        strip_.AddItem(u"one"_s, {.key = u"sum"_s, .caption = u"笔数"_s, .selectable = false});
        strip_.AddSection(u"two"_s, u"分类"_s);
        for (int i = 0; i < 20; ++i)
            strip_.AddItem(u"two"_s, {.key = QString::number(i), .caption = u"分类"_s});
        strip_.onClick = [this](const QString& s, const QString& item) { heard_ << s + u'/' + item; };
        strip_.show();
    }
    void Click(int y) { QTest::mouseClick(&strip_, Qt::LeftButton, {}, {60, y}); }

    KestroScrollMenu strip_;
    QStringList heard_;
};

TEST_F(StripTest, AClickSelectsButNotAFigure) {
    Click(54);
    EXPECT_EQ(strip_.SelectedKey(), QString());
    Click(130);
    EXPECT_EQ(strip_.SelectedSection(), u"two"_s);
    EXPECT_EQ(strip_.SelectedKey(), u"0"_s);
    EXPECT_EQ(heard_, QStringList({u"one/sum"_s, u"two/0"_s}));
    strip_.Select(u"two"_s, u"7"_s);
    strip_.Select(u"one"_s, u"sum"_s);
    EXPECT_EQ(strip_.SelectedKey(), QString());
    EXPECT_EQ(heard_.size(), 2);
}

TEST_F(StripTest, OnlyTheLastSectionScrolls) {
    strip_.Select(u"two"_s, u"19"_s);
    Click(54);
    EXPECT_EQ(heard_, QStringList(u"one/sum"_s));
    Click(280);
    EXPECT_EQ(heard_.last(), u"two/19"_s);
}

TEST_F(StripTest, SelectionOutlivesARefill) {
    strip_.Select(u"two"_s, u"3"_s);
    strip_.BeginFill();
    strip_.Clear(u"two"_s);
    strip_.AddItem(u"two"_s, {.key = u"3"_s, .caption = u"新"_s});
    strip_.EndFill();
    EXPECT_EQ(strip_.SelectedKey(), u"3"_s);
    Click(20);
    EXPECT_TRUE(strip_.IsFolded(u"one"_s));
    strip_.ClearAll();
    EXPECT_EQ(strip_.SelectedKey(), QString());
}

TEST_F(StripTest, KeysReachEveryLine) {
    strip_.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&strip_, Qt::Key_Home);
    QTest::keyClick(&strip_, Qt::Key_Left);
    EXPECT_TRUE(strip_.IsFolded(u"one"_s));
    QTest::keyClick(&strip_, Qt::Key_End);
    QTest::keyClick(&strip_, Qt::Key_Return);
    EXPECT_EQ(strip_.SelectedKey(), u"19"_s);
}

TEST_F(StripTest, PageKeysGoByWhatShows) {
    strip_.setFocus(Qt::TabFocusReason);
    const auto after = [this](Qt::Key key) {
        QTest::keyClick(&strip_, key);
        QTest::keyClick(&strip_, Qt::Key_Return);
        return strip_.SelectedKey().toInt();
    };
    QTest::keyClick(&strip_, Qt::Key_Home);
    const int first = after(Qt::Key_PageDown);
    EXPECT_GT(first, 2);
    EXPECT_LT(first, 10);
    const int page = first + 3;  // the lines above the first of them
    EXPECT_EQ(after(Qt::Key_PageDown), first + page);
    EXPECT_EQ(after(Qt::Key_PageDown), 19);
    EXPECT_EQ(after(Qt::Key_PageUp), 19 - page);
}

TEST(OptionPair, ExactlyOneIsOn) {
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    auto* pair = new KestroOptionPair;
    auto* other = new KestroOptionPair;
    column->addWidget(pair);
    column->addWidget(other);
    window.show();
    QApplication::setActiveWindow(&window);
    int told = 0;
    pair->onChange = [&told](bool) { ++told; };
    EXPECT_TRUE(pair->IsAdd());
    pair->SetAdd(false);
    EXPECT_FALSE(pair->AddOption()->IsOn());
    EXPECT_TRUE(pair->ReduceOption()->IsOn());
    EXPECT_EQ(told, 0);
    QTest::mouseClick(pair->ReduceOption(), Qt::LeftButton);
    EXPECT_FALSE(pair->IsAdd());
    QTest::mouseClick(pair->AddOption(), Qt::LeftButton);
    EXPECT_TRUE(pair->IsAdd());
    EXPECT_EQ(told, 1);
    pair->AddOption()->setFocus();
    QTest::keyClick(pair->AddOption(), Qt::Key_Right);
    EXPECT_FALSE(pair->IsAdd());
    EXPECT_FALSE(pair->AddOption()->IsOn());
    EXPECT_EQ(told, 2);
    EXPECT_TRUE(other->IsAdd());
}

// Under desktops whose theme lets Enter press every button, too: run on a display with
// XDG_CURRENT_DESKTOP=GNOME.
TEST(EnterKey, IsTheWindowsUnlessTheFocusCameToAButtonByKey) {
    KestroDialog dialog(DialogKind::common);
    auto* column = new QVBoxLayout(dialog.Body());
    auto* check = new KestroCheck(u"重要"_s);
    auto* pair = new KestroOptionPair;
    auto* button = new KestroButton(ButtonLook::plain, u"别的"_s);
    auto* link = new KestroLink(u"网页"_s);
    auto* main = new KestroButton(ButtonLook::primary, u"确定"_s);
    for (QWidget* control :
         {static_cast<QWidget*>(check), static_cast<QWidget*>(pair), static_cast<QWidget*>(button),
          static_cast<QWidget*>(link), static_cast<QWidget*>(main)})
        column->addWidget(control);
    int entered = 0, pressed = 0;
    main->onClick = [&entered] { ++entered; };
    button->onClick = link->onClick = [&pressed] { ++pressed; };
    dialog.SetDefaultButton(main);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    const auto enter = [](QWidget* control, Qt::FocusReason reason) {
        control->clearFocus();
        control->setFocus(reason);
        QTest::keyClick(control, Qt::Key_Return);
        QTest::keyClick(control, Qt::Key_Enter);
    };
    for (const auto reason : {Qt::MouseFocusReason, Qt::TabFocusReason}) {
        entered = 0;
        enter(check, reason);
        enter(pair->ReduceOption(), reason);
        EXPECT_FALSE(check->IsChecked());
        EXPECT_TRUE(pair->IsAdd());
        EXPECT_EQ(entered, 4);
    }
    enter(button, Qt::MouseFocusReason);
    enter(link, Qt::MouseFocusReason);
    EXPECT_EQ(pressed, 0);
    EXPECT_EQ(entered, 8);
    enter(button, Qt::TabFocusReason);
    enter(link, Qt::TabFocusReason);
    EXPECT_EQ(pressed, 4);
}

TEST(Tree, LevelsAndEnter) {
    KestroTree tree;
    const int root = tree.AddNode(KestroTree::kRoot, u"开始"_s, {});
    const int kind = tree.AddNode(root, u"02成本"_s, u"02"_s);
    const int leaf = tree.AddNode(kind, u"0201办公"_s, u"0201"_s);
    tree.show();
    EXPECT_EQ(tree.ChildCount(root), 1);
    EXPECT_EQ(tree.Parent(leaf), kind);
    tree.ExpandAll();
    tree.CollapseToLevel(1);
    EXPECT_TRUE(tree.topLevelItem(0)->isExpanded());
    EXPECT_FALSE(tree.topLevelItem(0)->child(0)->isExpanded());
    int entered = -1;
    tree.onEnter = [&entered](int node) { entered = node; };
    tree.SetCurrentNode(tree.FindKey(u"0201"_s));
    QTest::keyClick(&tree, Qt::Key_Return);
    EXPECT_EQ(entered, leaf);
}

TEST(Tips, ANameTooLongForItsTreeOrChooserShowsWhole) {
    const QString longName = u"0201一个长得在它的格子里写不下的名字，所以要整个显示出来，再长一些"_s;
    const auto tipAt = [](QWidget* widget, const QPoint& at) {
        KestroToolTip::Hide();
        QHelpEvent help(QEvent::ToolTip, at, widget->mapToGlobal(at));
        QApplication::sendEvent(widget, &help);
        return KestroToolTip::ShownText();
    };
    KestroTree tree;
    tree.resize(200, 200);
    tree.AddNode(KestroTree::kRoot, longName, {});
    tree.AddNode(KestroTree::kRoot, u"02成本"_s, {});
    tree.show();
    const auto row = [&](int n) { return tree.visualItemRect(tree.topLevelItem(n)).center(); };
    EXPECT_EQ(tipAt(tree.viewport(), row(0)), longName);
    EXPECT_EQ(tipAt(tree.viewport(), row(1)), QString());
    EXPECT_EQ(tipAt(tree.viewport(), {100, 190}), QString());

    KestroCombox box(ComboxMode::chooseOnly);
    box.resize(160, 30);
    box.AddItem(longName, u"a"_s);
    box.AddItem(u"02成本"_s, u"b"_s);
    box.show();
    box.SetCurrent(0);
    EXPECT_EQ(tipAt(&box, {50, 15}), longName);
    box.SetCurrent(1);
    EXPECT_EQ(tipAt(&box, {50, 15}), QString());
}

TEST(Bars, PanelsShareTheRoomAndTheBarKeepsItsRange) {
    KestroStatusBar bar;
    bar.ShowGrip(false);
    bar.AddPanel(u"搜索"_s, 230);
    bar.AddPanel(u"位置"_s, 100, true);
    bar.resize(600, 30);
    bar.show();
    EXPECT_EQ(bar.PanelRect(1).width(), 370);
    std::vector<int> clicks;
    bar.onClick = [&clicks](int panel) { clicks.push_back(panel); };
    QTest::mouseClick(&bar, Qt::LeftButton, {}, {590, 15});
    QTest::mouseClick(&bar, Qt::LeftButton, {}, {4, 15});
    const int number = bar.AddPanel({}, 30, false, u"money"_s);
    bar.SetPanelText(number, u"1,234,567.89"_s);
    EXPECT_GT(bar.PanelRect(number).width(), 80);
    EXPECT_EQ(bar.PanelRect(number).right(), bar.rect().right());
    EXPECT_EQ(clicks, (std::vector<int>{1, 0}));
    KestroPGress progress;
    progress.SetMaximum(10);
    progress.SetValue(25);
    EXPECT_EQ(progress.Value(), 10);
    progress.SetMinimum(12);
    EXPECT_EQ(progress.Value(), 12);
}
