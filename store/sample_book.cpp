#include "store/sample_book.h"

#include "store/book_images.h"
#include "store/messages.h"
#include "store/outside.h"
#include "store/paths.h"
#include "store/places.h"
#include "store/settings.h"

#include <QCryptographicHash>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QString kHashKey = u"SampleHash"_s;

QString HashOf(const QByteArray& bytes) {
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
}

QString HashOfFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? HashOf(file.readAll()) : QString();
}

// A journal holds changes of the user's that are not in the file yet.
bool IsUntouched(const QString& path, const QString& hash, cConnection& settings) {
    return SettingKey(settings, kHashKey) == hash && !QFile::exists(path + u"-journal"_s);
}

}  // namespace

void PutSampleBook() {
    const QString path = SampleBookPath();
    if (FileExists(path) || WriteSampleBook(path)) return;
    ShowMsg(u"例子账本写入失败：\n【"_s + path + u"】"_s, u"确定"_s, kMsgFail);
}

void RenewSampleBook(cConnection& settings, bool firstRun) {
    const auto real = RealPath(SampleBookPath());
    if (!real.rivals.isEmpty()) return;
    if (!real.exists && !firstRun) return;
    const QString image = HashOf(SampleBookImage());
    const QString standing = real.exists ? HashOfFile(real.path) : QString();
    const bool old = firstRun && real.exists && standing != image;
    if (old && (!IsUntouched(real.path, standing, settings) || !Outside().trash(real.path))) return;
    if (old || !real.exists) PutSampleBook();
    if (HashOfFile(RealPath(SampleBookPath()).path) == image && SettingKey(settings, kHashKey) != image)
        SetSettingKey(settings, kHashKey, image);
}
