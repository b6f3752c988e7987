#include "app/startup.h"

#include "app/single_instance.h"
#include "store/book_box.h"
#include "store/errors.h"
#include "store/messages.h"
#include "store/outside.h"
#include "store/paths.h"
#include "store/places.h"
#include "store/session.h"
#include "store/settings_file.h"
#include "store/state.h"

#include <QRandomGenerator>
#include <QTimer>

#include <limits>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int kRestMs = 400;
constexpr int kGreetEveryMs = 250;
constexpr int kGreetTimes = 40;

InstanceLock& Lock() {
    static InstanceLock lock;
    return lock;
}

// Without a word, whatever fails: the running copy speaks. It is raised when there is nothing to open, or no
// way to say what.
void HandOver(const QString& commandLine) {
    qint32 handle = 0;
    if (!commandLine.isEmpty() && FileExists(commandLine))
        Succeeds([&] { handle = HandOverToRunning(commandLine); });
    const int code = handle == 0 ? kCodeRaise : kCodeOpenBook;
    SendMessage(ChannelName(u"main"_s), {handle, code, 1, qEnvironmentVariable("XDG_ACTIVATION_TOKEN")});
}

void LoadStores() {
    LoadSettings();
    ScanBookBox(State().settings.sDBPath);
    ReadBookInfo();
    ChooseBook();
}

}  // namespace

ChannelServer& MainChannel() {
    static ChannelServer channel;
    return channel;
}

StartResult StartUp(const QString& commandLine) {
    State().gCommandLine = commandLine;
    InitFolders();
    const auto lock = Lock().Take();
    if (lock == InstanceLock::State::held) {
        HandOver(commandLine);
        return StartResult::handedOver;
    }
    if (lock == InstanceLock::State::failed) {
        ShowMsg(u"程序无法建立运行锁【"_s + ChannelName(u"lock"_s) + u"】!"_s, u"确定"_s, kMsgFail,
                u"严重错误!"_s);
        return StartResult::failed;
    }
    if (const QString channel = ChannelName(u"main"_s); !MainChannel().Listen(channel))
        ShowMsg(u"程序无法建立通信通道【"_s + channel + u"】，再次启动时不能转到本窗口!"_s);
    State().gRunHandle =
        static_cast<qint32>(QRandomGenerator::global()->bounded(1, std::numeric_limits<int>::max()));
    if (!CheckFiles()) {
        CloseAll();
        return StartResult::failed;
    }
    return RunEvent([] { LoadStores(); }) ? StartResult::login : StartResult::failed;
}

void StartAgentAtRest(const std::function<void()>& onUp) {
    static std::unique_ptr<QTimer> greet;
    greet = std::make_unique<QTimer>();
    greet->callOnTimeout([onUp, left = kGreetTimes]() mutable {
        const bool up = TellAgent(kCodeRedraw);
        if (up) RunEvent(onUp);
        if (up || --left == 0) greet->stop();
    });
    QTimer::singleShot(kRestMs, greet.get(), [] {
        RunEvent([] { Outside().launch(BesideProgram(u"JotAgent"_s), {}, ProgramFolder()); });
        greet->start(kGreetEveryMs);
    });
}

bool TellAgent(int code, int extra) {
    return SendMessage(ChannelName(u"agent"_s), {State().gRunHandle, code, extra, {}});
}

void CloseAll() {
    ForgetSession();
}
