#include "tests/support/web_service.h"

#include <QHostAddress>
#include <QPointer>
#include <QStringDecoder>
#include <QStringEncoder>
#include <QTcpSocket>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

QByteArray Head(int status, const QByteArray& more) {
    return "HTTP/1.1 " + QByteArray::number(status) + " X\r\nConnection: close\r\n" + more + "\r\n";
}

QByteArray HeaderOf(const QByteArray& head, const QByteArray& name) {
    for (const auto& line : head.split('\n'))
        if (line.toLower().startsWith(name + ':')) return line.mid(name.size() + 1).trimmed();
    return {};
}

QString Area(const QString& name, const QString& text) {
    return u"<tr><td>"_s + name + u"<td><TextArea Name="_s + name + u">"_s + text.toHtmlEscaped() +
           u"</TextArea>\n"_s;
}

QString Box(const QString& name, const QString& text) {
    return u"<tr><td><INPUT name=\""_s + name + u"\" VALUE=\""_s + text.toHtmlEscaped() + u"\">\n"_s;
}

}  // namespace

WebService::WebService(quint16 port) {
    server_.listen(QHostAddress::LocalHost, port);
    QObject::connect(&server_, &QTcpServer::newConnection, [this] {
        while (auto* socket = server_.nextPendingConnection()) {
            QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket] { Take(socket); });
            ++open;
            QObject::connect(socket, &QTcpSocket::disconnected, socket, [this, socket] {
                --open;
                socket->deleteLater();
            });
        }
    });
}

QString WebService::Base() const {
    return u"http://127.0.0.1:"_s + QString::number(server_.serverPort());
}

void WebService::Take(QTcpSocket* socket) {
    const QByteArray all = socket->peek(socket->bytesAvailable());
    const auto end = all.indexOf("\r\n\r\n");
    if (end < 0) return;
    const QByteArray head = all.left(end);
    const qsizetype length = HeaderOf(head, "content-length").toInt();
    if (all.size() < end + 4 + length) return;
    socket->readAll();
    const auto words = head.left(head.indexOf("\r\n")).split(' ');
    Asked asked{
        words.value(0), words.value(1).split('?').value(0), words.value(1).split('?').value(1), {}, {}};
    asked.script = QString::fromLatin1(asked.path.mid(asked.path.lastIndexOf('/') + 1));
    const bool upload = asked.script == action.section(u'/', -1);
    asked.fields = asked.method == "POST"
                       ? FormFields(HeaderOf(head, "content-type"), all.mid(end + 4, length))
                       : FieldsOf(asked.query, upload);
    seen << QString::fromLatin1(asked.method) + u' ' + asked.script;
    last = asked.fields;
    cookies = HeaderOf(head, "cookie");
    Answer(socket, asked);
}

QMap<QString, QString> WebService::FieldsOf(const QByteArray& encoded, bool inCharset) const {
    QStringDecoder decoder(inCharset ? charset.constData() : "utf-8", QStringDecoder::Flag::Stateless);
    const auto text = [&](QByteArray bytes) -> QString {
        return decoder.decode(QByteArray::fromPercentEncoding(bytes.replace('+', ' ')));
    };
    QMap<QString, QString> fields;
    for (const auto& pair : encoded.split('&'))
        if (const auto at = pair.indexOf('='); at > 0)
            fields.insert(text(pair.left(at)), text(pair.mid(at + 1)));
    return fields;
}

QMap<QString, QString> WebService::FormFields(const QByteArray& type, const QByteArray& body) {
    if (!type.startsWith(enctype)) return {};
    boundary = type.mid(type.indexOf("boundary=") + 9);
    if (enctype == "multipart/form-data") return PartsOf(body);
    return FieldsOf(body, true);
}

// Empty when the body is not made of parts from its first byte to its last.
QMap<QString, QString> WebService::PartsOf(const QByteArray& body) const {
    QStringDecoder decoder(charset.constData(), QStringDecoder::Flag::Stateless);
    const QByteArray between = "\r\n--" + boundary, head = "Content-Disposition: form-data; name=\"";
    QMap<QString, QString> fields;
    QByteArray rest = "\r\n" + body;
    while (rest.startsWith(between + "\r\n" + head)) {
        rest.remove(0, between.size() + 2 + head.size());
        const auto name = rest.indexOf("\"\r\n\r\n"), end = rest.indexOf(between);
        if (name < 0 || end < name) return {};
        fields.insert(decoder.decode(rest.left(name)), decoder.decode(rest.mid(name + 5, end - name - 5)));
        rest.remove(0, end);
    }
    return rest == between + "--\r\n" ? fields : QMap<QString, QString>();
}

QByteArray WebService::Encoded(const QString& page) const {
    QString lines = page;
    if (crlf) lines.replace(u"\n"_s, u"\r\n"_s);
    QStringEncoder encoder(charset.constData());
    return encoder.encode(lines);
}

void WebService::Trickle(QTcpSocket* socket, const QByteArray& bytes, int everyMs, bool again) {
    auto* timer = new QTimer(socket);
    auto rest = std::make_shared<QByteArray>(bytes);
    QObject::connect(timer, &QTimer::timeout, socket, [=] {
        if (socket->bytesToWrite() > 0) return;
        socket->write(again ? *rest : rest->left(1));
        if (!again) rest->remove(0, 1);
        if (rest->isEmpty()) timer->stop();
    });
    timer->start(everyMs);
}

