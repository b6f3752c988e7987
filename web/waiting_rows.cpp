#include "web/waiting_rows.h"

#include "store/dates.h"
#include "store/messages.h"
#include "store/money.h"
#include "store/notices.h"
#include "web/kept_delivery.h"
#include "web/web_lines.h"

#include <QHash>
#include <QStringList>

#include <algorithm>
#include <span>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kIdsAtOnce = 500;

const QString& TableOfList(WebList list) {
    static const QString waiting = u"tAccountWeb"_s, history = u"tAccountWebDel"_s;
    return list == WebList::waiting ? waiting : history;
}

QString ColumnNames() {
    QStringList names;
    for (const auto& column : WebColumns())
        names << QString::fromUtf16(column.name);
    return names.join(u',');
}

QString KeyOf(const WebLine& line) {
    QString key;
    for (size_t i = 0; i < kWebFields; ++i)
        key += StoredText(WebColumns()[i], line[i]) + kFieldEnd;
    return key;
}

QString KeyOf(const cReader& row) {
    QString key;
    for (int i = 0; i < kWebFields; ++i)
        key += (row.IsNumber(i) ? PlainNumber(row.Number(i)) : row.Text(i)) + kFieldEnd;
    return key;
}

/// How often each of these lines stands in the book already.
QHash<QString, int> Known(cConnection& book, const std::vector<QString>& keys) {
    QHash<QString, int> known;
    for (const auto& key : keys)
        known.insert(key, 0);
    if (known.isEmpty()) return known;
    for (const auto list : {WebList::waiting, WebList::history})
        for (auto rows = book.Read(u"select "_s + ColumnNames() + u" from "_s + TableOfList(list));
             rows.Next();)
            if (const auto found = known.find(KeyOf(rows)); found != known.end()) ++*found;
    return known;
}

struct Sorted {
    std::vector<const WebLine*> fresh, repeats;
};

Sorted SortOut(cConnection& book, const WebDelivery& delivery) {
    std::vector<QString> keys;
    for (const auto& line : delivery.lines)
        keys.push_back(KeyOf(line));
    auto known = Known(book, keys);
    Sorted sorted;
    for (size_t i = 0; i < keys.size(); ++i)
        (known[keys[i]]-- > 0 ? sorted.repeats : sorted.fresh).push_back(&delivery.lines[i]);
    return sorted;
}

bool TakeRepeats(size_t count) {
    return count == 0 || ShowMsg(u"有【"_s + QString::number(count) +
                                     u"】条记账与已收到的记账完全相同，您确定要再次收取?"_s,
                                 u"取消,确定"_s, kMsgAsk) == 1;
}

void Insert(cRecordset& rows, const WebLine& line) {
    rows.AddRow();
    for (size_t i = 0; i < kWebFields; ++i) {
        const auto& column = WebColumns()[i];
        // Bytes stay what they are in a column of numbers: the text is not lost.
        if (column.kind == WebColumn::Kind::amount && WouldBecomeANumber(line[i]))
            rows.SetBlob(column.name, line[i].toUtf8());
        else
            rows.Set(column.name, line[i]);
    }
    rows.Update();
}

void InsertAll(cConnection& book, const WebDelivery& delivery, const std::vector<const WebLine*>& leftOut) {
    Transaction store(book);
    auto rows = book.OpenRecordset(u"select * from tAccountWeb where 0"_s);
    size_t next = 0;
    for (const auto& line : delivery.lines) {
        if (next < leftOut.size() && leftOut[next] == &line)
            ++next;
        else
            Insert(rows, line);
    }
    store.Commit();
}

QString Received(int count, int skipped, const QString& file) {
    const QString told = u"收到【"_s + QString::number(count) + u"】条新的记账!"_s;
    if (skipped == 0) return told;
    return told + u"\n其中【"_s + QString::number(skipped) + u"】行无法识别，原文已保存到文件：\n【"_s +
           file + u'】';
}

QString Ids(std::span<const qint64> ids) {
    QStringList texts;
    for (const qint64 id : ids)
        texts << QString::number(id);
    return texts.join(u',');
}

template <class Body>
void InParts(const std::vector<qint64>& ids, const Body& body) {
    const std::span<const qint64> all(ids);
    for (size_t at = 0; at < all.size(); at += kIdsAtOnce)
        body(u" where ID1 in("_s + Ids(all.subspan(at, std::min<size_t>(kIdsAtOnce, all.size() - at))) +
             u')');
}

