// The checks of the entry window in their order, what they rewrite, and the question before saving.

#include "ledger/entry_check.h"

#include "ledger/entry_save.h"
#include "tests/support/entries.h"
#include "tests/support/fixture.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace {

class EntryCheckTest : public Fixture {
 protected:
    EntryValues Full() {
        auto e = SampleEntry(u"x"_s, u"12"_s);
        SetShape(e, 5);
        return e;
    }
};

}  // namespace

TEST_F(EntryCheckTest, AnAmountLeftAsItWasLoadedStandsWhateverItsSize) {
    auto e = Full();
    e.money = e.accountValue[0] = e.accountValue[1] = u"9999999999999"_s;
    EXPECT_EQ(CheckEntry(e).focus, EntryField::money);
    e.loadedAmounts = {e.money, e.accountValue[0], e.accountValue[1]};
    EXPECT_TRUE(CheckEntry(e).Good());
    e.accountValue[1] = u"9999999999998"_s;
    EXPECT_EQ(CheckEntry(e).focus, EntryField::account2Value);
}

TEST_F(EntryCheckTest, AnAmountIsMeasuredAsItWillBeStored) {
    for (const auto& [money, good] :
         {std::pair{u"999999999999.994"_s, true}, {u"999999999999.996"_s, false}}) {
        auto e = Full();
        e.money = e.accountValue[0] = money;
        EXPECT_EQ(CheckEntry(e).Good(), good) << qPrintable(money);
        e = Full();
        e.accountValue[0] = money;
        EXPECT_EQ(CheckEntry(e).Good(), good) << qPrintable(money);
    }
}

// Everything is wrong at first; each row puts right what the row before it complained of.
TEST_F(EntryCheckTest, ComplaintsComeInTheirOrder) {
    struct Step {
        std::function<void(EntryValues&)> mend;
        QString message;
        EntryField focus;
    };
    const QString hint = u"\n若您不需要记入账户,可单击右边【侧箭头】按钮,将记入账户关闭!"_s;
    const Step steps[] = {
        {[](auto& e) { e.title = u" \u3000 "_s; }, u"事情不能为空!"_s, EntryField::thing},
        {[](auto& e) { e.title = u"x"_s; }, u"金额不正确!"_s, EntryField::money},
        {[](auto& e) { e.money = u".5"_s; }, u"入账日期不正确!"_s, EntryField::date},
        {[](auto& e) { e.date = u"2016/1/5"_s; }, u"小时不正确!"_s, EntryField::hour},
        {[](auto& e) { e.hour = u"24"_s; }, u"小时不正确!"_s, EntryField::hour},
        {[](auto& e) { e.hour = u"23.9"_s; }, u"分钟不正确!"_s, EntryField::minute},
        {[](auto& e) { e.minute = u"60"_s; }, u"分钟不正确!"_s, EntryField::minute},
        {[](auto& e) { e.minute = u"-1"_s; }, u"分类一不能为空!"_s, EntryField::kind},
        {[](auto& e) { e.text[kKind1] = u"a"_s; }, u"【分类二】不能为空!"_s, EntryField::kind2},
        {[](auto& e) { e.text[kKind2] = u"a"_s; }, u"【分类一】与【分类二】不能相同!"_s, EntryField::none},
        {[](auto& e) { e.text[kKind2] = u"b"_s; }, u"【账户一名称】不能为空!"_s + hint, EntryField::account},
        {[](auto& e) { e.text[kAccount1] = u"c"_s; }, u"【账户一金额】不能为空!"_s + hint,
         EntryField::accountValue},
        {[](auto& e) { e.accountValue[0] = u" "_s; }, u"【账户一金额】不能为空!"_s + hint,
         EntryField::accountValue},
        {[](auto& e) { e.accountValue[0] = u"1e16"_s; }, u"金额不正确!"_s, EntryField::accountValue},
        {[](auto& e) { e.accountValue[0] = u".7"_s; }, u"【账户二名称】不能为空!"_s, EntryField::account2},
        {[](auto& e) { e.text[kAccount2] = u"c"_s; }, u"【账户二金额】不能为空!"_s,
         EntryField::account2Value},
        {[](auto& e) { e.accountValue[1] = u"-1000000000000"_s; }, u"金额不正确!"_s,
         EntryField::account2Value},
        {[](auto& e) { e.accountValue[1] = u".x"_s; }, u"【账户一】与【账户二】不能相同!"_s,
         EntryField::none},
        {[](auto& e) { e.text[kAccount2] = u"d"_s; }, {}, EntryField::none},
    };
    EntryValues e;
    e.kind2On = e.toAccount = e.account2On = true;
    for (const auto& step : steps) {
        step.mend(e);
        const auto complaint = CheckEntry(e);
        EXPECT_EQ(complaint.message, step.message);
        EXPECT_EQ(complaint.focus, step.focus) << qPrintable(step.message);
        EXPECT_EQ(complaint.Good(), step.message.isEmpty());
    }
    EXPECT_EQ(e.money, u"0.50"_s);
    EXPECT_EQ(e.date + e.hour + e.minute, u"2016/1/523.9-1"_s);
    EXPECT_EQ(e.accountValue[0] + e.accountValue[1], u"0.70.x"_s);
}

