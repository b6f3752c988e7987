#pragma once
// The icon in the desktop's tray, spoken over the session bus without a window system. Where nobody keeps
// such icons, nothing shows; a keeper that comes later, or starts anew, is given it then.

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QDBusVirtualObject>
#include <QString>
#include <QVariant>

#include <functional>

class TrayIcon : public QDBusVirtualObject {
 public:
    TrayIcon();

    /// The picture with this number (none for 0, "99+" above 99) and its tip.
    void Show(int number, const QString& tip);
    void Hide();

    /// Any button of the mouse on the icon. token: what the desktop gave for the window to come to the front,
    /// or empty.
    std::function<void(const QString& token)> onClick;

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override;

 private:
    void Register();
    void Tell(const QString& change);
    QVariantMap Properties() const;

    QDBusConnection bus_;
    QDBusServiceWatcher keeper_;
    QString service_;
    QVariant pictures_;
    QString tip_;
    QString token_;
    int number_ = -1;
    bool shown_ = false;
};
