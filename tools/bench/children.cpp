#include "tools/bench/children.h"

#include "tools/bench/measure.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatienceMs = 30000;
constexpr int kAgentRestMs = 1000;

void LayOut(const QString& folder, const QString& build) {
    const QString program = folder + u"/program"_s;
    for (const auto& made : {program, folder + u"/home"_s, folder + u"/run"_s})
        QDir().mkpath(made);
    QFile::setPermissions(folder + u"/run"_s, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    for (const auto& name : {u"JotAgent"_s, u"JotIco"_s, u"Ico.ico"_s, u"Jot.ico"_s, u"HeadIco.ico"_s})
        QFile::copy(build + u"/bin/"_s + name, program + u'/' + name);
    QFile::copy(build + u"/data/Set.ini"_s, program + u"/Set.ini"_s);
    std::filesystem::copy((build + u"/bin/Skin"_s).toStdString(), (program + u"/Skin"_s).toStdString(),
                          std::filesystem::copy_options::recursive);
}

QProcessEnvironment OwnWorld(const QString& folder) {
    auto world = QProcessEnvironment::systemEnvironment();
    for (const auto& name :
         {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"APPDATA"_s, u"SystemDrive"_s, u"DBUS_SESSION_BUS_ADDRESS"_s})
        world.remove(name);
    const QString home = folder + u"/home"_s;
    world.insert(u"HOME"_s, home);
    world.insert(u"XDG_DATA_HOME"_s, home + u"/.local/share"_s);
    world.insert(u"XDG_CONFIG_HOME"_s, home + u"/.config"_s);
    world.insert(u"XDG_CACHE_HOME"_s, home + u"/.cache"_s);
    world.insert(u"XDG_RUNTIME_DIR"_s, folder + u"/run"_s);
    world.insert(u"LANG"_s, u"C.UTF-8"_s);
    world.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    world.insert(u"QT_LOGGING_RULES"_s, u"*.warning=false"_s);
    return world;
}

}  // namespace

Children::Children(QString folder, QString tools) : folder_(std::move(folder)), tools_(std::move(tools)) {
    LayOut(folder_, QDir::cleanPath(tools_ + u"/.."_s));
}

StartFigures Children::RunOnce(const QString& program, const QStringList& arguments) const {
    QProcess child;
    child.setProcessEnvironment(OwnWorld(folder_));
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(tools_ + u'/' + program, QStringList{QString::number(Moment(), 'f', 3)} + arguments);
    const bool ended = child.waitForFinished(kPatienceMs);
    const auto words = child.readAllStandardOutput().simplified().split(' ');
    if (!ended || child.exitCode() != 0 || words.size() != 2) {
        child.kill();
        child.waitForFinished();
        std::fprintf(stderr, "bench: %s did not come to rest\n", qUtf8Printable(program));
        std::exit(1);
    }
    return {words[0].toDouble(), words[1].toDouble()};
}

// The first run fills the caches of the disk and of the fonts, and does not count.
StartFigures Children::Run(const QString& program, const QStringList& arguments, int runs) const {
    RunOnce(program, arguments);
    std::vector<double> times;
    std::vector<double> sizes;
    for (int run = 0; run < runs; ++run) {
        const auto figures = RunOnce(program, arguments);
        times.push_back(figures.milliseconds);
        sizes.push_back(figures.megabytes);
    }
    return {Median(times), Median(sizes)};
}

StartFigures Children::Program(const QString& book, int runs) const {
    return Run(u"bench_start"_s, {book, folder_ + u"/program"_s}, runs);
}

StartFigures Children::LeastWindow(const QString& book, const QString& query, int runs) const {
    return Run(u"bench_least"_s, {book, query}, runs);
}

double Children::AgentMemory() const {
    QProcess agent;
    agent.setProcessEnvironment(OwnWorld(folder_));
    agent.start(folder_ + u"/program/JotAgent"_s, {});
    agent.waitForFinished(kAgentRestMs);
    const double size = PeakMemory(std::to_string(agent.processId()));
    agent.kill();
    agent.waitForFinished();
    return size;
}