void WebService::Answer(QTcpSocket* socket, const Asked& asked) {
    const QByteArray type = "Content-Type: text/html; charset=" + charset + "\r\n";
    const Mood mood = moods.value(asked.script, Mood::good);
    const auto send = [&](const QByteArray& bytes) {
        socket->write(bytes);
        socket->disconnectFromHost();
    };
    const auto redirect = [&](const QByteArray& to) {
        send(Head(leads, "Location: " + to + "\r\nContent-Length: 0\r\n"));
    };
    const auto page = [&] {
        const QByteArray body = Encoded(PageFor(asked));
        return Head(200, type + "Set-Cookie: " + asked.script.toLatin1() +
                             "=1; path=/\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n") +
               body;
    };
    const bool again = asked.path.contains("/again/");
    switch (mood) {
        case Mood::reset:
            return socket->abort();
        case Mood::half: {
            const QByteArray whole = page();
            socket->write(whole.left(whole.size() - 40));
            socket->flush();
            return socket->disconnectFromHost();
        }
        case Mood::trickle:
            return Trickle(socket, page(), 20, false);
        case Mood::late:
            return QTimer::singleShot(300, socket, [socket, bytes = page()] {
                socket->write(bytes);
                socket->disconnectFromHost();
            });
        case Mood::never:
            return;
        case Mood::endless:
            socket->write(Head(200, type));
            return Trickle(socket, QByteArray(1 << 20, ' '), 1, true);
        case Mood::endlessHead:
            socket->write("HTTP/1.1 200 OK\r\nX: ");
            return Trickle(socket, QByteArray(1 << 20, 'x'), 1, true);
        case Mood::notFound:
            return send(Head(404, type) + Encoded(PageFor(asked)));
        case Mood::broken:
            return send(Head(500, type) + Encoded(PageFor(asked)));
        case Mood::leadsAway:
            return redirect("http://127.0.0.2:9/jotAcc/interface/" + asked.script.toLatin1());
        case Mood::leadsRound:
            return redirect(asked.script.toLatin1());
        case Mood::leadsOn:
            if (!again) return redirect("again/" + asked.script.toLatin1() + '?' + asked.query);
            return send(page());
        case Mood::cut: {
            const QString whole = PageFor(asked);
            return send(Head(200, type) + Encoded(whole.left(whole.lastIndexOf(u"</TextArea"_s))));
        }
        case Mood::refuses:
            return send(Head(200, type) +
                        Encoded(u"<html><body>"_s + Box(u"txtRet"_s, u"-1"_s) + u"</body></html>"_s));
        case Mood::silent:
            return send(Head(200, type) + "<html><body>Welcome</body></html>");
        case Mood::good:
            return send(page());
    }
}

QString WebService::UploadForm() const {
    return u"<table><form action="_s + action + u" method="_s + QString::fromLatin1(method) + u" enctype="_s +
           QString::fromLatin1(enctype) +
           u"><tr><td><input name=txtUser><input type=Hidden name=sid value='"_s + sid + u"'>\n"_s +
           u"<tr><td><input type=text name=txtBookName><input type=PASSWORD name=txtPass>\n"_s +
           Area(u"txtKind"_s, {}) + Area(u"txtAcc"_s, {}) +
           u"<tr><td><input type=checkbox name=skipped value=1><input type=submit name=go value=提交></form></table>\n"_s;
}

QString WebService::PageFor(const Asked& asked) {
    const QString user = asked.fields.value(u"user"_s), given = asked.fields.value(u"pass"_s);
    const bool known = users.contains(user) && users.value(user) == given;
    const QString ret = Box(u"txtRet"_s, known ? u"2"_s : u"-1"_s);
    QString body;
    if (asked.script == u"getRegState.asp") body = ret;
    if (asked.script == u"getRegInfo.asp")
        body = ret + Area(u"txtInfo"_s, known ? book + u"\n青禾工作室\n2016"_s : u"?"_s);
    if (asked.script == u"getListCount.asp")
        body = ret + (known ? Box(u"txtCount"_s, count.isEmpty() ? QString::number(entries.size()) : count)
                            : QString());
    if (asked.script == u"getListData.asp")
        body =
            ret + (known ? Box(u"txtDataRet"_s, book) + Area(u"txtData"_s, entries.join(u'\n')) : QString());
    if (asked.script == u"getListDel.asp") {
        if (known && forgets) entries.clear();
        body = Box(u"txtRet"_s, u"1"_s);
    }
    if (asked.script == u"upKindAcc.asp") return known ? UploadForm() : ret;
    if (asked.script == action.section(u'/', -1)) {
        uploads.push_back(asked.fields);
        body = Box(u"txtUpload"_s, uploadResult);
    }
    return u"<HTML><head><meta http-equiv=Content-Type content=\"text/html; charset="_s +
           QString::fromLatin1(charset) + u"\"><title>墨鹊网账</title><body><table>\n"_s + body +
           u"</table></body></html>\n"_s;
}
