// The message box and the input dialog: what the buttons and keys answer, and what goes in and out.

#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_text.h"
#include "shell/file_dialog.h"
#include "shell/input_dialog.h"
#include "shell/message_box.h"
#include "store/messages.h"
#include "tests/support/ui_fixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
// Does something with the modal window as soon as it is up.
void WhenModal(std::function<void(QWidget&)> body) {
    QTimer::singleShot(0, [body = std::move(body)] {
        QWidget* window = QApplication::activeModalWidget();
        ASSERT_NE(window, nullptr);
        QApplication::setActiveWindow(window);
        body(*window);
        // A failed expectation must not leave the test waiting for an answer.
        if (window->isVisible()) window->close();
    });
}

class Boxes : public testing::Test {
 protected:
    void SetUp() override {
        State().gDlg = {};
        InstallMessageBox();
    }
    void TearDown() override { MessageSlot() = nullptr; }
};

qsizetype ButtonCount(const QWidget& window) {
    const auto all = window.findChildren<QAbstractButton*>();
    return std::count_if(all.begin(), all.end(),
                         [](auto* b) { return dynamic_cast<KestroButton*>(b) != nullptr; });
}

QWidget* Child(QWidget& window, const QString& name) {
    return window.findChild<QWidget*>(name);
}
}  // namespace

TEST_F(Boxes, GiveTheNumberOfThePressedButton) {
    const std::vector<QString> names{u"btnEnter"_s, u"btnCancel"_s, u"btnEnter1"_s, u"btnOther"_s};
    const std::vector<int> results{1, 0, 2, 3};
    for (const QString& captions :
         {QString(), u"确定"_s, u"取消,确定"_s, u"一,取消,确定"_s, u"其他,一,取消,确定"_s}) {
        const QStringList list = (captions.isEmpty() ? u"确定"_s : captions).split(u',');
        for (qsizetype i = 0; i < list.size(); ++i) {
            const auto at = static_cast<size_t>(i);
            WhenModal([&](QWidget& box) {
                ASSERT_EQ(ButtonCount(box), list.size());
                auto* button = dynamic_cast<KestroButton*>(Child(box, names[at]));
                ASSERT_NE(button, nullptr) << qPrintable(names[at]);
                EXPECT_EQ(button->text(), list[list.size() - 1 - i]);
                if (i > 0)
                    EXPECT_LT(button->geometry().right(), Child(box, names[at - 1])->geometry().left());
                QTest::mouseClick(button, Qt::LeftButton);
            });
            EXPECT_EQ(ShowMsg(u"文"_s, captions), results[at]);
            EXPECT_EQ(State().gMsgResult, results[at]);
        }
    }
}

TEST_F(Boxes, AnswerKeys) {
    struct Row {
        std::vector<Qt::Key> keys;
        int result;
    };
    for (const Row& row : std::vector<Row>{{{Qt::Key_Return}, 1},
                                           {{Qt::Key_Enter}, 1},
                                           {{Qt::Key_Escape}, 0},
                                           {{Qt::Key_Tab, Qt::Key_Return}, 3},
                                           {{Qt::Key_Backtab, Qt::Key_Return}, 0},
                                           {{Qt::Key_Backtab, Qt::Key_Space}, 0}}) {
        WhenModal([&](QWidget& box) {
            for (const Qt::Key key : row.keys)
                QTest::keyClick(box.focusWidget(), key);
        });
        EXPECT_EQ(ShowMsg(u"文"_s, u"其他,一,取消,确定"_s), row.result);
    }
    WhenModal([](QWidget& box) { box.close(); });
    EXPECT_EQ(ShowMsg(u"文"_s, u"取消,确定"_s), 0);
}

TEST_F(Boxes, GrowWithTheirText) {
    struct Row {
        QString text;
        int width;
        int height;
        QSize least;
        bool exact;
    };
    const QString longText = u"很长的一段话，"_s.repeated(60);
    for (const Row& row : std::vector<Row>{{u"文"_s, 50, 50, {100, 100}, false},
                                           {u"文"_s, 392, 160, {392, 160}, true},
                                           {longText, 392, 160, {392, 300}, false}}) {
        WhenModal([&](QWidget& box) {
            const QSize size = dynamic_cast<KestroDialog&>(box).NamedSize();
            EXPECT_GE(size.width(), row.least.width());
            EXPECT_GE(size.height(), row.least.height());
            if (row.exact) EXPECT_EQ(size, row.least);
            EXPECT_LE(size.height(), box.screen()->availableGeometry().height());
            box.close();
        });
        ShowMsg(row.text, u"确定"_s, 7, u"提示"_s, row.width, row.height);
    }
}

TEST_F(Boxes, InputShowsTheRowsOfItsMode) {
    struct Row {
        int mode;
        int memo;
        bool money;
    };
    for (const Row& row : std::vector<Row>{{0, 0, false}, {0, 1, false}, {1, 0, true}, {7, 1, true}}) {
        DialogRecord record;
        record.Num2 = row.mode;
        record.Flag1 = row.memo;
        record.Text4 = u"新增分类"_s;
        frmInput dialog(record);
        EXPECT_EQ(record.Flag1, 0);
        EXPECT_EQ(dialog.windowTitle(), u"新增分类"_s);
        EXPECT_EQ(Child(dialog, u"txtMoney"_s) != nullptr, row.money);
        EXPECT_EQ(Child(dialog, u"chkOther"_s) != nullptr, row.money);
        EXPECT_EQ(Child(dialog, u"editNote"_s) != nullptr, row.memo != 0);
        auto* note = dynamic_cast<KestroText*>(Child(dialog, u"txtNote"_s));
        EXPECT_EQ(note->Mode(), row.money ? TextMode::normal : TextMode::masked);
    }
}

