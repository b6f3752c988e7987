// The agent in a tray: a bus of its own, and a keeper of tray icons that comes, goes and clicks.

#include "app/startup.h"
#include "tests/support/processes.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVirtualObject>

using namespace Qt::StringLiterals;

namespace {

const QString kKeeper = u"org.kde.StatusNotifierWatcher"_s;
const QString kItem = u"org.kde.StatusNotifierItem"_s;
const QString kItemPath = u"/StatusNotifierItem"_s;
const QString kProperties = u"org.freedesktop.DBus.Properties"_s;

/// Takes down who registers.
class Keeper : public QDBusVirtualObject {
 public:
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.member() == u"RegisterStatusNotifierItem")
            registered << message.arguments().value(0).toString();
        return bus.send(message.createReply());
    }
    QStringList registered;
};

class Tray : public Processes {
 protected:
    Tray() : bus_(StartBus()) {
        BecomeFirstCopy();
        bus_.registerVirtualObject(u"/StatusNotifierWatcher"_s, &keeper_);
    }
    ~Tray() override { QDBusConnection::disconnectFromBus(u"tray"_s); }

    QDBusConnection StartBus() {
        const QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
        auto* daemon = Start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s,
                                                u"--address="_s + address});
        EXPECT_TRUE(WaitLong([&] { return daemon->canReadLine(); }, 5000));
        return QDBusConnection::connectToBus(address, u"tray"_s);
    }
    void StartAgent() {
        Start(Program(u"JotAgent"_s));
        ASSERT_TRUE(WaitLong([] { return AgentAnswers(); }, 8000));
    }
    /// The agent may reach a keeper that comes up at the same moment twice.
    bool KeeperHolds(qsizetype times) {
        return WaitLong([&] { return keeper_.registered.size() >= times; }, 3000);
    }
    bool KeeperIsReachedAgain(const std::function<void()>& by) {
        const auto before = keeper_.registered.size();
        by();
        return KeeperHolds(before + 1);
    }
    QString Service() const { return keeper_.registered.value(0); }
    bool IsOnBus() const { return bus_.interface()->isServiceRegistered(Service()); }

    QDBusMessage Ask(const QString& interface, const QString& member, const QVariantList& words) {
        auto call = QDBusMessage::createMethodCall(Service(), kItemPath, interface, member);
        call.setArguments(words);
        return bus_.call(call, QDBus::BlockWithGui, 3000);
    }
    QVariantMap Properties() {
        return qdbus_cast<QVariantMap>(Ask(kProperties, u"GetAll"_s, {kItem}).arguments().value(0));
    }
    /// The pixels of the largest picture, after its sizes and theirs were looked at.
    QByteArray Picture() {
        const auto pictures = Properties()[u"IconPixmap"_s].value<QDBusArgument>();
        EXPECT_EQ(pictures.currentSignature(), u"a(iiay)");
        QList<int> sides;
        QByteArray pixels;
        pictures.beginArray();
        while (!pictures.atEnd()) {
            int width = 0;
            int height = 0;
            pictures.beginStructure();
            pictures >> width >> height >> pixels;
            pictures.endStructure();
            EXPECT_EQ(pixels.size(), 4 * width * height);
            sides << width;
        }
        EXPECT_EQ(sides, (QList<int>{22, 32, 64}));
        return pixels;
    }
    QString Tip() {
        const auto tip = Properties()[u"ToolTip"_s].value<QDBusArgument>();
        EXPECT_EQ(tip.currentSignature(), u"(sa(iiay)ss)");
        QString icon;
        QString title;
        tip.beginStructure();
        tip >> icon;
        tip.beginArray();
        EXPECT_TRUE(tip.atEnd());
        tip.endArray();
        tip >> title;
        return title;
    }

    Keeper keeper_;
    QDBusConnection bus_;
};

}  // namespace

