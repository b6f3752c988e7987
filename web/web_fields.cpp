#include "web/web_fields.h"

#include "store/messages.h"
#include "store/money.h"
#include "store/platform_messages.h"
#include "store/settings_file.h"
#include "store/state.h"
#include "web/waiting_rows.h"
#include "web/web_tip.h"

using namespace Qt::StringLiterals;

namespace {

QString WithoutBlanks(const QString& value) {
    qsizetype from = 0, to = value.size();
    while (from < to && value[from] == u' ')
        ++from;
    while (to > from && value[to - 1] == u' ')
        --to;
    return value.sliced(from, to - from);
}

void SaveWebSettings() {
    if (State().gSetDB.IsOpen()) SaveForNextStart([] { SaveSetting({}, kSaveWebAccount); });
}

}  // namespace

std::vector<std::pair<QString, QString>> MessagesOf(const WebPage& page) {
    std::vector<std::pair<QString, QString>> messages;
    for (const auto& element : page.elements)
        if (element.type == u"text" || element.type == u"textarea")
            messages.emplace_back(element.name, WithoutBlanks(element.value));
    return messages;
}

void WebFields::Handle(const QString& name, const QString& value) {
    auto& settings = State().settings;
    if (name == u"txtRet") HandleRet(value);
    if (name == u"txtInfo") HandleInfo(value);
    if (name == u"txtDataRet") settings.sWebBook = value;
    if (name == u"txtData") HandleData(value);
    if (name == u"txtUpload") HandleUpload(value);
    if (name == u"txtCount") HandleCount(value);
    if (name == u"txtAcc") formMet = true;
}

bool WebFields::IsOther() const {
    const auto& settings = State().settings;
    return !user_.isEmpty() && (user_ != settings.sWebName || pass_ != settings.sWebPass);
}

void WebFields::HandleRet(const QString& value) {
    auto& flag = State().settings.bWebOk;
    const bool bad = value == u"-1" || value == u"0";
    if (!bad && value != u"1" && value != u"2") return;
    if (value != u"1") refused = bad;
    if (IsOther()) {
        if (value != u"1") accepted_ = !bad;
        return;
    }
    if (value != u"1") flag = bad ? 0 : 1;
    SaveWebSettings();
    if (value == u"2" && user_.isEmpty()) SetWebTip(kTipUser, State().settings.sWebName);
}

void WebFields::HandleInfo(const QString& value) {
    const auto lines = value.split(u"\r\n"_s);
    if (lines.size() < 2) return Tell(u"用户名或密码错 或 无效获取验证信息!"_s, kMsgFail);
    if (refused) return;
    auto& settings = State().settings;
    settings.sWebBook = lines.front();
    if (IsOther() && accepted_) settings.bWebOk = 1;
    if (!user_.isEmpty()) {
        settings.sWebName = user_;
        settings.sWebPass = pass_;
    }
    SaveWebSettings();
    SetWebTip(kTipState, {});
    SetWebTip(kTipUser, settings.sWebName);
    hasInfo = true;
}

void WebFields::HandleData(const QString& value) {
    const auto& settings = State().settings;
    const QString open = CurrentBook().Name;
    const bool otherBook = settings.sWebBook.compare(open, Qt::CaseInsensitive) != 0;
    dataRefused = dataRefused || settings.bWebOk != 1 || otherBook;
    if (settings.bWebOk != 1) return Tell(u"无效用户!"_s, kMsgFail);
    if (otherBook)
        return Tell(u"网账需要的账本是："_s + settings.sWebBook + u"，而您当前的账本是："_s + open, kMsgWarn);
    answered = true;
    const auto stored = StoreWebLines(State().gDB, value);
    delivered = delivered || stored.any;
    asked = asked || stored.asked;
    data << value;
    received << stored.told;
    SaveForNextStart([] { CloseWebReminder(); });
    SetWebTip(kTipCount, u"0"_s);
}

void WebFields::HandleCount(const QString& value) {
    const auto count = NumericValue(value);
    if (!count) return;
    const QString text = PlainNumber(*count);
    if (*count != 0) SaveForNextStart([&] { RemindOfWebEntries(u"您有 "_s + text + u" 笔网账未入账!"_s); });
    SetWebTip(kTipCount, text);
}

void WebFields::HandleUpload(const QString& value) {
    if (value == u"0") Tell(u"用户验证失败!"_s, kMsgFail);
    if (value == u"1") Tell(u"还有记录不能上传 或 账本名为空!"_s, kMsgWarn);
    if (value == u"2")
        Tell(u"已成功【上传】事情分类到网站上您的账户【"_s + State().settings.sWebName + u"】!"_s, kMsgDone);
}

void WebFields::Tell(const QString& text, int icon) {
    answered = true;
    ShowMsg(text, u"确定"_s, icon);
}
