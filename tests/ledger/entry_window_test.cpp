// The entry window as a user works it: boxes, switches, growth, cancel, and what is left after a failure.

#include "ledger/frm_account_new.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_option.h"
#include "shell/controls/kestro_text.h"
#include "store/errors.h"
#include "tests/support/ui_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class EntryWindow : public UiFixture {
 protected:
    EntryWindow() {
        OpenSample();
        RegisterAll();
        ResetDlg(kDlgEntry);
        EntryDialog().isNew = 1;
        window_ = std::make_unique<frmAccountNew>();
        Present(window_.get());
    }

    template <typename T>
    T* At(const char* name) {
        return Find<T>(window_.get(), name);
    }
    void Type(const char* box, const QString& text) { TypeInto(At<QWidget>(box), text); }
    void Pick(const char* box, const QString& typed) {
        At<QWidget>(box)->setFocus();
        Type(box, typed);
        QTest::keyClick(At<QWidget>(box), Qt::Key_Return);
    }
    void FillOneKind() {
        Type("txtThing", u"买笔"_s);
        Type("txtMoney", u"12.5"_s);
        Pick("comKind", u"0201"_s);
    }
    void Press(const char* button, QPoint at = {}) { ::Press(window_.get(), button, at); }
    QString Focus() { return window_->focusWidget() ? window_->focusWidget()->objectName() : QString(); }
    int Entries() { return static_cast<int>(Rows(State().gDB, u"select Id1 from tAccount"_s).size()); }

    std::unique_ptr<frmAccountNew> window_;
};

}  // namespace

TEST_F(EntryWindow, OpensOnTheFirstEmptyFieldWithTodayAndNow) {
    EXPECT_EQ(window_->windowTitle(), u"新增记账"_s);
    EXPECT_EQ(Focus(), u"txtThing"_s);
    EXPECT_EQ(At<KestroText>("txtDate")->text(), u"2016-09-03"_s);
    EXPECT_EQ(At<KestroText>("txtHour")->text() + At<KestroText>("txtMinute")->text(), u"1416"_s);
    for (const char* pair : {"opt0", "opt1", "opt2", "opt3"})
        EXPECT_TRUE(At<KestroOptionPair>(pair)->IsAdd());
    EXPECT_EQ(At<KestroCombox>("comKind")->Count(), 15);
    EXPECT_EQ(At<KestroCombox>("comKind")->Item(0).text, u"00↑↓余额调整"_s);
}

TEST_F(EntryWindow, GrowsAndShrinksByItsTwoAreas) {
    const QSize plain = window_->NamedSize();
    Press("chkOther", {12, 12});
    EXPECT_EQ(window_->NamedSize(), plain + QSize(0, 110));
    EXPECT_TRUE(At<QWidget>("comKind1")->isVisible());
    Press("pngArrow");
    EXPECT_EQ(window_->NamedSize(), plain + QSize(290, 110));
    EXPECT_TRUE(At<QWidget>("comAccName")->isVisible());
    EXPECT_FALSE(At<QWidget>("comAccName1")->isVisible());
    Press("chkOther1", {12, 12});
    EXPECT_TRUE(At<QWidget>("comAccName1")->isVisible());
    Press("pngArrow");
    Press("chkOther", {12, 12});
    EXPECT_EQ(window_->NamedSize(), plain);
    EXPECT_FALSE(At<QWidget>("comAccName1")->isVisible());
}

// Some window managers tell a window that it stands in the screen's corner.
TEST_F(EntryWindow, GrowsFromThePlaceThatWasSet) {
    const QPoint place = window_->pos();
    ASSERT_FALSE(place.isNull());
    window_->move(0, 0);
    Press("chkOther", {12, 12});
    EXPECT_EQ(window_->pos(), place);
    const QPoint moved = place - QPoint(10, 7);
    window_->move(moved);
    Press("chkOther", {12, 12});
    EXPECT_EQ(window_->pos(), moved);
}

TEST_F(EntryWindow, AFailedCheckSendsTheFocusAndKeepsTheWindow) {
    const auto refused = [this](const QString& message, const char* control) {
        boxes.Expect(message);
        Press("btnEnter");
        EXPECT_EQ(Focus(), QString::fromLatin1(control));
        EXPECT_TRUE(window_->isVisible());
    };
    refused(u"事情不能为空!"_s, "txtThing");
    EXPECT_TRUE(At<KestroText>("txtThing")->IsWrong());
    Type("txtThing", u"买笔"_s);
    EXPECT_FALSE(At<KestroText>("txtThing")->IsWrong());
    refused(u"金额不正确!"_s, "txtMoney");
    Type("txtMoney", u"十二元"_s);
    refused(u"金额不正确!"_s, "txtMoney");
    At<KestroText>("txtMoney")->setText(u"9.5"_s);
    refused(u"分类一不能为空!"_s, "comKind");
    EXPECT_EQ(At<KestroText>("txtMoney")->text(), u"9.50"_s);
    Type("comKind", u"xyz"_s);  // no item
    refused(u"分类一不能为空!"_s, "comKind");
    EXPECT_EQ(Entries(), 5);
}

