#include "chart/chart_writing.h"

#include "chart/opening_balance.h"
#include "store/book_format.h"
#include "store/dates.h"
#include "store/money.h"

using namespace Qt::StringLiterals;

namespace {

// Moves the totals of a chart row from the old opening balance to the new one.
void MoveOpening(ChartRecord& record) {
    const auto take = [&](double opening, int direction) {
        if (opening > 0) record.added += direction * opening;
        if (opening < 0) record.reduced -= direction * opening;
        record.balance += direction * opening;
    };
    take(record.oldOpening, -1);
    take(record.newOpening, 1);
}

std::optional<ChangedRow> RewriteRow(cConnection& book, Chart chart, const ChartChange& change) {
    const auto& names = TableOf(chart);
    auto row =
        book.OpenRecordset(u"select * from "_s + names.table + u" where Sort1="_s + Quote(change.oldCode));
    if (row.Eof()) return {};
    ChangedRow changed{change.record, row.Int(u"Id1"), row.Int(u"IID"), false};
    auto& record = changed.record;
    const auto opening = GetOpeningBalance(book, changed.link, chart, change.oldCode);
    changed.linked = opening.has_value();
    record.oldOpening = opening.value_or(0);
    if (!change.openingTouched) record.newOpening = record.oldOpening;
    record.added = row.Number(u"nAdd");
    record.reduced = row.Number(u"nReduce");
    record.balance = row.Number(u"Money");
    MoveOpening(record);
    row.Set(u"nAdd", MoneyText(record.added));
    row.Set(u"nReduce", MoneyText(record.reduced));
    row.Set(u"Money", MoneyText(record.balance));
    row.Set(u"Sort1", record.code);
    row.Set(u"Name1", record.name);
    row.Set(u"nHide", record.hide ? 1 : 0);
    row.Set(names.note, record.note);
    row.Update();
    return changed;
}

QString AmountAndSign(double opening) {
    return u" set Value1= "_s + SqlNumber(opening < 0 ? -opening : opening) + u", nSign= "_s +
           (opening < 0 ? u"-1"_s : u"1"_s);
}

QString IdIs(qint64 id) {
    return u" where id1="_s + QString::number(id);
}

void LinkRow(cConnection& book, Chart chart, qint64 id, qint64 link) {
    book.Execute(u"update "_s + TableOf(chart).table + u" Set IID="_s + QString::number(link) + IdIs(id));
}

void ReplaceName(cConnection& book, Chart chart, const QString& from, const QString& to) {
    if (chart == Chart::accounts) {
        book.Execute(u"update tSubAccItem set SubAccName1="_s + Quote(to) + u" where SubAccName1="_s +
                     Quote(from));
        return;
    }
    // The first statement compares a name with the codes: posted entries keep the kind's name of their day.
    book.Execute(u"update tAccount set TypeName1="_s + Quote(to) + u" where Type1="_s + Quote(from));
    book.Execute(u"update tAccountWeb set TypeName1="_s + Quote(to) + u" where TypeName1="_s + Quote(from));
    book.Execute(u"update tAccountWeb set TypeName2="_s + Quote(to) + u" where TypeName2="_s + Quote(from));
}

// Waiting web entries hold ids of kinds, not codes, and stay as they are.
void ReplaceCode(cConnection& book, Chart chart, const QString& from, const QString& to) {
    const auto& names = TableOf(chart);
    book.Execute(u"update "_s + names.rows + u" set "_s + names.code + u'=' + Quote(to) + u" where "_s +
                 names.code + u'=' + Quote(from));
}

void AddOpening(cConnection& book, Chart chart, const ChangedRow& row) {
    const auto& record = row.record;
    LinkRow(book, chart, row.id, AddOpeningEntry(book, chart, record.newOpening, record.code, record.name));
}

void MoveOpeningEntry(cConnection& book, Chart chart, ChangedRow& row) {
    const double opening = row.record.newOpening;
    if (opening != 0 && !row.linked) return AddOpening(book, chart, row);
    if (opening != 0 && chart == Chart::kinds)
        book.Execute(u"update tAccount"_s + AmountAndSign(opening) + IdIs(row.link));
    if (opening != 0 || row.link < 1) return;
    // A row that an edit has moved to another code is that code's now.
    if (row.linked) row.record.othersMoved = RemoveOpeningEntry(book, chart, row.link);
    LinkRow(book, chart, row.id, 0);
}

}  // namespace

qint64 AddChartRow(cConnection& book, Chart chart, const CodeName& row, double opening, const QString& note,
                   bool hide) {
    const auto& names = TableOf(chart);
    const qint64 id = NewId(book, names.counter);
    const qint64 link = opening == 0 ? 0 : AddOpeningEntry(book, chart, opening, row.code, row.name);
    auto rows = book.OpenRecordset(u"select * from "_s + names.table + u" where 0"_s);
    rows.AddRow();
    rows.Set(u"Id1", id);
    rows.Set(u"IID", link);
    rows.Set(u"Name1", row.name);
    rows.Set(u"Sort1", row.code);
    rows.Set(u"nAdd", MoneyText(opening >= 0 ? opening : 0));
    rows.Set(u"nReduce", MoneyText(opening < 0 ? -opening : 0));
    rows.Set(u"Money", MoneyText(opening));
    rows.Set(names.made, TodayText(u"-"_s));
    rows.Set(names.note, note);
    rows.Set(u"nHide", hide ? 1 : 0);
    rows.Update();
    return id;
}

std::optional<ChangedRow> WriteChange(cConnection& book, Chart chart, const ChartChange& change) {
    auto row = RewriteRow(book, chart, change);
    if (!row) return {};
    if (change.record.code != change.oldCode) ReplaceCode(book, chart, change.oldCode, change.record.code);
    if (change.record.name != change.oldName) ReplaceName(book, chart, change.oldName, change.record.name);
    MoveOpeningEntry(book, chart, *row);
    return row;
}

bool HasStandingOpening(Chart chart, const ChangedRow& row) {
    return chart == Chart::accounts && row.linked && row.record.newOpening != 0;
}

void WriteStandingOpening(cConnection& book, const ChangedRow& row, const QString& hint) {
    book.Execute(u"update tSubAcc"_s + AmountAndSign(row.record.newOpening) + IdIs(row.link), hint);
}

void DeleteChartRow(cConnection& book, Chart chart, const QString& code) {
    if (chart == Chart::kinds) {
        book.Execute(u"delete from tKind where Sort1="_s + Quote(code));
        book.Execute(u"delete from tAccount where Type1="_s + Quote(code));
        return;
    }
    std::vector<qint64> records;
    for (auto rows = book.Read(u"select id1 from tSubAccItem where SubAccKey="_s + Quote(code)); rows.Next();)
        records.push_back(rows.Int(0));
    if (!records.empty())
        book.Execute(u"delete from tAccount where iiid="_s + QString::number(records.front()));
    book.Execute(u"delete from tSubAcc where Sort1="_s + Quote(code));
    book.Execute(u"delete from tSubAccItem where SubAccKey="_s + Quote(code));
}
