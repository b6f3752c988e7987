// The driver's requests on the two charts and on templates.

#include "chart/maintenance.h"
#include "ledger/templates.h"
#include "store/messages.h"
#include "store/money.h"
#include "store/state.h"
#include "store/text.h"
#include "tools/drive/request.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QJsonArray ChartLines(Chart chart) {
    QJsonArray lines;
    for (const auto& line : ReadChart(State().gDB, chart))
        lines.append(QJsonObject{
            {u"key"_s, line.code}, {u"id"_s, line.id}, {u"cells"_s, QJsonArray::fromStringList(line.cells)}});
    return lines;
}

std::optional<ChartRecord> RecordOfCode(Chart chart, const QString& code) {
    const auto lines = ReadChart(State().gDB, chart);
    const auto found =
        std::find_if(lines.begin(), lines.end(), [&](const ChartLine& l) { return l.code == code; });
    if (code.isEmpty() || found == lines.end()) return {};
    return ReadChartRecord(State().gDB, found->id, chart);
}

// What the input box would hold; false after its refusal of the amount.
bool TypedOf(const QJsonObject& r, TypedRow& typed) {
    if (r.contains(u"text"_s)) typed.text = OneLine(r[u"text"].toString());
    if (r.contains(u"note"_s)) typed.note = r[u"note"].toString();
    if (r.contains(u"hide"_s)) typed.hide = r[u"hide"].toBool();
    if (!r.contains(u"money"_s)) return true;
    const auto hundredths = TypedHundredths(CleanAmount(r[u"money"].toString()));
    if (!hundredths) {
        ShowMsg(u"金额不正确!"_s);
        return false;
    }
    typed.opening = *hundredths / 100.0;
    return true;
}

QJsonObject NewChartRow(Chart chart, const QJsonObject& r) {
    TypedRow typed;
    if (!r[u"text"].isString()) return Failure(u"missing field: text"_s);
    if (!TypedOf(r, typed)) return Refusal({}, u"txtMoney"_s);
    const auto added = NewRow(State().gDB, chart, typed);
    if (!added) return Refusal({}, {});
    return {{u"ok"_s, true}, {u"id"_s, added->id}};
}

QJsonObject EditChartRow(Chart chart, const QJsonObject& r) {
    const auto stored = RecordOfCode(chart, r[u"code"].toString());
    if (!stored) {
        ShowMsg(u"请【选定一条】需修改的记录!"_s);
        return Refusal({}, {});
    }
    TypedRow typed{stored->code + u' ' + stored->name, stored->oldOpening, stored->note, stored->hide};
    if (!TypedOf(r, typed)) return Refusal({}, u"txtMoney"_s);
    if (!ChangeRow(State().gDB, chart, *stored, typed)) return Refusal({}, {});
    return {{u"ok"_s, true}};
}

QJsonObject DropChartRow(Chart chart, const QJsonObject& r) {
    const auto stored = RecordOfCode(chart, r[u"code"].toString());
    if (!stored) {
        ShowMsg(NoneChosen(chart));
        return Refusal({}, {});
    }
    if (!DeleteRowAsked(State().gDB, chart, stored->code, {})) return Refusal({}, {});
    return {{u"ok"_s, true}};
}

QJsonObject AnswerChart(const QJsonObject& r) {
    const auto chart = ChartOf(r[u"table"].toString());
    if (!chart) return Failure(u"missing field: table"_s);
    const QString action = r[u"action"].toString();
    if (action == u"list") return {{u"ok"_s, true}, {u"lines"_s, ChartLines(*chart)}};
    if (action == u"new") return NewChartRow(*chart, r);
    if (action == u"edit") return EditChartRow(*chart, r);
    if (action == u"delete") return DropChartRow(*chart, r);
    return Failure(u"unknown action"_s);
}

QJsonObject AnswerTemplates(const QJsonObject&) {
    QJsonArray lines;
    int number = 0;
    for (const auto& item : ReadTemplates(State().gDB))
        lines.append(QJsonObject{{u"key"_s, QString::number(item.id)},
                                 {u"cells"_s, QJsonArray{QString::number(++number), item.title}}});
    return {{u"ok"_s, true}, {u"lines"_s, lines}};
}

QJsonObject AnswerTemplateAdd(const QJsonObject& r) {
    if (!AddTemplate(State().gDB, r[u"id"].toInteger())) return Refusal({}, {});
    return AnswerTemplates(r);
}

QJsonObject AnswerTemplateDelete(const QJsonObject& r) {
    const auto ids = IdsOf(r);
    if (!ids) return Failure(u"missing field: ids"_s);
    if (!DeleteTemplatesAsked(State().gDB, *ids)) return Refusal({}, {});
    return AnswerTemplates(r);
}

}  // namespace

std::span<const Request> ChartRequests() {
    using enum FieldType;
    static const Request requests[] = {
        {u"chart",
         {{u"table", text, true},
          {u"action", text},
          {u"code", text},
          {u"text", text},
          {u"money", text},
          {u"note", text},
          {u"hide", flag}},
         AnswerChart},
        {u"templates", {}, AnswerTemplates},
        {u"templateAdd", {{u"id", number, true}}, AnswerTemplateAdd},
        {u"templateDelete", {}, AnswerTemplateDelete},
    };
    return requests;
}
