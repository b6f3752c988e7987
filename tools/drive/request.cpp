#include "tools/drive/request.h"

#include "store/dates.h"
#include "store/errors.h"
#include "store/job.h"
#include "store/messages.h"
#include "store/outside.h"
#include "store/state.h"

#include <QDateTime>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The fields that any request may carry.
const Field kWorldFields[] = {{u"answer", FieldType::text},
                              {u"now", FieldType::text},
                              {u"group", FieldType::number},
                              {u"stopAfter", FieldType::number}};

const Request* FindRequest(const QString& name) {
    for (const auto& group :
         {EntryRequests(), BookRequests(), ChartRequests(), NoteRequests(), OutputRequests(),
          PictureRequests(), PrintRequests(), TextRequests(), WebRequests()})
        for (const auto& request : group)
            if (name == request.name) return &request;
    return nullptr;
}

bool HasType(const QJsonValue& value, FieldType type) {
    switch (type) {
        case FieldType::text:
            return value.isString();
        case FieldType::flag:
            return value.isBool();
        case FieldType::number:
            return value.isDouble();
    }
    return false;
}

// A null stands for a field that is absent.
QJsonObject WithoutNulls(const QJsonObject& r) {
    QJsonObject kept;
    for (auto field = r.begin(); field != r.end(); ++field)
        if (!field->isNull()) kept.insert(field.key(), *field);
    return kept;
}

// What is wrong with the fields, or an empty text.
QString BadFields(const QJsonObject& r, std::span<const Field> fields) {
    const auto present = [&](const Field& f) { return r.contains(QStringView(f.name)); };
    for (const auto& field : fields)
        if (present(field) && !HasType(r[QStringView(field.name)], field.type))
            return u"bad field: "_s + QString::fromUtf16(field.name);
    for (const auto& field : fields)
        if (field.required && !present(field)) return u"missing field: "_s + QString::fromUtf16(field.name);
    return {};
}

QString WhatIsWrong(const Request* request, const QJsonObject& r) {
    if (!request) return u"unknown command"_s;
    const QString world = BadFields(r, kWorldFields);
    return world.isEmpty() ? BadFields(r, request->fields) : world;
}

void SetWorld(const QJsonObject& r, BoxLog& log) {
    log.SetAnswer(r[u"answer"].toString());
    if (r.contains(u"group"_s)) State().settings.nGroup = r[u"group"].toVariant().toInt();
    Job::StopAfter(r.contains(u"stopAfter"_s) ? r[u"stopAfter"].toVariant().toInt() : -1);
    auto now = QDateTime::fromString(r[u"now"].toString(), u"yyyy-MM-dd HH:mm:ss"_s);
    if (now.isValid())
        Outside().now = [now] { return now; };
    else
        Outside().now = OutsideWorld{}.now;
}

/// The button that stands for an answer to what shall be opened of an export.
QString OpeningButton(const QString& answer) {
    if (answer == u"file") return u"打开文件"_s;
    if (answer == u"folder") return u"打开目录"_s;
    return answer.isEmpty() || answer == u"cancel" ? u"取消"_s : answer;
}

QJsonObject Boxed(const MessageRequest& request) {
    return {{u"text"_s, request.text},
            {u"title"_s, request.title},
            {u"buttons"_s, request.buttons.isEmpty() ? u"确定"_s : request.buttons},
            {u"icon"_s, request.icon}};
}

}  // namespace

BoxLog::BoxLog() {
    Outside().open = [this](const QString& path) {
        opened_ = path;
        return true;
    };
    MessageSlot() = [this](const MessageRequest& request) {
        boxes_.append(Boxed(request));
        const auto captions = request.buttons.split(u',');
        const QString answer = captions.contains(u"打开文件"_s) ? OpeningButton(answer_) : answer_;
        const auto at = answer.isEmpty() ? -1 : captions.indexOf(answer);
        // A button that is not there must not go on with what was asked.
        if (at < 0 && !answer.isEmpty() && captions.size() > 1) return 0;
        const auto fromRight = at < 0 ? 0 : captions.size() - 1 - at;
        static constexpr int kNumbers[] = {1, 0, 2, 3};
        return fromRight < 4 ? kNumbers[fromRight] : 0;
    };
}

BoxLog::~BoxLog() {
    MessageSlot() = {};
    Outside().open = OutsideWorld{}.open;
}

QString BoxLog::LastText() const {
    return boxes_.isEmpty() ? QString() : boxes_.last()[u"text"].toString();
}

std::optional<std::vector<qint64>> IdsOf(const QJsonObject& request, const QString& field) {
    if (!request[field].isArray()) return {};
    std::vector<qint64> ids;
    for (const auto& value : request[field].toArray()) {
        const qint64 id = value.toInteger(-1);
        if (!value.isDouble() || id < 1) return {};
        ids.push_back(id);
    }
    return ids;
}

EntryFilter FilterOf(const QJsonObject& r) {
    EntryFilter filter;
    const auto put = [&](const QString& key, QString& value) {
        if (!r[key].toString().isEmpty()) value = r[key].toString();
    };
    put(u"kind"_s, filter.kind);
    put(u"text"_s, filter.text);
    filter.period = PeriodOf(r);
    filter.marked = r[u"mark"].toBool();
    return filter;
}

Period PeriodOf(const QJsonObject& request) {
    return {ParseDate(request[u"date1"].toString()), ParseDate(request[u"date2"].toString())};
}

int PageOf(const QJsonObject& request) {
    return std::max(0, request[u"page"].toInt());
}

QJsonArray CellsOf(const RowTexts& cells) {
    return QJsonArray::fromStringList(cells.All());
}

QJsonObject Refusal(const QString& message, const QString& focus) {
    return {{u"ok"_s, false}, {u"message"_s, message}, {u"focus"_s, focus}};
}

QJsonObject Failure(const QString& error) {
    return {{u"ok"_s, false}, {u"error"_s, error}};
}

QJsonObject Answer(const QJsonObject& given) {
    const QJsonObject r = WithoutNulls(given);
    const auto* request = FindRequest(r[u"cmd"].toString());
    const QString wrong = WhatIsWrong(request, r);
    BoxLog log;
    QJsonObject answer;
    if (!wrong.isEmpty()) {
        answer = Failure(wrong);
    } else {
        const int nGroup = State().settings.nGroup;
        SetWorld(r, log);
        PendingError failed;
        if (!Succeeds([&] { answer = request->answer(r); }, &failed)) answer = Failure(ErrorText(failed, {}));
        if (r.contains(u"group"_s)) State().settings.nGroup = nGroup;
        if (answer.contains(u"message"_s) && answer[u"message"].toString().isEmpty())
            answer[u"message"] = log.LastText();
    }
    if (!log.Opened().isEmpty()) answer[u"opened"] = log.Opened();
    answer[u"boxes"] = log.Boxes();
    return answer;
}
