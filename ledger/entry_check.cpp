#include "ledger/entry_check.h"

#include "store/dates.h"
#include "store/messages.h"
#include "store/money.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QString kCloseHint = u"\n若您不需要记入账户,可单击右边【侧箭头】按钮,将记入账户关闭!"_s;

void PutZeroInFront(QString& amount) {
    if (amount.startsWith(u'.')) amount.prepend(u'0');
}

// A larger amount is refused, but for one that was there already. rounded: as it would be stored.
bool FitsOrStands(const QString& rounded, const QString& loaded) {
    const double amount = Val(rounded);
    return std::fabs(amount) < kTooMuch || (!loaded.isEmpty() && Val(loaded) == amount);
}

bool IsBelow(const QString& text, int limit) {
    const auto value = NumericValue(text);
    return value && std::trunc(*value) < limit;
}

QString Sign(bool add) {
    return add ? u"▲"_s : u"▼"_s;
}

EntryComplaint CheckHead(EntryValues& e) {
    if (e.title.trimmed().isEmpty()) return {u"事情不能为空!"_s, EntryField::thing};
    const auto money = NumericValue(e.money);
    if (!money || !FitsOrStands(FixedText(*money), e.loadedAmounts[0]))
        return {u"金额不正确!"_s, EntryField::money};
    e.money = FixedText(*money);
    if (!ParseDate(e.date)) return {u"入账日期不正确!"_s, EntryField::date};
    if (!IsBelow(e.hour, 24)) return {u"小时不正确!"_s, EntryField::hour};
    if (!IsBelow(e.minute, 60)) return {u"分钟不正确!"_s, EntryField::minute};
    return {};
}

EntryComplaint CheckKinds(const EntryValues& e) {
    if (e.text[kKind1].isEmpty()) return {u"分类一不能为空!"_s, EntryField::kind};
    if (!e.kind2On) return {};
    if (e.text[kKind2].isEmpty()) return {u"【分类二】不能为空!"_s, EntryField::kind2};
    if (e.text[kKind1] == e.text[kKind2]) return {u"【分类一】与【分类二】不能相同!"_s, EntryField::none};
    return {};
}

EntryComplaint CheckAccounts(EntryValues& e) {
    if (e.text[kAccount1].isEmpty()) return {u"【账户一名称】不能为空!"_s + kCloseHint, EntryField::account};
    if (e.accountValue[0].trimmed().isEmpty())
        return {u"【账户一金额】不能为空!"_s + kCloseHint, EntryField::accountValue};
    if (!FitsOrStands(FixedText(Val(e.accountValue[0])), e.loadedAmounts[1]))
        return {u"金额不正确!"_s, EntryField::accountValue};
    PutZeroInFront(e.accountValue[0]);
    if (!e.account2On) return {};
    if (e.text[kAccount2].isEmpty()) return {u"【账户二名称】不能为空!"_s, EntryField::account2};
    if (e.accountValue[1].trimmed().isEmpty())
        return {u"【账户二金额】不能为空!"_s, EntryField::account2Value};
    if (!FitsOrStands(FixedText(Val(e.accountValue[1])), e.loadedAmounts[2]))
        return {u"金额不正确!"_s, EntryField::account2Value};
    PutZeroInFront(e.accountValue[1]);
    if (e.text[kAccount1] == e.text[kAccount2])
        return {u"【账户一】与【账户二】不能相同!"_s, EntryField::none};
    return {};
}

}  // namespace

EntryComplaint CheckEntry(EntryValues& entry) {
    if (auto head = CheckHead(entry); !head.Good()) return head;
    if (auto kinds = CheckKinds(entry); !kinds.Good()) return kinds;
    return entry.toAccount ? CheckAccounts(entry) : EntryComplaint{};
}

QString BuildConfirmText(const EntryValues& e) {
    const auto signedText = [&](int slot) {
        return Sign(e.add[static_cast<size_t>(slot)]) + u' ' + e.text[static_cast<size_t>(slot)];
    };
    QString text = u"【事情】："_s + e.title + u"\n【日期】："_s + e.date + u"  "_s + e.hour + u':' +
                   e.minute + u"\n【金额】："_s + e.money + u" 元\n\n【分类１】："_s + signedText(kKind1) +
                   u'\n';
    if (e.kind2On) text += u"【分类２】："_s + signedText(kKind2) + u'\n';
    if (!e.toAccount) return text + u"\n【不同时记入账户】!"_s;
    text +=
        u"\n【账户１】："_s + signedText(kAccount1) + u"\n【金额１】："_s + e.accountValue[0] + u"  元 "_s;
    if (e.account2On)
        text += u"\n【账户２】："_s + signedText(kAccount2) + u"\n【金额２】："_s + e.accountValue[1] +
                u"  元 "_s;
    return text;
}

int ConfirmHeight(const EntryValues& e) {
    if (e.toAccount) return e.account2On ? 260 : 240;
    return e.kind2On ? 220 : 200;
}

bool ConfirmEntry(const EntryValues& entry) {
    return ShowMsg(BuildConfirmText(entry), u"不正确,正确"_s, kMsgAsk, u"记账信息是否正确？"_s, 392,
                   ConfirmHeight(entry)) == 1;
}
