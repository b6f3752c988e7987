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

QString ForbiddenBoxText(const QString& path) {
    if (!IsForbiddenBox(path, NativeStyle(), qEnvironmentVariable("SystemDrive"), ProgramFolder())) return {};
    return u"『禁止』将账本盒路径指定到【Windows系统盘】的\n    【Program Files】\n    【Windows】\n"
           u"    【(Users)用户】\n文件夹及它们下面的【子文件夹】!\n建议：【账本盒路径】文本框清空，"
           u"这样程序将自动指定到默认的位置【系统盘:\\KestroData\\墨鹊理财】"_s;
}