TEST_F(EntryCheckTest, WhatIsSwitchedOffIsNotChecked) {
    auto e = SampleEntry(u"x"_s, u"1"_s);
    e.text[kKind2] = e.text[kKind1];
    e.account2On = true;
    EXPECT_TRUE(CheckEntry(e).Good());
    SetShape(e, 2);
    e.text[kAccount2] = e.text[kAccount1];
    EXPECT_TRUE(CheckEntry(e).Good());
}

TEST_F(EntryCheckTest, AmountsAreRewrittenWithTwoPlaces) {
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u".5", u"0.50"},  {u"12", u"12.00"},   {u"1e3", u"1000.00"}, {u"-5", u"-5.00"}, {u"0", u"0.00"},
        {u" 7 ", u"7.00"}, {u"0.125", u"0.13"}, {u"-.005", u"-0.01"}, {u"1.", u"1.00"}};
    for (const auto& [typed, rewritten] : cases) {
        auto e = SampleEntry(u"x"_s, QString::fromUtf16(typed));
        EXPECT_TRUE(CheckEntry(e).Good());
        EXPECT_EQ(e.money, QString::fromUtf16(rewritten));
    }
    for (const auto& wrong : {u""_s, u"1,5"_s, u"x"_s, u"1e999"_s, u"1234567890.123456"_s}) {
        auto e = SampleEntry(u"x"_s, wrong);
        EXPECT_EQ(CheckEntry(e).focus, EntryField::money) << qPrintable(wrong);
        EXPECT_EQ(e.money, wrong);
    }
}

TEST_F(EntryCheckTest, TheQuestionTellsTheEntryInItsShape) {
    const QString head =
        u"【事情】：x\n【日期】：2016-09-05  09:30\n【金额】：12 元\n\n【分类１】：▲ 0102项目收入\n"_s;
    const QString second = u"【分类２】：▼ 030202工行\n"_s;
    const QString none = u"\n【不同时记入账户】!"_s;
    const QString account = u"\n【账户１】：▲ 0301软件开发\n【金额１】：12  元 "_s;
    const QString account2 = u"\n【账户２】：▼ 02大宇公司\n【金额２】：7.25  元 "_s;
    struct Case {
        QString text;
        int height;
    };
    const Case cases[kShapes] = {{head + none, 200},
                                 {head + second + none, 220},
                                 {head + account, 240},
                                 {head + second + account, 240},
                                 {head + account + account2, 260},
                                 {head + second + account + account2, 260}};
    for (int shape = 0; shape < kShapes; ++shape) {
        auto e = SampleEntry(u"x"_s, u"12"_s);
        SetShape(e, shape);
        EXPECT_EQ(BuildConfirmText(e), cases[shape].text) << shape;
        EXPECT_EQ(ConfirmHeight(e), cases[shape].height) << shape;
    }
}

TEST_F(EntryCheckTest, NothingIsSavedBeforeTheAnswer) {
    OpenSample();
    const auto rows = [] { return Rows(State().gDB, u"select count(*) from tAccount"_s); };
    auto e = Full();
    e.title.clear();
    boxes.Expect(u"事情不能为空!"_s);
    const auto refused = SaveNewEntry(State().gDB, e);
    EXPECT_FALSE(refused.done);
    EXPECT_EQ(refused.focus, EntryField::thing);
    e = Full();
    boxes.Expect(u"【事情】：x"_s, 0);
    EXPECT_FALSE(SaveNewEntry(State().gDB, e).done);
    EXPECT_EQ(rows(), QStringList{u"5"_s});
    boxes.Expect(u"【事情】：x"_s, 1);
    const auto saved = SaveNewEntry(State().gDB, e);
    EXPECT_TRUE(saved.done);
    EXPECT_EQ(saved.ids.main * 1000 + saved.ids.second, 8009);
    EXPECT_EQ(boxes.Last().title + boxes.Last().buttons, u"记账信息是否正确？不正确,正确"_s);
    EXPECT_EQ(boxes.Last().width, 392);
    EXPECT_EQ(boxes.Last().height, 260);
    EXPECT_EQ(rows(), QStringList{u"7"_s});
}

TEST_F(EntryCheckTest, OnlyLeavesArePicked) {
    OpenSample();
    struct Case {
        size_t slot;
        QString code, name, message;
    };
    const Case cases[] = {{kKind1, u"0101"_s, u"产品收入"_s, {}},
                          {kKind2, u"03"_s, {}, u"错误：该分类不是最后一级，请重新选择!"_s},
                          {kAccount1, u"03"_s, {}, u"错误：该账户不是最后一级，请重新选择!"_s},
                          {kAccount2, u"0301"_s, u"软件开发"_s, {}}};
    for (const auto& c : cases) {
        EntryValues e;
        if (!c.message.isEmpty()) boxes.Expect(c.message);
        EXPECT_EQ(PickCode(State().gDB, e, c.slot, c.code), c.message.isEmpty());
        EXPECT_EQ(e.name[c.slot], c.name);
        EXPECT_EQ(e.code[c.slot].isEmpty(), c.name.isEmpty());
    }
}
