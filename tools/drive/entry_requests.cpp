// The driver's requests on entries and account records.

#include "chart/codes.h"
#include "ledger/entry_check.h"
#include "ledger/entry_delete.h"
#include "ledger/entry_edit.h"
#include "ledger/entry_query.h"
#include "ledger/record_query.h"
#include "store/dates.h"
#include "store/entry_rows.h"
#include "store/money.h"
#include "store/state.h"
#include "store/text.h"
#include "tools/drive/request.h"

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

QString ControlName(EntryField field) {
    static const std::map<EntryField, QString> names{{EntryField::thing, u"txtThing"_s},
                                                     {EntryField::money, u"txtMoney"_s},
                                                     {EntryField::date, u"txtDate"_s},
                                                     {EntryField::hour, u"txtHour"_s},
                                                     {EntryField::minute, u"txtMinute"_s},
                                                     {EntryField::kind, u"comKind"_s},
                                                     {EntryField::kind2, u"comKind1"_s},
                                                     {EntryField::account, u"comAccName"_s},
                                                     {EntryField::accountValue, u"txtAccValue"_s},
                                                     {EntryField::account2, u"comAccName1"_s},
                                                     {EntryField::account2Value, u"txtAccValue1"_s}};
    const auto found = names.find(field);
    return found == names.end() ? QString() : found->second;
}

void SwitchOn(EntryValues& e, size_t slot) {
    if (slot == kKind2) e.kind2On = true;
    if (slot >= kAccount1) e.toAccount = true;
    if (slot == kAccount2) e.account2On = true;
}

// Chooses a code as from the drop list: only what the list offers, and only a leaf.
bool ChooseFromList(EntryValues& e, size_t slot, const QString& code) {
    const auto offered = ShownCodes(State().gDB, ChartOfSlot(slot));
    const auto found =
        std::find_if(offered.begin(), offered.end(), [&](const CodeName& c) { return c.code == code; });
    if (found == offered.end()) {  // the box stays empty, which the checks refuse when they look at it
        SwitchOn(e, slot);
        return true;
    }
    if (!PickCode(State().gDB, e, slot, code)) return false;
    e.text[slot] = found->code + found->name;
    return true;
}

EntryValues EntryOf(const QJsonObject& r) {
    const auto text = [&](const QString& key) { return OneLine(r[key].toString()); };
    const auto sign = [&](const QString& key) { return r[key].toBool(true); };
    EntryValues e;
    e.title = text(u"title"_s);
    e.money = CleanAmount(text(u"money"_s));
    e.date = r.contains(u"date"_s) ? text(u"date"_s) : TodayText(u"-"_s);
    e.hour = r.contains(u"hour"_s) ? text(u"hour"_s) : TimeText(true).left(2);
    e.minute = r.contains(u"minute"_s) ? text(u"minute"_s) : TimeText(true).mid(3, 2);
    e.note = r[u"note"].toString();
    e.mark = r[u"mark"].toBool();
    if (r.contains(u"pic"_s)) e.pictures = text(u"pic"_s);
    e.add = {sign(u"kindAdd"_s), sign(u"kind2Add"_s), sign(u"accountAdd"_s), sign(u"account2Add"_s)};
    e.accountValue = {CleanAmount(text(u"accountValue"_s)), CleanAmount(text(u"account2Value"_s))};
    const auto isOn = [&](const QString& key, const QString& code) {
        return r.contains(key) ? r[key].toBool() : !text(code).isEmpty();
    };
    e.kind2On = isOn(u"kind2On"_s, u"kind2"_s);
    e.toAccount = isOn(u"toAccount"_s, u"account"_s);
    e.account2On = isOn(u"account2On"_s, u"account2"_s);
    return e;
}

