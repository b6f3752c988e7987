#include "web/waiting_rows.h"

#include "store/dates.h"
#include "store/messages.h"
#include "store/money.h"
#include "store/notices.h"
#include "web/kept_delivery.h"
#include "web/web_lines.h"

#include <QHash>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <span>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kIdsAtOnce = 500, kRowsAtOnce = 50;

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

struct Sorted {
    std::vector<const WebLine*> fresh, repeats;
};

/// Which lines stand in the book already, each as often as it does. Only what shares its title is compared
/// whole.
Sorted SortOut(cConnection& book, const WebDelivery& delivery) {
    QSet<QString> titles, met;
    for (const auto& line : delivery.lines)
        titles.insert(line[kWebTitle]);
    QHash<QString, int> known;
    for (const auto list : {WebList::waiting, WebList::history})
        for (auto rows = book.Read(u"select "_s + ColumnNames() + u" from "_s + TableOfList(list));
             rows.Next();) {
            const QString title = rows.Text(kWebTitle);
            if (!titles.contains(title)) continue;
            met.insert(title);
            ++known[KeyOf(rows)];
        }
    Sorted sorted;
    for (const auto& line : delivery.lines) {
        const bool repeats = met.contains(line[kWebTitle]) && known[KeyOf(line)]-- > 0;
        (repeats ? sorted.repeats : sorted.fresh).push_back(&line);
    }
    return sorted;
}

bool TakeRepeats(size_t count) {
    return count == 0 || ShowMsg(u"有【"_s + QString::number(count) +
                                     u"】条记账与已收到的记账完全相同，您确定要再次收取?"_s,
                                 u"取消,确定"_s, kMsgAsk) == 1;
}

/// A field as a value of a statement. Bytes stay what they are in a column of numbers, so that no text is
/// lost there.
QString SqlField(const WebColumn& column, const QString& field) {
    const auto bytes = [&] { return u"x'"_s + QString::fromLatin1(field.toUtf8().toHex()) + u'\''; };
    if (WouldBecomeAnother(column, field)) return bytes();
    if (column.kind == WebColumn::Kind::amount && NumericValue(field)) return Quote(field.trimmed());
    return field.contains(QChar(0)) ? u"cast("_s + bytes() + u" as text)"_s : Quote(field);
}

QString SqlRow(const WebLine& line) {
    QString values;
    for (size_t i = 0; i < kWebFields; ++i)
        values += (i == 0 ? u'(' : u',') + SqlField(WebColumns()[i], line[i]);
    return values + u')';
}

void InsertAll(cConnection& book, const std::vector<const WebLine*>& lines) {
    Transaction store(book);
    const QString head = u"insert into tAccountWeb ("_s + ColumnNames() + u") values "_s;
    for (size_t at = 0; at < lines.size();) {
        QString rows;
        for (size_t n = 0; n < kRowsAtOnce && at < lines.size(); ++n, ++at)
            rows += (n == 0 ? QString() : u","_s) + SqlRow(*lines[at]);
        book.Execute(head + rows);
    }
    store.Commit();
}

std::vector<const WebLine*> Pointers(const WebDelivery& delivery) {
    std::vector<const WebLine*> lines;
    for (const auto& line : delivery.lines)
        lines.push_back(&line);
    return lines;
}

QString Received(int count, int skipped, const QString& file) {
    QString told = u"收到【"_s + QString::number(count) + u"】条新的记账!"_s;
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
        body(u" where ID1 in("_s + Ids(all.subspan(at, std::min(kIdsAtOnce, all.size() - at))) + u')');
}

// Cells of a row by their places in kListColumns.
const QString kListColumns =
    u"ID1,Title1,Date1,Time1,TypeName1,Value1,nSign1,Type2,TypeName2,nSign2,"
    u"AccId,AccName,AccValue,AccSign,bPassIdChk"_s;
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

/// Makes the cells of row after row. Amounts that repeat are made once.
class CellMaker {
 public:
    RowTexts Cells(const cReader& row, WebList list, int number) {
        const bool related = row.Int(kType2) > 0, account = row.Int(kAcc) > 0;
        RowTexts cells;
        cells.AddNumber(number).AddUtf8(row.Bytes(kTitle));
        cells.AddUtf8({row.Bytes(kDate), " ", row.Bytes(kTime)});
        cells.AddUtf8(row.Bytes(kKind)).Add(Signed(row, kValue, kSign1));
        cells.AddUtf8(related ? row.Bytes(kKind2) : QByteArrayView());
        cells.Add(related ? Signed(row, kValue, kSign2) : QString());
        cells.AddUtf8(account ? row.Bytes(kAccName) : QByteArrayView());
        cells.Add(account ? Signed(row, kAccValue, kAccSign) : QString());
        if (list == WebList::history) cells.Add(row.Int(kPassed) != 0 ? u"已入账" : u"未入账");
        return cells;
    }

 private:
    QString Signed(const cReader& row, int value, int sign) {
        if (!row.IsNumber(value)) return row.Text(value);
        const double number = row.Number(value);
        if (number != last_) {
            last_ = number;
            text_ = MoneyText(number);
            opposite_ = text_ == u"0" ? text_ : text_.startsWith(u'-') ? text_.mid(1) : u'-' + text_;
        }
        return row.Number(sign) == 1 ? text_ : opposite_;
    }

    double last_ = 0;
    QString text_ = MoneyText(0), opposite_ = text_;
};

}  // namespace

StoredDelivery StoreWebLines(cConnection& book, const QString& text) {
    const auto delivery = ReadDelivery(text);
    const QString file = delivery.skipped > 0 ? KeepDelivery(text) : QString();
    const auto sorted = SortOut(book, delivery);
    const bool all = TakeRepeats(sorted.repeats.size());
    InsertAll(book, all ? Pointers(delivery) : sorted.fresh);
    Notices().webRowsChanged.Emit();
    const int count = delivery.count - (all ? 0 : static_cast<int>(sorted.repeats.size()));
    return {delivery.count > 0, !sorted.repeats.empty(), Received(count, delivery.skipped, file)};
}

void ReadWebRows(cConnection& book, WebList list, Job& job, const std::function<void(WebRow&&)>& take) {
    CellMaker maker;
    int number = 0;
    for (auto rows = book.Read(u"select "_s + kListColumns + u" from "_s + TableOfList(list)); rows.Next();) {
        ++number;
        take({rows.Int(kId), maker.Cells(rows, list, number), rows.Int(kPassed) != 0});
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
