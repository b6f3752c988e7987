// A library of its own, which the program loads with its first request: the network behind it costs every
// start more than the whole web ledger is worth to most users. It uses nothing of the program but its
// records.

#include "web/page_reader.h"
#include "web/web_ledger.h"

#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QPointer>

#include <algorithm>
#include <cstring>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int kFirstError = 400;

/// What a request sends, to be read one time only. The network library sends a request again by itself when
/// its connection closes without an answer, unless it would have to read this anew.
class OneTimeBody : public QIODevice {
 public:
    OneTimeBody(QByteArray bytes, QObject* parent) : QIODevice(parent), bytes_(std::move(bytes)) {
        open(ReadOnly | Unbuffered);
    }
    bool isSequential() const override { return true; }
    bool reset() override { return false; }
    bool atEnd() const override { return at_ >= bytes_.size(); }
    qint64 bytesAvailable() const override { return bytes_.size() - at_; }

 protected:
    qint64 readData(char* to, qint64 most) override {
        const qint64 count = std::min<qint64>(most, bytes_.size() - at_);
        if (count <= 0) return -1;
        std::memcpy(to, bytes_.constData() + at_, static_cast<size_t>(count));
        at_ += count;
        return count;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

 private:
    QByteArray bytes_;
    qint64 at_ = 0;
};

// In our own words: those of the library name the address, and with it the password.
QString FailureOf(const QNetworkReply& reply) {
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (status >= kFirstError) return u"网站回答了错误【"_s + QString::number(status) + u'】';
    switch (reply.error()) {
        case QNetworkReply::NoError:
            return {};
        case QNetworkReply::SslHandshakeFailedError:
            return u"网站的证书不可信"_s;
        case QNetworkReply::ContentReSendError:
            return u"网站没有回答就断开了"_s;
        default:
            return status > 0 ? u"网站的回答不完整"_s : kCannotReach;
    }
}

WebReply ReplyOf(const QNetworkReply& reply, const QByteArray& body) {
    WebReply made{.failure = FailureOf(reply), .url = reply.url()};
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QUrl location = QUrl::fromEncoded(reply.rawHeader("Location"), QUrl::StrictMode);
    constexpr int kKeeping[] = {307, 308};
    if (status / 100 == 3 && !location.isEmpty()) made.redirect = location;
    made.keepsMethod = std::find(std::begin(kKeeping), std::end(kKeeping), status) != std::end(kKeeping);
    made.contentType = reply.header(QNetworkRequest::ContentTypeHeader).toString();
    made.body = body;
    return made;
}

/// One request on its way; goes by itself when it is answered or given up.
class Exchange : public QObject {
 public:
    Exchange(QNetworkAccessManager& manager, const WebRequest& request, std::function<void(WebReply)> done)
        : QObject(&manager), done_(std::move(done)) {
        QNetworkRequest wire(request.url);
        wire.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
        wire.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
        wire.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
        wire.setRawHeader("Connection", "close");
        wire.setHeader(QNetworkRequest::ContentLengthHeader, request.body.size());
        if (request.post) wire.setRawHeader("Content-Type", request.contentType);
        auto* body = new OneTimeBody(request.body, &manager);
        reply_ = manager.sendCustomRequest(wire, request.post ? "POST" : "GET", body);
        body->setParent(reply_);
        connect(reply_, &QNetworkReply::readyRead, this, [this] { Read(); });
        connect(reply_, &QNetworkReply::finished, this, [this] { Finish(); });
    }

    /// No answer comes any more.
    void GiveUp() {
        done_ = {};
        Close();
    }

 private:
    void Read() {
        body_ += reply_->read(kLargestPage + 1 - body_.size());
        if (body_.size() > kLargestPage) Answer({.failure = u"网页太大"_s});
    }

    void Finish() {
        if (!reply_) return;
        Read();
        if (reply_) Answer(ReplyOf(*reply_, body_));
    }

    void Answer(const WebReply& reply) {
        const auto done = std::exchange(done_, {});
        Close();
        if (done) done(reply);
    }

    void Close() {
        if (!reply_) return;
        auto* reply = std::exchange(reply_, nullptr);
        reply->disconnect(this);
        reply->abort();
        reply->deleteLater();
        deleteLater();
    }

    std::function<void(WebReply)> done_;
    QNetworkReply* reply_ = nullptr;
    QByteArray body_;
};

WebSend MakeSend() {
    auto manager = std::make_shared<std::unique_ptr<QNetworkAccessManager>>();
    return [manager](const WebRequest& request, std::function<void(WebReply)> done) {
        if (!*manager) *manager = std::make_unique<QNetworkAccessManager>();
        // http is spoken with this machine alone, and to that no proxy leads.
        (*manager)->setProxy(request.url.scheme() == u"http" ? QNetworkProxy::NoProxy
                                                             : QNetworkProxy::DefaultProxy);
        const QPointer<Exchange> exchange = new Exchange(**manager, request, std::move(done));
        return [exchange] {
            if (exchange) exchange->GiveUp();
        };
    };
}

}  // namespace

/// The entry that the program looks for.
extern "C" Q_DECL_EXPORT void JotNetworkSend(WebSend* send) {
    *send = MakeSend();
}
