// Numbers as texts and back.

#include "store/money.h"

#include "tests/support/fixture.h"

#include <QProcess>

#include <clocale>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

using MoneyTest = Fixture;

QString T(const char16_t* text) {
    return QString::fromUtf16(text);
}

}  // namespace

TEST_F(MoneyTest, AmountsRoundToTheEvenHundredthAndFixedTextsAwayFromZero) {
    struct Case {
        double x;
        const char16_t *money, *fixed, *plain;
    };
    const Case cases[] = {
        {0, u"0", u"0.00", u"0"},
        {12, u"12", u"12.00", u"12"},
        {12.5, u"12.50", u"12.50", u"12.5"},
        {0.125, u"0.12", u"0.13", u"0.125"},
        {0.135, u"0.14", u"0.14", u"0.135"},
        {-0.125, u"-0.12", u"-0.13", u"-0.125"},
        {1.005, u"1", u"1.01", u"1.005"},  // a half in decimal, a little less in binary
        {1.015, u"1.02", u"1.02", u"1.015"},
        {2.675, u"2.68", u"2.68", u"2.675"},
        {0.005, u"0", u"0.01", u"0.005"},
        {0.015, u"0.02", u"0.02", u"0.015"},
        {0.0049999, u"0", u"0.00", u"0.0049999"},
        {-0.004, u"0", u"0.00", u"-0.004"},
        {-0.0, u"0", u"0.00", u"0"},
        {0.995, u"1", u"1.00", u"0.995"},
        {99.995, u"100", u"100.00", u"99.995"},
        {999999.995, u"1000000", u"1000000.00", u"999999.995"},
        {0.1 + 0.2, u"0.30", u"0.30", u"0.3"},
        {123456789012345, u"123456789012345", u"123456789012345.00", u"123456789012345"},
        {999999999999999, u"999999999999999", u"999999999999999.00", u"999999999999999"},
        {1e15, u"1E+15", u"1000000000000000.00", u"1E+15"},
        {-5, u"-5", u"-5.00", u"-5"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(MoneyText(c.x), T(c.money)) << c.x;
        EXPECT_EQ(FixedText(c.x), T(c.fixed)) << c.x;
        EXPECT_EQ(PlainNumber(c.x), T(c.plain)) << c.x;
    }
}

TEST_F(MoneyTest, NumbersAreGroupedFromTheRight) {
    struct Case {
        int nGroup;
        double x;
        const char16_t *separator, *zero, *text;
    };
    const Case cases[] = {
        {3, 0.004, u",", u"", u""},
        {3, -0.004, u",", u"0", u"0"},
        {3, 0, u",", u"－", u"－"},
        {3, -0.5, u",", u"", u"-0.5"},
        {3, 0.005, u",", u"", u"0.005"},
        {3, 0.999, u",", u"", u"0.999"},
        {3, 12, u",", u"", u"12"},
        {3, 999, u",", u"", u"999"},
        {3, -999, u",", u"", u"-999"},
        {3, 1000, u",", u"", u"1,000"},
        {3, -1000, u",", u"", u"-1,000"},
        {3, 99.5, u",", u"", u"99.5"},
        {3, 1234567, u",", u"", u"1,234,567"},
        {3, 123456, u",", u"", u"123,456"},
        {3, 1234.5, u",", u"", u"1,234.5"},
        {3, 1234.56789, u",", u"", u"1,234.56789"},
        {3, 1234567, u"  ", u"", u"1  234  567"},
        {3, 123456789012345, u",", u"", u"123,456,789,012,345"},
        {3, 1e18, u",", u"", u"1E+18"},
        {3, -2.5e20, u",", u"", u"-2.5E+20"},
        {4, 1234567, u",", u"", u"123,4567"},
        {4, 12345678.5, u",", u"", u"1234,5678.5"},
        {4, 1234, u",", u"", u"1234"},
        {4, 12345, u",", u"", u"1,2345"},
        {0, 1234567, u",", u"", u"1234567"},
        {2, 1234567, u",", u"", u"1234567"},
        {5, 1234567.25, u",", u"", u"1234567.25"},
        {-3, 1234567, u",", u"", u"1234567"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(GroupNumber(c.x, c.nGroup, T(c.separator), T(c.zero)), T(c.text)) << c.nGroup << " " << c.x;
    EXPECT_EQ(GroupText(u"1234.50"_s, 3, u","_s, {}), u"1,234.50"_s);
    EXPECT_EQ(GroupText(u"1234567890123456789"_s, 3, u","_s, {}), u"1234567890123456789"_s);
}

TEST_F(MoneyTest, TextsAreReadAsNumbers) {
    struct Case {
        const char16_t* text;
        double val;
        bool numeric;
        double value = 0;
    };
    const Case cases[] = {
        {u"12", 12, true, 12},
        {u" 12.5 ", 12.5, true, 12.5},
        {u"\u300012\u3000", 0, true, 12},
        {u"1e3", 1000, true, 1000},
        {u"1E-2", 0.01, true, 0.01},
        {u"-5", -5, true, -5},
        {u"+5", 5, true, 5},
        {u".5", 0.5, true, 0.5},
        {u"5.", 5, true, 5},
        {u"-.5", -0.5, true, -0.5},
        {u"007", 7, true, 7},
        {u"123456789012345", 123456789012345, true, 123456789012345},
        {u"0000123456789012345", 123456789012345, true, 123456789012345},
        {u"1234567890123456", 1234567890123456, false},
        {u"0.1234567890123456", 0.1234567890123456, false},
        {u"1e400", 0, false},
        {u"", 0, false},
        {u" ", 0, false},
        {u".", 0, false},
        {u"-", 0, false},
        {u"e3", 0, false},
        {u"1e", 1, false},
        {u"1e+", 1, false},
        {u"1.2.3", 1.2, false},
        {u"1-2", 1, false},
        {u"--5", 0, false},
        {u"1,234", 1, false},
        {u"12x", 12, false},
        {u"x12", 0, false},
        {u"１２", 0, false},
        {u"0x10", 0, false},
        {u"inf", 0, false},
        {u"nan", 0, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Val(T(c.text)), c.val) << qPrintable(T(c.text));
        const auto value = NumericValue(T(c.text));
        ASSERT_EQ(value.has_value(), c.numeric) << qPrintable(T(c.text));
        EXPECT_EQ(value.value_or(0), c.value) << qPrintable(T(c.text));
    }
    EXPECT_TRUE(LooksNumeric(u"123456789012345678"));
    EXPECT_TRUE(LooksNumeric(u"-1.5"));
    EXPECT_FALSE(LooksNumeric(u"0x"));
}

TEST_F(MoneyTest, WhatIsPastedIntoAnAmountBoxLosesItsOrnaments) {
    const std::pair<const char16_t*, const char16_t*> cases[] = {{u"￥1,234.50", u"1234.50"},
                                                                 {u"¥ 1，234", u"1234"},
                                                                 {u"\t12\n", u"12"},
                                                                 {u"\u3000１２．５", u"12.5"},
                                                                 {u"－３", u"-3"},
                                                                 {u"＋３", u"+3"},
                                                                 {u"12元", u"12"},
                                                                 {u"", u""}};
    for (const auto& [typed, clean] : cases)
        EXPECT_EQ(CleanAmount(T(typed)), T(clean));
}

TEST_F(MoneyTest, HundredthsFitThirtyTwoBitsOrNothing) {
    EXPECT_EQ(Hundredths(12.345), 1235);
    EXPECT_EQ(Hundredths(-0.01), -1);
    EXPECT_EQ(Hundredths(1.005), 101);
    EXPECT_EQ(Hundredths(21474836.47), std::numeric_limits<int>::max());
    EXPECT_EQ(Hundredths(-21474836.48), std::numeric_limits<int>::min());
    for (const double tooMuch : {21474836.48, -21474836.49, 1e300, std::numeric_limits<double>::infinity()})
        EXPECT_FALSE(Hundredths(tooMuch).has_value()) << tooMuch;
    EXPECT_EQ(TwoDigits(7) + TwoDigits(-1) + TwoDigits(123), u"07-01123"_s);
}

// A desktop may write numbers with a comma; books, statements and amount boxes never do.
TEST_F(MoneyTest, TheDesktopsDecimalCommaChangesNothing) {
    const QString made = Path(u"de_DE.UTF-8"_s);
    if (QProcess::execute(u"localedef"_s, {u"-i"_s, u"de_DE"_s, u"-f"_s, u"UTF-8"_s, made}) != 0)
        GTEST_SKIP() << "no locale with a comma can be made here";
    qputenv("LOCPATH", Path({}).toUtf8());
    ASSERT_NE(std::setlocale(LC_NUMERIC, "de_DE.UTF-8"), nullptr);
    EXPECT_EQ(Val(u"12.75"), 12.75);
    EXPECT_EQ(NumericValue(u"-.5e1").value_or(0), -5);
    EXPECT_EQ(PlainNumber(1234.5) + MoneyText(12.75) + FixedText(0.125), u"1234.512.750.13"_s);
    EXPECT_EQ(GroupNumber(1234.5, 3, u","_s, {}), u"1,234.5"_s);
    std::setlocale(LC_NUMERIC, "C");
    qunsetenv("LOCPATH");
}
