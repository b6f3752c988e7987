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

[[noreturn]] void Fail(const QString& path, const QString& reason, const QString& hint) {
    FailStatement(u"文件【"_s + path + u"】写入失败："_s + reason, {}, hint);
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
    const bool opened = part.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered);
    const bool whole = opened && part.write(bytes) == bytes.size();
    // A write that comes out short has no error of its own.
    const QString reason = part.error() == QFileDevice::NoError ? u"磁盘空间不足"_s : part.errorString();
    part.close();
    if (whole &&
        std::rename(QFile::encodeName(part.fileName()).constData(), QFile::encodeName(path).constData()) == 0)
        return;
    const QString cause = whole ? qt_error_string() : reason;
    if (opened) part.remove();
    Fail(path, cause, hint);
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
