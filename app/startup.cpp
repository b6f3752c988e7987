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

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

InstanceLock& Lock() {
    static InstanceLock lock;
    return lock;
}

void HandOver(const QString& commandLine) {
    if (commandLine.isEmpty() || !FileExists(commandLine)) return;
    const qint32 handle = HandOverToRunning(commandLine);
    SendMessage(ChannelName(u"main"_s),
                {handle, kCodeOpenBook, 1, qEnvironmentVariable("XDG_ACTIVATION_TOKEN")});
}

bool LoadStores() {
    auto& state = State();
    LoadSettings();
    ScanBookBox(state.settings.sDBPath);
    ReadBookInfo();
    ChooseBook();
    return true;
}

}  // namespace

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
    State().gRunHandle =
        static_cast<qint32>(QRandomGenerator::global()->bounded(1, std::numeric_limits<int>::max()));
    if (!CheckFiles()) {
        CloseAll();
        return StartResult::failed;
    }
    if (!RunEvent([] { LoadStores(); })) return StartResult::failed;
    StartAgent();
    TellAgent(2);
    return StartResult::login;
}

void StartAgent() {
    Outside().launch(BesideProgram(u"JotAgent"_s), {}, ProgramFolder());
}

void TellAgent(int code, int extra) {
    SendMessage(ChannelName(u"agent"_s), {State().gRunHandle, code, extra, {}});
}

void CloseAll() {
    ForgetSession();
}
