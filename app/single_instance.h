#pragma once
// One running copy per user and settings file, and the channel on which others reach it. Both stand in one
// folder of the user, ~/.local/state/kestrojot of the user's record, that no variable of a session moves;
// where that cannot be used, in a folder of the user's own below /tmp.

#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QString>

#include <functional>
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

/// Sends one message; false when nobody listens.
bool SendMessage(const QString& channel, const ChannelMessage& message);

/// Holds the lock of the running copy from the first step on.
class InstanceLock {
 public:
    enum class State {
        taken,
        held,   ///< by another copy, which answers
        failed  ///< nobody answers, and it cannot be taken all the same
    };
    /// Takes over what a dead process has left. A disk that takes no file bars nobody: the channel alone
    /// keeps a second copy away then.
    State Take();

 private:
    std::unique_ptr<QLockFile> file_;
};

/// Listens on a channel. A socket that a killed copy left behind is taken over; a connection that sends more
/// than a message holds is cut.
class ChannelServer {
 public:
    /// False when another one answers there.
    bool Listen(const QString& channel);
    void Close() { server_.close(); }
    std::function<void(const ChannelMessage&)> onMessage;

 private:
    void TakeConnection();
    void Read(QLocalSocket* socket);
    void Deliver(const ChannelMessage& message);
    QLocalServer server_;
};
