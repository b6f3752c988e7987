#include "ledger/posting.h"

#include "store/book_format.h"
#include "store/entry_rows.h"
#include "store/money.h"
#include "store/picture_index.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr double kFarTime = 9999;

int SignOf(bool add) {
    return add ? 1 : -1;
}

QString StoredAmount(const QString& typed) {
    const double value = Val(typed);
    return MoneyText(IsMoney(value) ? value : 0);
}

QString StoredTime(const EntryValues& e) {
    // The checks refuse what is too late, not what is absurdly early.
    const auto whole = [](const QString& text) {
        return static_cast<int>(std::clamp(Val(text), -kFarTime, kFarTime));
    };
    const auto part = [&](const QString& text) { return TwoDigits(whole(text)); };
    return part(e.hour) + u':' + part(e.minute);
}

qint64 AddKindRows(cConnection& book, const EntryValues& e, PostedIds& ids) {
    AccountRow first = KindRow(e, kKind1);
    first.Id1 = ids.main = NewId(book, u"taccount"_s);
    auto stored = InsertAccountRow(book, first);
    if (!e.kind2On) return ids.main;
    AccountRow second = KindRow(e, kKind2);
    second.Id1 = ids.second = NewId(book, u"taccount"_s);
    second.IID = ids.main;
    stored.Set(u"IID", ids.second);
    stored.Update();
    InsertAccountRow(book, second);
    return ids.main;
}

qint64 AddRecord(cConnection& book, const EntryValues& e, size_t slot, qint64 main) {
    SubAccItemRow record = RecordRow(e, slot, main);
    record.Id1 = NewId(book, u"tsubaccitem"_s);
    InsertSubAccItemRow(book, record);
    return record.Id1;
}

void TieRecords(cConnection& book, const PostedIds& ids) {
    const QString rows = u" where "_s + book.WhereIds(u"tAccount"_s, {ids.main, ids.second});
    book.Execute(u"update tAccount set IIID= "_s + QString::number(ids.record1) + rows);
    book.Execute(u"update tAccount set IIID1= "_s + QString::number(ids.record2) + rows);
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

SubAccItemRow RecordRow(const EntryValues& e, size_t slot, qint64 main) {
    SubAccItemRow row;
    row.AccId = main;
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

PostedIds PostEntry(cConnection& book, const EntryValues& entry) {
    Transaction save(book);
    PostedIds ids;
    AddKindRows(book, entry, ids);
    if (entry.toAccount) {
        ids.record1 = AddRecord(book, entry, kAccount1, ids.main);
        if (entry.account2On) ids.record2 = AddRecord(book, entry, kAccount2, ids.main);
    }
    TieRecords(book, ids);
    if (Val(entry.pictures) > 0) ClaimPictures(book, ids.main, ids.second);
    MoveBalances(book, ids, u"+"_s);
    save.Commit();
    return ids;
}

std::optional<PostedIds> TiesOf(cConnection& book, qint64 id) {
    const auto at = book.RowOf(u"tAccount"_s, id);
    if (!at) return {};
    auto row = book.Read(u"select IID,IIID,IIID1 from tAccount where rowid="_s + QString::number(*at));
    if (!row.Next()) return {};
    return PostedIds{id, row.Int(0), row.Int(1), row.Int(2)};
}

void MoveBalances(cConnection& book, const PostedIds& ids, const QString& op) {
    UpdateBalance(book, ids.main, u"tKind"_s, op);
    UpdateBalance(book, ids.second, u"tKind"_s, op);
    UpdateBalance(book, ids.record1, u"tSubAcc"_s, op);
    UpdateBalance(book, ids.record2, u"tSubAcc"_s, op);
}

void UpdateBalance(cConnection& book, qint64 rowId, const QString& table, const QString& op) {
    if (rowId == -1 || table.isEmpty()) return;
    const QString chart = table.toLower();
    const bool kinds = chart == u"tkind";
    const QString rows = kinds ? u"tAccount"_s : u"tSubAccItem"_s;
    const auto at = book.RowOf(rows, rowId);
    if (!at) return;
    double value = 0;
    qint64 sign = 0;
    QString code;
    {
        auto row = book.Read(u"select Value1,nSign,"_s + (kinds ? u"Type1"_s : u"SubAccKey"_s) + u" from "_s +
                             rows + u" where rowid="_s + QString::number(*at));
        if (!row.Next()) return;
        value = row.Number(0);
        sign = row.Int(1);
        code = row.Text(2);
    }
    const QString amount = u' ' + SqlNumber(value);
    const QString opposite = op == u"+" ? u"-"_s : u"+"_s;
    const QString change =
        sign == 1 ? u" set nAdd= nAdd "_s + op + amount + u", Money= Money "_s + op + amount
                  : u" set nReduce= nReduce "_s + op + amount + u", Money= Money "_s + opposite + amount;
    book.Execute(u"update "_s + chart + change + u" where Sort1="_s + Quote(code));
}