TEST_F(EntryWindow, SavesWithTwoKindsAndTwoAccountsAndLeavesItsIds) {
    FillOneKind();
    Press("chkOther", {12, 12});
    Pick("comKind1", u"030202"_s);
    QTest::mouseClick(At<KestroOptionPair>("opt1")->ReduceOption(), Qt::LeftButton);
    Press("pngArrow");
    Pick("comAccName", u"01"_s);
    Press("btnClone0");
    Press("chkOther1", {12, 12});
    Pick("comAccName1", u"0301软件开发"_s);
    Type("txtAccValue1", u".75"_s);
    At<KestroEditBox>("editNote")->SetText(u"第一行\n'第二行'"_s);
    boxes.Expect(
        u"【事情】：买笔\n【日期】：2016-09-03  14:16\n【金额】：12.50 元\n\n【分类１】：▲ 0201办公费用\n"_s);
    Press("btnEnter");
    EXPECT_FALSE(window_->isVisible());
    EXPECT_EQ(boxes.Last().title, u"记账信息是否正确？"_s);
    EXPECT_EQ(boxes.Last().buttons, u"不正确,正确"_s);
    EXPECT_EQ(boxes.Last().height, 260);
    EXPECT_EQ(EntryDialog().done, 1);
    EXPECT_EQ(EntryDialog().id, 8);
    EXPECT_EQ(EntryDialog().secondId, 9);
    EXPECT_EQ(
        Rows(State().gDB, u"select Id1,AccId,SubAccKey,TypeName1,Value1 from tSubAccItem where Id1>4"_s),
        (QStringList{u"5|8|01|办公费用|12.5"_s, u"6|8|0301|办公费用|0.75"_s}));
    EXPECT_TRUE(BalanceBreaks(State().gDB).isEmpty());
}

TEST_F(EntryWindow, AParentCodeIsRefusedOnBothRoads) {
    boxes.Expect(u"错误：该分类不是最后一级，请重新选择!"_s);
    Pick("comKind", u"0302银行存款"_s);
    EXPECT_EQ(At<KestroCombox>("comKind")->text(), QString());
    Pick("comKind", u"0201"_s);
    boxes.Expect(u"错误：该分类不是最后一级，请重新选择!"_s);
    RegisterDialog(kDlgTree, [](QPoint) {
        TreeDialog tree;
        EXPECT_EQ(tree.key, u"tKind"_s);
        tree.key = u"03"_s;
        tree.name = u"03资产"_s;
        tree.done = 1;
    });
    At<KestroCombox>("comKind")->onBrowse();
    EXPECT_EQ(At<KestroCombox>("comKind")->text(), u"0201办公费用"_s);
    boxes.Expect(u"错误：该账户不是最后一级，请重新选择!"_s);
    Press("pngArrow");
    Pick("comAccName", u"03开发项目"_s);
    EXPECT_EQ(At<KestroCombox>("comAccName")->text(), QString());
}

TEST_F(EntryWindow, DaysAndTheCalculatorWriteIntoTheirBoxes) {
    auto* date = At<KestroText>("txtDate");
    Press("pngPlus");
    EXPECT_EQ(date->text(), u"2016-09-04"_s);
    date->setText(u"2016/3/1"_s);
    Press("PngReduce");
    EXPECT_EQ(date->text(), u"2016-02-29"_s);
    date->setText(u"2016-2-30"_s);
    Press("pngPlus");
    EXPECT_EQ(date->text(), u"2016-09-03"_s);
    auto* money = At<KestroText>("txtMoney");
    QTest::keyClick(money, Qt::Key_Down, Qt::AltModifier);
    TypeInto(money, u"3*2.5"_s);
    QTest::keyClick(money, Qt::Key_Return);
    EXPECT_EQ(money->text(), u"7.50"_s);
}

TEST_F(EntryWindow, CancelDropsKeptPicturesAndTheCloseBoxKeepsThem) {
    State().gDB.Execute(
        u"insert into tPic values (9,x'00','a','tAccount',-1,-1),(10,x'00','b','tNotebook',-1,-1)"_s);
    window_->onClose();
    EXPECT_EQ(Rows(State().gDB, u"select ID1 from tPic"_s), (QStringList{u"1"_s, u"9"_s, u"10"_s}));
    window_->show();
    QTest::keyClick(At<QWidget>("txtThing"), Qt::Key_Escape);
    EXPECT_FALSE(window_->isVisible());
    EXPECT_EQ(Rows(State().gDB, u"select ID1 from tPic"_s), (QStringList{u"1"_s, u"10"_s}));
    EXPECT_EQ(EntryDialog().done, 0);
}

TEST_F(EntryWindow, AFailingStatementLeavesTheWindowWithWhatWasTyped) {
    FillOneKind();
    int left = 9;
    cConnection::Seams().beforeStatement = [&left](const QString& sql) {
        if (--left == 0) FailStatement(u"磁盘已满"_s, sql);
    };
    boxes.Expect(u"【事情】：买笔"_s);
    boxes.Expect(u"意外错误，错误信息："_s);
    Press("btnEnter");
    cConnection::Seams() = {};
    EXPECT_TRUE(window_->isVisible());
    EXPECT_EQ(At<KestroText>("txtThing")->text(), u"买笔"_s);
    EXPECT_EQ(Entries(), 5);
    EXPECT_EQ(Rows(State().gDB, u"select Max1 from tNum where Table1='taccount'"_s), QStringList{u"8"_s});
    boxes.Expect(u"【事情】：买笔"_s, 0);
    Press("btnEnter");
    EXPECT_TRUE(window_->isVisible());
    boxes.Expect(u"【事情】：买笔"_s);
    QTest::keyClick(At<QWidget>("editNote"), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_FALSE(window_->isVisible());
    EXPECT_EQ(Entries(), 6);
}
