#include "app/single_instance.h"

#include "store/errors.h"
#include "store/paths.h"
#include "store/places.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>

#include <cerrno>
#include <csignal>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kConnectMs = 1000;
constexpr int kSendMs = 2000;
constexpr int kPatienceMs = 1500;  // for a copy that is just starting or ending
constexpr int kLongestName = 100;  // of a socket; the platform cuts longer ones
constexpr qint64 kLargestMessage = 4096;

bool IsOwnFolder(const QString& folder, mode_t forbidden) {
    struct stat found {};
    return lstat(QFile::encodeName(folder).constData(), &found) == 0 && S_ISDIR(found.st_mode) &&
           found.st_uid == getuid() && (found.st_mode & forbidden) == 0;
}

QString StateFolder(const QString& name) {
    const auto* user = getpwuid(getuid());
    const QString home = user ? QFile::decodeName(user->pw_dir) : QString();
    if (home.isEmpty() || !QFileInfo(home).isDir()) return {};
    const QString folder = home + u"/.local/state/kestrojot"_s;
    if (QFile::encodeName(folder + name).size() > kLongestName) return {};
    const bool usable = MakeFolders(folder).isEmpty() && IsOwnFolder(folder, 0);
    return usable && QFileInfo(folder).isWritable() ? folder : QString();
}

// Anyone may put something of this name there: what is not ours alone is not used.
QString TemporaryFolder() {
    const QString folder = u"/tmp/kestrojot-"_s + QString::number(getuid());
    QDir().mkdir(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return IsOwnFolder(folder, S_IRWXG | S_IRWXO) ? folder : QString();
}

QByteArray Packed(const ChannelMessage& m) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << m.handle << m.code << m.extra << m.token;
    return bytes;
}

bool Answers(const QString& channel) {
    QLocalSocket probe;
    probe.connectToServer(channel);
    return probe.waitForConnected(kConnectMs);
}

bool OwnerLives(const QLockFile& file) {
    qint64 pid = 0;
    QString host;
    QString name;
    if (!file.getLockInfo(&pid, &host, &name) || pid <= 0) return false;
    return ::kill(static_cast<pid_t>(pid), 0) == 0 || errno == EPERM;
}

}  // namespace

QString ChannelName(const QString& role) {
    const QFileInfo settings(SettingsPath());
    const QString real = QFileInfo(settings.absolutePath()).canonicalFilePath() + u'/' + settings.fileName();
    const auto hash = QCryptographicHash::hash(real.toUtf8(), QCryptographicHash::Sha1).toHex().left(12);
    const QString name = u'/' + QString::number(getuid()) + u'-' + QString::fromLatin1(hash) + u'-' + role;
    const QString folder = StateFolder(name);
    const QString other = folder.isEmpty() ? TemporaryFolder() : folder;
    return other.isEmpty() ? QString() : other + name;
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
    const QString path = ChannelName(u"lock"_s);
    const QString channel = ChannelName(u"main"_s);
    if (path.isEmpty()) return State::failed;
    file_ = std::make_unique<QLockFile>(path);
    file_->setStaleLockTime(0);
    if (file_->tryLock(0)) return State::taken;
    if (Answers(channel)) return State::held;
    if (file_->error() == QLockFile::UnknownError) return State::taken;
    if (file_->error() != QLockFile::LockFailedError) return State::failed;
    if (!OwnerLives(*file_)) file_->removeStaleLockFile();
    if (file_->tryLock(kPatienceMs)) return State::taken;
    return Answers(channel) ? State::held : State::failed;
}

bool ChannelServer::Listen(const QString& channel) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&server_, &QLocalServer::newConnection, &server_,
                     [this] { RunEvent([this] { TakeConnection(); }); });
    // Whoever still answers is alive and keeps its name.
    if (Answers(channel)) return false;
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

void ChannelServer::Read(QLocalSocket* socket) {
    if (socket->bytesAvailable() > kLargestMessage) return socket->abort();
    QDataStream in(socket);
    ChannelMessage m;
    in.startTransaction();
    in >> m.handle >> m.code >> m.extra >> m.token;
    if (in.commitTransaction()) Deliver(m);
}

void ChannelServer::TakeConnection() {
    while (auto* socket = server_.nextPendingConnection()) {
        socket->setReadBufferSize(kLargestMessage + 1);
        const auto read = [this, socket] { RunEvent([&] { Read(socket); }); };
        QObject::connect(socket, &QLocalSocket::readyRead, socket, read);
        QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        if (socket->bytesAvailable() > 0) read();
    }
}
