#include "ledger/entry_edit.h"

#include "ledger/entry_check.h"
#include "ledger/posting.h"
#include "store/messages.h"
#include "store/money.h"
#include "store/notices.h"

using namespace Qt::StringLiterals;

namespace {

const QString kEntries = u"tAccount"_s;
const QString kRecords = u"tSubAccItem"_s;

void ChangeSecondKind(cConnection& book, const EntryValues& e, PostedIds& ids) {
    const bool exists = ids.second != -1;
    if (exists && e.kind2On) {
        RewriteAccountRow(book, ids.second, KindRow(e, kKind2));
    } else if (exists) {
        DeleteRow(book, kEntries, ids.second);
        SetTie(book, u"IID"_s, -1, ids.main);
        ids.second = -1;
    } else if (e.kind2On) {
        ids.second = AddKindRow(book, KindRow(e, kKind2));
        SetTie(book, u"IID"_s, ids.second, ids.main);
        SetTie(book, u"IID"_s, ids.main, ids.second);
    }
}

// column is IIID for the first account and IIID1 for the second.
void ChangeAccount(cConnection& book, const EntryValues& e, size_t slot, bool wanted, const PostedIds& ids,
                   qint64& record, const QString& column) {
    const bool exists = record != -1;
    if (exists && wanted) {
        RewriteSubAccItemRow(book, record, RecordRow(e, slot));
    } else if (exists) {
        DeleteRow(book, kRecords, record);
        SetTie(book, column, -1, ids.main);
        SetTie(book, column, -1, ids.second);
        record = -1;
    } else if (wanted) {
        record = AddRecordRow(book, RecordRow(e, slot), ids.main);
        SetTie(book, column, record, ids.main);
        SetTie(book, column, record, ids.second);
    }
}

SlotCodes StoredCodes(cConnection& book, const PostedIds& ids) {
    const auto code = [&](const QString& table, qint64 id, QStringView column) {
        const auto row = FindRow(book, table, id);
        return row ? row->Text(column) : QString();
    };
    return {code(kEntries, ids.main, u"Type1"), code(kEntries, ids.second, u"Type1"),
            code(kRecords, ids.record1, u"SubAccKey"), code(kRecords, ids.record2, u"SubAccKey")};
}

// False when the main row has gone.
bool RewriteEntry(cConnection& book, const EntryValues& e, qint64 main) {
    Transaction save(book);
    const auto ties = TiesOf(book, main);
    if (!ties) return false;
    PostedIds ids = *ties;
    InsistOnCodes(book, e, StoredCodes(book, ids));
    MoveBalances(book, ids, Effect::takeBack);
    RewriteAccountRow(book, ids.main, KindRow(e, kKind1));
    ChangeSecondKind(book, e, ids);
    ChangeAccount(book, e, kAccount1, e.toAccount, ids, ids.record1, u"IIID"_s);
    ChangeAccount(book, e, kAccount2, e.toAccount && e.account2On, ids, ids.record2, u"IIID1"_s);
    MoveBalances(book, ids, Effect::apply);
    save.Commit();
    Notices().entriesChanged.Emit();
    return true;
}

void LoadKind(EntryValues& e, size_t slot, const cRecordset& row) {
    e.code[slot] = row.Text(u"Type1");
    e.name[slot] = row.Text(u"TypeName1");
    e.text[slot] = e.code[slot] + e.name[slot];
    e.add[slot] = row.Int(u"nSign") == 1;
}

bool LoadAccount(cConnection& book, EntryValues& e, size_t slot, qint64 id) {
    const auto row = FindRow(book, kRecords, id);
    if (!row) return false;
    e.code[slot] = row->Text(u"SubAccKey");
    e.name[slot] = row->Text(u"SubAccName1");
    e.text[slot] = e.code[slot] + e.name[slot];
    e.accountValue[slot - kAccount1] = MoneyText(row->Number(u"Value1"));
    e.add[slot] = row->Int(u"nSign") == 1;
    return true;
}

void TellMissing() {
    ShowMsg(u"意外错误：未找到记录!"_s, u"确定"_s, kMsgFail);
}

}  // namespace

qint64 ResolveMainRow(cConnection& book, qint64 id) {
    const auto at = book.RowOf(kEntries, id);
    if (!at) return id;
    auto row = book.Read(u"select bIsMain,IID from tAccount where rowid="_s + QString::number(*at));
    return row.Next() && row.Int(0) == 0 ? row.Int(1) : id;
}

std::optional<LoadedEntry> LoadEntry(cConnection& book, qint64 id) {
    LoadedEntry loaded;
    loaded.opened = id;
    loaded.main = ResolveMainRow(book, id);
    const auto row = FindRow(book, kEntries, loaded.main);
    if (!row) {
        TellMissing();
        return {};
    }
    EntryValues& e = loaded.values;
    const qint64 second = row->Int(u"IID"), record1 = row->Int(u"IIID"), record2 = row->Int(u"IIID1");
    e.title = row->Text(u"Title1");
    e.money = MoneyText(row->Number(u"Value1"));
    e.mark = row->Int(u"Mark1") != 0;
    e.date = row->Text(u"Date1");
    e.hour = row->Text(u"Time1").left(2);
    e.minute = row->Text(u"Time1").mid(3, 2);
    e.note = row->Text(u"Note1");
    e.pictures = row->Text(u"sPic");
    LoadKind(e, kKind1, *row);
    if (const auto partner = FindRow(book, kEntries, second)) LoadKind(e, kKind2, *partner);
    LoadAccount(book, e, kAccount1, record1);
    LoadAccount(book, e, kAccount2, record2);
    e.kind2On = second > -1;
    e.toAccount = record1 > -1;
    e.account2On = record2 > -1;
    e.loadedAmounts = {e.money, e.accountValue[0], e.accountValue[1]};
    return loaded;
}

EditOutcome SaveEditedEntry(cConnection& book, EntryValues& entry, qint64 main, qint64 opened) {
    const auto complaint = CheckEntry(entry);
    if (!complaint.Good()) {
        ShowMsg(complaint.message);
        return {false, complaint.focus, -1};
    }
    if (!ConfirmEntry(entry)) return {};
    if (!RewriteEntry(book, entry, main)) {
        TellMissing();
        return {};
    }
    const bool openedIsGone = opened != main && !entry.kind2On;  // its row went with the second kind
    return {true, EntryField::none, openedIsGone ? -1 : opened};
}
