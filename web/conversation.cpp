#include "web/conversation.h"

#include "store/messages.h"
#include "store/state.h"
#include "web/page_reader.h"
#include "web/upload_form.h"
#include "web/web_tip.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString kNoAnswer = u"网站没有正常回答"_s;
const QString kMayComeAgain = u"下次收取时，可能会再次收到这些记账。"_s;

WebScript FirstScript(WebTalk talk) {
    switch (talk) {
        case WebTalk::state:
            return WebScript::regState;
        case WebTalk::validate:
            return WebScript::userInfo;
        case WebTalk::count:
            return WebScript::listCount;
        case WebTalk::fetch:
            return WebScript::listData;
        case WebTalk::upload:
            return WebScript::upKindAcc;
    }
    return {};
}

QString WordOf(WebTalk talk) {
    return talk == WebTalk::validate ? u"验证"_s : talk == WebTalk::upload ? u"上传"_s : u"收取"_s;
}

// Nobody sits before a check: it brings the count and the state of the user, and opens no box.
bool IsForCheck(const QString& field) {
    return field == u"txtRet" || field == u"txtCount" || field == u"txtDataRet";
}

}  // namespace

WebConversation::WebConversation(WebTalk talk, const QString& user, const QString& pass)
    : talk_(talk),
      user_(user.isEmpty() ? State().settings.sWebName : user),
      pass_(user.isEmpty() ? State().settings.sWebPass : pass),
      fields_(user, pass),
      book_(State().gDB.Path()) {}

std::optional<WebRequest> WebConversation::First() {
    const QString refused = WebBase().isEmpty() ? u"未设置网账服务的地址!"_s
                            : user_.isEmpty()   ? u"无效用户!"_s
                                                : QString();
    if (refused.isEmpty()) return Ask(FirstScript(talk_));
    if (IsAsked()) ShowMsg(refused);
    return {};
}

WebRequest WebConversation::Ask(WebScript script) const {
    return RequestFor(script, user_, pass_);
}

std::optional<WebRequest> WebConversation::Take(const WebReply& reply) {
    const auto page =
        reply.failure.isEmpty() ? ReadPage(reply.body, CharsetOfHeader(reply.contentType)) : WebPage{};
    QString failure = reply.failure.isEmpty() ? page.fault : reply.failure;
    if (failure.isEmpty() && page.cut) failure = u"网站的回答不完整"_s;
    if (!failure.isEmpty()) {
        Fail(failure);
        return {};
    }
    if (looksAgain_) {
        looksAgain_ = false;
        if (IsUnchanged(page)) return TellSite();
        TellReceived();
        ShowMsg(u"网站上又有了新的记账，请再次检查!"_s);
        return {};
    }
    Handle(MessagesOf(page));
    auto next = After(page, reply.url);
    if (!next) End();
    return next;
}

std::optional<WebRequest> WebConversation::TakeFields(
    const std::vector<std::pair<QString, QString>>& fields) {
    Handle(fields);
    TellReceived();
    return After({}, {});
}

void WebConversation::Handle(const std::vector<std::pair<QString, QString>>& fields) {
    for (const auto& [name, value] : fields)
        if (IsAsked() || IsForCheck(name)) fields_.Handle(name, value);
}

std::optional<WebRequest> WebConversation::After(const WebPage& page, const QUrl& from) {
    // The site forgets whatever waits there, so all of it has to stand here.
    if (fields_.delivered && !fields_.dataRefused && !toldSite_) {
        if (!fields_.asked && !late_) return TellSite();
        looksAgain_ = true;
        return Ask(WebScript::listData);
    }
    if (talk_ != WebTalk::upload || !fields_.formMet || sentForm_) return {};
    if (State().gDB.Path() != book_) {
        fields_.answered = true;
        ShowMsg(u"账本已更换，没有上传!"_s);
        return {};
    }
    sentForm_ = true;
    return FillUploadForm(page, from);
}

WebRequest WebConversation::TellSite() {
    toldSite_ = true;
    return Ask(WebScript::listDel);
}

bool WebConversation::IsUnchanged(const WebPage& page) const {
    QStringList data;
    for (const auto& [name, value] : MessagesOf(page))
        if (name == u"txtData") data << value;
    return data == fields_.data;
}

void WebConversation::TellReceived() {
    for (const auto& told : std::exchange(fields_.received, {}))
        ShowMsg(told, u"确定"_s, kMsgDone);
}

void WebConversation::End() {
    SetWebTip(kTipState, fields_.refused ? u"用户无效"_s : QString());
    TellReceived();
    if (toldSite_ && fields_.refused) {
        ShowMsg(u"记账已收到，但未能通知网站：无效用户!\n"_s + kMayComeAgain);
        return;
    }
    if (talk_ == WebTalk::validate && fields_.hasInfo && !fields_.refused) {
        ShowMsg(u"验证成功!"_s, u"确定"_s, kMsgDone);
        return;
    }
    if (!IsAsked() || fields_.answered) return;
    if (talk_ == WebTalk::validate)
        ShowMsg(u"用户名或密码错 或 无效获取验证信息!"_s, u"确定"_s, kMsgFail);
    else if (fields_.refused)
        ShowMsg(u"无效用户!"_s, u"确定"_s, kMsgFail);
    else
        ShowMsg(WordOf(talk_) + u"失败："_s + kNoAnswer, u"确定"_s, kMsgFail);
}

void WebConversation::TellStopped() {
    TellReceived();
    QString told = WordOf(talk_) + u"已停止!"_s;
    if (toldSite_ || looksAgain_)
        told += u"\n记账已收到，但网站可能没有得到通知。"_s + kMayComeAgain;
    else if (sentForm_)
        told += u"\n网站可能已收到这次上传。"_s;
    ShowMsg(told);
}

void WebConversation::Fail(const QString& reason) {
    failed_ = true;
    SetWebTip(kTipState, u"无法访问"_s);
    if (!IsAsked()) return;
    TellReceived();
    if (toldSite_ || looksAgain_)
        ShowMsg(u"记账已收到，但未能通知网站："_s + reason + u'\n' + kMayComeAgain);
    else
        ShowMsg(WordOf(talk_) + u"失败："_s + reason, u"确定"_s, kMsgFail);
}
