#include "store/book_images.h"

#include "store/disk.h"
#include "store/paths.h"

#include <QFile>

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
    const QString part = path + u".part"_s;
    QFile::remove(part);
    QFile file(part);
    const bool written = file.open(QIODevice::WriteOnly | QIODevice::NewOnly) &&
                         (!own || file.setPermissions(QFile::ReadOwner | QFile::WriteOwner)) &&
                         file.write(image) == image.size() && FlushToDisk(file);
    file.close();
    // What another program has put there meanwhile is not replaced.
    const bool done = written && QFile::rename(part, path);
    if (!done) QFile::remove(part);
    return done;
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
    if (!QFile::remove(real.path)) return;  // a book that stays needs its journal
    for (const auto& left : FilesBeside(real.path))
        QFile::remove(left);
}
