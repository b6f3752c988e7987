#include "store/places.h"

#include "store/paths.h"
#include "store/state.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

// root could write the packaged file, which then would hold root's values for all users.
bool IsInstalled() {
    const QString folder = ProgramFolder().toLower() + u'/';
    return IsSystemFolder(folder) || folder.startsWith(u"/opt/");
}

bool CanWrite(const QString& file) {
    return QFileInfo(file).isWritable() && QFileInfo(ParentPath(file)).isWritable();
}

}  // namespace

QString ProgramFolder() {
    const auto& set = State().gProgramFolder;
    return set.isEmpty() ? QCoreApplication::applicationDirPath() : set;
}

QString BesideProgram(const QString& name) {
    return ProgramFolder() + u'/' + name;
}

QString SettingsPath() {
    auto& settled = State().gSettingsPath;
    if (!settled.isEmpty()) return settled;
    const QString packaged = BesideProgram(u"Set.ini"_s);
    const bool there = !IsInstalled() && (CanWrite(packaged) || !QFileInfo::exists(packaged));
    settled = there ? packaged : State().gDataDir + u"/Set.ini"_s;
    return settled;
}

QString SampleBookPath() {
    return State().gDefaultBox + u"/专业版例子.jotdb"_s;
}
