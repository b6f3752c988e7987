#include "store/book_images.h"

#include "store/paths.h"

#include <QFile>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {
QByteArray Stored(const QString& name) {
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
}  // namespace

QByteArray SampleBookImage() {
    return Stored(u":/books/sample.jotdb"_s);
}

QByteArray EmptyBookImage() {
    return Stored(u":/books/empty.jotdb"_s);
}

bool WriteBookFile(const QString& path, const QByteArray& image, bool own) {
    // It would be played into the new book.
    for (const auto& left : FilesBeside(path))
        QFile::remove(left);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return false;
    if (own && !file.setPermissions(QFile::ReadOwner | QFile::WriteOwner)) return false;
    return file.write(image) == image.size() && file.commit();
}

bool WriteSampleBook(const QString& path) {
    return !FileExists(path) && WriteBookFile(RealPath(path).path, SampleBookImage(), true);
}

QStringList FilesBeside(const QString& path) {
    return {path + u"-journal"_s, path + u"-wal"_s, path + u"-shm"_s};
}

void RemoveBookFile(const QString& path) {
    const auto real = RealPath(path);
    if (!real.exists) return;
    QFile::remove(real.path);
    for (const auto& left : FilesBeside(real.path))
        QFile::remove(left);
}
