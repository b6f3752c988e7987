#include "store/file_actions.h"

#include "store/book_images.h"
#include "store/messages.h"
#include "store/outside.h"
#include "store/paths.h"
#include "store/places.h"
#include "store/state.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

bool DeleteToBin(const QString& path) {
    const auto real = RealPath(path);
    if (!real.exists) return real.rivals.isEmpty();
    const QString journal = real.path + u"-journal"_s;
    if (Outside().trash(real.path)) {
        if (QFile::exists(journal)) Outside().trash(journal);
        return true;
    }
    const QString question = u"没有可用的回收站，要【永久删除】文件【"_s + real.path + u"】吗?"_s;
    if (ShowMsg(question, u"取消,确定"_s, kMsgAsk) != 1) return false;
    RemoveBookFile(real.path);
    return !QFile::exists(real.path);
}

bool PrepareExportFolder() {
    const QString target = State().gDataDir + u"/Export/Html"_s;
    if (!MakeFolders(target).isEmpty()) {
        ShowMsg(u"创建临时文件夹错误!"_s, u"确定"_s, kMsgFail);
        return false;
    }
    const QDir source(BesideProgram(u"Skin/Html"_s));
    const auto names = source.entryList(QDir::Files);
    for (const auto& name : names) {
        QFile::remove(target + u'/' + name);
        QFile::copy(source.filePath(name), target + u'/' + name);
    }
    return true;
}
