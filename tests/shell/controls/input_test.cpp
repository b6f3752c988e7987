// Choosers, calculator and calendar.

#include "shell/controls/calculation.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_calculator.h"
#include "shell/controls/kestro_calendar.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_dialog.h"
#include "tests/support/box_stage.h"

#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
struct Choice {
    QString text;
    QString key;
    bool operator==(const Choice&) const = default;
};

struct ComboxStage : Stage<KestroCombox> {
    explicit ComboxStage(ComboxMode mode) : Stage(mode) {
        box->AddItem(u"0101产品收入"_s, u"0101"_s);
        box->AddItem(u"0102项目收入"_s, u"0102"_s);
        box->AddItem(u"030201农行"_s, u"030201"_s);
        box->onChoose = [this](const QString& text, const QString& key) { heard.push_back({text, key}); };
    }
    std::vector<Choice> heard;
};
}  // namespace

TEST(Combox, SettlesWhatWasTypedWhenTheUserLeaves) {
    const Choice bank{u"030201农行"_s, u"030201"_s};
    struct Row {
        ComboxMode mode;
        QString typed;
        QString left;
        std::vector<Choice> heard;
    };
    for (const Row& row : std::vector<Row>{{ComboxMode::pick, bank.text, bank.text, {bank}},
                                           {ComboxMode::pick, u" 030201农行 "_s, bank.text, {bank}},
                                           {ComboxMode::pick, u"030201"_s, bank.text, {bank}},
                                           {ComboxMode::pick, u"农行"_s, bank.text, {bank}},
                                           {ComboxMode::pick, u"农"_s, bank.text, {bank}},
                                           {ComboxMode::pick, u"收入"_s, {}, {{{}, {}}}},
                                           {ComboxMode::pick, u"没有"_s, {}, {{{}, {}}}},
                                           {ComboxMode::freeText, u"没有"_s, u"没有"_s, {}},
                                           {ComboxMode::freeText, bank.text, bank.text, {bank}}}) {
        ComboxStage stage(row.mode);
        Commit(*stage.box, row.typed);
        stage.other->setFocus();
        EXPECT_EQ(stage.box->text(), row.left) << qPrintable(row.typed);
        EXPECT_EQ(stage.heard, row.heard) << qPrintable(row.typed);
        EXPECT_FALSE(stage.box->IsListOpen());
    }
}

// A kind that is hidden by now still stands in the entry that was made with it.
TEST(Combox, LetsATextStandThatTheProgramPutThere) {
    ComboxStage stage(ComboxMode::pick);
    stage.box->SetText(u"0909已隐藏"_s);
    EXPECT_EQ(stage.box->Current(), -1);
    stage.other->setFocus();
    EXPECT_EQ(stage.box->text(), u"0909已隐藏"_s);
    EXPECT_TRUE(stage.heard.empty());
    // So it does when it was touched and brought back.
    stage.box->SetText(u"0909已隐藏"_s, u"0909"_s);
    const auto typed = [&](const QString& text) {
        stage.box->setFocus();
        stage.box->selectAll();
        Commit(*stage.box, text);
        stage.other->setFocus();
    };
    typed(u"没有"_s);
    EXPECT_TRUE(stage.box->text().isEmpty());
    typed(u"0909已隐藏"_s);
    EXPECT_EQ(stage.box->text(), u"0909已隐藏"_s);
    EXPECT_EQ(stage.heard.back(), (Choice{u"0909已隐藏"_s, u"0909"_s}));
}

TEST(Combox, ChoosesByKey) {
    struct Row {
        QString typed;
        std::vector<Qt::Key> keys;
        QString key;
    };
    for (const Row& row :
         std::vector<Row>{{u"收入"_s, {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}, u"0102"_s},
                          {u"农"_s, {Qt::Key_Return}, u"030201"_s},
                          {{}, {Qt::Key_F4, Qt::Key_Up, Qt::Key_Return}, u"030201"_s},
                          {{}, {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Return}, u"030201"_s},
                          {{}, {Qt::Key_F4, Qt::Key_Down, Qt::Key_Tab}, u"0101"_s},
                          {{}, {Qt::Key_F4, Qt::Key_Down, Qt::Key_Escape}, {}}}) {
        ComboxStage stage(ComboxMode::pick);
        if (!row.typed.isEmpty()) Commit(*stage.box, row.typed);
        for (const Qt::Key key : row.keys)
            QTest::keyClick(stage.box, key);
        EXPECT_EQ(stage.box->CurrentKey(), row.key) << qPrintable(row.typed);
        EXPECT_FALSE(stage.box->IsListOpen());
        EXPECT_EQ(stage.heard.size(), row.key.isEmpty() ? 0U : 1U);
    }
}

