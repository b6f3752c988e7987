#pragma once
// One running copy per user and settings file, and the channel on which others reach it.

#include <QLocalServer>
#include <QLockFile>
#include <QString>

#include <functional>
#include <memory>

/// Codes on the channels: a second copy and the agent to the program, the program to the agent.
enum ChannelCode {
    kCodeOpenBook = 1,
    kCodeRedraw = 2,
    kCodeReminders = 3,
    kCodeRaise = 16,
    kCodeDueCount = 17
};

struct ChannelMessage {
    qint32 handle = 0;  ///< the run that the message is meant for
    int code = 0;
    int extra = 0;
    QString token;  ///< the desktop's activation token of the sender
};

/// Name of a channel: the user and the settings file are part of it. role: "main" or "agent".
QString ChannelName(const QString& role);

/// Sends one message; false when nobody listens.
bool SendMessage(const QString& channel, const ChannelMessage& message);

/// Holds the lock of the running copy from the first step on.
class InstanceLock {
 public:
    enum class State {
        taken,
        held,   ///< by another copy
        failed  ///< the lock cannot be made at all
    };
    State Take();

 private:
    std::unique_ptr<QLockFile> file_;
};

/// Listens on a channel. A socket that a killed copy left behind is taken over.
class ChannelServer {
 public:
    bool Listen(const QString& channel);
    void Close() { server_.close(); }
    std::function<void(const ChannelMessage&)> onMessage;

 private:
    void TakeConnection();
    void Deliver(const ChannelMessage& message);
    QLocalServer server_;
};
