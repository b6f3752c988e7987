#include "store/entry_effect.h"

#include "store/book_format.h"
#include "store/money.h"
#include "store/picture_index.h"

using namespace Qt::StringLiterals;

namespace {

const QString kEntries = u"tAccount"_s;
const QString kRecords = u"tSubAccItem"_s;

void AddKindRows(cConnection& book, const EntryRows& rows, PostedIds& ids) {
    AccountRow first = rows.main;
    first.Id1 = ids.main = NewId(book, u"taccount"_s);
    auto stored = InsertAccountRow(book, first);
    if (!rows.second) return;
    AccountRow second = *rows.second;
    second.Id1 = ids.second = NewId(book, u"taccount"_s);
    second.IID = ids.main;
    stored.Set(u"IID", ids.second);
    stored.Update();
    InsertAccountRow(book, second);
}

void TieRecords(cConnection& book, const PostedIds& ids) {
    const QString rows = u" where "_s + book.WhereIds(kEntries, {ids.main, ids.second});
    book.Execute(u"update tAccount set IIID= "_s + QString::number(ids.record1) + rows);
    book.Execute(u"update tAccount set IIID1= "_s + QString::number(ids.record2) + rows);
}

}  // namespace

PostedIds AddRows(cConnection& book, const EntryRows& rows) {
    PostedIds ids;
    AddKindRows(book, rows, ids);
    if (rows.record1) ids.record1 = AddRecordRow(book, *rows.record1, ids.main);
    if (rows.record2) ids.record2 = AddRecordRow(book, *rows.record2, ids.main);
    TieRecords(book, ids);
    return ids;
}

PostedIds PostRows(cConnection& book, const EntryRows& rows) {
    const PostedIds ids = AddRows(book, rows);
    if (Val(rows.main.sPic) > 0) ClaimPictures(book, ids.main, ids.second);
    MoveBalances(book, ids, Effect::apply);
    return ids;
}

qint64 AddKindRow(cConnection& book, AccountRow row) {
    row.Id1 = NewId(book, u"taccount"_s);
    InsertAccountRow(book, row);
    return row.Id1;
}

qint64 AddRecordRow(cConnection& book, SubAccItemRow row, qint64 main) {
    row.AccId = main;
    row.Id1 = NewId(book, u"tsubaccitem"_s);
    InsertSubAccItemRow(book, row);
    return row.Id1;
}

void SetTie(cConnection& book, const QString& column, qint64 value, qint64 row) {
    if (!book.RowOf(kEntries, row)) return;
    book.Execute(u"update tAccount set "_s + column + u"= "_s + QString::number(value) + u" where "_s +
                 book.WhereIds(kEntries, {row}));
}

void DeleteRow(cConnection& book, const QString& table, qint64 id) {
    if (book.RowOf(table, id))
        book.Execute(u"delete from "_s + table + u" where "_s + book.WhereIds(table, {id}));
}

std::optional<PostedIds> TiesOf(cConnection& book, qint64 id) {
    const auto at = book.RowOf(kEntries, id);
    if (!at) return {};
    auto row = book.Read(u"select IID,IIID,IIID1 from tAccount where rowid="_s + QString::number(*at));
    if (!row.Next()) return {};
    return PostedIds{id, row.Int(0), row.Int(1), row.Int(2)};
}

qint64 EntryOfRecord(cConnection& book, qint64 record) {
    const auto row = FindRow(book, kRecords, record);
    return row ? row->Int(u"AccId") : -1;
}

bool RemoveEntry(cConnection& book, qint64 id) {
    const auto ids = TiesOf(book, id);
    if (!ids) return false;
    MoveBalances(book, *ids, Effect::takeBack);
    DeletePictures(book, kEntries, id);
    book.Execute(u"delete from tAccount where "_s + book.WhereIds(kEntries, {id, ids->second}));
    book.Execute(u"delete from tSubAccItem where "_s + book.WhereIds(kRecords, {ids->record1, ids->record2}));
    return true;
}

bool RemoveRecord(cConnection& book, qint64 record) {
    if (!book.RowOf(kRecords, record)) return false;
    UpdateBalance(book, record, Chart::accounts, Effect::takeBack);
    DeleteRow(book, kRecords, record);
    return true;
}

void MoveBalances(cConnection& book, const PostedIds& ids, Effect effect) {
    UpdateBalance(book, ids.main, Chart::kinds, effect);
    UpdateBalance(book, ids.second, Chart::kinds, effect);
    UpdateBalance(book, ids.record1, Chart::accounts, effect);
    UpdateBalance(book, ids.record2, Chart::accounts, effect);
}

void MoveChartRow(cConnection& book, Chart chart, const QString& code, double value, qint64 sign,
                  Effect effect) {
    const QString amount = u' ' + SqlNumber(value);
    const QString op = effect == Effect::apply ? u"+"_s : u"-"_s;
    const QString opposite = effect == Effect::apply ? u"-"_s : u"+"_s;
    const QString change =
        sign == 1 ? u" set nAdd= nAdd "_s + op + amount + u", Money= Money "_s + op + amount
                  : u" set nReduce= nReduce "_s + op + amount + u", Money= Money "_s + opposite + amount;
    book.Execute(u"update "_s + TableOf(chart).table.toLower() + change + u" where Sort1="_s + Quote(code));
}

void UpdateBalance(cConnection& book, qint64 rowId, Chart chart, Effect effect) {
    if (rowId == -1) return;
    const auto& names = TableOf(chart);
    const auto at = book.RowOf(names.rows, rowId);
    if (!at) return;
    double value = 0;
    qint64 sign = 0;
    QString code;
    {
        auto row = book.Read(u"select Value1,nSign,"_s + names.code + u" from "_s + names.rows +
                             u" where rowid="_s + QString::number(*at));
        if (!row.Next()) return;
        value = row.Number(0);
        sign = row.Int(1);
        code = row.Text(2);
    }
    MoveChartRow(book, chart, code, value, sign, effect);
}
