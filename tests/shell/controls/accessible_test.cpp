// What assistive tools read: names, roles, states and presses through the toolkit's accessibility interface.

#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_form.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_option.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/controls/kestro_tree.h"
#include "shell/controls/png_button.h"

#include <QAccessible>
#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QAccessibleInterface* Read(QObject* object) {
    auto* told = QAccessible::queryAccessibleInterface(object);
    EXPECT_NE(told, nullptr);
    return told;
}

QString NameOf(QAccessibleInterface* told) {
    return told->text(QAccessible::Name);
}

void Press(QAccessibleInterface* told) {
    ASSERT_NE(told->actionInterface(), nullptr);
    told->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
}

}  // namespace

TEST(Accessible, StripLinesAreItemsThatCanBePressed) {
    KestroScrollMenu strip;
    strip.resize(196, 300);
    strip.AddSection(u"sums"_s, u"记账统计"_s);
    strip.AddItem(u"sums"_s, {.key = u"bill"_s, .caption = u"笔数"_s, .mark = u"5"_s, .selectable = false});
    strip.AddSection(u"kinds"_s, u"记账分类"_s);
    strip.AddItem(u"kinds"_s, {.key = u"0201"_s, .caption = u"办公费用"_s});
    QString pressed;
    strip.onClick = [&](const QString&, const QString& item) { pressed = item; };
    strip.show();
    auto* told = Read(&strip);
    EXPECT_EQ(told->role(), QAccessible::List);
    ASSERT_EQ(told->childCount(), 4);
    EXPECT_EQ(NameOf(told->child(0)), u"记账统计"_s);
    EXPECT_EQ(told->child(0)->role(), QAccessible::Heading);
    EXPECT_TRUE(told->child(0)->state().expanded);
    EXPECT_EQ(NameOf(told->child(1)), u"笔数 5"_s);
    auto* kind = told->child(3);
    EXPECT_EQ(kind->role(), QAccessible::ListItem);
    EXPECT_FALSE(kind->state().selected);
    Press(kind);
    EXPECT_EQ(pressed, u"0201"_s);
    EXPECT_TRUE(kind->state().selected);
    EXPECT_EQ(told->childAt(kind->rect().center().x(), kind->rect().center().y()), kind);
    Press(told->child(0));
    EXPECT_EQ(told->childCount(), 3);
}

TEST(Accessible, TabsTellWhichIsChosen) {
    KestroForm form;
    form.AddTab(u"记  账"_s);
    form.AddTab(u"账  户"_s);
    int chosen = -1;
    form.onTab = [&](int tab) { chosen = tab; };
    form.SelectTab(0);
    std::vector<QAccessibleInterface*> tabs;
    for (auto* widget : form.findChildren<QWidget*>())
        if (auto* told = Read(widget); told->role() == QAccessible::PageTab) tabs.push_back(told);
    ASSERT_EQ(tabs.size(), 2U);
    EXPECT_EQ(NameOf(tabs[1]), u"账户"_s);
    EXPECT_TRUE(tabs[0]->state().selected);
    EXPECT_FALSE(tabs[1]->state().selected);
    Press(tabs[1]);
    EXPECT_EQ(chosen, 1);
}

TEST(Accessible, ChoosersTellTheirPopUp) {
    QWidget window;
    KestroCombox box(ComboxMode::chooseOnly, &window);
    box.setAccessibleName(u"分类一"_s);
    box.AddItem(u"0201办公费用"_s, u"0201"_s);
    box.SetCurrent(0);
    window.show();
    auto* told = Read(&box);
    EXPECT_EQ(told->role(), QAccessible::ComboBox);
    EXPECT_EQ(NameOf(told), u"分类一"_s);
    EXPECT_EQ(told->text(QAccessible::Value), u"0201办公费用"_s);
    EXPECT_TRUE(told->state().hasPopup);
    EXPECT_TRUE(told->state().collapsed);
    told->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(told->state().expanded);
    box.CloseList();
}

TEST(Accessible, ListsTellCellsChecksAndHeadings) {
    KestroList list;
    list.resize(400, 200);
    list.SetCheckColumn(true);
    list.DefineColumn({u"thing"_s, u"事情"_s, 100, 40, u"string"_s});
    list.DefineColumn({u"mark"_s, u"标记"_s, 60, 40, u"icons"_s});
    list.AddRow({u"买笔"_s, u"101"_s});
    list.SetChecked(0, true);
    list.show();
    auto* told = Read(&list);
    EXPECT_EQ(told->role(), QAccessible::Table);
    EXPECT_FALSE(NameOf(told).isEmpty());
    auto* table = told->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(NameOf(table->cellAt(0, 0)), u"勾选第 1 行"_s);
    EXPECT_TRUE(table->cellAt(0, 0)->state().checkable);
    EXPECT_TRUE(table->cellAt(0, 0)->state().checked);
    EXPECT_EQ(NameOf(table->cellAt(0, 1)), u"买笔"_s);
    EXPECT_EQ(NameOf(table->cellAt(0, 2)), u"重要，记入账户"_s);
    EXPECT_EQ(table->columnDescription(1), u"事情"_s);
}

TEST(Accessible, OptionsAndTreesAndPicturesHaveNames) {
    KestroOptionPair pair;
    pair.SetGroupName(u"分类一导致"_s);
    EXPECT_EQ(NameOf(Read(pair.AddOption())), u"分类一导致增加"_s);
    EXPECT_EQ(Read(pair.AddOption())->role(), QAccessible::RadioButton);
    const KestroTree tree;
    EXPECT_FALSE(NameOf(Read(const_cast<KestroTree*>(&tree))).isEmpty());
    PngButton picture(u"plus"_s, u"后一天"_s);
    EXPECT_EQ(NameOf(Read(&picture)), u"后一天"_s);
}
