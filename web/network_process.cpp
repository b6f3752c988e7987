// Carries out one request: takes it from the standard input, answers on the standard output. Nothing ends the
// network library while a service sends a head without an end, so it works in a process of its own, which the
// program can end; and it costs the program's start nothing. It uses nothing of the program but its records.

#include "web/network_wire.h"
#include "web/page_reader.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkCookie>
#include <QNetworkProxy>
#include <QNetworkReply>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <sys/prctl.h>
#include <unistd.h>

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

Cookies CookiesOf(const QNetworkReply& reply) {
    Cookies cookies;
    const auto now = QDateTime::currentDateTimeUtc();
    for (const auto& set : reply.header(QNetworkRequest::SetCookieHeader).value<QList<QNetworkCookie>>()) {
        const bool gone = !set.isSessionCookie() && set.expirationDate() <= now;
        cookies.insert(set.name(), gone ? QByteArray() : set.value().isNull() ? QByteArray("") : set.value());
    }
    return cookies;
}

QByteArray CookieLine(const Cookies& cookies) {
    QByteArrayList pairs;
    for (auto cookie = cookies.begin(); cookie != cookies.end(); ++cookie)
        pairs << cookie.key() + '=' + cookie.value();
    return pairs.join("; ");
}

WebReply ReplyOf(const QNetworkReply& reply, const QByteArray& body) {
    WebReply made{.failure = FailureOf(reply), .url = reply.url()};
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QUrl location = QUrl::fromEncoded(reply.rawHeader("Location"), QUrl::StrictMode);
    constexpr int kKeeping[] = {307, 308};
    if (status / 100 == 3 && !location.isEmpty()) made.redirect = location;
    made.keepsMethod = std::find(std::begin(kKeeping), std::end(kKeeping), status) != std::end(kKeeping);
    // The library would have sent the body to the new place itself.
    const bool leadsOn = made.keepsMethod && !made.redirect.isEmpty();
    if (leadsOn && reply.error() == QNetworkReply::ContentReSendError) made.failure.clear();
    made.contentType = reply.header(QNetworkRequest::ContentTypeHeader).toString();
    made.body = body;
    made.cookies = CookiesOf(reply);
    return made;
}

void Answer(const WebReply& reply) {
    QFile out;
    QDataStream answer(&out);
    if (out.open(stdout, QIODevice::WriteOnly)) answer << reply;
    out.close();
    std::_Exit(0);  // a thread of the library may never come to its end
}

void Send(QNetworkAccessManager& manager, const WebRequest& request) {
    // http is spoken with this machine alone, and to that no proxy leads.
    if (request.url.scheme() == u"http") manager.setProxy(QNetworkProxy::NoProxy);
    QNetworkRequest wire(request.url);
    wire.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    wire.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    wire.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
    wire.setDecompressedSafetyCheckThreshold(-1);  // kLargestPage bounds it
    wire.setRawHeader("Connection", "close");
    wire.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    if (!request.cookies.isEmpty()) wire.setRawHeader("Cookie", CookieLine(request.cookies));
    wire.setHeader(QNetworkRequest::ContentLengthHeader, request.body.size());
    if (request.post) wire.setRawHeader("Content-Type", request.contentType);
    auto* sent = new OneTimeBody(request.body, &manager);
    auto* reply = manager.sendCustomRequest(wire, request.post ? "POST" : "GET", sent);
    auto body = std::make_shared<QByteArray>();
    const auto read = [reply, body] {
        *body += reply->read(kLargestPage + 1 - body->size());
        if (body->size() > kLargestPage) Answer({.failure = u"网页太大"_s});
    };
    QObject::connect(reply, &QNetworkReply::readyRead, reply, read);
    QObject::connect(reply, &QNetworkReply::finished, reply, [reply, body, read] {
        read();
        Answer(ReplyOf(*reply, *body));
    });
}

}  // namespace

int main(int argc, char** argv) {
    // It ends with its program, also with one that is gone already: what is sent later than that would tell
    // the site to forget entries that nobody has.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (argc != 2 || getppid() != std::atoi(argv[1])) return 1;
    QCoreApplication app(argc, argv);
    QFile in;
    WebRequest request;
    if (!in.open(stdin, QIODevice::ReadOnly)) return 1;
    QDataStream asked(in.readAll());
    asked >> request;
    if (asked.status() != QDataStream::Ok) return 1;
    QNetworkAccessManager manager;
    Send(manager, request);
    return QCoreApplication::exec();
}
