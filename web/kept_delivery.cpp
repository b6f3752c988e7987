#include "web/kept_delivery.h"

#include "store/connection.h"
#include "store/outside.h"
#include "store/paths.h"
#include "store/state.h"

#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

[[noreturn]] void Fail(const QString& path, const QString& reason) {
    FailStatement(
        u"收到的记账有无法识别的行，但保存原文的文件不能写入："_s + reason + u"\n【"_s + path + u'】', {},
        u"网站上的记账没有删除，请稍后再收取"_s);
}

QString FreePath() {
    const QString stem = State().gDataDir + u"/web-"_s + Outside().now().toString(u"yyyyMMdd-HHmmss"_s);
    for (int n = 1;; ++n) {
        QString path = stem + (n == 1 ? QString() : u'-' + QString::number(n)) + u".txt"_s;
        if (!QFileInfo::exists(path)) return path;
    }
}

}  // namespace

QString KeepDelivery(const QString& text) {
    const QString refused = MakeFolders(State().gDataDir);
    if (!refused.isEmpty()) Fail(State().gDataDir, refused);
    QString path = FreePath();
    QSaveFile file(path);
    const QByteArray bytes = "\xEF\xBB\xBF" + text.toUtf8();
    const bool written = file.open(QIODevice::WriteOnly) &&
                         file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) &&
                         file.write(bytes) == bytes.size() && file.commit();
    if (!written) Fail(path, file.errorString());
    return path;
}
