// JotAgent: the small program in the tray. It shows the number of due reminders, brings the main window to
// the front at a click, and goes when the program goes. It never opens a book.

#include "app/single_instance.h"
#include "shell/skin.h"
#include "store/dates.h"
#include "store/errors.h"
#include "store/places.h"
#include "store/session.h"
#include "store/state.h"

#include <QApplication>
#include <QPainter>
#include <QSystemTrayIcon>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int kRetryMs = 1000;
constexpr int kLostAfter = 3;  // tries without the program
constexpr int kDayCheckMs = 30000;

bool WantsIcon() {
    bool wanted = true;
    Succeeds([&] {
        cConnection settings;
        settings.Open(SettingsPath());
        const auto row = settings.OpenRecordset(u"select nShowAgentIco from tSetting"_s);
        wanted = row.Eof() || row.Int(u"nShowAgentIco") != 0;
    });
    return wanted;
}

class Agent {
 public:
    bool Start() {
        server_.onMessage = [this](const ChannelMessage& m) { Take(m); };
        if (!server_.Listen(ChannelName(u"agent"_s))) return false;
        // Held open, so that the end of the program is noticed at once.
        QObject::connect(&link_, &QLocalSocket::connected, &link_, [this] { lost_ = 0; });
        QObject::connect(&link_, &QLocalSocket::disconnected, &link_, [this] { retry_.start(kRetryMs); });
        QObject::connect(&link_, &QLocalSocket::errorOccurred, &link_, [this] { retry_.start(kRetryMs); });
        retry_.setSingleShot(true);
        retry_.callOnTimeout([this] { RunEvent([this] { Retry(); }); });
        link_.connectToServer(ChannelName(u"main"_s));
        days_.callOnTimeout([this] { RunEvent([this] { WatchDay(); }); });
        days_.start(kDayCheckMs);
        day_ = TodayText(u"-"_s);
        QObject::connect(&icon_, &QSystemTrayIcon::activated, &icon_, [this] { Send(kCodeRaise); });
        ShowIcon();
        return true;
    }

 private:
    void Take(const ChannelMessage& m) {
        handle_ = m.handle;
        if (m.code == 1 || m.code == 3) QApplication::quit();
        if (m.code == kCodeDueCount) due_ = m.extra;
        ShowIcon();
    }

    void Send(int code) { SendMessage(ChannelName(u"main"_s), {handle_, code, 0, {}}); }

    void Retry() {
        if (++lost_ >= kLostAfter) return QApplication::quit();
        link_.abort();
        link_.connectToServer(ChannelName(u"main"_s));
    }

    void WatchDay() {
        const QString today = TodayText(u"-"_s);
        if (today == day_) return;
        day_ = today;
        Send(kCodeReminders);
    }

    void ShowIcon() {
        if (!QSystemTrayIcon::isSystemTrayAvailable()) return;
        icon_.setIcon(Picture());
        icon_.setToolTip(due_ > 0 ? u"墨鹊理财：您有【"_s + QString::number(due_) + u"】个提醒"_s
                                  : u"墨鹊理财"_s);
        icon_.setVisible(WantsIcon());
    }

    QIcon Picture() const {
        constexpr int kSide = 64;
        QPixmap picture = Skin::Icon(u"agent"_s, kSide, 1);
        if (due_ <= 0) return picture;
        QPainter p(&picture);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(Qt::NoPen);
        p.setBrush(Skin::Color(Tok::seal));
        const QRect seal(26, 0, 38, 30);
        p.drawRoundedRect(seal, 15, 15);
        QFont font = Skin::Font(Type::badge);
        font.setPixelSize(24);
        p.setFont(font);
        p.setPen(Skin::Color(Tok::inkText));
        p.drawText(seal, Qt::AlignCenter, due_ > 99 ? u"99+"_s : QString::number(due_));
        return picture;
    }

    ChannelServer server_;
    QSystemTrayIcon icon_;
    QLocalSocket link_;
    QTimer retry_;
    QTimer days_;
    QString day_;
    qint32 handle_ = 0;
    int due_ = 0;
    int lost_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    InitFolders();
    Skin::Load(ProgramFolder());
    Agent agent;
    return agent.Start() ? QApplication::exec() : 0;
}
