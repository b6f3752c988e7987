#include "ledger/entry_query.h"

#include "chart/codes.h"
#include "store/entry_rows.h"
#include "store/messages.h"
#include "store/money.h"
#include "store/picture_index.h"
#include "store/state.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

const QString kColumns = u"select Id1,Title1,Mark1,Date1,Time1,Type1,nSign,TypeName1,Value1,IID,IIID,sPic"_s;
const QString kOrder = u" order by date1,time1,id1 "_s;
const QString kDash = u"－"_s;

// Columns of kColumns by number.
enum Column { kId, kTitle, kMark, kDate, kTime, kType, kSign, kTypeName, kValue, kIid, kIiid, kPic };

QString IconGroup(const cReader& row) {
    const auto digit = [](bool on) { return on ? u'1' : u'0'; };
    const QChar icons[] = {digit(row.Int(kMark) != 0), digit(row.Number(kPic) >= 1),
                           digit(row.Int(kIiid) >= 0)};
    const QString group(icons, std::size(icons));
    return group == u"000" ? QString() : group;
}

EntryLine LineOf(const cReader& row, qint64 number, const QString& money, const QString& rmb) {
    const bool add = row.Int(kSign) == 1;
    EntryLine line;
    line.key = QString::number(row.Int(kId));
    line.subKey = row.Text(kType);
    line.cells.AddNumber(number).AddUtf8({row.Bytes(kDate), "  ", row.Bytes(kTime)});
    line.cells.AddUtf8({row.Bytes(kType), row.Bytes(kTypeName)});
    line.cells.Add(add ? money : QString()).Add(add ? QString() : money).Add(rmb);
    line.cells.AddUtf8(row.Bytes(kTitle)).Add(IconGroup(row));
    return line;
}

QString SignedAmount(const cRecordset& row) {
    return MoneyText(row.Number(u"Value1") * static_cast<double>(row.Int(u"nSign")));
}

void FillKind(QStringList& line, const cRecordset& row) {
    line[1] = row.Text(u"Type1") + row.Text(u"TypeName1");
    line[2] = SignedAmount(row);
}

void FillRecord(cConnection& book, QStringList& line, qint64 id) {
    const auto record = FindRow(book, u"tSubAccItem"_s, id);
    if (!record) return;
    line[1] = record->Text(u"SubAccKey") + record->Text(u"SubAccName1");
    line[2] = SignedAmount(*record);
}

}  // namespace

QString MatterCondition(const QString& text) {
    return text.trimmed().isEmpty() ? QString() : u" and Title1 like "_s + Quote(u'%' + text + u'%');
}

QString SumText(double x) {
    return GroupText(MoneyText(x), State().settings.nGroup, u","_s, u"0"_s);
}

QString EntryQuery::Sql() const {
    return columns + from + where + order;
}

EntryQuery BuildEntryQuery(const EntryFilter& f) {
    EntryQuery query{kColumns, u" from tAccount  where 1 "_s, {}, kOrder};
    query.all = f.kind == u"all";
    query.sums = !query.all;
    if (f.marked) query.where += u" and Mark1=1"_s;
    query.where += MatterCondition(f.text);
    query.where += query.all ? u" and bIsMain=1"_s : u" and "_s + AtOrBelow(u"Type1"_s, f.kind);
    query.where += PeriodCondition(f.period);
    return query;
}

bool ReadLines(cConnection& book, const EntryQuery& query, int page, Job& job,
               const std::function<void(EntryLine&&)>& take) {
    const qint64 first = static_cast<qint64>(page) * kLinesPerPage;
    auto rows = book.Read(query.Sql() + u" limit "_s + QString::number(first) + u',' +
                          QString::number(kLinesPerPage));
    double in = 0;
    double out = 0;
    for (int n = 1; rows.Next(); ++n) {
        const double value = rows.Number(kValue);
        const auto sign = rows.Int(kSign);
        (sign == 1 ? in : out) += value;
        const QString money = MoneyText(value);
        const bool same = query.all && sign == 1;
        const double shown = query.all ? value * static_cast<double>(sign) : in - out;
        take(LineOf(rows, first + n, money, same ? money : MoneyText(shown)));
        job.Step(n);
        if (job.Stopped()) return false;
    }
    return true;
}