TEST_F(Boxes, InputCarriesItsFieldsOut) {
    struct Row {
        QString typed;
        int hundredths;
    };
    for (const Row& row : std::vector<Row>{{u"1286.5"_s, 128650},
                                           {u"0.125"_s, 13},
                                           {u"-0.125"_s, -13},
                                           {{}, 0},
                                           {u"21474836.47"_s, 2147483647}}) {
        DialogRecord record;
        record.Text6 = u"0205 水电"_s;
        record.Text5 = u"旧"_s;
        record.Num1 = 6000;
        record.Num2 = 7;
        record.Flag1 = 1;
        record.Flag3 = 1;
        frmInput dialog(record);
        auto* note = dynamic_cast<KestroText*>(Child(dialog, u"txtNote"_s));
        auto* money = dynamic_cast<KestroText*>(Child(dialog, u"txtMoney"_s));
        EXPECT_EQ(note->text(), u"0205 水电"_s);
        EXPECT_EQ(money->text(), u"60"_s);
        note->setText(u"0206 O'Neil"_s);
        money->setText(row.typed);
        dynamic_cast<KestroEditBox*>(Child(dialog, u"editNote"_s))->SetText(u"两\n行"_s);
        QTest::keyClick(note, Qt::Key_Return);
        EXPECT_EQ(record.Flag1, 1);
        EXPECT_EQ(record.Text4, u"0206 O'Neil"_s);
        EXPECT_EQ(record.Text5, u"两\n行"_s);
        EXPECT_EQ(record.Num1, row.hundredths) << qPrintable(row.typed);
        EXPECT_EQ(record.Flag4, 1);
    }
}

TEST_F(Boxes, InputRefusesWhatIsNoAmountAndStaysOpen) {
    QStringList shown;
    MessageSlot() = [&](const MessageRequest& request) {
        shown += request.text;
        return 1;
    };
    for (const QString& typed : {u"21474836.48"_s, u"abc"_s, u"12x"_s, u"1.2.3"_s}) {
        DialogRecord record;
        record.Num1 = 6000;
        record.Num2 = 7;
        frmInput dialog(record);
        dialog.show();
        dynamic_cast<KestroText*>(Child(dialog, u"txtMoney"_s))->setText(typed);
        QTest::mouseClick(Child(dialog, u"btnEnter"_s), Qt::LeftButton);
        EXPECT_EQ(shown, QStringList(u"金额不正确!"_s)) << qPrintable(typed);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(record.Flag1, 0);
        EXPECT_EQ(record.Num1, 6000);
        shown.clear();
    }
}

TEST_F(Boxes, InputTellsWhetherTheAmountWasTyped) {
    struct Case {
        QString keys;
        int typed, hundredths;
    };
    for (const auto& c : {Case{{}, 0, 0}, {u"0"_s, 1, 0}, {u"1,000"_s, 1, 100000}}) {
        DialogRecord record;
        record.Num1 = 0;
        record.Num2 = 7;
        frmInput dialog(record);
        auto* money = dynamic_cast<KestroText*>(Child(dialog, u"txtMoney"_s));
        money->selectAll();
        TypeInto(money, c.keys);
        QTest::mouseClick(Child(dialog, u"btnEnter"_s), Qt::LeftButton);
        EXPECT_EQ(record.Flag2, c.typed) << qPrintable(c.keys);
        EXPECT_EQ(record.Num1, c.hundredths);
    }
}

TEST_F(Boxes, InputLeavesTheRecordAloneWhenCancelled) {
    for (const bool byKey : {true, false}) {
        DialogRecord record;
        record.Text4 = u"账本口令"_s;
        record.Num2 = 0;
        const int popups = State().gPopups;
        {
            frmInput dialog(record);
            EXPECT_EQ(State().gPopups, popups + 1);
            dialog.show();
            auto* note = dynamic_cast<KestroText*>(Child(dialog, u"txtNote"_s));
            note->setText(u"secret"_s);
            if (byKey)
                QTest::keyClick(note, Qt::Key_Escape);
            else
                QTest::mouseClick(Child(dialog, u"btnCancel"_s), Qt::LeftButton);
            EXPECT_FALSE(dialog.isVisible());
        }
        EXPECT_EQ(State().gPopups, popups);
        EXPECT_EQ(record.Flag1, 0);
        EXPECT_EQ(record.Text4, u"账本口令"_s);
    }
}

TEST(FileDialogs, TranslateFilters) {
    EXPECT_EQ(PlatformFilter(u"账本|*.ab\n所有文件|*.*"_s), u"账本 (*.[aA][bB]);;所有文件 (*)"_s);
    EXPECT_EQ(PlatformFilter(u"图片|*.j1;*.p"_s), u"图片 (*.[jJ]1 *.[pP])"_s);
}
