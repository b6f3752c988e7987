// Lists, driven as a user drives them.

#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_list_columns.h"
#include "shell/controls/kestro_tool_tip.h"
#include "shell/skin.h"
#include "store/outside.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QTest>

#include <gtest/gtest.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

QStringList Keys(const KestroList& list) {
    QStringList keys;
    for (int row = 0; row < list.RowCount(); ++row)
        keys.append(list.RowKey(row));
    return keys;
}

/// One column of the type under a box column; keys are a, b, c… in the order of the cells.
void FillOne(KestroList& list, const QString& type, const QStringList& cells) {
    list.resize(400, 300);
    list.SetCheckColumn(true);
    list.DefineColumn({u"c"_s, u"列"_s, 100, 40, type});
    const ListFill fill(list);
    for (int i = 0; i < cells.size(); ++i)
        list.AddRow({cells[i]}, QString(QChar(u'a' + i)));
}

void FillLetters(KestroList& list, int count) {
    QStringList cells;
    for (int i = 0; i < count; ++i)
        cells.append(QString::number(i));
    FillOne(list, u"string"_s, cells);
    list.show();
}

QPoint CellCentre(const KestroList& list, int row, int viewColumn) {
    return list.visualRect(list.model()->index(row, viewColumn)).center();
}

void ClickHeading(KestroList& list, int section) {
    QHeaderView* const header = list.horizontalHeader();
    const QPoint at(header->sectionViewportPosition(section) + header->sectionSize(section) / 2, 12);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, at);
}

}  // namespace

TEST(ListSort, OrdersByTypeAndKeepsTies) {
    struct Case {
        const char* name;
        QString type;
        QStringList cells;
        QString up, down;
    };
    const Case cases[] = {
        {"money by value, not by text",
         u"money"_s,
         {u"9"_s, u"10.50"_s, u"-3"_s, u"10"_s},
         u"cadb"_s,
         u"bdac"_s},
        {"an empty amount counts as 0", u"money"_s, {u"1"_s, {}, u"-1"_s}, u"cba"_s, u"abc"_s},
        {"numbers by value", u"number"_s, {u"10"_s, u"9"_s, u"100"_s}, u"bac"_s, u"cab"_s},
        {"strings by characters", u"string"_s, {u"10"_s, u"9"_s, u"100"_s}, u"acb"_s, u"bca"_s},
        {"codes with names", u"string"_s, {u"0201办公"_s, u"02成本"_s, u"0101产品"_s}, u"cab"_s, u"bac"_s},
        {"ties keep their order", u"money"_s, {u"1"_s, u"1.0"_s, u"0"_s, u"1.00"_s}, u"cabd"_s, u"abdc"_s},
    };
    for (const Case& c : cases) {
        KestroList list;
        FillOne(list, c.type, c.cells);
        list.SortBy(0, true);
        EXPECT_EQ(Keys(list).join(QString()), c.up) << c.name;
        list.SortBy(0, true);
        EXPECT_EQ(Keys(list).join(QString()), c.up) << c.name << ", once more";
        KestroList other;
        FillOne(other, c.type, c.cells);
        other.SortBy(0, false);
        EXPECT_EQ(Keys(other).join(QString()), c.down) << c.name << ", falling";
    }
}

TEST(ListSort, HeadingClicksTurnTheOrderUntilTheNextLoad) {
    KestroList list;
    FillOne(list, u"money"_s, {u"2"_s, u"1"_s, u"3"_s});
    list.show();
    ClickHeading(list, 1);
    EXPECT_EQ(Keys(list).join(QString()), u"bac"_s);
    ClickHeading(list, 1);
    EXPECT_EQ(Keys(list).join(QString()), u"cab"_s);
    EXPECT_EQ(list.SortedColumn(), 0);
    list.Clear();
    EXPECT_EQ(list.SortedColumn(), -1);
    list.AddRow({u"2"_s}, u"x"_s);
    list.AddRow({u"1"_s}, u"y"_s);
    list.SetSortable(false);
    ClickHeading(list, 1);
    EXPECT_EQ(Keys(list).join(QString()), u"xy"_s);
}

