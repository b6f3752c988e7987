// Hierarchical codes: typed texts, paths, leaves, sums and children.

#include "chart/codes.h"

#include "tests/support/fixture.h"

using namespace Qt::StringLiterals;

namespace {

class CodesTest : public Fixture {
 protected:
    CodesTest() { OpenSample(); }

    QStringList Children(Chart chart, const QString& code) {
        QStringList children;
        for (const auto& child : ChildCodes(Book(), chart, code))
            children << child.code + child.name;
        children.sort();
        return children;
    }
};

const QString kBad = u"格式错误!"_s;
const QString kOdd = u"格式错误! 编号长度只能是2的倍数!"_s;
const QString kLong = u"格式错误! 编号长度最多9级18位数字!"_s;

}  // namespace

TEST_F(CodesTest, CodeAndNameAreTypedAsOneText) {
    struct Case {
        QString text, code, name, message;
    };
    const Case cases[] = {
        {u"0102 生产成本"_s, u"0102"_s, u"生产成本"_s, {}},
        {u"  0102 生产成本  "_s, u"0102"_s, u"生产成本"_s, {}},
        {u"010203040506070809 x"_s, u"010203040506070809"_s, u"x"_s, {}},
        {u"01 O'Neil"_s, u"01"_s, u"O'Neil"_s, {}},
        {u"01 甲\u3000乙"_s, u"01"_s, u"甲\u3000乙"_s, {}},
        {u"-1 x"_s, u"-1"_s, u"x"_s, {}},  // a number, if no code that anyone would type
        {u"1.50 x"_s, u"1.50"_s, u"x"_s, {}},
        {{}, {}, {}, kBad},
        {u"   "_s, {}, {}, kBad},
        {u"0102"_s, {}, {}, kBad},
        {u"  0102   生产成本 "_s, {}, {}, kBad},
        {u"0102  生产成本"_s, {}, {}, kBad},
        {u"01 a b"_s, {}, {}, kBad},
        {u"生产 0102"_s, {}, {}, kBad},
        {u"01x2 名"_s, {}, {}, kBad},
        {u"０１ 名"_s, {}, {}, kBad},
        {u"01\u3000名"_s, {}, {}, kBad},
        {u"01 \u3000"_s, {}, {}, kBad},
        {u"010 x"_s, {}, {}, kOdd},
        {u"1234567890123456789 x"_s, {}, {}, kOdd},
        {u"01020304050607080910 x"_s, {}, {}, kLong},
    };
    for (const auto& c : cases) {
        if (!c.message.isEmpty()) boxes.Expect(c.message);
        const auto seen = boxes.Seen().size();
        const auto parsed = ParseCodeName(c.text);
        EXPECT_EQ(parsed.code, c.code) << qPrintable(c.text);
        EXPECT_EQ(parsed.name, c.name) << qPrintable(c.text);
        ASSERT_EQ(boxes.Seen().size() - seen, c.message.isEmpty() ? 0 : 1) << qPrintable(c.text);
        if (c.message.isEmpty()) continue;
        EXPECT_EQ(boxes.Last().text, c.message) << qPrintable(c.text);
        EXPECT_EQ(boxes.Last().title + boxes.Last().buttons, u"提示确定"_s);
    }
}

