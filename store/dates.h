#pragma once
// Dates and times as the book holds them, and the quick periods. The clock is Outside().now.

#include <QDate>
#include <QString>

#include <optional>

/// The present moment, "YYYY-MM-DD hh:mm:ss".
QString NowText();
/// The present time, "hh:mm" when brief, otherwise "hh:mm:ss".
QString TimeText(bool brief);
/// Today with the given separator.
QString TodayText(const QString& separator);
/// By the rule of four alone: 1900 and 2100 are leap years here.
int DaysInMonth(int year, int month);

/// A real day written year-month-day with "-", "/", "." or 年月日.
std::optional<QDate> ParseDate(QStringView text);
QString DateText(QDate date);

/// "2016-09-03" as the two lines of a date button; anything else of ten characters likewise.
QString TwoLineDate(const QString& date);

struct PeriodDates {
    QString first, second;  ///< "YYYY-MM-DD"; 日期1 and 日期2 for "all"; empty for an unknown key
};
/// key: today yestoday week rcently month premonth year all.
PeriodDates QuickPeriodDates(const QString& key);
/// The same as the texts of date buttons, in two lines.
PeriodDates QuickPeriodLabels(const QString& key);
