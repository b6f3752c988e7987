#include "tests/support/entries.h"

using namespace Qt::StringLiterals;

EntryValues SampleEntry(const QString& title, const QString& money) {
    EntryValues e;
    e.title = title;
    e.money = money;
    e.date = u"2016-09-05"_s;
    e.hour = u"09"_s;
    e.minute = u"30"_s;
    Choose(e, kKind1, u"0102"_s, u"项目收入"_s, true);
    return e;
}

void Choose(EntryValues& e, size_t slot, const QString& code, const QString& name, bool add) {
    e.code[slot] = code;
    e.name[slot] = name;
    e.text[slot] = code + name;
    e.add[slot] = add;
}

void SetShape(EntryValues& e, int shape) {
    e.kind2On = shape % 2 == 1;
    e.toAccount = shape >= 2;
    e.account2On = shape >= 4;
    if (e.kind2On) Choose(e, kKind2, u"030202"_s, u"工行"_s, false);
    if (e.toAccount) {
        Choose(e, kAccount1, u"0301"_s, u"软件开发"_s, true);
        e.accountValue[0] = e.money;
    }
    if (e.account2On) {
        Choose(e, kAccount2, u"02"_s, u"大宇公司"_s, false);
        e.accountValue[1] = u"7.25"_s;
    }
}

EntryValues RichEntry() {
    auto e = SampleEntry(u"O'Neil 的货款"_s, u"20.5"_s);
    SetShape(e, kShapes - 1);
    Choose(e, kKind1, u"0201"_s, u"办公费用"_s, false);
    Choose(e, kKind2, u"0301"_s, u"现金"_s, true);
    Choose(e, kAccount1, u"01"_s, u"东华公司"_s, false);
    Choose(e, kAccount2, u"0301"_s, u"软件开发"_s, true);
    e.accountValue = {u"3.25"_s, u"17.25"_s};
    e.date = u"2016-12-31"_s;
    e.hour = u"23"_s;
    e.minute = u"05"_s;
    e.note = u"第一行\n'第二行'"_s;
    e.mark = true;
    e.pictures = u"2"_s;
    return e;
}
