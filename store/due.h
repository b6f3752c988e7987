#pragma once
// What is due today: reminders of the open book whose day has come and that are not done, and unread messages
// of the service.

#include <QString>

#include <vector>

/// The number on the logo. Asks the files again only when one of them, or the day, has changed; safe at any
/// moment, also while no book is open.
int DueCount();

struct DueLine {
    QString tag;  ///< wake, or web for a message of the service
    qint64 id = -1;
    QString title;
};
/// 提醒 or 平台.
QString DueTypeText(const DueLine& line);
/// The same items one by one, as they stand now.
std::vector<DueLine> ReadDueLines();
