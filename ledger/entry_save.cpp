#include "ledger/entry_save.h"

#include "chart/codes.h"
#include "ledger/entry_check.h"
#include "store/messages.h"
#include "store/picture_index.h"

using namespace Qt::StringLiterals;

SaveOutcome SaveNewEntry(cConnection& book, EntryValues& entry) {
    const auto complaint = CheckEntry(entry);
    if (!complaint.Good()) {
        ShowMsg(complaint.message);
        return {false, complaint.focus, {}};
    }
    if (!ConfirmEntry(entry)) return {};
    return {true, EntryField::none, PostEntry(book, entry)};
}

void DropUnclaimedPictures(cConnection& book) {
    DeleteUnclaimed(book, u"tAccount"_s);
}

bool CheckLeaf(cConnection& book, size_t slot, const QString& code) {
    if (IsLeafCode(book, code, ChartOfSlot(slot))) return true;
    ShowMsg(slot < kAccount1 ? u"错误：该分类不是最后一级，请重新选择!"_s
                             : u"错误：该账户不是最后一级，请重新选择!"_s,
            u"确定"_s, kMsgFail);
    return false;
}

bool PickCode(cConnection& book, EntryValues& entry, size_t slot, const QString& code) {
    if (!CheckLeaf(book, slot, code)) return false;
    entry.code[slot] = code;
    entry.name[slot] = NameByCode(book, code, ChartOfSlot(slot));
    return true;
}
