#include "chart/maintenance.h"

#include "chart/opening_balance.h"
#include "store/book_format.h"
#include "store/dates.h"
#include "store/messages.h"
#include "store/money.h"
#include "store/text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString kNoFigure = u"-"_s;

bool IsKinds(const QString& table) {
    return table.toLower() == u"tkind";
}

QString NoteColumn(const QString& table) {
    return IsKinds(table) ? u"Note2"_s : u"Note1"_s;
}

QString DetailTable(const QString& table) {
    return IsKinds(table) ? u"tAccount"_s : u"tSubAccItem"_s;
}

int CountOf(cConnection& book, const QString& sql) {
    int count = 0;
    for (auto rows = book.Read(sql); rows.Next();)
        ++count;
    return count;
}

bool HasRow(cConnection& book, const QString& sql) {
    return book.Read(sql).Next();
}

bool Refused(bool refused, const QString& message) {
    if (refused) ShowMsg(message);
    return refused;
}

QString ParentOf(const QString& code) {
    return code.chopped(2);
}

ChartRecord RecordOf(cConnection& book, const cRecordset& row, const QString& table) {
    ChartRecord record;
    record.code = row.Text(u"Sort1");
    record.name = row.Text(u"Name1");
    record.oldOpening = GetOpeningBalance(book, row.Int(u"IID"), DetailTable(table));
    record.newOpening = record.oldOpening;
    record.added = row.Number(u"nAdd");
    record.reduced = row.Number(u"nReduce");
    record.balance = row.Number(u"Money");
    record.hide = row.Int(u"nHide") == 1;
    record.note = row.Text(NoteColumn(table));
    return record;
}

bool CheckParent(cConnection& book, const QString& code, const QString& table) {
    if (code.size() <= 2) return true;
    const QString parent = ParentOf(code);
    if (Refused(!HasRow(book, u"select Sort1 from "_s + table + u" where "_s + AtOrBelow(u"Sort1"_s, parent)),
                u"该编号的上一级编号不存在!"_s))
        return false;
    if (IsKinds(table))
        return !Refused(HasRow(book, u"select Type1 from tAccount where Type1="_s + Quote(parent)),
                        u"该分类编号的上一级，已经在记账中使用了。不能在该分类下新增子分类!"_s);
    return !Refused(HasRow(book, u"select SubAcckey from tSubAccItem where SubAccKey="_s + Quote(parent)),
                    u"该编号的上一级，已经在记账中使用了。不能在其下新增子账户!"_s);
}

bool HasSiblingOfName(cConnection& book, const CodeName& row, const QString& table) {
    auto rows = book.Read(u"select Sort1,Name1 from "_s + table + u" where "_s +
                          AtOrBelow(u"Sort1"_s, ParentOf(row.code)) + u"  and Name1="_s + Quote(row.name));
    while (rows.Next())
        if (rows.Text(0).size() == row.code.size()) return true;
    return false;
}

}  // namespace

QStringList ChartCells(int number, const ChartRecord& record, bool leaf) {
    const auto figure = [leaf](double x) { return leaf ? MoneyText(x) : kNoFigure; };
    return {QString::number(number),
            IndentByDepth(record.code) + record.name,
            record.hide ? u"隐藏"_s : QString(),
            leaf ? PlainNumber(record.newOpening) : kNoFigure,
            figure(record.added),
            figure(record.reduced),
            figure(record.balance),
            record.note};
}

std::vector<ChartLine> ReadChart(cConnection& book, const QString& table) {
    auto rows = book.OpenRecordset(u"select * from "_s + table + u" order by Sort1"_s);
    std::vector<ChartRecord> records;
    std::vector<qint64> ids;
    for (; !rows.Eof(); rows.MoveNext()) {
        records.push_back(RecordOf(book, rows, table));
        ids.push_back(rows.Int(u"Id1"));
    }
    std::vector<ChartLine> lines;
    for (size_t i = 0; i < records.size(); ++i) {
        // In order of codes a subtree stands together, so its size shows in the neighbours.
        const QString& code = records[i].code;
        const bool alone = (i == 0 || records[i - 1].code != code) &&
                           (i + 1 == records.size() || !records[i + 1].code.startsWith(code));
        lines.push_back(
            {ChartCells(static_cast<int>(i) + 1, records[i], alone), code, ids[i], code.size() == 2});
    }
    return lines;
}

std::optional<ChartRecord> ReadChartRecord(cConnection& book, qint64 id, const QString& table) {
    const auto row =
        book.OpenRecordset(u"select * from "_s + table.toLower() + u" where id1="_s + QString::number(id));
    if (row.Eof() || row.Text(u"Sort1").isEmpty()) return {};
    return RecordOf(book, row, table);
}

CodeName CheckNewRow(cConnection& book, const QString& text, const QString& table) {
    const bool kinds = IsKinds(table);
    CodeName row = ParseCodeName(text);
    if (row.code.isEmpty()) return {};
    if (kinds && Refused(row.code.startsWith(kReservedKind), u"系统保留分类【00】不可新增下一级!"_s))
        return {};
    if (Refused(HasRow(book, u"select Sort1 from "_s + table + u" where Sort1="_s + Quote(row.code)),
                kinds ? u"该编号的分类已存在!"_s : u"该编号的账户已存在!"_s))
        return {};
    if (!CheckParent(book, row.code, table)) return {};
    if (Refused(HasSiblingOfName(book, row, table),
                kinds ? u"同一级内有相同的分类名称!"_s : u"同一级内有相同的账户名称!"_s))
        return {};
    return row;
}

