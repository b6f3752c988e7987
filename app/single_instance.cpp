#include "app/single_instance.h"

#include "store/errors.h"
#include "store/places.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kConnectMs = 1000;
constexpr int kSendMs = 2000;

QString RunFolder() {
    const QString set = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !set.isEmpty() && QFileInfo(set).isWritable() ? set : QDir::tempPath();
}

QByteArray Packed(const ChannelMessage& m) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << m.handle << m.code << m.extra << m.token;
    return bytes;
}

}  // namespace

QString ChannelName(const QString& role) {
    const auto settings = QFileInfo(SettingsPath()).absoluteFilePath();
    const auto hash = QCryptographicHash::hash(settings.toUtf8(), QCryptographicHash::Sha1).toHex().left(12);
    return RunFolder() + u"/kestrojot-"_s + QString::number(getuid()) + u'-' + QString::fromLatin1(hash) +
           u'-' + role;
}

bool SendMessage(const QString& channel, const ChannelMessage& message) {
    QLocalSocket socket;
    socket.connectToServer(channel);
    if (!socket.waitForConnected(kConnectMs)) return false;
    socket.write(Packed(message));
    socket.disconnectFromServer();
    return socket.state() == QLocalSocket::UnconnectedState || socket.waitForDisconnected(kSendMs);
}

InstanceLock::State InstanceLock::Take() {
    file_ = std::make_unique<QLockFile>(ChannelName(u"lock"_s));
    file_->setStaleLockTime(0);
    if (file_->tryLock(0)) return State::taken;
    return file_->error() == QLockFile::LockFailedError ? State::held : State::failed;
}

bool ChannelServer::Listen(const QString& channel) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&server_, &QLocalServer::newConnection, &server_,
                     [this] { RunEvent([this] { TakeConnection(); }); });
    // Whoever still answers is alive and keeps its name.
    QLocalSocket probe;
    probe.connectToServer(channel);
    if (probe.waitForConnected(kConnectMs)) return false;
    QLocalServer::removeServer(channel);
    return server_.listen(channel);
}

// Behind the socket's signal: the answer may open a box, in whose loop the socket goes.
void ChannelServer::Deliver(const ChannelMessage& message) {
    const auto answer = [this, message] {
        RunEvent([&] {
            if (onMessage) onMessage(message);
        });
    };
    QMetaObject::invokeMethod(&server_, answer, Qt::QueuedConnection);
}

void ChannelServer::TakeConnection() {
    while (auto* socket = server_.nextPendingConnection()) {
        const auto read = [this, socket] {
            QDataStream in(socket);
            ChannelMessage m;
            in.startTransaction();
            in >> m.handle >> m.code >> m.extra >> m.token;
            if (in.commitTransaction()) Deliver(m);
        };
        QObject::connect(socket, &QLocalSocket::readyRead, socket, [read] { RunEvent(read); });
        QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        if (socket->bytesAvailable() > 0) RunEvent(read);
    }
}
