#include "chart/codes.h"

#include "store/messages.h"
#include "store/money.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kMaxDigits = 18;

CodeName Refuse(const QString& text) {
    ShowMsg(text);
    return {};
}

// The text behind all that begin with code: its last character is one higher.
QString Successor(const QString& code) {
    constexpr char32_t kFirstSurrogate = 0xD800, kAfterSurrogates = 0xE000;
    auto text = code.toStdU32String();
    if (++text.back() == kFirstSurrogate) text.back() = kAfterSurrogates;
    return QString::fromStdU32String(text);
}

std::optional<CodeName> RowOfCode(cConnection& book, const QString& code, Chart chart) {
    auto row =
        book.Read(u"select Sort1,Name1 from "_s + TableOf(chart).table + u" where Sort1="_s + Quote(code));
    if (!row.Next()) return {};
    return CodeName{row.Text(0), row.Text(1)};
}

QString DetailLines(cConnection& book, Chart chart, const QString& code) {
    const auto row =
        book.OpenRecordset(u"select * from "_s + TableOf(chart).table + u" where Sort1="_s + Quote(code));
    if (row.Eof()) return {};
    const auto sums = BranchSums(book, chart, code);
    return u"\n增加："_s + sums.added + u"\n减少："_s + sums.reduced + u"\n余额："_s + sums.balance +
           u"\n备注："_s + row.Text(TableOf(chart).note);
}

}  // namespace

CodeName ParseCodeName(const QString& text) {
    const auto pieces = text.trimmed().split(u' ');
    if (pieces.size() != 2) return Refuse(u"格式错误!"_s);
    const QString code = pieces[0].trimmed();
    const QString name = pieces[1].trimmed();
    if (!LooksNumeric(code) || name.isEmpty()) return Refuse(u"格式错误!"_s);
    if (code.size() % 2 != 0) return Refuse(u"格式错误! 编号长度只能是2的倍数!"_s);
    if (code.size() > kMaxDigits) return Refuse(u"格式错误! 编号长度最多9级18位数字!"_s);
    return {code, name};
}

QString AtOrBelow(const QString& column, const QString& code) {
    if (code.isEmpty()) return u"1"_s;
    return column + u">="_s + Quote(code) + u" and "_s + column + u'<' + Quote(Successor(code));
}

bool IsLeafCode(cConnection& book, const QString& code, Chart chart) {
    auto rows = book.Read(u"select Sort1 from "_s + TableOf(chart).table + u" where "_s +
                          AtOrBelow(u"Sort1"_s, code));
    return !(rows.Next() && rows.Next());
}

QString NameByCode(cConnection& book, const QString& code, Chart chart) {
    const auto row = RowOfCode(book, code, chart);
    return row ? row->name : QString();
}

QString CodePathText(cConnection& book, Chart chart, const QString& code, bool details) {
    if (code.isEmpty()) return {};
    QStringList levels;
    for (qsizetype i = 1; i <= code.size() / 2; ++i)
        if (const auto row = RowOfCode(book, code.left(2 * i), chart)) levels << row->code + row->name;
    QString path = levels.join(u'-');
    if (details) path += DetailLines(book, chart, code);
    return path;
}

BranchTexts BranchSums(cConnection& book, Chart chart, const QString& code) {
    const auto& names = TableOf(chart);
    auto row = book.Read(
        u"select sum(case when nSign=1 then Value1 end),sum(case when nSign=-1 then Value1 end) "
        u"from "_s +
        names.rows + u" where "_s + AtOrBelow(names.code, code));
    const bool found = row.Next();
    const double added = found ? row.Number(0) : 0;
    const double reduced = found ? row.Number(1) : 0;
    return {MoneyText(added), MoneyText(reduced), MoneyText(added - reduced)};
}

std::optional<double> GetOpeningBalance(cConnection& book, qint64 entryId, Chart chart, const QString& code) {
    const auto& names = TableOf(chart);
    if (entryId < 1) return {};
    const auto at = book.RowOf(names.rows, entryId);
    if (!at) return {};
    auto row = book.Read(u"select Value1,nSign,"_s + names.code + u" from "_s + names.rows +
                         u" where rowid="_s + QString::number(*at));
    if (!row.Next() || row.Text(2) != code) return {};
    return row.Number(0) * static_cast<double>(row.Int(1));
}

std::optional<QString> CodeOfId(cConnection& book, Chart chart, qint64 id) {
    auto row =
        book.Read(u"select Sort1 from "_s + TableOf(chart).table + u" where Id1="_s + QString::number(id));
    return row.Next() ? std::optional(row.Text(0)) : std::nullopt;
}

std::optional<qint64> IdOfCode(cConnection& book, Chart chart, const QString& code) {
    auto row = book.Read(u"select Id1 from "_s + TableOf(chart).table + u" where Sort1="_s + Quote(code));
    return row.Next() ? std::optional(row.Int(0)) : std::nullopt;
}

std::vector<CodeName> ChildCodes(cConnection& book, Chart chart, const QString& code) {
    const auto n = code.size();
    auto rows =
        book.Read(u"select Sort1,Name1 from "_s + TableOf(chart).table + u" where Left$(Sort1,"_s +
                  QString::number(n) + u")="_s + Quote(code) + u" and Mid$(Sort1,"_s +
                  QString::number(n + 1) + u")<>'' and Mid$(Sort1,"_s + QString::number(n + 3) + u")=''"_s);
    std::vector<CodeName> children;
    while (rows.Next())
        if (rows.Text(0).size() == n + 2) children.push_back({rows.Text(0), rows.Text(1)});
    return children;
}

std::vector<CodeName> AllCodes(cConnection& book, Chart chart) {
    std::vector<CodeName> codes;
    auto rows = book.Read(u"select Sort1,Name1 from "_s + TableOf(chart).table + u" order by Sort1"_s);
    while (rows.Next())
        codes.push_back({rows.Text(0), rows.Text(1)});
    return codes;
}

std::vector<CodeName> ShownCodes(cConnection& book, Chart chart) {
    std::vector<CodeName> codes;
    for (auto& row : ShownRows(book, chart))
        codes.push_back({row.code, row.name});
    return codes;
}

std::vector<ChartRow> ShownRows(cConnection& book, Chart chart) {
    auto rows = book.Read(u"select Id1,Sort1,Name1 from "_s + TableOf(chart).table +
                          u" where nHide=0 order by Sort1"_s);
    std::vector<ChartRow> found;
    while (rows.Next())
        found.push_back({rows.Int(0), rows.Text(1), rows.Text(2)});
    return found;
}

int ChartCount(cConnection& book, Chart chart) {
    auto row = book.Read(u"select count(id1) as KindCount from "_s + TableOf(chart).table);
    return row.Next() ? static_cast<int>(row.Int(0)) : 0;
}

std::optional<ChartMoney> StoredMoney(cConnection& book, Chart chart, qint64 id) {
    const auto row = book.OpenRecordset(u"select * from "_s + TableOf(chart).table + u" where Id1="_s +
                                        QString::number(id));
    if (row.Eof()) return {};
    return ChartMoney{row.Text(u"Name1"), row.Number(u"nAdd"), row.Number(u"nReduce"), row.Number(u"Money")};
}
