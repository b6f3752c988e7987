#pragma once
// One conversation with the web ledger's service: which request comes next and what an answer means. Knows no
// network.

#include "web/web_fields.h"
#include "web/web_request.h"

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <optional>

enum class WebTalk { state, validate, count, fetch, upload };

/// What came back for a request.
struct WebReply {
    QString failure = {};      ///< why nothing usable came; empty when it did. Holds no value of a request
    QUrl url = {};             ///< where the answer came from
    QUrl redirect = {};        ///< where it sends on to, when it does
    bool keepsMethod = false;  ///< a form is to be sent there once more, not asked for
    QString contentType = {};
    QByteArray body = {};
    Cookies cookies = {};  ///< that the answer sets; a null value takes one back
};

inline const QString kCannotReach = QStringLiteral("无法访问：您是否已联网？");

class WebConversation {
 public:
    /// user and pass are those that were typed, for validate alone.
    explicit WebConversation(WebTalk talk, const QString& user = {}, const QString& pass = {});

    WebTalk Talk() const { return talk_; }
    /// Somebody waits for what becomes of it.
    bool IsAsked() const { return talk_ != WebTalk::count && talk_ != WebTalk::state; }

    /// The first request; nullopt when there is nothing to ask, and who asked has been told.
    std::optional<WebRequest> First();
    /// Takes an answer and returns the next request. nullopt: the conversation is over.
    std::optional<WebRequest> Take(const WebReply& reply);
    /// Reads fields as those of an answer: the driver has no page.
    std::optional<WebRequest> TakeFields(const std::vector<std::pair<QString, QString>>& fields);

    /// The answer that is taken next has waited: more may have come to the site since.
    void MarkLate() { late_ = true; }

    bool Failed() const { return failed_; }
    /// Tells the user that it ends because he wished so, and what may have been done by then.
    void TellStopped();

 private:
    WebRequest Ask(WebScript script) const;
    std::optional<WebRequest> After(const WebPage& page, const QUrl& from);
    void Handle(const std::vector<std::pair<QString, QString>>& fields);
    WebRequest TellSite();
    /// Whether the site still has what was stored and nothing else.
    bool IsUnchanged(const WebPage& page) const;
    void TellReceived();
    void End();
    void Fail(const QString& reason);

    WebTalk talk_;
    QString user_, pass_;
    WebFields fields_;
    QString book_;  ///< the one that was open at the beginning
    bool late_ = false;
    bool looksAgain_ = false;  ///< for what the site has, before it is told
    bool toldSite_ = false;    ///< that its entries were taken
    bool sentForm_ = false;
    bool failed_ = false;
};
