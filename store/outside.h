#pragma once
// The outside world as slots: clock, desktop, trash, other programs, the event loop. Each has a working
// default where one is possible without windows; the shell and the tests put in their own.

#include <QDateTime>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

/// A folder or volume to start browsing from.
struct BrowsePlace {
    QString key;  ///< desktop, doc, home, or the path of a volume
    QString text;
    QString icon;  ///< name in the icon set
    QString path;
};

/// Desktop, documents, home and the mounted volumes.
std::vector<BrowsePlace> UsualPlaces();

struct OutsideWorld {
    /// The present moment in local time.
    std::function<QDateTime()> now = [] { return QDateTime::currentDateTime(); };
    /// Opens a file, folder or address with the desktop's handler.
    std::function<bool(const QString&)> open = [](const QString&) { return false; };
    /// Starts a program by itself: path, arguments, working directory.
    std::function<bool(const QString&, const QStringList&, const QString&)> launch =
        [](const QString&, const QStringList&, const QString&) { return false; };
    /// Moves a file, given in its real spelling, to the trash. False when there is none.
    std::function<bool(const QString&)> trash = [](const QString&) { return false; };
    /// Starts the desktop's calculator. False when there is none.
    std::function<bool()> calculator = [] { return false; };
    /// Puts text on the clipboard.
    std::function<void(const QString&)> copyText = [](const QString&) {};
    /// Where files can be looked for.
    std::function<std::vector<BrowsePlace>()> places = UsualPlaces;
    /// Lets painting, timers and the stop of a job through, nothing else.
    std::function<void()> yield = [] {};
};

OutsideWorld& Outside();
