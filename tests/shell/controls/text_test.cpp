// Boxes of one line and of many: what may be typed, pasted, undone, and what the menu offers.

#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_dialog.h"
#include "shell/controls/kestro_edit_box.h"
#include "tests/support/box_stage.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QTest>

#include <functional>
#include <gtest/gtest.h>
#include <vector>

using namespace Qt::StringLiterals;

TEST(AmountBox, HoldsPlainTextWhateverIsTyped) {
    struct Row {
        QString typed;
        QString text;
    };
    for (const Row& row : std::vector<Row>{{u"60000.00"_s, u"60000.00"_s},
                                           {u"1,286.50"_s, u"1286.50"_s},
                                           {u"￥１２，３４５．６"_s, u"12345.6"_s},
                                           {u" -12 000 "_s, u"-12000"_s},
                                           {u"十元"_s, u"十"_s},
                                           {u"1.2.3"_s, u"1.2.3"_s}}) {
        Stage<KestroText> typing(TextMode::amount);
        for (const QChar c : row.typed)
            Commit(*typing.box, QString(c));
        EXPECT_EQ(typing.box->text(), row.text) << "typed " << qPrintable(row.typed);

        Stage<KestroText> pasting(TextMode::amount);
        QApplication::clipboard()->setText(row.typed);
        QTest::keyClick(pasting.box, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(pasting.box->text(), row.text) << "pasted " << qPrintable(row.typed);
    }
}

TEST(AmountBox, KeepsTheCursorWhereTheDroppedCharacterWas) {
    Stage<KestroText> stage(TextMode::amount);
    stage.box->setText(u"1234"_s);
    stage.box->setCursorPosition(1);
    Commit(*stage.box, u"，５"_s);
    EXPECT_EQ(stage.box->text(), u"15234"_s);
    EXPECT_EQ(stage.box->cursorPosition(), 2);
}

// The separators are painted, so the pointer has to find characters between them.
TEST(AmountBox, PutsTheCursorWhereThePointerIs) {
    Stage<KestroText> stage(TextMode::amount);
    stage.box->setText(u"1234567"_s);
    const int y = stage.box->height() / 2;
    for (int position = 0; position <= 7; ++position) {
        stage.box->setCursorPosition(position);
        const QRect at = stage.box->inputMethodQuery(Qt::ImCursorRectangle).toRect();
        stage.box->setCursorPosition(position == 0 ? 7 : 0);
        QTest::mouseClick(stage.box, Qt::LeftButton, {}, QPoint(at.x(), y));
        EXPECT_EQ(stage.box->cursorPosition(), position);
    }
}

TEST(TextBox, TurnsPastedLineBreaksIntoBlanks) {
    for (const QString& pasted : {u"一\n二"_s, u"一\r\n二"_s, u"一\r二"_s, u"一\u2028二"_s}) {
        Stage<KestroText> stage(TextMode::normal);
        QApplication::clipboard()->setText(pasted);
        QTest::keyClick(stage.box, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(stage.box->text(), u"一 二"_s);
    }
}

TEST(TextBox, ReportsOnlyWhatTheUserDoes) {
    Stage<KestroText> stage(TextMode::search);
    QStringList heard;
    stage.box->onChange = [&](const QString& text) { heard += text; };
    stage.box->setText(u"账"_s);
    EXPECT_TRUE(heard.isEmpty());
    Commit(*stage.box, u"单"_s);
    QTest::keyClick(stage.box, Qt::Key_Escape);
    EXPECT_EQ(heard, QStringList({u"账单"_s, QString()}));
}

TEST(TextBox, ServesItsEndButtonByPointerAndKey) {
    Stage<KestroText> stage(TextMode::normal);
    int pressed = 0;
    stage.box->SetEndButton(u"date"_s, u"日历"_s, false);
    stage.box->onEndButton = [&] { ++pressed; };
    QTest::mouseClick(stage.box, Qt::LeftButton, {}, QPoint(stage.box->width() - 10, 10));
    QTest::keyClick(stage.box, Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(pressed, 2);
}

TEST(TextBox, ForgetsThatItIsWrongHoweverItsTextChanges) {
    const std::function<void(KestroText&)> changes[] = {
        [](auto& box) { QTest::keyClick(&box, Qt::Key_A); },
        [](auto& box) { Commit(box, u"甲"_s); },
        [](auto& box) { box.setText(u"甲"_s); },
    };
    for (const auto& change : changes) {
        Stage<KestroText> stage(TextMode::normal);
        stage.box->SetWrong(true);
        change(*stage.box);
        EXPECT_FALSE(stage.box->IsWrong()) << qPrintable(stage.box->text());
    }
}

// What drops out or changes on its way in leaves the steps before it to be undone.
TEST(TextBox, WhatWasCleanedCanBeUndone) {
    Stage<KestroText> stage(TextMode::amount);
    QTest::keyClicks(stage.box, u"1,2"_s);
    EXPECT_EQ(stage.box->text(), u"12"_s);
    QApplication::clipboard()->setText(u"￥3,400"_s);
    QTest::keyClick(stage.box, Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(stage.box->text(), u"123400"_s);
    QTest::keyClick(stage.box, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(stage.box->text(), u"12"_s);
    stage.box->undo();
    EXPECT_LT(stage.box->text().size(), 2);
}

TEST(TextBox, MaskedDotsAreAsWideWhateverTheLetters) {
    Stage<KestroText> stage(TextMode::masked);
    stage.box->setText(u"iW口"_s);
    const auto cursorAt = [&](int position) {
        stage.box->setCursorPosition(position);
        return stage.box->inputMethodQuery(Qt::ImCursorRectangle).toRect().x();
    };
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(cursorAt(i + 1) - cursorAt(i), 10);
    QTest::mouseClick(stage.box, Qt::LeftButton, {}, QPoint(cursorAt(2), 10));
    EXPECT_EQ(stage.box->cursorPosition(), 2);
}

// One menu for all boxes, its items as the box stands.
TEST(TextMenu, IsEnabledAsTheBoxStands) {
    const auto shown = [](QWidget& box) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, box.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&box, &event);
        auto* menu = QApplication::activePopupWidget();
        QStringList enabled;
        if (!menu) return u"no menu"_s;
        for (const auto* action : menu->actions())
            if (action->isEnabled() && !action->isSeparator()) enabled += action->objectName().mid(4);
        return enabled.join(u' ');
    };
    const auto choose = [](const QString& key) {
        auto* menu = QApplication::activePopupWidget();
        if (!menu) return;
        for (auto* action : menu->actions())
            if (action->objectName() == key) action->trigger();
        menu->close();
    };
    QApplication::clipboard()->setText(u"贴"_s);
    Stage<KestroText> line(TextMode::normal);
    EXPECT_EQ(shown(*line.box), u"paste"_s);
    choose(u"textpaste"_s);
    EXPECT_EQ(line.box->text(), u"贴"_s);
    line.box->selectAll();
    EXPECT_EQ(shown(*line.box), u"undo cut copy paste select"_s);
    choose(u"textundo"_s);
    EXPECT_TRUE(line.box->text().isEmpty());

    Stage<KestroText> password(TextMode::masked);
    password.box->setText(u"口令"_s);
    password.box->selectAll();
    EXPECT_EQ(shown(*password.box), u"paste select"_s);
    choose({});

    Stage<KestroEditBox> memo;
    memo.box->SetText(u"备注"_s);
    memo.box->setReadOnly(true);
    memo.box->selectAll();
    EXPECT_EQ(shown(*memo.box->viewport()), u"copy select"_s);
    choose({});
}

TEST(EditBox, GivesBackWhatWasNotChangedToTheCharacter) {
    Stage<KestroEditBox> stage;
    const QString text = u"甲\r\n乙\u00a0丙"_s;
    stage.box->SetText(text);
    EXPECT_EQ(stage.box->Text(), text);
    QTest::keyClick(stage.box, Qt::Key_A);
    EXPECT_EQ(stage.box->Text(), u"a甲\n乙\u00a0丙"_s);
    stage.box->undo();
    EXPECT_EQ(stage.box->Text(), text);
}

TEST(EditBox, LeavesByTabAndPassesCtrlEnterOn) {
    KestroDialog dialog(DialogKind::common);
    auto* box = new KestroEditBox(dialog.Body());
    auto* next = new KestroText(TextMode::normal, dialog.Body());
    auto* button = new KestroButton(ButtonLook::primary, u"确定"_s, {}, dialog.Body());
    int entered = 0;
    button->onClick = [&] { ++entered; };
    dialog.SetDefaultButton(button);
    dialog.show();
    QApplication::setActiveWindow(&dialog);
    box->setFocus();
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_EQ(entered, 0);
    QTest::keyClick(box, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(entered, 1);
    QTest::keyClick(box, Qt::Key_Tab);
    EXPECT_EQ(box->Text(), u"\n"_s);
    EXPECT_TRUE(next->hasFocus());
}
