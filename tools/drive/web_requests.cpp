// The driver's requests on the web ledger.

#include "store/state.h"
#include "tools/drive/request.h"
#include "web/page_reader.h"
#include "web/waiting_rows.h"
#include "web/web_ledger.h"
#include "web/web_posting.h"

#include <QCoreApplication>
#include <QFile>

#include <map>

using namespace Qt::StringLiterals;

namespace {

std::optional<ChartIds>& LoadedIds() {
    static std::optional<ChartIds> ids;
    return ids;
}

const ChartIds& Ids() {
    if (!LoadedIds()) LoadedIds() = ReadChartIds(State().gDB);
    return *LoadedIds();
}

WebList ListOf(const QJsonObject& r) {
    return r[u"history"].toBool() ? WebList::history : WebList::waiting;
}

QJsonObject Status(const QStringList& requests) {
    return {{u"ok"_s, true},
            {u"requests"_s, QJsonArray::fromStringList(requests)},
            {u"webOk"_s, State().settings.bWebOk},
            {u"webBook"_s, State().settings.sWebBook},
            {u"count"_s, State().web.count},
            {u"state"_s, State().web.word}};
}

QJsonArray ElementsOf(const WebPage& page) {
    QJsonArray elements;
    for (const auto& element : page.elements)
        elements.append(QJsonObject{{u"tag"_s, element.tag},
                                    {u"type"_s, element.type},
                                    {u"name"_s, element.name},
                                    {u"value"_s, element.value}});
    return elements;
}

QJsonObject AnswerPage(const QJsonObject& r) {
    const QString charset = r[u"charset"].toString();
    QByteArray bytes = r[u"html"].toString().toUtf8();
    const QString path = r[u"file"].toString();
    WebPage page;
    if (path.isEmpty()) {
        page = bytes.size() > kLargestPage
                   ? ReadPage(bytes, charset)
                   : ReadPageText({r[u"html"].toString(), charset.isEmpty() ? u"utf-8"_s : charset});
    } else {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) return Failure(u"cannot read: "_s + path);
        page = ReadPage(file.readAll(), charset);
    }
    if (!page.fault.isEmpty()) return Refusal(page.fault, {});
    return {{u"ok"_s, true}, {u"elements"_s, ElementsOf(page)}, {u"cut"_s, page.cut}};
}

QJsonObject AnswerWeb(const QJsonObject& r) {
    static const std::map<QString, WebTalk> talks{{u"count"_s, WebTalk::count},
                                                  {u"state"_s, WebTalk::state},
                                                  {u"validate"_s, WebTalk::validate},
                                                  {u"fetch"_s, WebTalk::fetch},
                                                  {u"upload"_s, WebTalk::upload}};
    const auto talk = talks.find(r[u"op"].toString());
    if (talk == talks.end()) return Failure(u"bad field: op"_s);
    auto& web = Web();
    if (r.contains(u"limit"_s)) web.limitMs = r[u"limit"].toInt();
    web.requests.clear();
    if (talk->second == WebTalk::count)
        web.Check();
    else if (talk->second == WebTalk::upload)
        UploadAsked();
    else
        web.Begin(talk->second, r[u"user"].toString(), r[u"pass"].toString());
    while (web.IsRunning())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return Status(web.requests);
}

// Pairs of name and value; nullopt when it is no list of such.
std::optional<std::vector<std::pair<QString, QString>>> FieldsOf(const QJsonObject& r) {
    if (!r[u"fields"].isArray()) return {};
    std::vector<std::pair<QString, QString>> fields;
    for (const auto& value : r[u"fields"].toArray()) {
        const auto pair = value.toArray();
        if (pair.size() != 2 || !pair[0].isString() || !pair[1].isString()) return {};
        fields.emplace_back(pair[0].toString(), pair[1].toString());
    }
    return fields;
}

QJsonObject AnswerFields(const QJsonObject& r) {
    const auto fields = FieldsOf(r);
    if (!fields) return Failure(u"bad field: fields"_s);
    WebConversation fed(WebTalk::fetch);
    const auto next = fed.TakeFields(*fields);
    return Status(next ? QStringList{next->name} : QStringList());
}

QJsonObject AnswerLoad(const QJsonObject& /*r*/) {
    LoadedIds() = ReadChartIds(State().gDB);
    return {{u"ok"_s, true}, {u"kinds"_s, Ids().kinds.size()}, {u"accounts"_s, Ids().accounts.size()}};
}

QJsonObject AnswerList(const QJsonObject& r) {
    QJsonArray lines;
    Job job;
    ReadWebRows(State().gDB, ListOf(r), job, [&](WebRow&& row) {
        lines.append(QJsonObject{{u"key"_s, QString::number(row.id)}, {u"cells"_s, CellsOf(row.cells)}});
    });
    return {{u"ok"_s, true}, {u"lines"_s, lines}};
}

QJsonObject AnswerPost(const QJsonObject& /*r*/) {
    const auto done = PostWebRowsAsked(State().gDB, Ids(), {});
    if (!done) return Refusal({}, {});
    return {{u"ok"_s, true}, {u"posted"_s, done->posted}, {u"notPosted"_s, done->notPosted}};
}

QJsonObject AnswerDelete(const QJsonObject& r) {
    const auto ids = IdsOf(r);
    if (!ids) return Failure(u"bad field: ids"_s);
    if (!DeleteWebRowsAsked(State().gDB, ListOf(r), *ids)) return Refusal({}, {});
    return {{u"ok"_s, true}};
}

}  // namespace

std::span<const Request> WebRequests() {
    using enum FieldType;
    static const Request requests[] = {
        {u"web", {{u"op", text, true}, {u"user", text}, {u"pass", text}, {u"limit", number}}, AnswerWeb},
        {u"webPage", {{u"html", text}, {u"file", text}, {u"charset", text}}, AnswerPage},
        {u"webFields", {}, AnswerFields},
        {u"webLoad", {}, AnswerLoad},
        {u"webList", {{u"history", flag}}, AnswerList},
        {u"webPost", {}, AnswerPost},
        {u"webDelete", {{u"history", flag}}, AnswerDelete},
    };
    return requests;
}