// The codes of the four boxes chosen as from their lists; false after a refusal.
bool ChooseCodes(const QJsonObject& r, EntryValues& e, const EntryValues* loaded) {
    static const QString codes[] = {u"kind"_s, u"kind2"_s, u"account"_s, u"account2"_s};
    for (size_t slot = 0; slot < 4; ++slot) {
        const QString code = r[codes[slot]].toString();
        if (code.isEmpty()) continue;
        if (loaded && loaded->code[slot] == code) {
            e.code[slot] = loaded->code[slot];
            e.name[slot] = loaded->name[slot];
            e.text[slot] = loaded->text[slot];
        } else if (!ChooseFromList(e, slot, code)) {
            return false;
        }
    }
    return true;
}

QJsonObject Missing(const QString& field) {
    return Failure(u"missing field: "_s + field);
}

QJsonObject AnswerSave(const QJsonObject& r) {
    EntryValues e = EntryOf(r);
    if (!ChooseCodes(r, e, nullptr)) return Refusal({}, {});
    const auto outcome = SaveNewEntry(State().gDB, e);
    if (!outcome.done) return Refusal({}, ControlName(outcome.focus));
    return {{u"ok"_s, true},
            {u"main"_s, outcome.ids.main},
            {u"second"_s, outcome.ids.second},
            {u"confirm"_s, BuildConfirmText(e)}};
}

QJsonObject AnswerCancel(const QJsonObject&) {
    DropUnclaimedPictures(State().gDB);
    return {{u"ok"_s, true}};
}

QJsonObject AnswerLoad(const QJsonObject& r) {
    const auto loaded = LoadEntry(State().gDB, r[u"id"].toInteger());
    if (!loaded) return Refusal({}, {});
    const EntryValues& e = loaded->values;
    return {{u"ok"_s, true},
            {u"id"_s, loaded->main},
            {u"title"_s, e.title},
            {u"money"_s, e.money},
            {u"date"_s, e.date},
            {u"hour"_s, e.hour},
            {u"minute"_s, e.minute},
            {u"note"_s, e.note},
            {u"mark"_s, e.mark},
            {u"pic"_s, e.pictures},
            {u"kind"_s, e.code[kKind1]},
            {u"kindAdd"_s, e.add[kKind1]},
            {u"kindText"_s, e.text[kKind1]},
            {u"kind2"_s, e.code[kKind2]},
            {u"kind2Add"_s, e.add[kKind2]},
            {u"kind2Text"_s, e.text[kKind2]},
            {u"account"_s, e.code[kAccount1]},
            {u"accountAdd"_s, e.add[kAccount1]},
            {u"accountText"_s, e.text[kAccount1]},
            {u"accountValue"_s, e.accountValue[0]},
            {u"account2"_s, e.code[kAccount2]},
            {u"account2Add"_s, e.add[kAccount2]},
            {u"account2Text"_s, e.text[kAccount2]},
            {u"account2Value"_s, e.accountValue[1]},
            {u"kind2On"_s, e.kind2On},
            {u"toAccount"_s, e.toAccount},
            {u"account2On"_s, e.account2On}};
}

QJsonObject AnswerEdit(const QJsonObject& r) {
    const auto loaded = LoadEntry(State().gDB, r[u"id"].toInteger());
    if (!loaded) return Refusal({}, {});
    EntryValues e = EntryOf(r);
    if (!r.contains(u"pic"_s)) e.pictures = loaded->values.pictures;
    if (!ChooseCodes(r, e, &loaded->values)) return Refusal({}, {});
    const auto outcome = SaveEditedEntry(State().gDB, e, loaded->main, loaded->opened);
    if (!outcome.done) return Refusal({}, ControlName(outcome.focus));
    return {{u"ok"_s, true}, {u"id"_s, outcome.id}, {u"confirm"_s, BuildConfirmText(e)}};
}

QJsonObject AnswerDelete(const QJsonObject& r) {
    if (!DeleteAsked(State().gDB, LineKind::entries, r[u"id"].toInteger())) return Refusal({}, {});
    return {{u"ok"_s, true}};
}

