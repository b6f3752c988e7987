#include "tools/drive/request.h"

#include "store/errors.h"
#include "store/job.h"
#include "store/messages.h"
#include "store/outside.h"
#include "store/state.h"

#include <QDateTime>

#include <algorithm>
#include <functional>
#include <map>

using namespace Qt::StringLiterals;

namespace {

using Handler = std::function<QJsonObject(const QJsonObject&)>;

const std::map<QString, Handler>& Handlers() {
    static const std::map<QString, Handler> handlers{{u"save"_s, AnswerSave},
                                                     {u"load"_s, AnswerLoad},
                                                     {u"edit"_s, AnswerEdit},
                                                     {u"delete"_s, AnswerDelete},
                                                     {u"deleteChecked"_s, AnswerDeleteChecked},
                                                     {u"list"_s, AnswerList},
                                                     {u"records"_s, AnswerRecords},
                                                     {u"chart"_s, AnswerChart},
                                                     {u"templates"_s, AnswerTemplates},
                                                     {u"templateAdd"_s, AnswerTemplateAdd},
                                                     {u"templateDelete"_s, AnswerTemplateDelete},
                                                     {u"texts"_s, AnswerTexts}};
    return handlers;
}

// A null stands for a field that is absent.
QJsonObject WithoutNulls(const QJsonObject& r) {
    QJsonObject kept;
    for (auto field = r.begin(); field != r.end(); ++field)
        if (!field->isNull()) kept.insert(field.key(), *field);
    return kept;
}

// Name of the first field of another type than told: read as an empty one, it would erase what is stored.
QString BadField(const QJsonObject& r) {
    using Type = QJsonValue::Type;
    static const std::map<Type, QStringList> told{
        {Type::String, {u"answer"_s, u"now"_s,           u"title"_s, u"money"_s, u"date"_s,
                        u"hour"_s,   u"minute"_s,        u"kind"_s,  u"kind2"_s, u"account"_s,
                        u"note"_s,   u"account2"_s,      u"pic"_s,   u"list"_s,  u"accountValue"_s,
                        u"text"_s,   u"account2Value"_s, u"date1"_s, u"date2"_s, u"table"_s,
                        u"action"_s, u"code"_s,          u"fn"_s}},
        {Type::Bool,
         {u"kindAdd"_s, u"kind2Add"_s, u"accountAdd"_s, u"account2Add"_s, u"mark"_s, u"kind2On"_s,
          u"toAccount"_s, u"account2On"_s, u"hide"_s}},
        {Type::Double, {u"id"_s, u"page"_s, u"group"_s, u"stopAfter"_s}}};
    for (const auto& [type, fields] : told)
        for (const auto& field : fields)
            if (r.contains(field) && r[field].type() != type) return field;
    return {};
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

QJsonObject Boxed(const MessageRequest& request) {
    return {{u"text"_s, request.text},
            {u"title"_s, request.title},
            {u"buttons"_s, request.buttons.isEmpty() ? u"确定"_s : request.buttons},
            {u"icon"_s, request.icon}};
}

}  // namespace

BoxLog::BoxLog() {
    MessageSlot() = [this](const MessageRequest& request) {
        boxes_.append(Boxed(request));
        const auto captions = request.buttons.split(u',');
        const auto at = answer_.isEmpty() ? -1 : captions.indexOf(answer_);
        // A button that is not there must not go on with what was asked.
        if (at < 0 && !answer_.isEmpty() && captions.size() > 1) return 0;
        const auto fromRight = at < 0 ? 0 : captions.size() - 1 - at;
        static constexpr int kNumbers[] = {1, 0, 2, 3};
        return fromRight < 4 ? kNumbers[fromRight] : 0;
    };
}

BoxLog::~BoxLog() {
    MessageSlot() = {};
}

QString BoxLog::LastText() const {
    return boxes_.isEmpty() ? QString() : boxes_.last()[u"text"].toString();
}

std::optional<std::vector<qint64>> IdsOf(const QJsonObject& request) {
    if (!request[u"ids"].isArray()) return {};
    std::vector<qint64> ids;
    for (const auto& value : request[u"ids"].toArray()) {
        const qint64 id = value.toInteger(-1);
        if (!value.isDouble() || id < 1) return {};
        ids.push_back(id);
    }
    return ids;
}

QJsonObject Refusal(const QString& message, const QString& focus) {
    return {{u"ok"_s, false}, {u"message"_s, message}, {u"focus"_s, focus}};
}

QJsonObject Failure(const QString& error) {
    return {{u"ok"_s, false}, {u"error"_s, error}};
}

QJsonObject Answer(const QJsonObject& given) {
    const QJsonObject request = WithoutNulls(given);
    const auto handler = Handlers().find(request[u"cmd"].toString());
    const QString bad = BadField(request);
    BoxLog log;
    QJsonObject answer;
    if (handler == Handlers().end()) {
        answer = Failure(u"unknown command"_s);
    } else if (!bad.isEmpty()) {
        answer = Failure(u"bad field: "_s + bad);
    } else {
        const int nGroup = State().settings.nGroup;
        SetWorld(request, log);
        PendingError failed;
        if (!Succeeds([&] { answer = handler->second(request); }, &failed))
            answer = Failure(ErrorText(failed, {}));
        State().settings.nGroup = nGroup;
        if (answer.contains(u"message"_s) && answer[u"message"].toString().isEmpty())
            answer[u"message"] = log.LastText();
    }
    answer[u"boxes"] = log.Boxes();
    return answer;
}
