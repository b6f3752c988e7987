#include "store/period.h"

#include "store/connection.h"
#include "store/dates.h"

using namespace Qt::StringLiterals;

QString PeriodCondition(const Period& period) {
    const auto text = [](QDate day) { return Quote(DateText(day)); };
    const auto& [first, second] = period;
    if (first && second)
        return u" and (date1 >="_s + text(*first) + u" and date1<= "_s + text(*second) + u')';
    if (first) return u" and Date1>="_s + text(*first);
    if (second) return u" and Date1<="_s + text(*second);
    return {};
}

Period PeriodOfKey(const QString& key) {
    const auto dates = QuickPeriodDates(key);
    return {ParseDate(dates.first), ParseDate(dates.second)};
}
