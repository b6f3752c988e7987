#pragma once
// The web ledger at work: conversations one after the other, each request under one time limit, and the check
// that the main window's timer sets off. Lives as long as the process, whatever windows stand.

#include "web/conversation.h"

#include <QStringList>
#include <QTimer>

#include <algorithm>
#include <deque>
#include <functional>
#include <optional>

/// Sends one request and answers once, later; the returned function gives it up, after which no answer comes.
/// Redirects are told, not followed. The request reaches the service once or not at all.
using WebSend =
    std::function<std::function<void()>(const WebRequest& request, std::function<void(WebReply)> done)>;

class WebLedger {
 public:
    WebLedger();
    ~WebLedger();

    /// Begins a conversation that a user waits for, or the state of the user, after those that were begun
    /// before.
    void Begin(WebTalk talk, const QString& user = {}, const QString& pass = {});
    /// The check of the timer: left out while anything runs, and without an address or a user.
    void Check();
    bool IsRunning() const { return current_.has_value(); }
    /// A user waits for what runs.
    bool IsAwaited() const {
        return (current_ && current_->IsAsked()) ||
               std::any_of(waiting_.begin(), waiting_.end(), [](const auto& talk) { return talk.IsAsked(); });
    }
    /// Ends at the user's wish what he waits for, and says so.
    void Stop();
    /// Gives up whatever runs, without a word.
    void Drop();

    WebSend send;                     ///< the network
    std::function<bool()> isInFront;  ///< a window that must be answered first stands in front
    int limitMs = 30000;              ///< of a request, all in all
    QStringList requests;             ///< names of what the last conversation has asked

 private:
    void Next();
    void Launch(const WebRequest& request);
    void SendNow(const WebRequest& request);
    void Arrived(const WebReply& reply);
    void Forward(const WebReply& reply);
    void Deliver(const WebReply& reply);
    void End();
    void TellOutage();
    void StopSending();

    std::optional<WebConversation> current_;
    std::deque<WebConversation> waiting_;
    WebRequest request_;
    Cookies cookies_;  ///< of the conversation; it stays with one host
    std::function<void()> abort_;
    QTimer limit_, outage_, afterJob_;
    WebReply late_;  ///< an answer that came during a job, which has the book to itself
    int hops_ = 0;
    int sending_ = 0;  ///< number of the request that runs; an answer to another is late
    bool outageTold_ = false;
};

/// The one of the program.
WebLedger& Web();

/// Begins the upload after a question.
void UploadAsked();
