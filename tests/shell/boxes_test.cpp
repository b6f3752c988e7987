// The message box and the input dialog: what the buttons and keys answer, and what goes in and out.

#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_text.h"
#include "shell/file_dialog.h"
#include "shell/input_dialog.h"
#include "shell/message_box.h"
#include "store/messages.h"
#include "tests/support/ui_fixture.h"

#include <QAbstractButton>
#include <QScreen>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
class Boxes : public UiFixture {
 protected:
    Boxes() { InstallMessageBox(); }
};

// Its complaints are read from the script of boxes.
using InputBox = UiFixture;

}  // namespace

TEST_F(Boxes, GiveTheNumberOfThePressedButton) {
    const std::vector<const char*> names{"btnEnter", "btnCancel", "btnEnter1", "btnOther"};
    const std::vector<int> results{1, 0, 2, 3};
    for (const QString& captions :
         {QString(), u"确定"_s, u"取消,确定"_s, u"一,取消,确定"_s, u"其他,一,取消,确定"_s}) {
        const QStringList list = (captions.isEmpty() ? u"确定"_s : captions).split(u',');
        for (qsizetype i = 0; i < list.size(); ++i) {
            const auto at = static_cast<size_t>(i);
            OnNextModal([&](QWidget* box) {
                const auto all = box->findChildren<QAbstractButton*>();
                ASSERT_EQ(std::ranges::count_if(
                              all, [](auto* b) { return dynamic_cast<KestroButton*>(b) != nullptr; }),
                          list.size());
                auto* button = Find<KestroButton>(box, names[at]);
                ASSERT_NE(button, nullptr);
                EXPECT_EQ(button->text(), list[list.size() - 1 - i]);
                if (i > 0)
                    EXPECT_LT(button->geometry().right(),
                              Find<QWidget>(box, names[at - 1])->geometry().left());
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
        OnNextModal([&](QWidget* box) {
            for (const Qt::Key key : row.keys)
                QTest::keyClick(box->focusWidget(), key);
        });
        EXPECT_EQ(ShowMsg(u"文"_s, u"其他,一,取消,确定"_s), row.result);
    }
    OnNextModal([](QWidget* box) { box->close(); });
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
        OnNextModal([&](QWidget* box) {
            const QSize size = dynamic_cast<KestroDialog&>(*box).NamedSize();
            EXPECT_GE(size.width(), row.least.width());
            EXPECT_GE(size.height(), row.least.height());
            if (row.exact) EXPECT_EQ(size, row.least);
            EXPECT_LE(size.height(), box->screen()->availableGeometry().height());
            box->close();
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
        EXPECT_EQ(dialog.findChild<QWidget*>(u"txtMoney"_s) != nullptr, row.money);
        EXPECT_EQ(dialog.findChild<QWidget*>(u"chkOther"_s) != nullptr, row.money);
        EXPECT_EQ(dialog.findChild<QWidget*>(u"editNote"_s) != nullptr, row.memo != 0);
        auto* note = Find<KestroText>(&dialog, "txtNote");
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
        auto* note = Find<KestroText>(&dialog, "txtNote");
        auto* money = Find<KestroText>(&dialog, "txtMoney");
        EXPECT_EQ(note->text(), u"0205 水电"_s);
        EXPECT_EQ(money->text(), u"60"_s);
        note->setText(u"0206 O'Neil"_s);
        money->setText(row.typed);
        Find<KestroEditBox>(&dialog, "editNote")->SetText(u"两\n行"_s);
        QTest::keyClick(note, Qt::Key_Return);
        EXPECT_EQ(record.Flag1, 1);
        EXPECT_EQ(record.Text4, u"0206 O'Neil"_s);
        EXPECT_EQ(record.Text5, u"两\n行"_s);
        EXPECT_EQ(record.Num1, row.hundredths) << qPrintable(row.typed);
        EXPECT_EQ(record.Flag4, 1);
    }
}

TEST_F(InputBox, RefusesWhatIsNoAmountAndStaysOpen) {
    for (const QString& typed : {u"21474836.48"_s, u"abc"_s, u"12x"_s, u"1.2.3"_s}) {
        SCOPED_TRACE(qPrintable(typed));
        DialogRecord record;
        record.Num1 = 6000;
        record.Num2 = 7;
        frmInput dialog(record);
        dialog.show();
        Find<KestroText>(&dialog, "txtMoney")->setText(typed);
        boxes.Expect(u"金额不正确!"_s);
        Press(&dialog, "btnEnter");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(record.Flag1, 0);
        EXPECT_EQ(record.Num1, 6000);
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
        auto* money = Find<KestroText>(&dialog, "txtMoney");
        money->selectAll();
        TypeInto(money, c.keys);
        Press(&dialog, "btnEnter");
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
            auto* note = Find<KestroText>(&dialog, "txtNote");
            note->setText(u"secret"_s);
            if (byKey)
                QTest::keyClick(note, Qt::Key_Escape);
            else
                Press(&dialog, "btnCancel");
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