QJsonObject AnswerDeleteChecked(const QJsonObject& r) {
    const auto asked = IdsOf(r);
    if (!asked) return Missing(u"ids"_s);
    // The ids of the two lists overlap, so none is taken for granted.
    const QString list = r[u"list"].toString();
    const bool records = list == u"records";
    if (!records && list != u"entries") return Missing(u"list"_s);
    PendingError failed;
    const int count = DeleteCheckedAsked(State().gDB, records ? LineKind::records : LineKind::entries, *asked,
                                         {}, {}, &failed);
    if (count < 0) return Refusal({}, {});
    if (failed.number != 0) {
        auto answer = Failure(ErrorText(failed, {}));
        answer[u"count"] = count;
        return answer;
    }
    return {{u"ok"_s, true}, {u"count"_s, count}};
}

QJsonObject AnswerList(const QJsonObject& r) {
    auto& book = State().gDB;
    const auto query = BuildEntryQuery(FilterOf(r));
    QJsonArray lines;
    {
        Job job;
        ReadLines(book, query, PageOf(r), job, [&](EntryLine&& line) {
            lines.append(QJsonObject{{u"key"_s, line.key}, {u"cells"_s, CellsOf(line.cells)}});
        });
        if (job.Stopped()) TellStopped();
    }
    const auto sums = ShowSumTexts(ReadSums(book, query), query.all);
    return {{u"ok"_s, true},
            {u"lines"_s, lines},
            {u"heading"_s, AmountHeading(query)},
            {u"count"_s, sums.count},
            {u"value"_s, sums.value},
            {u"tag"_s, sums.tag},
            {u"bill"_s, sums.bill},
            {u"money"_s, sums.money},
            {u"sumbill"_s, sums.sumbill},
            {u"summoney"_s, sums.summoney}};
}

QJsonObject AnswerRecords(const QJsonObject& r) {
    auto& book = State().gDB;
    const auto query = BuildRecordQuery(FilterOf(r));
    QJsonArray lines;
    {
        Job job;
        ReadRecordLines(book, query, PageOf(r), job, [&](EntryLine&& line) {
            lines.append(QJsonObject{
                {u"key"_s, line.key}, {u"sub"_s, line.subKey}, {u"cells"_s, CellsOf(line.cells)}});
        });
        if (job.Stopped()) TellStopped();
    }
    const auto sums = RecordSumTexts(ReadSums(book, query));
    return {{u"ok"_s, true},          {u"lines"_s, lines},      {u"heading"_s, AmountHeading(query)},
            {u"count"_s, sums.count}, {u"value"_s, sums.value}, {u"tag"_s, sums.tag}};
}

// The fields of an entry as save and edit take them, behind those of the request itself.
std::vector<Field> WithEntryFields(std::vector<Field> fields) {
    using enum FieldType;
    static const Field entry[] = {{u"title", text, true},   {u"money", text, true}, {u"kind", text, true},
                                  {u"date", text},          {u"hour", text},        {u"minute", text},
                                  {u"note", text},          {u"pic", text},         {u"mark", flag},
                                  {u"kindAdd", flag},       {u"kind2", text},       {u"kind2Add", flag},
                                  {u"kind2On", flag},       {u"account", text},     {u"accountValue", text},
                                  {u"accountAdd", flag},    {u"toAccount", flag},   {u"account2", text},
                                  {u"account2Value", text}, {u"account2Add", flag}, {u"account2On", flag}};
    fields.insert(fields.end(), std::begin(entry), std::end(entry));
    return fields;
}

}  // namespace

std::span<const Request> EntryRequests() {
    using enum FieldType;
    static const std::vector<Field> filter{{u"kind", text},  {u"text", text}, {u"date1", text},
                                           {u"date2", text}, {u"mark", flag}, {u"page", number}};
    static const Field id{u"id", number, true};
    static const Request requests[] = {
        {u"save", WithEntryFields({}), AnswerSave},
        {u"entryCancel", {}, AnswerCancel},
        {u"load", {id}, AnswerLoad},
        {u"edit", WithEntryFields({id}), AnswerEdit},
        {u"delete", {id}, AnswerDelete},
        {u"deleteChecked", {{u"list", text, true}}, AnswerDeleteChecked},
        {u"list", filter, AnswerList},
        {u"records", filter, AnswerRecords},
    };
    return requests;
}