TEST_F(CodesTest, LeavesHaveNothingBelowThem) {
    struct Case {
        QString code;
        Chart chart;
        bool leaf;
    };
    const Case cases[] = {
        {u"0101"_s, Chart::kinds, true},   {u"01"_s, Chart::kinds, false},
        {u"03"_s, Chart::kinds, false},    {u"0302"_s, Chart::kinds, false},
        {u"00"_s, Chart::kinds, true},     {u"77"_s, Chart::kinds, true},
        {u"01"_s, Chart::accounts, true},  {u"03"_s, Chart::accounts, false},
        {u"x'y"_s, Chart::accounts, true}, {u"030"_s, Chart::kinds, false},
        {{}, Chart::kinds, false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(IsLeafCode(Book(), c.code, c.chart), c.leaf) << qPrintable(c.code);
    EXPECT_EQ(NameByCode(Book(), u"030201"_s, Chart::kinds), u"农行"_s);
    EXPECT_EQ(NameByCode(Book(), u"77"_s, Chart::kinds) + NameByCode(Book(), u"' or 1"_s, Chart::kinds),
              QString());
}

TEST_F(CodesTest, PathsNameEveryLevelThatIsThere) {
    EXPECT_EQ(CodePathText(Book(), Chart::kinds, u"030201"_s, false), u"03资产-0302银行存款-030201农行"_s);
    EXPECT_EQ(CodePathText(Book(), Chart::kinds, u"0302010"_s, false), u"03资产-0302银行存款-030201农行"_s);
    EXPECT_EQ(CodePathText(Book(), Chart::accounts, u"01"_s, false), u"01东华公司"_s);
    for (const QString& code : {u""_s, u"77"_s})
        EXPECT_EQ(CodePathText(Book(), Chart::kinds, code, true), QString());
    Book().Execute(
        u"delete from tKind where Sort1='0302'; update tKind set Note2='甲''乙' where Sort1='030201';"
        u"update tSubAcc set Note1='丙' where Sort1='03'"_s);
    EXPECT_EQ(CodePathText(Book(), Chart::kinds, u"030201"_s, true),
              u"03资产-030201农行\n增加：5000\n减少：2100\n余额：2900\n备注：甲'乙"_s);
    EXPECT_EQ(CodePathText(Book(), Chart::accounts, u"03"_s, true),
              u"03开发项目\n增加：0\n减少：0\n余额：0\n备注：丙"_s);
}

TEST_F(CodesTest, BranchesSumTheirRowsAndNotTheStoredTotals) {
    Book().Execute(
        u"update tKind set nAdd=1,nReduce=1,Money=1;"
        u"update tAccount set Value1=0.1 where Id1=3; update tAccount set Value1=0.2 where Id1=4"_s);
    struct Case {
        Chart chart;
        QString code, added, reduced, balance;
    };
    const Case cases[] = {
        {Chart::kinds, u"03"_s, u"13500"_s, u"0.20"_s, u"13499.80"_s},
        {Chart::kinds, u"0302"_s, u"5000"_s, u"0.20"_s, u"4999.80"_s},
        {Chart::kinds, u"02"_s, u"0.10"_s, u"0"_s, u"0.10"_s},
        {Chart::kinds, u"04"_s, u"0"_s, u"0"_s, u"0"_s},
        {Chart::kinds, u"0'"_s, u"0"_s, u"0"_s, u"0"_s},
        {Chart::accounts, u"02"_s, u"8500"_s, u"0"_s, u"8500"_s},
        {Chart::accounts, {}, u"13500"_s, u"0"_s, u"13500"_s},
    };
    for (const auto& c : cases) {
        const auto sums = BranchSums(Book(), c.chart, c.code);
        EXPECT_EQ((QStringList{sums.added, sums.reduced, sums.balance}),
                  (QStringList{c.added, c.reduced, c.balance}))
            << qPrintable(c.code);
    }
}

TEST_F(CodesTest, OpeningBalancesCarryTheirSign) {
    EXPECT_EQ(GetOpeningBalance(Book(), 4, Chart::kinds, u"030201"_s), -2100);
    EXPECT_EQ(GetOpeningBalance(Book(), 4, Chart::accounts, u"02"_s), 8500);
    EXPECT_EQ(GetOpeningBalance(Book(), 4, Chart::accounts, u"01"_s), std::nullopt);
    for (const qint64 none : {0, -1, 99})
        EXPECT_EQ(GetOpeningBalance(Book(), none, Chart::kinds, u"030201"_s), std::nullopt) << none;
}

TEST_F(CodesTest, ChildrenAreOneLevelBelow) {
    Book().Execute(
        u"insert into tKind (ID1,Name1,Sort1) values (20,'奇','011'), (21,'孙','010199'), (22,'孤','050101');"
        u"update tKind set nHide=1 where Sort1='0102'"_s);
    EXPECT_EQ(Children(Chart::kinds, {}),
              (QStringList{u"00↑↓余额调整"_s, u"01收入"_s, u"02成本"_s, u"03资产"_s, u"04负债"_s}));
    EXPECT_EQ(Children(Chart::kinds, u"01"_s), (QStringList{u"0101产品收入"_s, u"0102项目收入"_s}));
    EXPECT_EQ(Children(Chart::kinds, u"0101"_s), QStringList{u"010199孙"_s});
    EXPECT_EQ(Children(Chart::kinds, u"05"_s), QStringList());
    EXPECT_EQ(Children(Chart::kinds, u"0501"_s), QStringList{u"050101孤"_s});
    EXPECT_EQ(Children(Chart::accounts, u"03"_s), QStringList{u"0301软件开发"_s});
    QStringList shown;
    for (const auto& row : ShownCodes(Book(), Chart::accounts))
        shown << row.code;
    EXPECT_EQ(shown, (QStringList{u"01"_s, u"02"_s, u"03"_s, u"0301"_s}));
    EXPECT_EQ(ShownCodes(Book(), Chart::kinds).size(), 17U);
    EXPECT_EQ(ChartCount(Book(), Chart::kinds), 18);
    EXPECT_EQ(StoredMoney(Book(), Chart::kinds, 12)->balance, 2900);
    EXPECT_FALSE(StoredMoney(Book(), Chart::kinds, 14).has_value());
}
