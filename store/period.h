#pragma once
// A span of days whose ends may be unset: what date buttons hold, what filters and reports ask for.

#include <QDate>
#include <QString>

#include <optional>

struct Period {
    std::optional<QDate> first, second;  ///< both ends belong to it

    bool operator==(const Period&) const = default;
};

/// What a date button says while its end is unset.
inline const QString kUnsetFirst = QStringLiteral("日期1");
inline const QString kUnsetSecond = QStringLiteral("日期2");

/// " and …" for the column Date1, which holds texts; empty when both ends are unset.
QString PeriodCondition(const Period& period);

/// The period of a key: today yestoday week rcently month premonth year; both ends unset for all and for an
/// unknown key.
Period PeriodOfKey(const QString& key);
