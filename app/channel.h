#pragma once
// The channels between the copies of the program and its agent: local sockets, which stand beside the lock in
// one folder of the user, ~/.local/state/kestrojot of the user's record, that no variable of a session moves;
// where that cannot be used, in a folder of the user's own below /tmp. Spoken without the toolkit's network
// part, whose libraries would weigh more than the agent itself.

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QString>

#include <functional>
#include <map>
#include <memory>

/// Codes on the channels: a second copy and the agent to the program, the program to the agent.
enum ChannelCode {
    kCodeOpenBook = 1,
    kCodeRedraw = 2,
    kCodeReminders = 3,
    kCodeRaise = 16,  ///< needs no handle
    kCodeDueCount = 17
};

struct ChannelMessage {
    qint32 handle = 0;  ///< the run that the message is meant for
    int code = 0;
    int extra = 0;
    QString token;  ///< the desktop's activation token of the sender
};

/// File of a channel or of the lock: the user and the settings file are part of its name. role: "main",
/// "agent" or "lock".
QString ChannelName(const QString& role);

/// True when somebody listens there.
bool ChannelAnswers(const QString& channel);

/// Sends one message; false when nobody listens.
bool SendMessage(const QString& channel, const ChannelMessage& message);

/// A descriptor that is closed when it goes, and told when it can be read.
class WatchedSocket {
 public:
    WatchedSocket() = default;
    explicit WatchedSocket(int descriptor) : descriptor_(descriptor) {}
    ~WatchedSocket() { Close(); }
    WatchedSocket(const WatchedSocket&) = delete;
    WatchedSocket& operator=(const WatchedSocket&) = delete;

    void Take(int descriptor);
    void Close();
    bool IsOpen() const { return descriptor_ >= 0; }
    int Descriptor() const { return descriptor_; }
    /// Runs readable, under the error road, whenever something has come or the other side has gone.
    void Watch(const std::function<void()>& readable);

 private:
    int descriptor_ = -1;
    std::unique_ptr<QSocketNotifier> watch_;
};

/// A connection that is held open to notice the end of the other side.
class ChannelLink {
 public:
    /// False when nobody listens. onLost runs once when the other side has gone.
    bool Connect(const QString& channel);
    std::function<void()> onLost;

 private:
    WatchedSocket socket_;
};

/// Listens on a channel. A socket that a killed copy left behind is taken over; a connection that sends more
/// than a message holds is cut.
class ChannelServer {
 public:
    ~ChannelServer() { Close(); }
    /// False when another one answers there, or the socket cannot be made.
    bool Listen(const QString& channel);
    void Close();
    std::function<void(const ChannelMessage&)> onMessage;

 private:
    struct Connection {
        WatchedSocket socket;
        QByteArray bytes;
    };
    void TakeConnections();
    void Read(int descriptor);
    void Deliver(const ChannelMessage& message);

    WatchedSocket socket_;
    QByteArray file_;
    std::map<int, Connection> connections_;
    QObject context_;
};
