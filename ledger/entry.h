#pragma once
// What one entry holds as typed: the values between the entry window and the book.

#include "store/chart.h"

#include <QString>

#include <array>

/// Index of the four kind and account boxes in every array of an entry.
enum EntrySlot { kKind1 = 0, kKind2 = 1, kAccount1 = 2, kAccount2 = 3 };

/// Controls of the entry window that a check can send the focus to.
enum class EntryField {
    none,
    thing,
    money,
    date,
    hour,
    minute,
    kind,
    kind2,
    account,
    accountValue,
    account2,
    account2Value
};

struct EntryValues {
    QString title;
    QString money;
    QString date;
    QString hour;
    QString minute;
    QString note;
    bool mark = false;
    QString pictures = QStringLiteral("0");  ///< picture count as text

    std::array<QString, 4> text;                      ///< what the four boxes show
    std::array<QString, 4> code;                      ///< sKey
    std::array<QString, 4> name;                      ///< sName
    std::array<bool, 4> add{true, true, true, true};  ///< 增加 is on, otherwise 减少
    std::array<QString, 2> accountValue;              ///< amounts of the two account records
    /// The three amounts as an edit loaded them, the entry's own first: one left so stands whatever its size.
    std::array<QString, 3> loadedAmounts;

    bool kind2On = false;     ///< chkOther
    bool toAccount = false;   ///< bToAccount
    bool account2On = false;  ///< chkOther1
};

/// The chart that a slot picks from.
constexpr Chart ChartOfSlot(size_t slot) {
    return slot < kAccount1 ? Chart::kinds : Chart::accounts;
}