qint64 AddChartRow(cConnection& book, const QString& table, const CodeName& row, double opening,
                   const QString& note, bool hide) {
    const bool kinds = IsKinds(table);
    const qint64 id = NewId(book, table.toLower());
    qint64 link = 0;
    if (opening != 0)
        link = kinds ? AddKindOpeningEntry(book, opening, row.code, row.name)
                     : AddAccountOpeningEntry(book, opening, row.code, row.name).record;
    auto rows = book.OpenRecordset(u"select * from "_s + table + u" where 0"_s);
    rows.AddRow();
    rows.Set(u"Id1", id);
    rows.Set(u"IID", link);
    rows.Set(u"Name1", row.name);
    rows.Set(u"Sort1", row.code);
    rows.Set(u"nAdd", MoneyText(opening >= 0 ? opening : 0));
    rows.Set(u"nReduce", MoneyText(opening < 0 ? -opening : 0));
    rows.Set(u"Money", MoneyText(opening));
    rows.Set(kinds ? u"Note1" : u"Date1", TodayText(u"-"_s));
    rows.Set(NoteColumn(table), note);
    rows.Set(u"nHide", hide ? 1 : 0);
    rows.Update();
    return id;
}

bool CheckCodeChange(cConnection& book, const QString& newCode, const QString& oldCode,
                     const QString& table) {
    if (Refused(HasRow(book, u"select Sort1 from "_s + table + u" where Sort1="_s + Quote(newCode)),
                u"欲修改的编号已经存在，不能修改!"_s))
        return false;
    if (Refused(!IsLeafCode(book, oldCode, table), u"该编号已经有下一级，不能修改编号!"_s)) return false;
    const QString column = IsKinds(table) ? u"Type1"_s : u"SubAccKey"_s;
    const int uses =
        CountOf(book, u"select "_s + column + u" from tAccount where "_s + column + u'=' + Quote(oldCode));
    if (uses == 0) return true;
    return ShowMsg(u"修改之前的编号已经在记账中使用，且有"_s + QString::number(uses) +
                       u"条记录已经使用，修改将涉及所有记账进行修改，是否继续？"_s,
                   u"否,是"_s, kMsgAsk) == 1;
}

bool CheckNameChange(cConnection& book, const QString& code, const QString& name, const QString& table) {
    auto rows = book.Read(u"select Sort1,Name1 from "_s + table + u" where "_s +
                          AtOrBelow(u"Sort1"_s, ParentOf(code)) + u" and Name1="_s + Quote(name));
    bool taken = false;
    while (!taken && rows.Next())
        taken = rows.Text(0) != code;
    return !Refused(taken, u"同一级内有相同的名称!"_s);
}

bool MayDeleteRow(cConnection& book, const QString& code, const QString& table) {
    const bool kinds = IsKinds(table);
    if (kinds && Refused(code == kReservedKind, u"【余额调整】是软件『保留分类』，不可删除！"_s))
        return false;
    const QString used =
        kinds ? u"select Type1,IID from tAccount where type1="_s + Quote(code) + u" and IID<>9999"_s
              : u"select SubAccKey from tSubAccItem where SubAccKey="_s + Quote(code);
    if (Refused(HasRow(book, used), kinds ? u"该分类已在记账中被【引用（使用）过】! 因此不能删除"_s
                                          : u"该账户已在记账中被【引用（使用）过】! 因此不能删除"_s))
        return false;
    if (Refused(!IsLeafCode(book, code, table), kinds ? u"该分类不是【最末】一级分类! 因此不能删除"_s
                                                      : u"该账户不是【最末】一级! 因此不能删除"_s))
        return false;
    return ShowMsg(kinds ? u"你确定要【删除选定】的分类名称?"_s : u"你确定要【删除选定】的账户?"_s,
                   u"取消,确定"_s, kMsgAsk) == 1;
}

void DeleteChartRow(cConnection& book, const QString& code, const QString& table) {
    if (IsKinds(table)) {
        book.Execute(u"delete from tKind where Sort1="_s + Quote(code));
        book.Execute(u"delete from tAccount where Type1="_s + Quote(code));
        return;
    }
    const auto opening =
        book.OpenRecordset(u"select id1, SubAccKey from tSubAccItem where SubAcckey="_s + Quote(code));
    if (!opening.Eof()) book.Execute(u"delete from tAccount where iiid="_s + opening.Text(u"id1"));
    book.Execute(u"delete from tSubAcc where Sort1="_s + Quote(code));
    book.Execute(u"delete from tSubAccItem where SubAccKey="_s + Quote(code));
}

std::optional<AddedRow> NewRow(cConnection& book, const QString& table, const TypedRow& typed) {
    const QString text = typed.text.trimmed().toLower();
    if (text.isEmpty()) return {};
    const CodeName row = CheckNewRow(book, text, table);
    if (row.code.isEmpty()) return {};
    AddedRow added;
    added.id = AddChartRow(book, table, row, typed.opening, typed.note, typed.hide);
    added.record.code = row.code;
    added.record.name = row.name;
    added.record.newOpening = added.record.balance = typed.opening;
    added.record.added = std::max(typed.opening, 0.0);
    added.record.reduced = std::max(-typed.opening, 0.0);
    added.record.hide = typed.hide;
    added.record.note = typed.note;
    return added;
}

bool DeleteRowAsked(cConnection& book, const QString& code, const QString& table,
                    const std::function<void()>& afterwards) {
    if (!MayDeleteRow(book, code, table)) return false;
    DeleteChartRow(book, code, table);
    if (afterwards) afterwards();
    ShowMsg(u"已成功删除分类!"_s, u"确定"_s, kMsgInfo);
    return true;
}

QString NoneChosen(const QString& table) {
    return IsKinds(table) ? u"没有【选定】要删除的分类!"_s : u"没有【选定】要删除的账户!"_s;
}
