#include "web/web_ledger.h"

#include "store/errors.h"
#include "store/messages.h"
#include "store/notices.h"
#include "store/state.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int kMostHops = 10;
constexpr int kAskAgainMs = 500, kAfterJobMs = 50;
}  // namespace

WebLedger::WebLedger() {
    limit_.setSingleShot(true);
    limit_.callOnTimeout([this] {
        RunEvent([this] {
            StopSending();
            Deliver({.failure = u"网站没有在规定的时间内回答"_s});
        });
    });
    afterJob_.setSingleShot(true);
    afterJob_.setInterval(kAfterJobMs);
    afterJob_.callOnTimeout([this] { RunEvent([this] { Deliver(std::exchange(late_, {})); }); });
    outage_.setInterval(kAskAgainMs);
    outage_.callOnTimeout([this] { RunEvent([this] { TellOutage(); }); });
}

WebLedger::~WebLedger() {
    Drop();
}

void WebLedger::Begin(WebTalk talk, const QString& user, const QString& pass) {
    waiting_.emplace_back(talk, user, pass);
    if (!current_) return Next();
    if (waiting_.back().IsAsked()) Notices().webBusy.Emit(true);
}

void WebLedger::Check() {
    if (current_ || WebBase().isEmpty() || State().settings.sWebName.isEmpty()) return;
    Begin(WebTalk::count);
}

void WebLedger::Stop() {
    const auto asked = [](const auto& talk) { return talk.IsAsked(); };
    auto awaited = std::find_if(waiting_.begin(), waiting_.end(), asked);
    const bool runs = current_ && current_->IsAsked();
    if (!runs && awaited == waiting_.end()) return;
    WebConversation stopped = runs ? *current_ : *awaited;
    std::erase_if(waiting_, asked);
    if (runs) {
        StopSending();
        afterJob_.stop();
        current_.reset();
    }
    Notices().webBusy.Emit(false);
    RunEvent([&] { stopped.TellStopped(); });
    Next();
}

void WebLedger::Drop() {
    StopSending();
    waiting_.clear();
    outage_.stop();
    afterJob_.stop();
    outageTold_ = false;
    current_.reset();
}

void WebLedger::Next() {
    while (!current_ && !waiting_.empty()) {
        current_.emplace(std::move(waiting_.front()));
        waiting_.pop_front();
        requests.clear();
        cookies_.clear();
        std::optional<WebRequest> first;
        RunEvent([&] { first = current_->First(); });
        if (first && current_) return Launch(*first);
        const bool asked = current_ && current_->IsAsked();
        current_.reset();
        if (asked) Notices().webBusy.Emit(false);
    }
}

void WebLedger::Launch(const WebRequest& request) {
    if (current_->IsAsked()) Notices().webBusy.Emit(true);
    requests << request.name;
    hops_ = 0;
    limit_.start(limitMs);
    SendNow(request);
}

void WebLedger::SendNow(const WebRequest& request) {
    request_ = request;
    request_.cookies = cookies_;
    const int number = ++sending_;
    RunEvent([&] {
        if (!send) return Deliver({.failure = kCannotReach});
        abort_ = send(request_, [this, number](const WebReply& reply) {
            if (number == sending_) RunEvent([&] { Arrived(reply); });
        });
    });
}

void WebLedger::Arrived(const WebReply& reply) {
    abort_ = {};
    for (auto cookie = reply.cookies.begin(); cookie != reply.cookies.end(); ++cookie)
        if (cookie.value().isNull())
            cookies_.remove(cookie.key());
        else
            cookies_.insert(cookie.key(), cookie.value());
    if (reply.failure.isEmpty() && !reply.redirect.isEmpty()) return Forward(reply);
    Deliver(reply);
}

// A redirect stays with the service.
void WebLedger::Forward(const WebReply& reply) {
    const QUrl target = request_.url.resolved(reply.redirect);
    if (++hops_ > kMostHops || !IsSpoken(target) || !IsSameOrigin(target, request_.url))
        return Deliver({.failure = u"网站转到了别的地址"_s});
    auto request = request_;
    request.url = target;
    if (!reply.keepsMethod) {
        request.post = false;
        request.body.clear();
        request.contentType.clear();
    }
    SendNow(request);
}

void WebLedger::Deliver(const WebReply& reply) {
    StopSending();
    if (State().gBusy) {
        current_->MarkLate();
        late_ = reply;
        return afterJob_.start();
    }
    const bool asked = current_->IsAsked();
    if (asked) Notices().webBusy.Emit(false);
    std::optional<WebRequest> next;
    RunEvent([&] { next = current_->Take(reply); });
    if (!current_) return;
    if (next)
        Launch(*next);
    else
        End();
}

void WebLedger::End() {
    if (current_->Talk() == WebTalk::count) {
        if (!current_->Failed()) {
            outageTold_ = false;
            outage_.stop();
        } else if (!outageTold_) {
            outage_.start();
            TellOutage();
        }
    }
    current_.reset();
    Next();
}

// One box as long as the network is gone, and not over what the user has in hand.
void WebLedger::TellOutage() {
    if (State().gBusy || State().gPopups > 0 || (isInFront && isInFront())) return;
    outage_.stop();
    outageTold_ = true;
    ShowMsg(kCannotReach);
}

void WebLedger::StopSending() {
    limit_.stop();
    ++sending_;
    if (const auto abort = std::exchange(abort_, {})) abort();
}

void UploadAsked() {
    // Without an address or a user the answer is known before the question.
    const bool ready = !WebBase().isEmpty() && !State().settings.sWebName.isEmpty();
    if (!ready || ShowMsg(u"您确定要【上传】账本分类到网站上您的账户?"_s, u"取消,确定"_s, kMsgAsk) == 1)
        Web().Begin(WebTalk::upload);
}

WebLedger& Web() {
    static WebLedger ledger;
    return ledger;
}