TEST(Combox, EnterTakesTheLikelyItemOnlyWhereOneMustBePicked) {
    for (const auto& [mode, text] :
         {std::pair{ComboxMode::pick, u"0101产品收入"_s}, {ComboxMode::freeText, u"0"_s}}) {
        ComboxStage stage(mode);
        Commit(*stage.box, u"0"_s);
        QTest::keyClick(stage.box, Qt::Key_Return);
        EXPECT_EQ(stage.box->text(), text);
    }
}

TEST(Combox, ChooseOnlyTakesNoTextButLettersAndArrows) {
    ComboxStage stage(ComboxMode::chooseOnly);
    stage.box->SetCurrent(0);
    QTest::keyClick(stage.box, Qt::Key_Down);
    EXPECT_EQ(stage.box->CurrentKey(), u"0102"_s);
    QTest::keyClick(stage.box, '0');
    EXPECT_EQ(stage.box->CurrentKey(), u"030201"_s);
    QTest::keyClick(stage.box, Qt::Key_Down);
    Commit(*stage.box, u"农"_s);
    EXPECT_EQ(stage.box->text(), u"030201农行"_s);
}

TEST(Combox, BearsThatAChoiceBringsOtherItems) {
    ComboxStage stage(ComboxMode::chooseOnly);
    QString kept;
    stage.box->onChoose = [&](const QString& text, const QString&) {
        stage.box->Clear();
        stage.box->AddItem(u"另一页"_s, u"1"_s);
        kept = text;
    };
    QTest::keyClick(stage.box, Qt::Key_Down);
    EXPECT_EQ(kept, u"0101产品收入"_s);
    EXPECT_EQ(stage.box->Count(), 1);
}

