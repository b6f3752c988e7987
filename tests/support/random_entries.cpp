#include "tests/support/random_entries.h"

#include "tests/support/entries.h"

using namespace Qt::StringLiterals;

const std::vector<CodeAndName>& RandomEntries::Kinds() {
    static const std::vector<CodeAndName> kinds{{u"00"_s, u"↑↓余额调整"_s}, {u"0101"_s, u"产品收入"_s},
                                                {u"0102"_s, u"项目收入"_s}, {u"0201"_s, u"办公费用"_s},
                                                {u"0301"_s, u"现金"_s},     {u"030201"_s, u"农行"_s}};
    return kinds;
}

const std::vector<CodeAndName>& RandomEntries::Accounts() {
    static const std::vector<CodeAndName> accounts{
        {u"01"_s, u"东华公司"_s}, {u"02"_s, u"大宇公司"_s}, {u"0301"_s, u"软件开发"_s}};
    return accounts;
}

QString RandomEntries::Amount() {
    static const QStringList odd{u"0"_s,     u".5"_s,          u"-5"_s,   u"1e3"_s,
                                 u"-0.01"_s, u"99999999.99"_s, u"0.125"_s};
    if (Roll(8) == 0) return odd[static_cast<qsizetype>(Roll(static_cast<size_t>(odd.size())))];
    return QString::number(static_cast<double>(Roll(1000000)) / 100, 'f', 2);
}

EntryValues RandomEntries::RandomEntry() {
    auto e = SampleEntry(u"第'%1'笔 100%"_s.arg(Roll(1000)), Amount());
    SetShape(e, static_cast<int>(Roll(kShapes)));
    for (size_t slot = 0; slot < 4; ++slot) {
        const auto& choice = Pick(slot < kAccount1 ? Kinds() : Accounts());
        Choose(e, slot, choice.code, choice.name, Toss());
    }
    e.accountValue = {Amount(), Amount()};
    e.mark = Toss();
    return e;
}

qint64 RandomEntries::AnyRow() {
    const auto ids = Rows(State().gDB, u"select Id1 from tAccount"_s);
    return ids[static_cast<qsizetype>(Roll(static_cast<size_t>(ids.size())))].toLongLong();
}
