#include "books/carry_forward.h"

#include "store/book_box.h"
#include "store/book_format.h"
#include "store/dates.h"
#include "store/money.h"
#include "store/paths.h"
#include "store/session.h"

#include <algorithm>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kRowsAtOnce = 100;

// A row of a chart: what is copied as it stands, as values of a statement, and what the balance needs.
struct ChartRow {
    QStringList copied;
    QString code, name;
    double money = 0;
};

struct Counter {
    qint64 max = 0, mark = 0;
};

struct Reference {
    std::vector<ChartRow> kinds, accounts;
    std::optional<Counter> kindIds, accountIds;
};

QString ValueOf(const cReader& row, int column) {
    if (column < 0 || row.IsNull(column)) return u"null"_s;
    return row.IsNumber(column) ? row.Text(column) : Quote(row.Text(column));
}

std::vector<ChartRow> ReadRows(cConnection& book, const QString& table, const QStringList& columns) {
    std::vector<ChartRow> rows;
    auto row = book.Read(u"select * from "_s + table);
    const int code = row.ColumnOf(u"Sort1"), name = row.ColumnOf(u"Name1"), money = row.ColumnOf(u"Money");
    std::vector<int> copied;
    for (const auto& column : columns)
        copied.push_back(row.ColumnOf(column));
    while (row.Next()) {
        rows.push_back({{}, row.Text(code), row.Text(name), row.Number(money)});
        for (const int column : copied)
            rows.back().copied << ValueOf(row, column);
    }
    return rows;
}

std::optional<Counter> ReadCounter(cConnection& book, const QString& table) {
    const auto row = book.OpenRecordset(u"select * from tNum where table1="_s + Quote(table));
    if (row.Eof()) return {};
    return Counter{row.Int(u"Max1"), row.Int(u"Mark1")};
}

const QStringList& KindColumns() {
    static const QStringList columns{u"Id1"_s, u"Name1"_s, u"Sort1"_s, u"Note1"_s, u"Note2"_s, u"nHide"_s};
    return columns;
}

// The note stands last: a carried balance takes its place.
const QStringList& AccountColumns() {
    static const QStringList columns{u"Id1"_s, u"Name1"_s, u"Sort1"_s, u"nHide"_s, u"Date1"_s, u"Note1"_s};
    return columns;
}

// All of it from one state of the file.
Reference ReadReference(const BookRecord& record) {
    cConnection book;
    OpenFileOf(record, book, {});
    book.Execute(u"begin"_s);
    Reference reference;
    reference.kinds = ReadRows(book, u"tKind"_s, KindColumns());
    reference.accounts = ReadRows(book, u"tSubAcc"_s, AccountColumns());
    reference.kindIds = ReadCounter(book, u"tkind"_s);
    reference.accountIds = ReadCounter(book, u"tsubacc"_s);
    book.Rollback();
    return reference;
}

void InsertRows(cConnection& book, const QString& table, const QStringList& columns,
                const QStringList& rows) {
    const QString head = u"insert into "_s + table + u'(' + columns.join(u',') + u") values "_s;
    for (qsizetype i = 0; i < rows.size(); i += kRowsAtOnce)
        book.Execute(head + rows.mid(i, kRowsAtOnce).join(u','));
}

void SetCounter(cConnection& book, const QString& table, const Counter& counter) {
    book.Execute(u"update tNum set Max1="_s + QString::number(counter.max) + u",Mark1="_s +
                 QString::number(counter.mark) + u" where table1="_s + Quote(table));
}

bool IsMarked(const std::vector<bool>& marks, size_t row) {
    return row < marks.size() && marks[row];
}

// Money, nAdd and nReduce.
QStringList Totals(double money) {
    return {SqlNumber(money), SqlNumber(money > 0 ? money : 0), SqlNumber(money < 0 ? money : 0)};
}

// What is the same in each carried entry.
struct EntryParts {
    explicit EntryParts(const BookForm& form)
        : note(Quote(u"参考账本:【"_s + form.reference + u"】"_s)), date(Quote(form.year + u"-01-01"_s)) {}
    const QString title = Quote(u"新建账本结转余额"_s), note, date, time = Quote(u"01:01"_s);
};

QStringList EntryValues(qint64 id, const ChartRow& kind, const EntryParts& same) {
    return {QString::number(id),
            same.title,
            Quote(kind.code),
            Quote(kind.name),
            SqlNumber(std::fabs(kind.money)),
            u"1"_s,
            same.note,
            same.date,
            same.time,
            kind.money >= 0 ? u"1"_s : u"-1"_s};
}

