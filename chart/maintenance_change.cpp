// Applying a change to a chart row and to everything that carries its code or name.

#include "chart/maintenance.h"
#include "chart/opening_balance.h"
#include "store/messages.h"
#include "store/money.h"

using namespace Qt::StringLiterals;

namespace {

QString NoteColumn(const QString& table) {
    return table == u"tKind" ? u"Note2"_s : u"Note1"_s;
}

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

// The chart row under its new values; what both charts share of a change.
struct ChangedRow {
    ChartRecord record;
    qint64 id = 0;
    qint64 link = 0;  ///< IID
};

std::optional<ChangedRow> RewriteRow(cConnection& book, const ChartRecord& wanted, const QString& table,
                                     const QString& oldCode) {
    auto row = book.OpenRecordset(u"select * from "_s + table + u" where Sort1="_s + Quote(oldCode));
    if (row.Eof()) {
        ShowMsg(u"意外错误!"_s);
        return {};
    }
    ChangedRow changed{wanted, row.Int(u"Id1"), row.Int(u"IID")};
    changed.record.added = row.Number(u"nAdd");
    changed.record.reduced = row.Number(u"nReduce");
    changed.record.balance = row.Number(u"Money");
    MoveOpening(changed.record);
    row.Set(u"nAdd", MoneyText(changed.record.added));
    row.Set(u"nReduce", MoneyText(changed.record.reduced));
    row.Set(u"Money", MoneyText(changed.record.balance));
    row.Set(u"Sort1", wanted.code);
    row.Set(u"Name1", wanted.name);
    row.Set(u"nHide", wanted.hide ? 1 : 0);
    row.Set(NoteColumn(table), wanted.note);
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

void LinkRow(cConnection& book, const QString& table, qint64 id, qint64 link) {
    book.Execute(u"update "_s + table + u" Set IID="_s + QString::number(link) + IdIs(id));
}

void ReplaceKindCode(cConnection& book, const QString& from, const QString& to) {
    book.Execute(u"update tAccount set Type1="_s + Quote(to) + u" where Type1="_s + Quote(from));
    book.Execute(u"update tAccountWeb set Type1="_s + Quote(to) + u" where Type1="_s + Quote(from));
    book.Execute(u"update tAccountWeb set Type2="_s + Quote(to) + u" where Type2="_s + Quote(from));
}

// The first statement compares a name with the codes: posted entries keep the kind's old name, as settled.
void ReplaceKindName(cConnection& book, const QString& from, const QString& to) {
    book.Execute(u"update tAccount set TypeName1="_s + Quote(to) + u" where Type1="_s + Quote(from));
    book.Execute(u"update tAccountWeb set TypeName1="_s + Quote(to) + u" where TypeName1="_s + Quote(from));
    book.Execute(u"update tAccountWeb set TypeName2="_s + Quote(to) + u" where TypeName2="_s + Quote(from));
}

void MoveKindOpening(cConnection& book, const ChangedRow& row) {
    const double opening = row.record.newOpening;
    const bool linked = row.link > 0 && book.RowOf(u"tAccount"_s, row.link);
    if (opening != 0 && linked) {
        book.Execute(u"update tAccount"_s + AmountAndSign(opening) + IdIs(row.link));
    } else if (opening != 0) {
        LinkRow(book, u"tKind"_s, row.id,
                AddKindOpeningEntry(book, opening, row.record.code, row.record.name));
    } else if (row.link >= 1) {
        book.Execute(u"delete from tAccount"_s + IdIs(row.link));
        LinkRow(book, u"tKind"_s, row.id, 0);
    }
}

void MoveAccountOpening(cConnection& book, const ChangedRow& row, qint64 entry) {
    const double opening = row.record.newOpening;
    const bool linked = row.link > 0 && book.RowOf(u"tSubAccItem"_s, row.link);
    if (opening != 0 && !linked) {
        LinkRow(book, u"tSubAcc"_s, row.id,
                AddAccountOpeningEntry(book, opening, row.record.code, row.record.name).record);
    } else if (opening != 0) {
        // Names the chart table, which has no such columns: an existing opening balance is changed by way of
        // 0.
        book.Execute(u"update tSubAcc"_s + AmountAndSign(opening) + IdIs(row.link));
    } else if (row.link > 0) {
        book.Execute(u"delete from tAccount"_s + IdIs(entry));
        book.Execute(u"delete from tSubAccItem"_s + IdIs(row.link));
        LinkRow(book, u"tSubAcc"_s, row.id, 0);
    }
}

qint64 EntryOfRecord(cConnection& book, qint64 record) {
    auto row = book.Read(u"select id1,AccId from tSubAccItem"_s + IdIs(record));
    return row.Next() ? row.Int(1) : -1;
}

}  // namespace

std::optional<ChartRecord> SaveKindChange(cConnection& book, const ChartRecord& record, bool codeChanged,
                                          bool nameChanged, const QString& oldCode, const QString& oldName) {
    const auto changed = RewriteRow(book, record, u"tKind"_s, oldCode);
    if (!changed) return {};
    if (codeChanged) ReplaceKindCode(book, oldCode, record.code);
    if (nameChanged) ReplaceKindName(book, oldName, record.name);
    MoveKindOpening(book, *changed);
    return changed->record;
}

std::optional<ChartRecord> SaveAccountChange(cConnection& book, const ChartRecord& record, bool codeChanged,
                                             bool nameChanged, const QString& oldCode,
                                             const QString& oldName) {
    const auto changed = RewriteRow(book, record, u"tSubAcc"_s, oldCode);
    if (!changed) return {};
    const qint64 entry = changed->link > 0 ? EntryOfRecord(book, changed->link) : -1;
    if (codeChanged)
        book.Execute(u"update tSubAccItem set SubAccKey="_s + Quote(record.code) + u" where SubAccKey="_s +
                     Quote(oldCode));
    if (nameChanged)
        book.Execute(u"update tSubAccItem set SubAccName1="_s + Quote(record.name) +
                     u" where SubAccName1="_s + Quote(oldName));
    MoveAccountOpening(book, *changed, entry);
    return changed->record;
}

std::optional<ChartRecord> ChangeRow(cConnection& book, const QString& table, const ChartRecord& stored,
                                     const TypedRow& typed) {
    const CodeName row = ParseCodeName(typed.text.trimmed().toLower());
    if (row.code.isEmpty()) return {};
    const bool codeChanged = row.code != stored.code;
    if (codeChanged && !CheckCodeChange(book, row.code, stored.code, table)) return {};
    const bool nameChanged = row.name != stored.name;
    if (nameChanged && !CheckNameChange(book, row.code, row.name, table)) return {};
    ChartRecord wanted = stored;
    wanted.code = row.code;
    wanted.name = row.name;
    wanted.hide = stored.code == kReservedKind && table.toLower() == u"tkind" ? stored.hide : typed.hide;
    wanted.note = typed.note;
    wanted.newOpening = typed.opening;
    const auto save = table.toLower() == u"tkind" ? SaveKindChange : SaveAccountChange;
    return save(book, wanted, codeChanged, nameChanged, stored.code, stored.name);
}
