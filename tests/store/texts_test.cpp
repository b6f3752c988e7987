// Dates, quick periods, and texts of a fixed width.

#include "store/dates.h"
#include "store/text.h"
#include "tests/support/fixture.h"

using namespace Qt::StringLiterals;

namespace {

class TextsTest : public Fixture {};

QString T(const char16_t* text) {
    return QString::fromUtf16(text);
}

}  // namespace

TEST_F(TextsTest, QuickPeriodsByTheDayOfTheClock) {
    struct Case {
        const char16_t *today, *key, *first, *second;
    };
    const Case cases[] = {
        {u"2016-09-03", u"today", u"2016-09-03", u"2016-09-03"},
        {u"2016-09-03", u"yestoday", u"2016-09-02", u"2016-09-02"},
        {u"2016-03-01", u"yestoday", u"2016-02-29", u"2016-02-29"},
        {u"2016-01-01", u"yestoday", u"2015-12-31", u"2015-12-31"},
        {u"2016-09-03", u"week", u"2016-08-29", u"2016-09-03"},  // a Saturday
        {u"2016-09-04", u"week", u"2016-08-29", u"2016-09-04"},  // a Sunday ends its week
        {u"2016-09-05", u"week", u"2016-09-05", u"2016-09-05"},  // a Monday
        {u"2017-01-01", u"week", u"2016-12-26", u"2017-01-01"},
        {u"2016-09-03", u"rcently", u"2016-08-25", u"2016-09-03"},
        {u"2016-01-05", u"rcently", u"2015-12-27", u"2016-01-05"},
        {u"2016-09-03", u"month", u"2016-09-01", u"2016-09-03"},
        {u"2016-09-03", u"premonth", u"2016-08-01", u"2016-08-31"},
        {u"2016-01-31", u"premonth", u"2015-12-01", u"2015-12-31"},
        {u"2016-03-31", u"premonth", u"2016-02-01", u"2016-02-29"},
        {u"2015-03-01", u"premonth", u"2015-02-01", u"2015-02-28"},
        {u"2100-03-01", u"premonth", u"2100-02-01", u"2100-02-29"},  // by the rule of four
        {u"2016-12-31", u"premonth", u"2016-11-01", u"2016-11-30"},
        {u"2016-12-31", u"year", u"2016-01-01", u"2016-12-31"},
        {u"2016-09-03", u"all", u"日期1", u"日期2"},
        {u"2016-09-03", u"yesterday", u"", u""},
        {u"2016-09-03", u"", u"", u""},
        {u"2016-09-03", u"Month", u"", u""},
    };
    for (const auto& c : cases) {
        SetClock(T(c.today) + u" 23:59:59"_s);
        const auto dates = QuickPeriodDates(T(c.key));
        EXPECT_EQ(dates.first, T(c.first)) << qPrintable(T(c.today) + T(c.key));
        EXPECT_EQ(dates.second, T(c.second)) << qPrintable(T(c.today) + T(c.key));
    }
    SetClock(u"2016-01-05 08:07:06"_s);
    EXPECT_EQ(QuickPeriodLabels(u"rcently"_s).first, u"2015\n12-27"_s);
    EXPECT_EQ(QuickPeriodLabels(u"all"_s).second, u"日期2"_s);
    EXPECT_EQ(QuickPeriodLabels(u"none"_s).second, QString());
    EXPECT_EQ(NowText() + TimeText(true) + TimeText(false), u"2016-01-05 08:07:0608:0708:07:06"_s);
    EXPECT_EQ(TodayText(u"-"_s) + TodayText(u"/"_s) + TodayText({}), u"2016-01-052016/01/0520160105"_s);
}

TEST_F(TextsTest, MonthsHaveTheirDaysByTheRuleOfFour) {
    const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= 12; ++month)
        EXPECT_EQ(DaysInMonth(2015, month), days[month - 1]) << month;
    for (const int year : {1900, 2000, 2016, 2100})
        EXPECT_EQ(DaysInMonth(year, 2), 29) << year;
}

TEST_F(TextsTest, RealDaysAreDatesInEveryWriting) {
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"2016-09-03", u"2016-09-03"},
        {u"2016-9-3", u"2016-09-03"},
        {u"2016/1/5", u"2016-01-05"},
        {u"2016.01.05", u"2016-01-05"},
        {u"2016年1月5日", u"2016-01-05"},
        {u" 2016-1-5 ", u"2016-01-05"},
        {u"2016-02-29", u"2016-02-29"},
        {u"2015-02-29", u""},
        {u"2016-02-30", u""},
        {u"2016-13-01", u""},
        {u"2016-00-10", u""},
        {u"2016-1-0", u""},
        {u"2016-1/5", u""},
        {u"2016年1月5", u""},
        {u"2016-1-5日", u""},
        {u"16-1-5", u""},
        {u"1-5-2016", u""},
        {u"2016-09", u""},
        {u"20160903", u""},
        {u"2016-09-03 10:00", u""},
        {u"２０１６-1-5", u""},
        {u"today", u""},
        {u"", u""},
    };
    for (const auto& [text, day] : cases) {
        const auto date = ParseDate(T(text));
        EXPECT_EQ(date ? DateText(*date) : QString(), T(day)) << qPrintable(T(text));
    }
}

TEST_F(TextsTest, WidthsCountTwoForAChineseCharacter) {
    struct Case {
        int width;
        const char16_t *text, *padded;
    };
    const Case cases[] = {
        {4, u"", u"    "},        {6, u"ab", u"ab    "},   {6, u"记账", u"记账  "}, {4, u"记账", u"记账"},
        {5, u"记账本", u"记账 "}, {4, u"记账本", u"记账"}, {3, u"abcd", u"abc"},    {3, u"a记账", u"a记"},
        {1, u"记", u" "},         {0, u"记", u""},         {6, u"a😀b", u"a😀b"},     {4, u"a😀", u"a   "},
        {4, u"￥1", u"￥1 "},
    };
    for (const auto& c : cases)
        EXPECT_EQ(PadByWidth(c.width, T(c.text)), T(c.padded)) << qPrintable(T(c.text));
}

TEST_F(TextsTest, LevelsAreIndentedBySixBlanks) {
    const QString six(6, u' ');
    EXPECT_EQ(IndentByDepth(u"01"_s), u"01"_s);
    EXPECT_EQ(IndentByDepth(u" 0102 "_s), six + u"0102"_s);
    EXPECT_EQ(IndentByDepth(u"010203"_s), six + six + u"010203"_s);
    EXPECT_EQ(IndentByDepth(u"1"_s), u"1"_s);
    EXPECT_EQ(IndentByDepth({}), QString());
    EXPECT_EQ(IndentByDepth(u"0102"_s, true), u"&nbsp;&nbsp;&nbsp;0102"_s);
    EXPECT_EQ(OneLine(u"a\r\nb\nc\rd"_s), u"a b c d"_s);
    EXPECT_EQ(TwoLineDate(u"2016-09-03"_s) + TwoLineDate({}), u"2016\n09-03"_s);
}
