#include "tools/drive/request.h"

#include <QDateTime>

#include <algorithm>
#include <functional>
#include <map>

#include "chart/codes.h"
#include "ledger/entry_check.h"
#include "ledger/entry_query.h"
#include "ledger/entry_save.h"
#include "store/dates.h"
#include "store/errors.h"
#include "store/messages.h"
#include "store/money.h"
#include "store/outside.h"
#include "store/state.h"
#include "store/text.h"

using namespace Qt::StringLiterals;

namespace {

using Handler = std::function<QJsonObject(const QJsonObject&)>;

QString ControlName(EntryField field) {
    static const std::map<EntryField, QString> names{
        {EntryField::thing, u"txtThing"_s},         {EntryField::money, u"txtMoney"_s},
        {EntryField::date, u"txtDate"_s},           {EntryField::hour, u"txtHour"_s},
        {EntryField::minute, u"txtMinute"_s},       {EntryField::kind, u"comKind"_s},
        {EntryField::kind2, u"comKind1"_s},         {EntryField::account, u"comAccName"_s},
        {EntryField::accountValue, u"txtAccValue"_s}, {EntryField::account2, u"comAccName1"_s},
        {EntryField::account2Value, u"txtAccValue1"_s}};
    const auto found = names.find(field);
    return found == names.end() ? QString() : found->second;
}

// Chooses a code as from the drop list: only what the list offers, and only a leaf.
bool ChooseFromList(EntryValues& e, size_t slot, const QString& code) {
    const auto offered = ShownCodes(State().gDB, TableOfSlot(static_cast<int>(slot)));
    const auto found = std::find_if(offered.begin(), offered.end(), [&](const CodeName& c) { return c.code == code; });
    if (found == offered.end()) return true;  // the box stays empty, which the checks refuse
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

// Name of the first of these fields that the request lacks as a text, or an empty one.
QString MissingText(const QJsonObject& r, const QStringList& keys) {
    const auto missing = std::find_if(keys.begin(), keys.end(), [&](const QString& key) { return !r[key].isString(); });
    return missing == keys.end() ? QString() : *missing;
}

QJsonObject Save(const QJsonObject& r) {
    const QString missing = MissingText(r, {u"title"_s, u"money"_s, u"kind"_s});
    if (!missing.isEmpty()) return Failure(u"missing field: "_s + missing);
    EntryValues e = EntryOf(r);
    static const QString codes[] = {u"kind"_s, u"kind2"_s, u"account"_s, u"account2"_s};
    for (size_t slot = 0; slot < 4; ++slot) {
        const QString code = r[codes[slot]].toString();
        if (!code.isEmpty() && !ChooseFromList(e, slot, code)) return Refusal({}, {});
    }
    const auto outcome = SaveNewEntry(State().gDB, e);
    if (!outcome.done) return Refusal({}, ControlName(outcome.focus));
    return {{u"ok"_s, true}, {u"main"_s, outcome.ids.main}, {u"second"_s, outcome.ids.second},
            {u"confirm"_s, BuildConfirmText(e)}};
}

QJsonObject List(const QJsonObject& r) {
    EntryFilter filter;
    const auto put = [&](const QString& key, QString& value) {
        if (!r[key].toString().isEmpty()) value = r[key].toString();
    };
    put(u"kind"_s, filter.kind);
    put(u"text"_s, filter.text);
    put(u"date1"_s, filter.date1);
    put(u"date2"_s, filter.date2);
    filter.marked = r[u"mark"].toBool();
    auto& book = State().gDB;
    const auto query = BuildEntryQuery(filter);
    QJsonArray lines;
    {
        Job job;
        ReadLines(book, query, r[u"page"].toVariant().toInt(), job, [&](EntryLine&& line) {
            lines.append(QJsonObject{{u"key"_s, line.key},
                                     {u"cells"_s, QJsonArray::fromStringList({line.cells.begin(), line.cells.end()})}});
        });
        if (job.Stopped()) TellStopped();
    }
    const auto sums = ShowSumTexts(ReadSums(book, query), query.all);
    return {{u"ok"_s, true},           {u"lines"_s, lines},         {u"heading"_s, AmountHeading(query)},
            {u"count"_s, sums.count},  {u"value"_s, sums.value},    {u"tag"_s, sums.tag},
            {u"bill"_s, sums.bill},    {u"money"_s, sums.money},    {u"sumbill"_s, sums.sumbill},
            {u"summoney"_s, sums.summoney}};
}

const std::map<QString, Handler>& Handlers() {
    static const std::map<QString, Handler> handlers{
        {u"save"_s, Save}, {u"list"_s, List}, {u"texts"_s, AnswerTexts}};
    return handlers;
}

void SetWorld(const QJsonObject& r, BoxLog& log) {
    log.SetAnswer(r[u"answer"].toString());
    if (r.contains(u"group"_s)) State().nGroup = r[u"group"].toVariant().toInt();
    Job::StopAfter(r.contains(u"stopAfter"_s) ? r[u"stopAfter"].toVariant().toInt() : -1);
    const auto now = QDateTime::fromString(r[u"now"].toString(), u"yyyy-MM-dd HH:mm:ss"_s);
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
