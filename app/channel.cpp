#include "app/channel.h"

#include "store/errors.h"
#include "store/paths.h"
#include "store/places.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cerrno>
#include <pwd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatienceSeconds = 1;  // with a copy whose queue is full
constexpr int kQueue = 16;
constexpr int kLongestName = 100;  // of a socket; the platform cuts longer ones
constexpr qsizetype kLargestMessage = 4096;

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

/// Takes the first whole message off bytes; false when there is none yet.
bool Unpack(QByteArray& bytes, ChannelMessage& m) {
    QDataStream in(bytes);
    in.startTransaction();
    in >> m.handle >> m.code >> m.extra >> m.token;
    if (!in.commitTransaction()) return false;
    bytes.remove(0, in.device()->pos());
    return true;
}

sockaddr_un AddressOf(const QByteArray& file) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::copy_n(file.constData(), std::min<qsizetype>(file.size(), kLongestName), address.sun_path);
    return address;
}

int MakeSocket(int flags) {
    return ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | flags, 0);
}

template <typename Call>
bool WithAddress(const QByteArray& file, Call call) {
    const sockaddr_un address = AddressOf(file);
    return call(reinterpret_cast<const sockaddr*>(&address), static_cast<socklen_t>(sizeof address)) == 0;
}

/// A connected descriptor, or -1.
int ConnectTo(const QString& channel) {
    if (channel.isEmpty()) return -1;
    const int made = MakeSocket(0);
    const timeval patience{kPatienceSeconds, 0};
    ::setsockopt(made, SOL_SOCKET, SO_SNDTIMEO, &patience, sizeof patience);
    const auto connect = [made](const sockaddr* address, socklen_t size) {
        return ::connect(made, address, size);
    };
    if (WithAddress(QFile::encodeName(channel), connect)) return made;
    ::close(made);
    return -1;
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

bool ChannelAnswers(const QString& channel) {
    const WatchedSocket probe(ConnectTo(channel));
    return probe.IsOpen();
}

bool SendMessage(const QString& channel, const ChannelMessage& message) {
    const WatchedSocket socket(ConnectTo(channel));
    const QByteArray bytes = Packed(message);
    return socket.IsOpen() && ::send(socket.Descriptor(), bytes.constData(),
                                     static_cast<size_t>(bytes.size()), MSG_NOSIGNAL) == bytes.size();
}

void WatchedSocket::Take(int descriptor) {
    Close();
    descriptor_ = descriptor;
}

// Often from within the notifier's own signal.
void WatchedSocket::Close() {
    if (watch_) {
        watch_->setEnabled(false);
        watch_.release()->deleteLater();
    }
    if (descriptor_ >= 0) ::close(descriptor_);
    descriptor_ = -1;
}

void WatchedSocket::Watch(const std::function<void()>& readable) {
    watch_ = std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read);
    QObject::connect(watch_.get(), &QSocketNotifier::activated, watch_.get(),
                     [readable] { RunEvent(readable); });
}

bool ChannelLink::Connect(const QString& channel) {
    socket_.Take(ConnectTo(channel));
    if (!socket_.IsOpen()) return false;
    // The other side says nothing here: what can be read is its end.
    socket_.Watch([this] {
        socket_.Close();
        onLost();
    });
    return true;
}

bool ChannelServer::Listen(const QString& channel) {
    // Whoever still answers is alive and keeps its name.
    if (channel.isEmpty() || ChannelAnswers(channel)) return false;
    file_ = QFile::encodeName(channel);
    ::unlink(file_.constData());
    socket_.Take(MakeSocket(SOCK_NONBLOCK));
    const int made = socket_.Descriptor();
    const auto bind = [made](const sockaddr* address, socklen_t size) { return ::bind(made, address, size); };
    const bool stands = WithAddress(file_, bind) && ::chmod(file_.constData(), S_IRUSR | S_IWUSR) == 0 &&
                        ::listen(made, kQueue) == 0;
    if (!stands) {
        Close();
        return false;
    }
    socket_.Watch([this] { TakeConnections(); });
    return true;
}

void ChannelServer::Close() {
    connections_.clear();
    if (socket_.IsOpen()) ::unlink(file_.constData());
    socket_.Close();
}

// Behind the socket's signal: the answer may open a box, in whose loop the connection goes.
void ChannelServer::Deliver(const ChannelMessage& message) {
    const auto answer = [this, message] {
        RunEvent([&] {
            if (onMessage) onMessage(message);
        });
    };
    QMetaObject::invokeMethod(&context_, answer, Qt::QueuedConnection);
}

void ChannelServer::Read(int descriptor) {
    auto& connection = connections_.at(descriptor);
    std::array<char, kLargestMessage> piece{};
    const auto count = ::recv(descriptor, piece.data(), piece.size(), MSG_DONTWAIT);
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
    if (count > 0) connection.bytes.append(piece.data(), count);
    ChannelMessage message;
    while (Unpack(connection.bytes, message))
        Deliver(message);
    if (count <= 0 || connection.bytes.size() >= kLargestMessage) connections_.erase(descriptor);
}

void ChannelServer::TakeConnections() {
    for (int made = 0; (made = ::accept4(socket_.Descriptor(), nullptr, nullptr, SOCK_CLOEXEC)) >= 0;) {
        auto& connection = connections_[made];
        connection.socket.Take(made);
        connection.socket.Watch([this, made] { Read(made); });
    }
}
