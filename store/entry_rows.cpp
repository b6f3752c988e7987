#include "store/entry_rows.h"

using namespace Qt::StringLiterals;

namespace {

// What an entry's typed values put into its rows.
void SetTyped(cRecordset& rows, const AccountRow& row) {
    rows.Set(u"Title1", row.Title1);
    rows.Set(u"Type1", row.Type1);
    rows.Set(u"TypeName1", row.TypeName1);
    rows.Set(u"Value1", row.Value1);
    rows.Set(u"nSign", row.nSign);
    rows.Set(u"Mark1", row.Mark1 ? 1 : 0);
    rows.Set(u"Date1", row.Date1);
    rows.Set(u"Time1", row.Time1);
    rows.Set(u"Note1", row.Note1);
    if (!row.sPic.isEmpty()) rows.Set(u"sPic", row.sPic);
}

void SetTyped(cRecordset& rows, const SubAccItemRow& row) {
    rows.Set(u"Title1", row.Title1);
    rows.Set(u"Value1", row.Value1);
    rows.Set(u"nSign", row.nSign);
    rows.Set(u"Date1", row.Date1);
    rows.Set(u"Time1", row.Time1);
    rows.Set(u"SubAccKey", row.SubAccKey);
    rows.Set(u"SubAccName1", row.SubAccName1);
    rows.Set(u"TypeName1", row.TypeName1);
}

}  // namespace

cRecordset InsertAccountRow(cConnection& book, const AccountRow& row) {
    auto rows = book.OpenRecordset(u"select * from tAccount where 0"_s);
    rows.AddRow();
    rows.Set(u"ID1", row.Id1);
    rows.Set(u"IID", row.IID);
    rows.Set(u"IIID", row.IIID);
    rows.Set(u"IIID1", row.IIID1);
    SetTyped(rows, row);
    if (row.bIsMain) rows.Set(u"bIsMain", 1);
    rows.Update();
    return rows;
}

void InsertSubAccItemRow(cConnection& book, const SubAccItemRow& row) {
    auto rows = book.OpenRecordset(u"select * from tSubAccItem where 0"_s);
    rows.AddRow();
    rows.Set(u"Id1", row.Id1);
    rows.Set(u"AccId", row.AccId);
    SetTyped(rows, row);
    rows.Update();
}

std::optional<cRecordset> FindRow(cConnection& book, const QString& table, qint64 id) {
    const auto at = book.RowOf(table, id);
    if (!at) return {};
    auto row = book.OpenRecordset(u"select * from "_s + table + u" where rowid="_s + QString::number(*at));
    if (row.Eof()) return {};
    return row;
}

void RewriteAccountRow(cConnection& book, qint64 id, const AccountRow& row) {
    auto stored = FindRow(book, u"tAccount"_s, id);
    if (!stored) return;
    SetTyped(*stored, row);
    stored->Update();
}

void RewriteSubAccItemRow(cConnection& book, qint64 id, const SubAccItemRow& row) {
    auto stored = FindRow(book, u"tSubAccItem"_s, id);
    if (!stored) return;
    SetTyped(*stored, row);
    stored->Update();
}
