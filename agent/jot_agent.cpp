// JotAgent: the small program in the tray. It shows the number of due reminders, brings the main window to
// the front at a click, and goes when the program goes. It never opens a book.

#include "agent/tray_icon.h"
#include "app/channel.h"
#include "store/dates.h"
#include "store/errors.h"
#include "store/places.h"
#include "store/session.h"
#include "store/state.h"

#include <QCoreApplication>
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
        link_.onLost = [this] { retry_.start(kRetryMs); };
        retry_.setSingleShot(true);
        retry_.callOnTimeout([this] { RunEvent([this] { Retry(); }); });
        Reach();
        days_.callOnTimeout([this] { RunEvent([this] { WatchDay(); }); });
        days_.start(kDayCheckMs);
        day_ = TodayText(u"-"_s);
        icon_.onClick = [this](const QString& token) { Send(kCodeRaise, token); };
        ShowIcon();
        return true;
    }

 private:
    void Take(const ChannelMessage& m) {
        handle_ = m.handle;
        if (m.code == 1 || m.code == 3) QCoreApplication::quit();
        if (m.code == kCodeDueCount) due_ = m.extra;
        ShowIcon();
    }

    void Send(int code, const QString& token = {}) {
        SendMessage(ChannelName(u"main"_s), {handle_, code, 0, token});
    }

    void Reach() {
        if (link_.Connect(ChannelName(u"main"_s)))
            lost_ = 0;
        else
            retry_.start(kRetryMs);
    }

    void Retry() {
        if (++lost_ >= kLostAfter) return QCoreApplication::quit();
        Reach();
    }

    void WatchDay() {
        const QString today = TodayText(u"-"_s);
        if (today == day_) return;
        day_ = today;
        Send(kCodeReminders);
    }

    void ShowIcon() {
        if (!WantsIcon()) return icon_.Hide();
        icon_.Show(due_,
                   due_ > 0 ? u"墨鹊理财：您有【"_s + QString::number(due_) + u"】个提醒"_s : u"墨鹊理财"_s);
    }

    ChannelServer server_;
    TrayIcon icon_;
    ChannelLink link_;
    QTimer retry_;
    QTimer days_;
    QString day_;
    qint32 handle_ = 0;
    int due_ = 0;
    int lost_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    InitFolders();
    Agent agent;
    return agent.Start() ? QCoreApplication::exec() : 0;
}
