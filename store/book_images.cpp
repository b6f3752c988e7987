#include "store/book_images.h"

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

bool WriteSampleBook(const QString& path) {
    if (FileExists(path)) return false;
    QFile file(RealPath(path).path);
    const QByteArray image = SampleBookImage();
    if (!file.open(QIODevice::WriteOnly)) return false;
    return file.write(image) == image.size();
}