TEST(ListRows, MarksAndCurrentRowFollowTheHandleWhenKeysRepeat) {
    KestroList list;
    FillOne(list, u"money"_s, {u"5"_s, u"4"_s, u"3"_s, u"2"_s});
    for (int row = 0; row < 4; ++row)
        list.SetRowKey(row, u"00"_s, {});
    const KestroList::Handle marked = list.HandleOf(0), current = list.HandleOf(1);
    list.SetChecked(0, true);
    list.SetCurrentRow(1);
    list.SortBy(0, true);
    EXPECT_EQ(list.CheckedRows(), std::vector<int>{3});
    EXPECT_EQ(list.HandleOf(3), marked);
    EXPECT_EQ(list.CurrentRow(), 2);
    list.RemoveRows({0});
    EXPECT_EQ(list.CheckedRows(), std::vector<int>{2});
    EXPECT_EQ(list.HandleOf(list.CurrentRow()), current);
    EXPECT_EQ(list.RowOf(marked), 2);
    list.RemoveRows({2});
    EXPECT_EQ(list.RowOf(marked), -1);
    EXPECT_TRUE(list.CheckedKeys().isEmpty());
}

TEST(ListRows, CurrentRowAfterRemoval) {
    struct Case {
        int current;
        std::vector<int> removed;
        QString key;
    };
    const Case cases[] = {
        {2, {0}, u"c"_s}, {2, {2}, u"d"_s},          {2, {2, 3}, u"e"_s},
        {4, {4}, u"d"_s}, {1, {1, 2, 3, 4}, u"a"_s}, {0, {0, 1, 2, 3, 4}, {}},
        {-1, {0}, {}},    {2, {7, -1}, u"c"_s},      {3, {1, 1, 3}, u"e"_s},
    };
    for (const Case& c : cases) {
        KestroList list;
        FillLetters(list, 5);
        list.SetCurrentRow(c.current);
        list.RemoveRows(c.removed);
        EXPECT_EQ(list.CurrentKey(), c.key) << "current " << c.current;
        EXPECT_EQ(list.model()->rowCount(), list.RowCount());
    }
}

TEST(ListRows, FillShowsRowsAtItsEndOnly) {
    KestroList list;
    FillLetters(list, 3);
    list.SetCurrentRow(1);
    {
        const ListFill fill(list);
        list.AddRow({u"x"_s}, u"d"_s);
        EXPECT_EQ(list.RowCount(), 4);
        EXPECT_EQ(list.model()->rowCount(), 3);
    }
    EXPECT_EQ(list.model()->rowCount(), 4);
    EXPECT_EQ(list.CurrentKey(), u"b"_s);
    list.Clear();
    EXPECT_EQ(list.CurrentRow(), -1);
    EXPECT_EQ(list.Cell(0, 0), QString());
    EXPECT_TRUE(list.RowCells(0).isEmpty());
}

TEST(ListKeys, MoveTheCurrentRow) {
    struct Case {
        int start;
        Qt::Key key;
        int row;
    };
    const Case cases[] = {
        {-1, Qt::Key_Down, 0},  {-1, Qt::Key_Up, 49},       {3, Qt::Key_Down, 4},  {3, Qt::Key_Up, 2},
        {0, Qt::Key_Up, 0},     {49, Qt::Key_Down, 49},     {20, Qt::Key_Home, 0}, {20, Qt::Key_End, 49},
        {2, Qt::Key_PageUp, 0}, {48, Qt::Key_PageDown, 49}, {5, Qt::Key_Right, 5},
    };
    for (const Case& c : cases) {
        KestroList list;
        FillLetters(list, 50);
        list.SetCurrentRow(c.start);
        int told = -2;
        list.onCurrent = [&told](int row) { told = row; };
        QTest::keyClick(&list, c.key);
        EXPECT_EQ(list.CurrentRow(), c.row) << c.start << " key " << c.key;
        EXPECT_EQ(told, c.start == c.row ? -2 : c.row) << c.start << " key " << c.key;
        EXPECT_TRUE(list.viewport()->rect().intersects(list.visualRect(list.currentIndex())));
    }
}

