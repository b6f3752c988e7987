#pragma once
// The messages of the service, which belong to no book and stand in the settings file. Without an open
// settings file there are none.

#include <QString>

#include <optional>
#include <vector>

struct PlatformMessage {
    qint64 id = -1;
    QString title, date, time;
    QString note = {};  ///< read by FindMessage alone
};

/// The unread messages in the order of their time, or all of them as they stand.
std::vector<PlatformMessage> UnreadMessages();
std::vector<PlatformMessage> AllMessages();
int UnreadMessageCount();
std::optional<PlatformMessage> FindMessage(qint64 id);
/// Tells that reminders have changed.
void MarkMessageRead(qint64 id);
/// The one message on entries that wait in the web ledger (its iid is 0): made, or opened again with a new
/// title when it was read; one that is unread stays as it is.
void RemindOfWebEntries(const QString& title);
/// They have been fetched.
void CloseWebReminder();
/// Removes those of the messages that are read; how many that were. The notice is the caller's.
int DeleteReadMessages(const std::vector<qint64>& ids);