TEST(Combox, EscapeClosesTheListAndLeavesTheDialogOpen) {
    KestroDialog dialog(DialogKind::common);
    auto* box = new KestroCombox(ComboxMode::pick, dialog.Body());
    box->AddItem(u"0101"_s);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    box->setFocus();
    box->OpenList();
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_FALSE(box->IsListOpen());
    EXPECT_TRUE(dialog.isVisible());
    QTest::keyClick(box, Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST(Calculation, ComputesInDecimalFromLeftToRight) {
    struct Row {
        const char* keys;
        QString shown;
        QString trail;
    };
    for (const Row& row : std::vector<Row>{{"0.1+0.2=", u"0.3"_s, {}},
                                           {"2+3*4=", u"20"_s, {}},
                                           {"12000/3+", u"4000"_s, u"12000 ÷ 3 +"_s},
                                           {"1/3=", u"0.333333333333333"_s, {}},
                                           {"2/3=", u"0.666666666666667"_s, {}},
                                           {"1/3*3=", u"0.999999999999999"_s, {}},
                                           {"5+-3=", u"2"_s, {}},
                                           {"200*15%=", u"30"_s, {}},
                                           {"12BB7", u"7"_s, {}},
                                           {"5N", u"-5"_s, {}},
                                           {"1.5.5", u"1.55"_s, {}},
                                           {"1234567890123456", u"123456789012345"_s, {}},
                                           {"999999999999999+1=", u"错误"_s, {}},
                                           {"999999999999999*10=", u"错误"_s, {}},
                                           {"7/0=", u"错误"_s, {}},
                                           {"7/0=5C5", u"5"_s, {}}}) {
        Calculation calculation;
        for (const char* key = row.keys; *key; ++key)
            calculation.Press(QLatin1Char(*key));
        EXPECT_EQ(calculation.Shown(), row.shown) << row.keys;
        if (!row.trail.isEmpty()) EXPECT_EQ(calculation.Trail(), row.trail);
    }
}

TEST(Calculator, GivesItsValueToTheBoxAndNothingAfterAnError) {
    Stage<KestroText> stage(TextMode::amount);
    KestroCalculator calculator(stage.box);
    QStringList given;
    calculator.onValue = [&](const QString& value) { given += value; };
    calculator.PopUp(stage.box, u"100"_s, 3, true);
    QTest::keyClicks(stage.box, u"*1.5"_s);
    QTest::keyClick(stage.box, Qt::Key_Return);
    EXPECT_EQ(given, QStringList(u"150"_s));
    EXPECT_FALSE(calculator.isVisible());
    EXPECT_TRUE(stage.box->text().isEmpty());

    calculator.PopUp(stage.box, u"1"_s, 3, true);
    QTest::keyClicks(stage.box, u"/0"_s);
    QTest::keyClick(stage.box, Qt::Key_Return);
    EXPECT_EQ(given.size(), 1);
    EXPECT_TRUE(calculator.isVisible());
}

TEST(Calculator, LetsTypingGoOnInTheBoxWhenThePointerOpenedIt) {
    for (const bool composed : {false, true}) {
        Stage<KestroText> stage(TextMode::amount);
        KestroCalculator calculator(stage.box);
        calculator.PopUp(stage.box, {}, 3, false);
        EXPECT_TRUE(stage.box->hasFocus());
        composed ? Commit(*stage.box, u"２５"_s) : QTest::keyClicks(stage.box, u"25"_s);
        EXPECT_EQ(stage.box->text(), u"25"_s);
        EXPECT_FALSE(calculator.isVisible()) << composed;
    }
}

// Opened for its own sake it takes the keyboard, shows its result and stays until Escape.
TEST(Calculator, StandsByItselfAtAButton) {
    Stage<KestroButton> stage(ButtonLook::plain, u"计算器"_s, QString());
    stage.other->setFocus();
    KestroCalculator calculator(&stage.window);
    calculator.onValue = [](const QString&) { ADD_FAILURE() << "nobody asked for a value"; };
    calculator.Open(stage.box, 3);
    for (const Qt::Key key : {Qt::Key_1, Qt::Key_2, Qt::Key_Plus, Qt::Key_3, Qt::Key_Return})
        QTest::keyClick(QApplication::focusWidget(), key, {});
    EXPECT_TRUE(calculator.isVisible());
    EXPECT_EQ(calculator.Shown(), u"15"_s);
    EXPECT_TRUE(stage.other->text().isEmpty());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(calculator.isVisible());
    EXPECT_TRUE(stage.other->hasFocus());
}

TEST(Calendar, TurnsByWholeNotchesAndNotSideways) {
    Stage<KestroText> stage(TextMode::normal);
    KestroCalendar calendar(stage.box);
    const auto turn = [&](QPoint angle) {
        const QPointF at = calendar.rect().center();
        QWheelEvent event(at, calendar.mapToGlobal(at), {}, angle, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&calendar, &event);
    };
    calendar.PopUp(stage.box, QDate(2016, 9, 3));
    for (int i = 0; i < 7; ++i)
        turn({0, -15});
    turn({240, 0});
    EXPECT_EQ(calendar.ShownMonth(), QDate(2016, 9, 1));
    turn({0, -15});
    EXPECT_EQ(calendar.ShownMonth(), QDate(2016, 10, 1));
    turn({0, 240});
    EXPECT_EQ(calendar.ShownMonth(), QDate(2016, 8, 1));
}

TEST(Calendar, MovesByKeyWithinItsYears) {
    const auto control = Qt::ControlModifier;
    struct Row {
        QDate from;
        Qt::Key key;
        Qt::KeyboardModifiers with;
        QDate to;
    };
    for (const Row& row : std::vector<Row>{{{2016, 2, 28}, Qt::Key_Right, {}, {2016, 2, 29}},
                                           {{2016, 3, 1}, Qt::Key_Left, {}, {2016, 2, 29}},
                                           {{2016, 9, 3}, Qt::Key_Down, {}, {2016, 9, 10}},
                                           {{2016, 1, 31}, Qt::Key_PageDown, {}, {2016, 2, 29}},
                                           {{2016, 2, 29}, Qt::Key_PageDown, control, {2017, 2, 28}},
                                           {{1900, 1, 1}, Qt::Key_Left, {}, {1900, 1, 1}},
                                           {{2100, 12, 31}, Qt::Key_PageDown, {}, {2100, 12, 31}}}) {
        Stage<KestroText> stage(TextMode::normal);
        KestroCalendar calendar(stage.box);
        QDate picked;
        calendar.onPick = [&](QDate date) { picked = date; };
        calendar.PopUp(stage.box, row.from);
        QTest::keyClick(stage.box, row.key, row.with);
        QTest::keyClick(stage.box, Qt::Key_Return);
        EXPECT_EQ(picked, row.to);
        EXPECT_FALSE(calendar.isVisible());
    }
}

TEST(Calendar, PicksTheDayUnderThePointer) {
    Stage<KestroText> stage(TextMode::normal);
    KestroCalendar calendar(stage.box);
    QDate picked;
    calendar.onPick = [&](QDate date) { picked = date; };
    // September 2016 begins on a Thursday: first row, fourth column.
    calendar.PopUp(stage.box, QDate(2016, 9, 18));
    QTest::mouseClick(&calendar, Qt::LeftButton, {}, QPoint(8 + 3 * 34 + 17, 65 + 14));
    EXPECT_EQ(picked, QDate(2016, 9, 1));
}

TEST(Calendar, ClosesWithoutAPickWhenTheUserTypesOrEscapes) {
    for (const Qt::Key key : {Qt::Key_5, Qt::Key_Escape, Qt::Key_Backspace}) {
        Stage<KestroText> stage(TextMode::normal);
        KestroCalendar calendar(stage.box);
        bool picked = false;
        calendar.onPick = [&](QDate) { picked = true; };
        calendar.PopUp(stage.box, QDate(2016, 9, 3));
        QTest::keyClick(stage.box, key);
        EXPECT_FALSE(calendar.isVisible());
        EXPECT_FALSE(picked);
        EXPECT_EQ(stage.box->text(), key == Qt::Key_5 ? u"5"_s : QString());
    }
}
