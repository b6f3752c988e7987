#include "ledger/record_query.h"

#include "chart/codes.h"
#include "store/entry_rows.h"
#include "store/messages.h"
#include "store/money.h"
#include "store/state.h"

using namespace Qt::StringLiterals;

namespace {

// Places of the columns that a line needs; books differ in the columns of this table.
struct Places {
    explicit Places(const cReader& row)
        : id(row.ColumnOf(u"Id1")),
          entry(row.ColumnOf(u"AccId")),
          title(row.ColumnOf(u"Title1")),
          code(row.ColumnOf(u"SubAccKey")),
          name(row.ColumnOf(u"SubAccName1")),
          value(row.ColumnOf(u"Value1")),
          sign(row.ColumnOf(u"nSign")),
          date(row.ColumnOf(u"Date1")),
          time(row.ColumnOf(u"Time1")) {}
    int id, entry, title, code, name, value, sign, date, time;
};

EntryLine LineOf(const cReader& row, const Places& at, qint64 number, QByteArrayView blanks,
                 const QString& money, const QString& rmb) {
    const bool add = row.Int(at.sign) == 1;
    EntryLine line;
    line.key = row.Text(at.id);
    line.subKey = row.Text(at.entry);
    line.cells.AddNumber(number).AddUtf8({row.Bytes(at.date), blanks, row.Bytes(at.time)});
    line.cells.AddUtf8({row.Bytes(at.code), row.Bytes(at.name)});
    line.cells.Add(add ? money : QString()).Add(add ? QString() : money).Add(rmb);
    line.cells.AddUtf8(row.Bytes(at.title));
    return line;
}

}  // namespace

EntryQuery BuildRecordQuery(const EntryFilter& f) {
    EntryQuery query{u"select *"_s, u" from tSubAccItem where 1 "_s, {}, u" order by date1,time1"_s};
    query.all = f.kind == u"all";
    query.where += MatterCondition(f.text);
    if (!query.all) query.where += u" and "_s + AtOrBelow(u"SubAccKey"_s, f.kind);
    query.where += PeriodCondition(f.period);
    return query;
}

bool ReadRecordLines(cConnection& book, const EntryQuery& query, int page, Job& job,
                     const std::function<void(EntryLine&&)>& take) {
    const qint64 first = static_cast<qint64>(page) * kLinesPerPage;
    auto rows = book.Read(query.Sql() + u" limit "_s + QString::number(first) + u',' +
                          QString::number(kLinesPerPage));
    const Places at(rows);
    double balance = 0;
    for (int n = 1; rows.Next(); ++n) {
        const double value = rows.Number(at.value);
        const auto sign = rows.Int(at.sign);
        balance += sign == 1 ? value : -value;
        const QString money = MoneyText(value);
        const bool same = query.all && sign == 1;
        const double shown = query.all ? value * static_cast<double>(sign) : balance;
        take(LineOf(rows, at, first + n, " ", money, same ? money : MoneyText(shown)));
        job.Step(n);
        if (job.Stopped()) return false;
    }
    return true;
}

std::optional<EntryLine> ReadOneRecord(cConnection& book, qint64 id, int number) {
    const auto row = book.RowOf(u"tSubAccItem"_s, id);
    if (!row) return {};
    auto rows = book.Read(u"select * from tSubAccItem where rowid="_s + QString::number(*row));
    if (!rows.Next()) return {};
    const Places at(rows);
    auto line = LineOf(rows, at, number, "  ", MoneyText(rows.Number(at.value)), {});
    line.signedAmount = MoneyText(rows.Number(at.value) * static_cast<double>(rows.Int(at.sign)));
    return line;
}

SumTexts RecordSumTexts(const EntrySums& sums) {
    SumTexts t;
    const QString rest = SumText(sums.in - sums.out);
    t.count = u"笔数:"_s + GroupText(QString::number(sums.count), State().settings.nGroup, u","_s, u"0"_s);
    t.value = u"差额:"_s + rest;
    t.tag = u"增加："_s + SumText(sums.in) + u" 元\n减少："_s + SumText(sums.out) + u" 元\n差额："_s + rest +
            u" 元"_s;
    return t;
}

bool CheckRecord(cConnection& book, qint64 id) {
    if (book.RowOf(u"tSubAccItem"_s, id)) return true;
    ShowMsg(u"错误: 该记录可能已在【记账窗口】列表中删除记账时, 一起删除了! 请【刷新】此窗口列表!"_s,
            u"确定"_s, kMsgFail);
    return false;
}
