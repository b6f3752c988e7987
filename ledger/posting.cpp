#include "ledger/posting.h"

#include "chart/codes.h"
#include "store/money.h"
#include "store/notices.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double kFarTime = 9999;

int SignOf(bool add) {
    return add ? 1 : -1;
}

// The checks refuse what is too large, but for an amount that stood before; that one goes back as it was.
QString StoredAmount(const QString& typed) {
    return MoneyText(Val(typed));
}

QString StoredTime(const EntryValues& e) {
    // The checks refuse what is too late, not what is absurdly early.
    const auto whole = [](const QString& text) {
        return static_cast<int>(std::clamp(Val(text), -kFarTime, kFarTime));
    };
    const auto part = [&](const QString& text) { return TwoDigits(whole(text)); };
    return part(e.hour) + u':' + part(e.minute);
}

}  // namespace

AccountRow KindRow(const EntryValues& e, size_t slot) {
    AccountRow row;
    row.Title1 = e.title.trimmed();
    row.Type1 = e.code[slot];
    row.TypeName1 = e.name[slot];
    row.Value1 = StoredAmount(e.money);
    row.nSign = SignOf(e.add[slot]);
    row.Mark1 = e.mark;
    row.Note1 = e.note;
    row.Date1 = e.date.trimmed();
    row.Time1 = StoredTime(e);
    row.sPic = e.pictures;
    row.bIsMain = slot == kKind1;
    return row;
}

SubAccItemRow RecordRow(const EntryValues& e, size_t slot) {
    SubAccItemRow row;
    row.Title1 = e.title.trimmed();
    row.SubAccKey = e.code[slot];
    row.SubAccName1 = e.name[slot];
    row.TypeName1 = e.name[kKind1];
    row.Value1 = StoredAmount(e.accountValue[slot - kAccount1]);
    row.nSign = SignOf(e.add[slot]);
    row.Date1 = e.date.trimmed();
    row.Time1 = StoredTime(e);
    return row;
}

void InsistOnCodes(cConnection& book, const EntryValues& entry, const SlotCodes& before) {
    const std::array<bool, 4> used{true, entry.kind2On, entry.toAccount, entry.toAccount && entry.account2On};
    for (size_t slot = 0; slot < used.size(); ++slot) {
        const QString& code = entry.code[slot];
        if (!used[slot] || code == before[slot]) continue;
        auto rows = book.Read(u"select Sort1 from "_s + TableOf(ChartOfSlot(slot)).table + u" where "_s +
                              AtOrBelow(u"Sort1"_s, code));
        const bool isLeaf = rows.Next() && rows.Text(0) == code && !rows.Next();
        if (!isLeaf) FailStatement(u"所选的分类或账户刚刚被修改或删除，请重新选择"_s, {});
    }
}

PostedIds PostEntry(cConnection& book, const EntryValues& entry) {
    EntryRows rows{KindRow(entry, kKind1), {}, {}, {}};
    if (entry.kind2On) rows.second = KindRow(entry, kKind2);
    if (entry.toAccount) rows.record1 = RecordRow(entry, kAccount1);
    if (entry.toAccount && entry.account2On) rows.record2 = RecordRow(entry, kAccount2);
    Transaction save(book);
    InsistOnCodes(book, entry, {});
    const PostedIds ids = PostRows(book, rows);
    save.Commit();
    Notices().entriesChanged.Emit();
    return ids;
}