// Cells of a row by their places in kListColumns.
const QString kListColumns =
    u"ID1,Title1,Date1,Time1,TypeName1,Value1,nSign1,Type2,TypeName2,nSign2,AccId,AccName,AccValue,AccSign,"
    u"bPassIdChk"_s;
enum {
    kId,
    kTitle,
    kDate,
    kTime,
    kKind,
    kValue,
    kSign1,
    kType2,
    kKind2,
    kSign2,
    kAcc,
    kAccName,
    kAccValue,
    kAccSign,
    kPassed
};

QString Signed(const cReader& row, int value, int sign) {
    if (!row.IsNumber(value)) return row.Text(value);
    return MoneyText(row.Int(sign) == 1 ? row.Number(value) : -row.Number(value));
}

WebRow RowOf(const cReader& row, WebList list, int number) {
    const bool related = row.Int(kType2) > 0, account = row.Int(kAcc) > 0;
    WebRow made{row.Int(kId),
                {QString::number(number), row.Text(kTitle), row.Text(kDate) + u' ' + row.Text(kTime),
                 row.Text(kKind), Signed(row, kValue, kSign1), related ? row.Text(kKind2) : QString(),
                 related ? Signed(row, kValue, kSign2) : QString(), account ? row.Text(kAccName) : QString(),
                 account ? Signed(row, kAccValue, kAccSign) : QString()},
                row.Int(kPassed) != 0};
    if (list == WebList::history) made.cells.push_back(made.posted ? u"已入账"_s : u"未入账"_s);
    return made;
}

}  // namespace

bool StoreWebLines(cConnection& book, const QString& text) {
    const auto delivery = ReadDelivery(text);
    const QString file = delivery.skipped > 0 ? KeepDelivery(text) : QString();
    const auto sorted = SortOut(book, delivery);
    const bool all = TakeRepeats(sorted.repeats.size());
    InsertAll(book, delivery, all ? std::vector<const WebLine*>() : sorted.repeats);
    Notices().webRowsChanged.Emit();
    const int count = delivery.count - (all ? 0 : static_cast<int>(sorted.repeats.size()));
    ShowMsg(Received(count, delivery.skipped, file), u"确定"_s, kMsgDone);
    return delivery.count > 0;
}

void ReadWebRows(cConnection& book, WebList list, Job& job, const std::function<void(WebRow&&)>& take) {
    int number = 0;
    for (auto rows = book.Read(u"select "_s + kListColumns + u" from "_s + TableOfList(list)); rows.Next();) {
        take(RowOf(rows, list, ++number));
        job.Step(number);
        if (job.Stopped()) return;
    }
}

int WebRowCount(cConnection& book, WebList list) {
    auto count = book.Read(u"select count(*) from "_s + TableOfList(list));
    return count.Next() ? static_cast<int>(count.Int(0)) : 0;
}

void MoveToHistory(cConnection& book, const std::vector<qint64>& ids) {
    const QString columns = ColumnNames() + u",bPassIdChk"_s;
    InParts(ids, [&](const QString& where) {
        // An id that the history has already is not taken twice.
        book.Execute(u"insert into tAccountWebDel (ID1,"_s + columns +
                     u",sDelDate) select case when exists (select 1 from tAccountWebDel d where d.ID1=w.ID1)"
                     u" then null else w.ID1 end,"_s +
                     columns + u',' + Quote(NowText()) + u" from tAccountWeb w"_s + where +
                     u" order by w.ID1"_s);
        book.Execute(u"delete from tAccountWeb"_s + where);
    });
}

bool DeleteWebRowsAsked(cConnection& book, WebList list, const std::vector<qint64>& ids) {
    if (IsBusy()) return false;
    if (ids.empty()) {
        ShowMsg(u"无【选中】的需要删除的记录!"_s);
        return false;
    }
    if (ShowMsg(u"您确定要【删除】选定的一条或多条记录?"_s, u"取消,确定"_s, kMsgAsk) != 1) return false;
    Transaction change(book);
    if (list == WebList::waiting)
        MoveToHistory(book, ids);
    else
        InParts(ids, [&](const QString& where) { book.Execute(u"delete from tAccountWebDel"_s + where); });
    change.Commit();
    Notices().webRowsChanged.Emit();
    ShowMsg(u"删除成功!"_s, u"确定"_s, kMsgDone);
    return true;
}