TEST_F(Tray, TheIconReachesAKeeperThatComesLaterOrStartsAnew) {
    StartAgent();
    EXPECT_EQ(keeper_.registered, QStringList());
    ASSERT_TRUE(bus_.registerService(kKeeper));
    ASSERT_TRUE(KeeperHolds(1));
    EXPECT_TRUE(IsOnBus());
    bus_.unregisterService(kKeeper);
    ASSERT_TRUE(KeeperIsReachedAgain([this] { EXPECT_TRUE(bus_.registerService(kKeeper)); }));
    EXPECT_EQ(keeper_.registered.front(), keeper_.registered.back());

    // The setting takes it off the bus, which its keeper sees, and puts it back.
    State().gSetDB.Execute(u"update tSetting set nShowAgentIco=0"_s);
    TellAgent(kCodeRedraw);
    EXPECT_TRUE(WaitLong([this] { return !IsOnBus(); }, 3000));
    State().gSetDB.Execute(u"update tSetting set nShowAgentIco=1"_s);
    EXPECT_TRUE(KeeperIsReachedAgain([] { TellAgent(kCodeRedraw); }));
    TellAgent(3);
    EXPECT_TRUE(WaitLong([this] { return !IsOnBus(); }, 3000));
}

TEST_F(Tray, PictureAndTipFollowTheNumberAndAClickRaisesTheWindow) {
    ASSERT_TRUE(bus_.registerService(kKeeper));
    StartAgent();
    ASSERT_TRUE(KeeperHolds(1));
    const auto properties = Properties();
    EXPECT_EQ(properties[u"Title"_s], u"墨鹊理财"_s);
    EXPECT_EQ(properties[u"Status"_s], u"Active"_s);
    EXPECT_EQ(properties[u"Category"_s], u"ApplicationStatus"_s);
    EXPECT_EQ(Tip(), u"墨鹊理财");
    const QByteArray none = Picture();
    const auto at = [](const QByteArray& pixels, int x, int y) {
        return pixels.mid(4 * (64 * y + x), 4).toHex();
    };
    EXPECT_EQ(at(none, 0, 0), "00000000");
    EXPECT_EQ(at(none, 34, 34), "ff13212a");  // the bird's dark back
    EXPECT_EQ(at(none, 45, 2).left(2), "00");

    TellAgent(kCodeDueCount, 5);
    ASSERT_TRUE(WaitLong([&] { return Tip() == u"墨鹊理财：您有【5】个提醒"; }, 3000));
    const QByteArray five = Picture();
    EXPECT_EQ(at(five, 34, 15), "ffc73e2c");  // the seal beside the figure
    EXPECT_EQ(five.last(4 * 64 * 30), none.last(4 * 64 * 30));
    TellAgent(kCodeDueCount, 100);
    ASSERT_TRUE(WaitLong([&] { return Tip() == u"墨鹊理财：您有【100】个提醒"; }, 3000));
    const QByteArray many = Picture();
    EXPECT_NE(many, five);
    TellAgent(kCodeDueCount, 2000);
    ASSERT_TRUE(WaitLong([&] { return Tip() == u"墨鹊理财：您有【2000】个提醒"; }, 3000));
    EXPECT_EQ(Picture(), many);

    Ask(kItem, u"Scroll"_s, {120, u"vertical"_s});
    Ask(kItem, u"ProvideXdgActivationToken"_s, {u"token"_s});
    for (const auto& way : {u"Activate"_s, u"SecondaryActivate"_s, u"ContextMenu"_s})
        EXPECT_EQ(Ask(kItem, way, {3, 4}).type(), QDBusMessage::ReplyMessage);
    EXPECT_TRUE(WaitLong([this] { return received_.size() == 3; }, 3000));
    EXPECT_EQ(received_, (QList<int>{kCodeRaise, kCodeRaise, kCodeRaise}));
    EXPECT_EQ(tokens_, (QStringList{u"token"_s, {}, {}}));
    EXPECT_EQ(Ask(kItem, u"Nothing"_s, {}).type(), QDBusMessage::ErrorMessage);
}
