#include "store/file_actions.h"

#include "store/book_box.h"
#include "store/book_images.h"
#include "store/messages.h"
#include "store/outside.h"
#include "store/paths.h"
#include "store/places.h"

#include <QDir>
#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool Delete(const FoundPath& real) {
    if (!real.exists) return real.rivals.isEmpty();
    if (Outside().trash(real.path)) {
        // A trash that only pretends leaves the file where it was.
        if (QFile::exists(real.path)) return false;
        for (const auto& left : FilesBeside(real.path))
            if (QFile::exists(left)) Outside().trash(left);
        return true;
    }
    const QString question = u"没有可用的回收站，要【永久删除】文件【"_s + real.path + u"】吗?"_s;
    if (ShowMsg(question, u"取消,确定"_s, kMsgAsk) != 1) return false;
    RemoveBookFile(real.path);
    return !QFile::exists(real.path);
}

bool CopyFiles(const QDir& from, const QString& to) {
    const auto names = from.entryList(QDir::Files);
    return !names.isEmpty() && std::all_of(names.begin(), names.end(), [&](const QString& name) {
        const QString target = to + u'/' + name;
        QFile::remove(target);
        return QFile::copy(from.filePath(name), target);
    });
}

}  // namespace

bool DeleteToBin(const QString& path) {
    return Delete(RealPath(path));
}

bool DeleteToBin(const BookRecord& book) {
    return Delete(FileOf(book));
}

bool PrepareExportFolder() {
    const QString target = State().gDataDir + u"/Export/Html"_s;
    if (MakeFolders(target).isEmpty() && CopyFiles(QDir(BesideProgram(u"Skin/Html"_s)), target)) return true;
    QDir(target).removeRecursively();  // a half one would count as filled the next time
    ShowMsg(u"创建临时文件夹错误!"_s, u"确定"_s, kMsgFail);
    return false;
}
