// The driver's requests on notes, reminders and the messages of the service.

#include "notes/note_change.h"
#include "notes/note_edit.h"
#include "notes/note_list.h"
#include "store/dates.h"
#include "store/due.h"
#include "store/state.h"
#include "store/text.h"
#include "tools/drive/request.h"

using namespace Qt::StringLiterals;

namespace {

QJsonObject Bad(const QString& field) {
    return Failure(u"bad field: "_s + field);
}

std::optional<NoteList> ListOf(const QJsonObject& r) {
    const QString list = r[u"list"].toString();
    if (list == u"wake") return NoteList::wake;
    if (list == u"note") return NoteList::note;
    return {};
}

std::optional<NoteKey> KeyOf(const QJsonObject& r) {
    const NoteKey key{r[u"id"].toInteger(-1), r[u"tag"].toString()};
    if (key.id < 1 || (key.tag != kTagWake && key.tag != kTagNote && key.tag != kTagWeb)) return {};
    return key;
}

std::optional<std::vector<NoteKey>> KeysOf(const QJsonObject& r) {
    if (!r[u"keys"].isArray()) return {};
    std::vector<NoteKey> keys;
    for (const auto& value : r[u"keys"].toArray()) {
        const auto key = KeyOf(value.toObject());
        if (!key) return {};
        keys.push_back(*key);
    }
    return keys;
}

QJsonObject Told(bool done) {
    if (!done) return Refusal({}, {});
    return {{u"ok"_s, true}};
}

// What the request gives of a note, over what stands in the editor.
NoteValues ValuesOf(const QJsonObject& r, NoteValues values) {
    const auto put = [&](const QString& key, QString& value) {
        if (r.contains(key)) value = r[key].toString();
    };
    const auto tick = [&](const QString& key, bool& value) {
        if (r.contains(key)) value = r[key].toBool();
    };
    put(u"title"_s, values.title);
    values.title = OneLine(values.title);
    put(u"note"_s, values.note);
    put(u"wakeDate"_s, values.wakeDate);
    put(u"pic"_s, values.pictures);
    tick(u"wake"_s, values.wake);
    tick(u"done"_s, values.done);
    tick(u"flag"_s, values.flag);
    return values;
}

QJsonObject AnswerSave(const QJsonObject& r) {
    auto& book = State().gDB;
    const qint64 id = r[u"id"].toInteger();
    NoteValues start;
    if (id < 0) {
        start.wake = r[u"mode"].toString() != u"note";
        start.wakeDate = TodayText(u"-"_s);
    } else if (const auto opened = OpenNote(book, {.id = id})) {
        start = opened->values;
    } else {
        return Refusal({}, {});
    }
    const auto outcome = SaveNote(book, id, ValuesOf(r, start));
    if (!outcome.saved) return Refusal({}, outcome.titleMissing ? u"txtTitle"_s : QString());
    return {{u"ok"_s, true}, {u"id"_s, outcome.id}};
}

QJsonObject AnswerOpen(const QJsonObject& r) {
    const auto opened = OpenNote(State().gDB, {.id = r[u"id"].toInteger(),
                                               .wakeMode = r[u"mode"].toString() != u"note",
                                               .message = r[u"tag"].toString() == kTagWeb});
    if (!opened) return Refusal({}, {});
    const auto& values = opened->values;
    return {{u"ok"_s, true},
            {u"caption"_s, opened->caption},
            {u"moment"_s, opened->moment},
            {u"title"_s, values.title},
            {u"note"_s, values.note},
            {u"wake"_s, values.wake},
            {u"wakeDate"_s, values.wakeDate},
            {u"done"_s, values.done},
            {u"flag"_s, values.flag},
            {u"pic"_s, values.pictures},
            {u"canSave"_s, opened->canSave}};
}

QJsonObject AnswerCancel(const QJsonObject& /*r*/) {
    return {{u"ok"_s, true}};
}

void ReadAll(NoteList list, const QJsonObject& r, const TakeNote& take) {
    const NoteFilter filter{r[u"text"].toString(), r[u"flag"].toBool(), r[u"wake"].toBool(), PeriodOf(r)};
    Job job;
    ReadNotes(State().gDB, list, NoteCondition(filter), job, take);
    if (job.Stopped()) TellStopped();
}

QJsonObject AnswerNotes(const QJsonObject& r) {
    const auto list = ListOf(r);
    if (!list) return Bad(u"list"_s);
    QJsonArray lines;
    ReadAll(*list, r, [&](NoteLine&& line) {
        lines.append(QJsonObject{{u"key"_s, QString::number(line.key.id)},
                                 {u"tag"_s, line.key.tag},
                                 {u"cells"_s, CellsOf(line.cells)}});
    });
    return {{u"ok"_s, true}, {u"lines"_s, lines}};
}

QJsonObject AnswerFinish(const QJsonObject& r) {
    return Told(FinishNote(State().gDB, KeyOf(r)));
}

QJsonObject AnswerFinishChecked(const QJsonObject& r) {
    const auto keys = KeysOf(r);
    return keys ? Told(FinishTicked(State().gDB, *keys)) : Bad(u"keys"_s);
}

QJsonObject AnswerDelete(const QJsonObject& r) {
    const auto list = ListOf(r);
    return list ? Told(DeleteNoteAsked(State().gDB, *list, KeyOf(r))) : Bad(u"list"_s);
}

QJsonObject AnswerDeleteChecked(const QJsonObject& r) {
    const auto list = ListOf(r);
    const auto keys = KeysOf(r);
    if (!list || !keys) return Bad(list ? u"keys"_s : u"list"_s);
    int lines = 0;
    ReadAll(*list, {}, [&](NoteLine&&) { ++lines; });
    return Told(DeleteTickedAsked(State().gDB, *list, lines, *keys));
}

QJsonObject AnswerDue(const QJsonObject& /*r*/) {
    QJsonArray lines;
    for (const auto& line : ReadDueLines())
        lines.append(QJsonObject{{u"key"_s, QString::number(line.id)},
                                 {u"tag"_s, line.tag},
                                 {u"cells"_s, QJsonArray{DueTypeText(line), line.title}}});
    return {{u"ok"_s, true}, {u"count"_s, DueCount()}, {u"lines"_s, lines}};
}

}  // namespace

std::span<const Request> NoteRequests() {
    using enum FieldType;
    static const Field list{u"list", text, true};
    static const Field id{u"id", number};
    static const Field tag{u"tag", text};
    static const Request requests[] = {
        {u"noteSave",
         {{u"id", number, true},
          {u"mode", text},
          {u"title", text},
          {u"note", text},
          {u"wakeDate", text},
          {u"pic", text},
          {u"wake", flag},
          {u"done", flag},
          {u"flag", flag}},
         AnswerSave},
        {u"noteOpen", {{u"id", number, true}, {u"mode", text}, tag}, AnswerOpen},
        {u"noteCancel", {}, AnswerCancel},
        {u"notes",
         {list, {u"text", text}, {u"date1", text}, {u"date2", text}, {u"flag", flag}, {u"wake", flag}},
         AnswerNotes},
        {u"noteFinish", {{u"list", text}, id, tag}, AnswerFinish},
        {u"noteFinishChecked", {{u"list", text}}, AnswerFinishChecked},
        {u"noteDelete", {list, id, tag}, AnswerDelete},
        {u"noteDeleteChecked", {list}, AnswerDeleteChecked},
        {u"due", {}, AnswerDue},
    };
    return requests;
}