TEST(ListKeys, BlankTicksEnterOpensDeleteIsReported) {
    KestroList list;
    FillLetters(list, 3);
    int opened = -1, deleted = 0, ticks = 0;
    list.onDoubleClick = [&opened](int row, int) { opened = row; };
    list.onDelete = [&deleted] { ++deleted; };
    list.onCheck = [&ticks](int, bool) { ++ticks; };
    list.SetCurrentRow(1);
    list.SetChecked(0, true);
    EXPECT_EQ(ticks, 0);
    QTest::keyClick(&list, Qt::Key_Space);
    QTest::keyClick(&list, Qt::Key_Return);
    QTest::keyClick(&list, Qt::Key_Delete);
    EXPECT_EQ(list.CheckedKeys(), QStringList({u"a"_s, u"b"_s}));
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(deleted, 1);
    EXPECT_EQ(ticks, 1);
    list.onKey = [](QKeyEvent*) { return true; };
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(list.CurrentRow(), 1);
}

TEST(ListKeys, LettersLookForTheRowThatBeginsWithThem) {
    KestroList list;
    FillOne(list, u"string"_s, {u"0101收入"_s, u"0201办公"_s, u"0202生产"_s, u"0301现金"_s, u"ab c"_s});
    list.show();
    const auto typed = [&list](const QString& keys) {
        QTest::keyClicks(&list, keys);
        return list.CurrentRow();
    };
    EXPECT_EQ(typed(u"0202"_s), 2);
    QTest::qWait(1050);  // a pause begins anew
    EXPECT_EQ(typed(u"0"_s), 3);
    QTest::qWait(1050);
    EXPECT_EQ(typed(u"ab c"_s), 4);
    EXPECT_TRUE(list.CheckedRows().empty());
}

TEST(ListKeys, CopyTheRowOpenItsMenuAndReachBothEnds) {
    KestroList list;
    FillLetters(list, 50);
    QString copied;
    Outside().copyText = [&copied](const QString& text) { copied = text; };
    int menuRow = -1;
    list.onRightClick = [&menuRow](int row, const QPoint&) { menuRow = row; };
    QTest::keyClick(&list, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(list.CurrentRow(), 49);
    QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copied, u"49"_s);
    QTest::keyClick(&list, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(menuRow, 49);
    QTest::keyClick(&list, Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(list.CurrentRow(), 0);
    Outside() = {};
}

TEST(ListKeys, HeadingsAreSortedByKey) {
    KestroList list;
    FillOne(list, u"string"_s, {u"b"_s, u"c"_s, u"a"_s});
    list.show();
    list.SetCurrentRow(0);
    QTest::keyClick(&list, Qt::Key_Up, Qt::AltModifier);
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_EQ(list.CheckedRows().size(), 3U);  // the first heading marks all
    QTest::keyClick(&list, Qt::Key_Right);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(Keys(list), QStringList({u"c"_s, u"a"_s, u"b"_s}));
    QTest::keyClick(&list, Qt::Key_Escape);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(list.CurrentKey(), u"b"_s);
}

TEST(ListMouse, TickingLeavesTheCurrentRowAndTheHeadingMarksAll) {
    KestroList list;
    FillLetters(list, 3);
    list.SetCurrentRow(2);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, CellCentre(list, 0, 0));
    EXPECT_EQ(list.CurrentRow(), 2);
    EXPECT_EQ(list.CheckedRows(), std::vector<int>{0});
    ClickHeading(list, 0);
    EXPECT_EQ(list.CheckedRows().size(), 3U);
    ClickHeading(list, 0);
    EXPECT_TRUE(list.CheckedRows().empty());
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, CellCentre(list, 1, 1));
    EXPECT_EQ(list.CurrentRow(), 1);
}

