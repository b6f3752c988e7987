#include "chart/opening_balance.h"

#include "chart/codes.h"
#include "store/book_format.h"
#include "store/entry_effect.h"
#include "store/money.h"
#include "store/picture_index.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QString kDate = u"1900-01-01"_s;
const QString kTime = u"08:30"_s;
const QString kReservedName = u"↑↓余额调整"_s;

AccountRow OpeningRow(cConnection& book, double amount) {
    AccountRow row;
    row.Id1 = NewId(book, u"taccount"_s);
    row.Value1 = MoneyText(std::fabs(amount));
    row.nSign = amount < 0 ? -1 : 1;
    row.Date1 = kDate;
    row.Time1 = kTime;
    row.sPic = u"0"_s;
    return row;
}

// The rows of an opening entry that have moved balances.
PostedIds MovedRows(cConnection& book, Chart chart, qint64 link, PostedIds ids) {
    const auto main = FindRow(book, u"tAccount"_s, ids.main);
    if (chart == Chart::kinds || (main && main->Text(u"Type1") == kReservedKind)) ids.main = -1;
    if (chart == Chart::accounts && ids.record1 == link) ids.record1 = -1;
    if (chart == Chart::accounts && ids.record2 == link) ids.record2 = -1;
    return ids;
}

}  // namespace

qint64 AddKindOpeningEntry(cConnection& book, double amount, const QString& code, const QString& name) {
    AccountRow row = OpeningRow(book, amount);
    row.Title1 = u"分类期初余额"_s;
    row.Type1 = code;
    row.TypeName1 = name;
    row.Note1 = u"建分类时的期初余额"_s;
    InsertAccountRow(book, row);
    return row.Id1;
}

AccountOpening AddAccountOpeningEntry(cConnection& book, double amount, const QString& code,
                                      const QString& name) {
    AccountRow row = OpeningRow(book, amount);
    row.Title1 = u"账户期初余额"_s;
    row.Type1 = kReservedKind;
    row.TypeName1 = kReservedName;
    row.Note1 = u"建账户时的期初余额"_s;
    auto stored = InsertAccountRow(book, row);
    if (amount == 0) return {row.Id1, -1};

    SubAccItemRow record;
    record.Id1 = NewId(book, u"tsubaccitem"_s);
    stored.Set(u"IIID", record.Id1);
    stored.Update();
    record.AccId = row.Id1;
    record.Title1 = row.Title1;
    record.SubAccKey = code;
    record.SubAccName1 = name;
    record.TypeName1 = kReservedName;
    record.Value1 = row.Value1;
    record.nSign = row.nSign;
    record.Date1 = kDate;
    record.Time1 = kTime;
    InsertSubAccItemRow(book, record);
    return {row.Id1, record.Id1};
}

qint64 AddOpeningEntry(cConnection& book, Chart chart, double amount, const QString& code,
                       const QString& name) {
    return chart == Chart::kinds ? AddKindOpeningEntry(book, amount, code, name)
                                 : AddAccountOpeningEntry(book, amount, code, name).record;
}

bool RemoveOpeningEntry(cConnection& book, Chart chart, qint64 link) {
    const qint64 entry = chart == Chart::kinds ? link : EntryOfRecord(book, link);
    const auto ids = TiesOf(book, entry);
    if (!ids) {
        DeleteRow(book, TableOf(chart).rows, link);
        return false;
    }
    const PostedIds moved = MovedRows(book, chart, link, *ids);
    MoveBalances(book, moved, Effect::takeBack);
    DeletePictures(book, u"tAccount"_s, entry);
    for (const qint64 row : {ids->main, ids->second})
        DeleteRow(book, u"tAccount"_s, row);
    for (const qint64 record : {ids->record1, ids->record2, chart == Chart::accounts ? link : -1})
        DeleteRow(book, u"tSubAccItem"_s, record);
    return moved.main != -1 || moved.second != -1 || moved.record1 != -1 || moved.record2 != -1;
}
