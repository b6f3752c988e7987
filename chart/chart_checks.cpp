#include "chart/chart_checks.h"

using namespace Qt::StringLiterals;

namespace {

bool HasRow(cConnection& book, const QString& sql) {
    return book.Read(sql).Next();
}

QString ParentOf(const QString& code) {
    return code.chopped(2);
}

QString RowsOfCode(Chart chart, const QString& code) {
    return u"select Sort1 from "_s + TableOf(chart).table + u" where Sort1="_s + Quote(code);
}

QString UsesOfCode(Chart chart, const QString& code) {
    const auto& names = TableOf(chart);
    return u"select "_s + names.code + u" from "_s + names.rows + u" where "_s + names.code + u'=' +
           Quote(code);
}

QString NamesBelow(Chart chart, const QString& parent, const QString& name) {
    return u"select Sort1,Name1 from "_s + TableOf(chart).table + u" where "_s +
           AtOrBelow(u"Sort1"_s, parent) + u" and Name1="_s + Quote(name);
}

QString ParentComplaint(cConnection& book, Chart chart, const QString& code) {
    if (code.size() <= 2) return {};
    const QString parent = ParentOf(code);
    if (!HasRow(book, u"select Sort1 from "_s + TableOf(chart).table + u" where "_s +
                          AtOrBelow(u"Sort1"_s, parent)))
        return u"该编号的上一级编号不存在!"_s;
    if (!HasRow(book, UsesOfCode(chart, parent))) return {};
    return chart == Chart::kinds ? u"该分类编号的上一级，已经在记账中使用了。不能在该分类下新增子分类!"_s
                                 : u"该编号的上一级，已经在记账中使用了。不能在其下新增子账户!"_s;
}

bool HasSiblingOfName(cConnection& book, Chart chart, const CodeName& row) {
    auto rows = book.Read(NamesBelow(chart, ParentOf(row.code), row.name));
    while (rows.Next())
        if (rows.Text(0).size() == row.code.size()) return true;
    return false;
}

}  // namespace

QString NewRowComplaint(cConnection& book, Chart chart, const CodeName& row) {
    const QString word = TableOf(chart).word;
    if (chart == Chart::kinds && row.code.startsWith(kReservedKind))
        return u"系统保留分类【00】不可新增下一级!"_s;
    if (HasRow(book, RowsOfCode(chart, row.code))) return u"该编号的"_s + word + u"已存在!"_s;
    if (auto complaint = ParentComplaint(book, chart, row.code); !complaint.isEmpty()) return complaint;
    if (HasSiblingOfName(book, chart, row)) return u"同一级内有相同的"_s + word + u"名称!"_s;
    return {};
}

CodeCheck CheckCodeChange(cConnection& book, Chart chart, const QString& newCode, const QString& oldCode) {
    if (HasRow(book, RowsOfCode(chart, newCode))) return {u"欲修改的编号已经存在，不能修改!"_s};
    if (!IsLeafCode(book, oldCode, chart)) return {u"该编号已经有下一级，不能修改编号!"_s};
    CodeCheck check;
    const QString& column = TableOf(chart).code;
    for (auto uses =
             book.Read(u"select "_s + column + u" from tAccount where "_s + column + u'=' + Quote(oldCode));
         uses.Next();)
        ++check.uses;
    return check;
}

QString NameComplaint(cConnection& book, Chart chart, const CodeName& row) {
    for (auto rows = book.Read(NamesBelow(chart, ParentOf(row.code), row.name)); rows.Next();)
        if (rows.Text(0) != row.code) return u"同一级内有相同的名称!"_s;
    return {};
}

QString DeleteComplaint(cConnection& book, Chart chart, const QString& code) {
    const bool kinds = chart == Chart::kinds;
    const QString word = TableOf(chart).word;
    if (kinds && code == kReservedKind) return u"【余额调整】是软件『保留分类』，不可删除！"_s;
    if (HasRow(book, UsesOfCode(chart, code) + (kinds ? u" and IID<>9999"_s : QString())))
        return u"该"_s + word + u"已在记账中被【引用（使用）过】! 因此不能删除"_s;
    if (IsLeafCode(book, code, chart)) return {};
    return kinds ? u"该分类不是【最末】一级分类! 因此不能删除"_s : u"该账户不是【最末】一级! 因此不能删除"_s;
}
