#include "app/desktop.h"

#include "store/outside.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

bool OpenWithDesktop(const QString& target) {
    const bool address = target.startsWith(u"https://"_s) || target.startsWith(u"http://"_s);
    return QDesktopServices::openUrl(address ? QUrl(target) : QUrl::fromLocalFile(target));
}

bool Launch(const QString& program, const QStringList& arguments, const QString& folder) {
    QProcess process;
    process.setProgram(program);
    process.setArguments(arguments);
    process.setWorkingDirectory(folder);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}

// Takes the real spelling. Without a data home the file would be moved into the current folder.
bool MoveToTrash(const QString& path) {
    const QString home = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (home.isEmpty() || !QDir().mkpath(home)) return false;
    QString there;
    return QFile::moveToTrash(path, &there) && QFileInfo(there).isAbsolute();
}

bool StartCalculator() {
    for (const auto& name :
         {u"gnome-calculator"_s, u"kcalc"_s, u"mate-calc"_s, u"galculator"_s, u"xcalc"_s}) {
        const QString program = QStandardPaths::findExecutable(name);
        if (!program.isEmpty()) return Launch(program, {}, QDir::homePath());
    }
    return false;
}

}  // namespace

void InstallDesktop() {
    auto& world = Outside();
    world.open = OpenWithDesktop;
    world.launch = Launch;
    world.trash = MoveToTrash;
    world.calculator = StartCalculator;
    world.copyText = [](const QString& text) { QGuiApplication::clipboard()->setText(text); };
}
