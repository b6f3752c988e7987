#include "tests/support/processes.h"

#include "app/startup.h"
#include "store/outside.h"

#include <QFile>

#include <filesystem>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

Processes::Processes() {
    const fs::path bin = QCoreApplication::applicationDirPath().toStdString();
    const fs::path copy = Path(u"program"_s).toStdString();
    fs::create_directories(copy);
    for (const char* name : {"KestroJot", "JotAgent", "JotIco", "Ico.ico", "Jot.ico", "HeadIco.ico"}) {
        std::error_code failed;
        fs::create_hard_link(bin / name, copy / name, failed);
        if (failed) fs::copy_file(bin / name, copy / name);
    }
    fs::copy(bin / "Skin", copy / "Skin", fs::copy_options::recursive);
    fs::copy_file(bin / ".." / "data" / "Set.ini", copy / "Set.ini");
    fs::create_directories(Path(u"run"_s).toStdString());
    for (const auto& [name, value] : World())
        qputenv(name, value.toLocal8Bit());
    State().gProgramFolder = Path(u"program"_s);
}

Processes::~Processes() {
    for (auto* process : started_) {
        process->kill();
        process->waitForFinished(3000);
        delete process;
    }
    MainChannel().Close();
    MainChannel().onMessage = {};
    for (const auto& role : {u"main"_s, u"agent"_s, u"lock"_s})
        QFile::remove(ChannelName(role));
    for (const auto& [name, value] : World())
        qunsetenv(name);
}

// The user's own tray stays out of it.
std::vector<std::pair<const char*, QString>> Processes::World() const {
    return {{"HOME", Path(u"Home"_s)},
            {"XDG_RUNTIME_DIR", Path(u"run"_s)},
            {"XDG_DATA_HOME", Path(u"Home/data"_s)},
            {"DBUS_SESSION_BUS_ADDRESS", u"unix:path="_s + Path(u"run/bus"_s)}};
}

QProcess* Processes::Start(const QString& program, const QStringList& arguments) {
    auto* process = new QProcess;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    process->setProcessEnvironment(environment);
    process->start(program, arguments);
    EXPECT_TRUE(process->waitForStarted(5000));
    started_.push_back(process);
    return process;
}

QString Processes::Program(const QString& name) const {
    return Path(u"program/"_s + name);
}

void Processes::BecomeFirstCopy() {
    Outside().launch = [](const QString&, const QStringList&, const QString&) { return true; };
    ASSERT_EQ(StartUp({}), StartResult::login);
    State().gSetDB.Execute(u"update tSetting set lHandle="_s + Quote(QString::number(State().gRunHandle)));
    MainChannel().onMessage = [this](const ChannelMessage& m) {
        received_ << m.code;
        handles_ << m.handle;
        tokens_ << m.token;
    };
}

bool Processes::AgentAnswers() {
    return ChannelAnswers(ChannelName(u"agent"_s));
}
