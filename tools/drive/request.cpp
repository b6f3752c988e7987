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

void SetWorld(const QJsonObject& r, BoxLog& log) {
    log.SetAnswer(r[u"answer"].toString());
    if (r.contains(u"group"_s)) State().nGroup = r[u"group"].toVariant().toInt();
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

QJsonObject Answer(const QJsonObject& request) {
    const auto handler = Handlers().find(request[u"cmd"].toString());
    BoxLog log;
    QJsonObject answer;
    if (handler == Handlers().end()) {
        answer = Failure(u"unknown command"_s);
    } else {
        const int nGroup = State().nGroup;
        SetWorld(request, log);
        PendingError failed;
        if (!Succeeds([&] { answer = handler->second(request); }, &failed))
            answer = Failure(ErrorText(failed, {}));
        State().nGroup = nGroup;
        if (answer.contains(u"message"_s) && answer[u"message"].toString().isEmpty())
            answer[u"message"] = log.LastText();
    }
    answer[u"boxes"] = log.Boxes();
    return answer;
}
