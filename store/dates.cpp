#include "store/dates.h"

#include "store/outside.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {
QDate Today() {
    return Outside().now().date();
}
}  // namespace

QString NowText() {
    return Outside().now().toString(u"yyyy-MM-dd HH:mm:ss"_s);
}

QString TimeText(bool brief) {
    return Outside().now().toString(brief ? u"HH:mm"_s : u"HH:mm:ss"_s);
}

QString TodayText(const QString& separator) {
    return DateText(Today()).replace(u'-', separator);
}

int DaysInMonth(int year, int month) {
    if (month == 2) return year % 4 == 0 ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

std::optional<QDate> ParseDate(QStringView text) {
    static const QRegularExpression form(
        u"^\\s*([0-9]{4})(?:-([0-9]{1,2})-|/([0-9]{1,2})/|\\.([0-9]{1,2})\\.|年([0-9]{1,2})月)([0-9]{1,2})(日?)\\s*$"_s);
    const auto match = form.match(text.toString());
    if (!match.hasMatch()) return {};
    int month = 0;
    for (int group = 2; group <= 5; ++group)
        if (!match.captured(group).isEmpty()) month = match.captured(group).toInt();
    const bool words = !match.captured(5).isEmpty();
    if (words == match.captured(7).isEmpty()) return {};
    const QDate date(match.captured(1).toInt(), month, match.captured(6).toInt());
    if (!date.isValid()) return {};
    return date;
}

QString DateText(QDate date) {
    return date.toString(u"yyyy-MM-dd"_s);
}

QString TwoLineDate(const QString& date) {
    return date.isEmpty() ? QString() : date.left(4) + u'\n' + date.mid(5, 5);
}

PeriodDates QuickPeriodDates(const QString& key) {
    const QDate today = Today();
    const auto from = [&](QDate first) { return PeriodDates{DateText(first), DateText(today)}; };
    if (key == u"today") return from(today);
    if (key == u"yestoday") return {DateText(today.addDays(-1)), DateText(today.addDays(-1))};
    if (key == u"week") return from(today.addDays(1 - today.dayOfWeek()));
    if (key == u"rcently") return from(today.addDays(-9));
    if (key == u"month") return from(QDate(today.year(), today.month(), 1));
    if (key == u"year") return from(QDate(today.year(), 1, 1));
    if (key == u"all") return {u"日期1"_s, u"日期2"_s};
    if (key != u"premonth") return {};
    const int month = today.month() == 1 ? 12 : today.month() - 1;
    const int year = today.month() == 1 ? today.year() - 1 : today.year();
    const auto monthText = u"%1-%2-"_s.arg(year, 4, 10, QChar(u'0')).arg(month, 2, 10, QChar(u'0'));
    return {monthText + u"01"_s, monthText + QString::number(DaysInMonth(year, month))};
}

PeriodDates QuickPeriodLabels(const QString& key) {
    auto dates = QuickPeriodDates(key);
    if (key == u"all") return dates;
    return {TwoLineDate(dates.first), TwoLineDate(dates.second)};
}
