#include "output/export_files.h"

#include "store/connection.h"
#include "store/file_actions.h"
#include "store/messages.h"
#include "store/outside.h"
#include "store/paths.h"
#include "store/state.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void Fail(const QFile& file, const QString& path, const QString& hint) {
    FailStatement(u"文件写入失败："_s + file.errorString(), path, hint);
}

}  // namespace

QString ExportPath(const QString& name) {
    return State().gDataDir + u"/Export/"_s + name;
}

bool EnsureExportFolder(bool withPages, const QString& failure) {
    const QString folder = State().gDataDir + u"/Export"_s;
    if (!QFileInfo(folder).isDir()) {
        if (MakeFolders(folder).isEmpty()) return PrepareExportFolder();
        ShowMsg(failure, u"确定"_s, kMsgFail);
        return false;
    }
    return !withPages || QFileInfo(folder + u"/Html"_s).isDir() || PrepareExportFolder();
}

// Beside its place under another name first, so that no half file ever stands under the name it was given.
void WriteWholeFile(const QString& path, const QByteArray& bytes, const QString& hint) {
    QFile part(path + u".part"_s);
    if (!part.open(QIODevice::WriteOnly | QIODevice::Truncate)) Fail(part, path, hint);
    const bool whole = part.write(bytes) == bytes.size() && part.flush();
    part.close();
    if (!whole || part.error() != QFileDevice::NoError) {
        part.remove();
        Fail(part, path, hint);
    }
    if (std::rename(QFile::encodeName(part.fileName()).constData(), QFile::encodeName(path).constData()) == 0)
        return;
    part.remove();
    FailStatement(u"文件无法替换"_s, path, hint);
}

void OfferToOpen(const QString& path, const QString& question) {
    if (!QFileInfo::exists(path)) return;
    const QString shown = QDir::toNativeSeparators(path);
    switch (ShowMsg(QString(question).replace(u"%1"_s, shown), u"打开目录,取消,打开文件"_s, kMsgAsk)) {
        case 1:
            return OpenOutside(path);
        case 2:
            return OpenOutside(QFileInfo(path).path());
        default:
            return;
    }
}

void OpenOutside(const QString& path) {
    if (!Outside().open(path)) ShowMsg(u"没有找到可以打开它的程序：\n【"_s + path + u"】"_s);
}
