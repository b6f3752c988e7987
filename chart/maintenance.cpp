#include "chart/maintenance.h"

#include "chart/chart_checks.h"
#include "chart/chart_writing.h"
#include "store/messages.h"
#include "store/notices.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool Refused(const QString& complaint) {
    if (!complaint.isEmpty()) ShowMsg(complaint);
    return !complaint.isEmpty();
}

// How many uses the user has let a changed code follow; nullopt after a refusal.
std::optional<int> AskCodeChange(cConnection& book, Chart chart, const QString& newCode,
                                 const QString& oldCode) {
    const auto check = CheckCodeChange(book, chart, newCode, oldCode);
    if (Refused(check.complaint)) return {};
    if (check.uses == 0) return 0;
    const int answer = ShowMsg(u"修改之前的编号已经在记账中使用，且有"_s + QString::number(check.uses) +
                                   u"条记录已经使用，修改将涉及所有记账进行修改，是否继续？"_s,
                               u"否,是"_s, kMsgAsk);
    return answer == 1 ? std::optional(check.uses) : std::nullopt;
}

struct Names {
    bool code = false, name = false;  ///< which of the two changes
    int asked = 0;                    ///< uses that the user knows of
};

// The checks once more where nothing can come in between.
QString ComplaintNow(cConnection& book, Chart chart, const ChartChange& change, const Names& changed) {
    if (changed.code) {
        const auto check = CheckCodeChange(book, chart, change.record.code, change.oldCode);
        if (!check.complaint.isEmpty()) return check.complaint;
        if (check.uses > changed.asked) return u"该编号刚刚又有新的记账使用，请重新修改!"_s;
    }
    return changed.name ? NameComplaint(book, chart, {change.record.code, change.record.name}) : QString();
}

std::optional<ChartRecord> Apply(cConnection& book, Chart chart, const ChartChange& change,
                                 const Names& changed) {
    std::optional<ChangedRow> row;
    QString complaint;
    {
        Transaction save(book);
        complaint = ComplaintNow(book, chart, change, changed);
        if (complaint.isEmpty()) row = WriteChange(book, chart, change);
        if (row && change.openingTouched && HasStandingOpening(chart, *row))
            WriteStandingOpening(book, *row, u"请先把期初余额改为 0，再改为新的金额"_s);
        if (row) save.Commit();
    }
    if (Refused(complaint)) return {};
    if (!row) {
        ShowMsg(u"意外错误!"_s);
        return {};
    }
    Notices().chartChanged.Emit(chart);
    if (HasStandingOpening(chart, *row)) WriteStandingOpening(book, *row, u"其他内容已保存，期初余额未变"_s);
    return row->record;
}

}  // namespace

std::optional<AddedRow> NewRow(cConnection& book, Chart chart, const TypedRow& typed) {
    const QString text = typed.text.trimmed().toLower();
    if (text.isEmpty()) return {};
    const CodeName row = ParseCodeName(text);
    if (row.code.isEmpty()) return {};
    AddedRow added;
    QString complaint;
    {
        Transaction save(book);
        complaint = NewRowComplaint(book, chart, row);
        if (complaint.isEmpty()) {
            added.id = AddChartRow(book, chart, row, typed.opening, typed.note, typed.hide);
            save.Commit();
        }
    }
    if (Refused(complaint)) return {};
    Notices().chartChanged.Emit(chart);
    added.record.code = row.code;
    added.record.name = row.name;
    added.record.newOpening = added.record.balance = typed.opening;
    added.record.added = std::max(typed.opening, 0.0);
    added.record.reduced = std::max(-typed.opening, 0.0);
    added.record.hide = typed.hide;
    added.record.note = typed.note;
    return added;
}

std::optional<ChartRecord> ChangeRow(cConnection& book, Chart chart, const ChartRecord& stored,
                                     const TypedRow& typed) {
    const CodeName row = ParseCodeName(typed.text.trimmed().toLower());
    if (row.code.isEmpty()) return {};
    Names changed{row.code != stored.code, row.name != stored.name};
    if (changed.code) {
        const auto asked = AskCodeChange(book, chart, row.code, stored.code);
        if (!asked) return {};
        changed.asked = *asked;
    }
    if (changed.name && Refused(NameComplaint(book, chart, row))) return {};
    ChartChange change{stored, stored.code, stored.name, typed.opening != stored.oldOpening};
    change.record.code = row.code;
    change.record.name = row.name;
    if (chart != Chart::kinds || stored.code != kReservedKind) change.record.hide = typed.hide;
    change.record.note = typed.note;
    change.record.newOpening = typed.opening;
    return Apply(book, chart, change, changed);
}

bool DeleteRowAsked(cConnection& book, Chart chart, const QString& code,
                    const std::function<void()>& afterwards) {
    if (Refused(DeleteComplaint(book, chart, code))) return false;
    const QString question =
        chart == Chart::kinds ? u"你确定要【删除选定】的分类名称?"_s : u"你确定要【删除选定】的账户?"_s;
    if (ShowMsg(question, u"取消,确定"_s, kMsgAsk) != 1) return false;
    QString complaint;
    {
        Transaction remove(book);
        complaint = DeleteComplaint(book, chart, code);
        if (complaint.isEmpty()) {
            DeleteChartRow(book, chart, code);
            remove.Commit();
        }
    }
    if (Refused(complaint)) return false;
    Notices().chartChanged.Emit(chart);
    if (afterwards) afterwards();
    ShowMsg(u"已成功删除分类!"_s, u"确定"_s, kMsgInfo);
    return true;
}

QString NoneChosen(Chart chart) {
    return u"没有【选定】要删除的"_s + TableOf(chart).word + u'!';
}