TEST(ListMouse, ATipLeavesWithItsCell) {
    KestroToolTip::Install();
    KestroList list;
    FillOne(
        list, u"string"_s,
        {u"一个长得在它的格子里写不下的名字，所以要整个显示出来，再长一些，再长一些，再长一些"_s, u"短"_s});
    list.show();
    const QPoint at = CellCentre(list, 0, 1);
    QHelpEvent help(QEvent::ToolTip, at, list.viewport()->mapToGlobal(at));
    QApplication::sendEvent(list.viewport(), &help);
    ASSERT_TRUE(KestroToolTip::IsShown(u"cell"_s));
    const QPoint next = CellCentre(list, 1, 1);
    QMouseEvent move(QEvent::MouseMove, next, list.viewport()->mapToGlobal(next), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(list.viewport(), &move);
    EXPECT_FALSE(KestroToolTip::IsShown(u"cell"_s));
}

TEST(ListColumns, ShareTheRoom) {
    const auto column = [](int width, int smallest, const QString& type, bool flexible = false) {
        ListColumnState state;
        state.what = {u"k"_s, u"列"_s, width, smallest, type, ListColor::none, flexible};
        return state;
    };
    const std::vector<ListColumnState> columns = {column(60, 20, u"number"_s), column(180, 100, u"string"_s),
                                                  column(80, 60, u"money"_s),
                                                  column(200, 140, u"string"_s, true)};
    const std::pair<int, std::vector<int>> cases[] = {
        {520, {60, 180, 80, 200}}, {720, {60, 180, 80, 400}}, {480, {60, 180, 80, 160}},
        {420, {60, 140, 80, 140}}, {360, {40, 100, 80, 140}}, {200, {20, 100, 80, 140}},
    };
    for (const auto& [room, widths] : cases)
        EXPECT_EQ(FitWidths(columns, room), widths) << room;
}

TEST(ListColumns, MoneyGrowsToItsWidestTextAndStaysPlain) {
    KestroList list;
    list.resize(600, 200);
    list.DefineColumn({u"m"_s, u"金额"_s, 65, 60, u"money"_s});
    list.AddRow({u"268"_s});
    EXPECT_EQ(list.columnWidth(0), 65);
    list.AddRow({u"1234567890.25"_s});
    const int grouped = list.columnWidth(0);
    const QFontMetrics metrics(Skin::Font(Type::body));
    EXPECT_GE(grouped, metrics.horizontalAdvance(u"1,234,567,890.25"_s) + 12);
    list.SetMoneyGroup(0, 0);
    EXPECT_LT(list.columnWidth(0), grouped);
    EXPECT_EQ(list.Cell(1, 0), u"1234567890.25"_s);
    list.SetCell(0, 0, u"-123456789012345.50"_s);
    EXPECT_GT(list.columnWidth(0), grouped);
}

TEST(ListColumns, ADayGoneByIsBoldAndLeavesTheOtherCells) {
    RowLook gone;
    gone.danger = true;
    const std::tuple<QString, Type, Type> cases[] = {{u"date"_s, Type::small, Type::smallBold},
                                                     {u"string"_s, Type::body, Type::body},
                                                     {u"money"_s, Type::body, Type::body}};
    for (const auto& [type, usual, late] : cases) {
        ListColumnState state;
        state.what.type = type;
        EXPECT_EQ(TypeOf(state, {}), usual) << qPrintable(type);
        EXPECT_EQ(TypeOf(state, gone), late) << qPrintable(type);
    }
}

TEST(ListColumns, ScrolledSidewaysTheBoxesAndNumbersStay) {
    KestroList list;
    list.resize(400, 200);
    list.SetCheckColumn(true);
    list.DefineColumn({u"n"_s, u"NO"_s, 60, 20, u"number"_s});
    for (const QString& key : {u"a"_s, u"b"_s, u"c"_s})
        list.DefineColumn({key, key, 300, 300, u"string"_s});
    list.AddRow({u"1"_s, u"x"_s, u"y"_s, u"z"_s});
    list.show();
    QTest::keyClick(&list, Qt::Key_Right);
    EXPECT_EQ(list.indexAt({16, 10}).column(), 0);
    EXPECT_EQ(list.indexAt({40, 10}).column(), 1);
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, {16, 10});
    EXPECT_TRUE(list.IsChecked(0));
}
