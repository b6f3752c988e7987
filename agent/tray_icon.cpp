#include "agent/tray_icon.h"

#include "store/errors.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QFile>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString kKeeper = u"org.kde.StatusNotifierWatcher"_s;
const QString kKeeperPath = u"/StatusNotifierWatcher"_s;
const QString kInterface = u"org.kde.StatusNotifierItem"_s;
const QString kPath = u"/StatusNotifierItem"_s;
const QString kProperties = u"org.freedesktop.DBus.Properties"_s;
constexpr int kLargestNumber = 100;  // stands for every number above 99

constexpr auto kDescription = R"xml(<interface name="org.kde.StatusNotifierItem">
  <property name="Category" type="s" access="read"/>
  <property name="Id" type="s" access="read"/>
  <property name="Title" type="s" access="read"/>
  <property name="Status" type="s" access="read"/>
  <property name="WindowId" type="i" access="read"/>
  <property name="IconName" type="s" access="read"/>
  <property name="IconPixmap" type="a(iiay)" access="read"/>
  <property name="ToolTip" type="(sa(iiay)ss)" access="read"/>
  <property name="ItemIsMenu" type="b" access="read"/>
  <property name="Menu" type="o" access="read"/>
  <method name="Activate"><arg type="i" direction="in"/><arg type="i" direction="in"/></method>
  <method name="SecondaryActivate"><arg type="i" direction="in"/><arg type="i" direction="in"/></method>
  <method name="ContextMenu"><arg type="i" direction="in"/><arg type="i" direction="in"/></method>
  <method name="Scroll"><arg type="i" direction="in"/><arg type="s" direction="in"/></method>
  <method name="ProvideXdgActivationToken"><arg type="s" direction="in"/></method>
  <signal name="NewIcon"/>
  <signal name="NewToolTip"/>
</interface>
)xml";

// One size of a picture as the bus carries it: four bytes a pixel, alpha first.
struct TrayPicture {
    int side = 0;
    QByteArray pixels;
};
using TrayPictures = QList<TrayPicture>;

QDBusArgument& operator<<(QDBusArgument& out, const TrayPicture& picture) {
    out.beginStructure();
    out << picture.side << picture.side << picture.pixels;
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, TrayPicture& picture) {
    in.beginStructure();
    in >> picture.side >> picture.side >> picture.pixels;
    in.endStructure();
    return in;
}

// The tip as the bus carries it: icon, pictures, title, text.
struct TrayTip {
    QString title;
};

QDBusArgument& operator<<(QDBusArgument& out, const TrayTip& tip) {
    out.beginStructure();
    out << QString() << TrayPictures() << tip.title << QString();
    out.endStructure();
    return out;
}

const QDBusArgument& operator>>(const QDBusArgument& in, TrayTip& tip) {
    QString icon;
    TrayPictures pictures;
    QString text;
    in.beginStructure();
    in >> icon >> pictures >> tip.title >> text;
    in.endStructure();
    return in;
}

TrayPictures PicturesOf(int number) {
    TrayPictures pictures;
    for (const int side : {22, 32, 64}) {
        QFile file(u":/tray/%1-%2"_s.arg(number).arg(side));
        if (file.open(QIODevice::ReadOnly)) pictures << TrayPicture{side, file.readAll()};
    }
    return pictures;
}

}  // namespace

TrayIcon::TrayIcon()
    : bus_(QDBusConnection::sessionBus()),
      keeper_(kKeeper, bus_, QDBusServiceWatcher::WatchForRegistration),
      service_(kInterface + u"-%1-1"_s.arg(QCoreApplication::applicationPid())) {
    qDBusRegisterMetaType<TrayPicture>();
    qDBusRegisterMetaType<TrayPictures>();
    qDBusRegisterMetaType<TrayTip>();
    QObject::connect(&keeper_, &QDBusServiceWatcher::serviceRegistered, this,
                     [this] { RunEvent([this] { Register(); }); });
    bus_.registerVirtualObject(kPath, this);
}

void TrayIcon::Show(int number, const QString& tip) {
    const int shown = std::clamp(number, 0, kLargestNumber);
    if (shown != number_) {
        number_ = shown;
        pictures_ = QVariant::fromValue(PicturesOf(shown));
        Tell(u"NewIcon"_s);
    }
    if (tip != tip_) {
        tip_ = tip;
        Tell(u"NewToolTip"_s);
    }
    if (shown_) return;
    shown_ = bus_.registerService(service_);
    Register();
}

// The keeper drops what has left the bus.
void TrayIcon::Hide() {
    if (shown_) bus_.unregisterService(service_);
    shown_ = false;
}

void TrayIcon::Register() {
    if (!shown_) return;
    auto call =
        QDBusMessage::createMethodCall(kKeeper, kKeeperPath, kKeeper, u"RegisterStatusNotifierItem"_s);
    call.setAutoStartService(false);
    call << service_;
    bus_.asyncCall(call);
}

void TrayIcon::Tell(const QString& change) {
    if (shown_) bus_.send(QDBusMessage::createSignal(kPath, kInterface, change));
}

QVariantMap TrayIcon::Properties() const {
    return {{u"Category"_s, u"ApplicationStatus"_s},
            {u"Id"_s, u"JotAgent"_s},
            {u"Title"_s, u"墨鹊理财"_s},
            {u"Status"_s, u"Active"_s},
            {u"WindowId"_s, 0},
            {u"IconName"_s, QString()},
            {u"IconPixmap"_s, pictures_},
            {u"ToolTip"_s, QVariant::fromValue(TrayTip{tip_})},
            {u"ItemIsMenu"_s, false},
            {u"Menu"_s, QVariant::fromValue(QDBusObjectPath(u"/NO_DBUSMENU"_s))}};
}

QString TrayIcon::introspect(const QString&) const {
    return QString::fromLatin1(kDescription);
}

bool TrayIcon::handleMessage(const QDBusMessage& message, const QDBusConnection& bus) {
    const QString member = message.member();
    const auto words = message.arguments();
    const auto word = [&](qsizetype at) { return words.value(at).toString(); };
    if (message.interface() == kProperties) {
        const auto properties = Properties();
        if (member == u"GetAll") return bus.send(message.createReply(QVariant(properties)));
        if (member != u"Get" || !properties.contains(word(1))) return false;
        return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(properties[word(1)]))));
    }
    const bool click = member == u"Activate" || member == u"SecondaryActivate" || member == u"ContextMenu";
    const bool token = member == u"ProvideXdgActivationToken";
    if (!click && !token && member != u"Scroll") return false;
    bus.send(message.createReply());
    if (token) token_ = word(0);
    if (click) RunEvent([this] { onClick(std::exchange(token_, {})); });
    return true;
}
