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

bool WriteSampleBook(const QString& path) {
    if (FileExists(path)) return false;
    const QString real = RealPath(path).path;
    QFile::remove(real + u"-journal"_s);  // of a book that is gone; it would be played into the new one
    QSaveFile file(real);
    const QByteArray image = SampleBookImage();
    return file.open(QIODevice::WriteOnly) && file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) &&
           file.write(image) == image.size() && file.commit();
}

void RemoveBookFile(const QString& path) {
    const auto real = RealPath(path);
    if (!real.exists) return;
    QFile::remove(real.path);
    QFile::remove(real.path + u"-journal"_s);
}
