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

bool IsKindTable(const QString& table) {
    return table.toLower() == u"tkind";
}

double SumOf(cConnection& book, const QString& statement) {
    auto row = book.Read(statement);
    return row.Next() ? row.Number(0) : 0;
}

std::optional<CodeName> RowOfCode(cConnection& book, const QString& code, const QString& table) {
    auto row = book.Read(u"select Sort1,Name1 from "_s + table + u" where Sort1="_s + Quote(code));
    if (!row.Next()) return {};
    return CodeName{row.Text(0), row.Text(1)};
}

QString DetailLines(cConnection& book, const QString& table, const QString& code) {
    const auto row = book.OpenRecordset(u"select * from "_s + table + u" where Sort1="_s + Quote(code));
    if (row.Eof()) return {};
    const auto sums = BranchSums(book, table, code);
    return u"\n增加："_s + sums.added + u"\n减少："_s + sums.reduced + u"\n余额："_s + sums.balance +
           u"\n备注："_s + row.Text(IsKindTable(table) ? u"Note2" : u"Note1");
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
    return u"left$("_s + column + u',' + QString::number(code.size()) + u")="_s + Quote(code);
}

bool IsLeafCode(cConnection& book, const QString& code, const QString& table) {
    auto rows = book.Read(u"select Sort1 from "_s + table + u" where "_s + AtOrBelow(u"Sort1"_s, code));
    return !(rows.Next() && rows.Next());
}

QString NameByCode(cConnection& book, const QString& code, const QString& table) {
    const auto row = RowOfCode(book, code, table);
    return row ? row->name : QString();
}

QString CodePathText(cConnection& book, const QString& table, const QString& code, bool details) {
    if (table.isEmpty() || code.isEmpty()) return {};
    QStringList levels;
    for (qsizetype i = 1; i <= code.size() / 2; ++i)
        if (const auto row = RowOfCode(book, code.left(2 * i), table)) levels << row->code + row->name;
    QString path = levels.join(u'-');
    if (details) path += DetailLines(book, table, code);
    return path;
}

BranchTexts BranchSums(cConnection& book, const QString& table, const QString& code) {
    const bool kinds = IsKindTable(table);
    const QString from =
        u"select sum(Value1) as SumAll from "_s + (kinds ? u"tAccount"_s : u"tSubAccItem"_s) + u" where "_s;
    const QString below = u" and "_s + AtOrBelow(kinds ? u"Type1"_s : u"SubAccKey"_s, code);
    const double added = SumOf(book, from + u"nSign=1"_s + below);
    const double reduced = SumOf(book, from + u"nSign=-1"_s + below);
    return {MoneyText(added), MoneyText(reduced), MoneyText(added - reduced)};
}

double GetOpeningBalance(cConnection& book, qint64 entryId, const QString& table) {
    if (entryId < 1) return 0;
    const auto rowId = book.RowOf(table, entryId);
    if (!rowId) return 0;
    auto row = book.Read(u"select id1,Value1,nSign from "_s + table.toLower() + u" where rowid="_s +
                         QString::number(*rowId));
    return row.Next() ? row.Number(1) * static_cast<double>(row.Int(2)) : 0;
}

std::vector<CodeName> ChildCodes(cConnection& book, const QString& table, const QString& code) {
    const auto n = code.size();
    auto rows =
        book.Read(u"select Sort1,Name1 from "_s + table + u" where Left$(Sort1,"_s + QString::number(n) +
                  u")="_s + Quote(code) + u" and Mid$(Sort1,"_s + QString::number(n + 1) +
                  u")<>'' and Mid$(Sort1,"_s + QString::number(n + 3) + u")=''"_s);
    std::vector<CodeName> children;
    while (rows.Next())
        if (rows.Text(0).size() == n + 2) children.push_back({rows.Text(0), rows.Text(1)});
    return children;
}

std::vector<CodeName> ShownCodes(cConnection& book, const QString& table) {
    std::vector<CodeName> codes;
    for (auto& row : ShownRows(book, table))
        codes.push_back({row.code, row.name});
    return codes;
}

std::vector<ChartRow> ShownRows(cConnection& book, const QString& table) {
    auto rows = book.Read(u"select Id1,Sort1,Name1 from "_s + table + u" where nHide=0 order by Sort1"_s);
    std::vector<ChartRow> found;
    while (rows.Next())
        found.push_back({rows.Int(0), rows.Text(1), rows.Text(2)});
    return found;
}

int ChartCount(cConnection& book, const QString& table) {
    auto row = book.Read(u"select count(id1) as KindCount from "_s + table);
    return row.Next() ? static_cast<int>(row.Int(0)) : 0;
}

std::optional<ChartMoney> StoredMoney(cConnection& book, const QString& table, qint64 id) {
    const auto row = book.OpenRecordset(u"select * from "_s + table + u" where Id1="_s + QString::number(id));
    if (row.Eof()) return {};
    return ChartMoney{row.Text(u"Name1"), row.Number(u"nAdd"), row.Number(u"nReduce"), row.Number(u"Money")};
}