QString AmountHeading(const EntryQuery& query) {
    return query.all ? u"金   额"_s : u"累计余额"_s;
}

std::optional<EntryLine> ReadOneLine(cConnection& book, qint64 id, int number) {
    const auto at = book.RowOf(u"tAccount"_s, id);
    if (!at) return {};
    auto row = book.Read(kColumns + u" from tAccount where rowid="_s + QString::number(*at));
    if (!row.Next()) return {};
    auto line = LineOf(row, number, MoneyText(row.Number(kValue)), {});
    line.signedAmount = MoneyText(row.Number(kValue) * static_cast<double>(row.Int(kSign)));
    return line;
}

EntrySums ReadSums(cConnection& book, const EntryQuery& query) {
    const QString sums = query.sums ? u",sum(case when nSign=1 then Value1 end) as SumIn,"
                                      u"sum(case when nSign=-1 then Value1 end) as SumOut"_s
                                    : u",0,0"_s;
    auto row = book.Read(u"select count(id1) as SumCount"_s + sums + query.from + query.where);
    if (!row.Next()) return {};
    return {row.Number(1), row.Number(2), static_cast<int>(row.Int(0))};
}

SumTexts ShowSumTexts(const EntrySums& sums, bool all) {
    const QString count = GroupText(QString::number(sums.count), State().settings.nGroup, u","_s, u"0"_s);
    const QString in = SumText(sums.in);
    const QString out = SumText(sums.out);
    const QString rest = SumText(sums.in - sums.out);
    SumTexts t;
    t.count = u"笔数:"_s + count;
    t.bill = u"笔数 "_s + count;
    t.tag = u"笔数："_s + count + u" 笔"_s;
    t.value = u"差额:"_s + (all ? kDash : rest);
    t.money = u"增加 "_s + (all ? kDash : in);
    t.sumbill = u"减少 "_s + (all ? kDash : out);
    t.summoney = u"差额 "_s + (all ? kDash : rest);
    if (!all) t.tag += u"\n增加："_s + in + u" 元\n减少："_s + out + u" 元\n差额："_s + rest + u" 元"_s;
    return t;
}

std::vector<PageItem> PageItems(int count) {
    const int pages = std::max(1, (count + kLinesPerPage - 1) / kLinesPerPage);
    const auto five = [](int x) { return QString::number(x).rightJustified(5, u'0'); };
    std::vector<PageItem> items;
    for (int i = 1; i <= pages; ++i) {
        const int end = i == pages ? count : i * kLinesPerPage;
        items.push_back({five((i - 1) * kLinesPerPage + 1) + u" - "_s + five(end), QString::number(i - 1)});
    }
    return items;
}

EntryDetail ReadDetail(cConnection& book, qint64 id) {
    EntryDetail detail;
    for (const auto& label :
         {u"分类一"_s, u"分类二"_s, u"账户一"_s, u"账户一"_s, u"照    片"_s, u"标    记"_s})
        detail.rows.push_back({label, {}, {}});
    const auto row = FindRow(book, u"tAccount"_s, id);
    if (!row) return detail;
    detail.title = row->Text(u"Title1");
    FillKind(detail.rows[0], *row);
    const auto partner = FindRow(book, u"tAccount"_s, row->Int(u"IID"));
    if (partner) FillKind(detail.rows[1], *partner);
    FillRecord(book, detail.rows[2], row->Int(u"IIID"));
    FillRecord(book, detail.rows[3], row->Int(u"IIID1"));
    const bool isSecond = partner && row->Int(u"bIsMain") == 0;
    const qint64 main = (isSecond ? *partner : *row).Int(u"Id1");
    const qint64 other = partner ? (isSecond ? *row : *partner).Int(u"Id1") : main;
    detail.main = main;
    detail.rows[EntryDetail::kPictureRow][1] =
        QString::number(CountPictures(book, u"tAccount"_s, main, other)) + u"  张"_s;
    if (row->Int(u"Mark1") != 0) detail.rows[5][1] = u"    √"_s;
    return detail;
}