QString InBrackets(const QStringList& values) {
    constexpr qsizetype kUsual = 160;
    QString row;
    row.reserve(kUsual);
    row += u'(';
    for (const auto& value : values) {
        if (row.size() > 1) row += u',';
        row += value;
    }
    return row += u')';
}

void CarryKinds(cConnection& book, const Reference& reference, const BookForm& form) {
    static const QStringList entryColumns{u"Id1"_s,   u"Title1"_s, u"Type1"_s, u"TypeName1"_s, u"Value1"_s,
                                          u"Mark1"_s, u"Note1"_s,  u"Date1"_s, u"Time1"_s,     u"nSign"_s};
    static const QStringList totals{u"Money"_s, u"nAdd"_s, u"nReduce"_s};
    const EntryParts same(form);
    QStringList kinds, entries;
    for (size_t row = 0; row < reference.kinds.size(); ++row) {
        const auto& kind = reference.kinds[row];
        const bool carried = form.carry.kinds && IsMarked(form.carry.kindMarks, row);
        kinds << InBrackets(kind.copied + Totals(carried ? kind.money : 0));
        if (carried) entries << InBrackets(EntryValues(entries.size() + 1, kind, same));
    }
    InsertRows(book, u"tKind"_s, KindColumns() + totals, kinds);
    InsertRows(book, u"tAccount"_s, entryColumns, entries);
    if (reference.kindIds) SetCounter(book, u"tkind"_s, *reference.kindIds);
    SetCounter(book, u"taccount"_s, {entries.size() + 1, 0});
}

void CarryAccounts(cConnection& book, const Reference& reference, const CarryChoice& carry) {
    static const QStringList totals{u"Money"_s, u"nAdd"_s, u"nReduce"_s};
    QStringList accounts;
    for (size_t row = 0; row < reference.accounts.size(); ++row) {
        const auto& account = reference.accounts[row];
        const bool carried = carry.accounts && IsMarked(carry.accountMarks, row);
        auto values = account.copied;
        if (carried) values.back() = Quote(u"新建账本转余额："_s + MoneyText(account.money));
        accounts << InBrackets(values + Totals(carried ? account.money : 0));
    }
    InsertRows(book, u"tSubAcc"_s, AccountColumns() + totals, accounts);
    if (reference.accountIds) SetCounter(book, u"tsubacc"_s, *reference.accountIds);
}

void WriteValues(cConnection& book, const BookForm& form) {
    Transaction all(book);
    SetBookKey(book, u"pass"_s, form.pass);
    SetBookKey(book, u"year"_s, form.year);
    SetBookKey(book, u"booknote"_s, form.note);
    SetBookKey(book, u"CreateDate"_s, TodayText(u"-"_s));
    all.Commit();
}

std::vector<CarryRow> ShownRows(const std::vector<ChartRow>& rows) {
    std::vector<CarryRow> shown;
    for (const auto& row : rows)
        shown.push_back({row.name, MoneyText(row.money)});
    return shown;
}

}  // namespace

CarryLists ReadCarryLists(const BookRecord& reference) {
    const auto read = ReadReference(reference);
    return {ShownRows(read.kinds), ShownRows(read.accounts)};
}

const BookRecord* BookOfBox(const QString& name) {
    const auto& books = State().gBooks;
    const QString wanted = name.toLower();
    const auto found = std::ranges::find_if(
        books, [&](const auto& book) { return !book.Name.isEmpty() && book.Name == wanted; });
    return found == books.end() ? nullptr : &*found;
}

void FillNewBook(const BookRecord& record, const BookForm& form) {
    if (!FileOf(record).exists) return;
    cConnection book;
    OpenFileOf(record, book, {});
    WriteValues(book, form);
    const auto* reference = form.moreOptions ? BookOfBox(form.reference) : nullptr;
    if (!reference || !FileOf(*reference).exists) return;
    std::optional<ClosedBook> closed;
    if (IsSameFile(FileOf(*reference).path, FileOf(CurrentBook()).path)) closed.emplace();
    const auto read = ReadReference(*reference);
    Transaction all(book);
    CarryKinds(book, read, form);
    CarryAccounts(book, read, form.carry);
    all.Commit();
}
