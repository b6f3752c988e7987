#include "pictures/gdi_image.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMostFileBytes = 64 << 20;
constexpr qint64 kMostPixels = 64 << 20;
constexpr int kMostMegabytes = 256;  // of those pixels

// The bytes of an ordinary file: a pipe would keep the reader waiting.
int ReadBytes(const QString& path, QByteArray& bytes) {
    const QFileInfo info(path);
    if (!info.isFile()) return kGdiFileNotFound;
    if (info.size() > kMostFileBytes) return kGdiOutOfMemory;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return kGdiAccessDenied;
    bytes = file.read(kMostFileBytes);
    return kGdiOk;
}

// The contents decide on the format, not the name; only those that hold pixels and nothing to follow.
int Decode(const QString& path, int most, QImage& image) {
    static const QList<QByteArray> formats{"jpeg", "png", "gif", "bmp"};
    QByteArray bytes;
    if (const int status = ReadBytes(path, bytes); status != kGdiOk) return status;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const QByteArray format = QImageReader::imageFormat(&buffer);
    if (!formats.contains(format)) return kGdiUnknownFormat;
    QImageReader::setAllocationLimit(kMostMegabytes);
    QImageReader reader(&buffer, format);
    const QSize size = reader.size();
    if (static_cast<qint64>(size.width()) * size.height() > kMostPixels) return kGdiOutOfMemory;
    reader.setAutoTransform(true);
    if (most > 0 && qMax(size.width(), size.height()) > most)
        reader.setScaledSize(size.scaled(most, most, Qt::KeepAspectRatio).expandedTo({1, 1}));
    return reader.read(&image) ? kGdiOk : kGdiGenericError;
}

}  // namespace

QImage LoadSmall(const QString& path, int side) {
    QImage image;
    return Decode(path, side, image) == kGdiOk ? image : QImage();
}

bool cGdiImage::Initialised() const {
    return QImageReader::supportedImageFormats().contains("jpeg");
}

bool cGdiImage::Load(const QString& path) {
    image_ = work_ = {};
    loadStatus_ = Decode(path, 0, image_);
    if (loadStatus_ != kGdiOk) image_ = {};
    return loadStatus_ == kGdiOk;
}

void cGdiImage::Thumbnail(const QString& path, int width, int height, bool noEnlarge) {
    if (!Load(path)) return;
    const auto size = ThumbnailSize({image_.width(), image_.height()}, {width, height}, noEnlarge);
    if (size.width <= 0 || size.height <= 0) {
        loadStatus_ = kGdiInvalidParameter;
        image_ = {};
        return;
    }
    image_ = image_.scaled(size.width, size.height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    if (image_.isNull()) loadStatus_ = kGdiOutOfMemory;
}

int cGdiImage::PaintDC(QPainter& painter, double x, double y, float angle) const {
    if (!work_.isNull()) {
        painter.drawImage(QPointF(x, y), work_);
        return kGdiOk;
    }
    if (image_.isNull()) return kGdiInvalidParameter;
    const QPointF half(image_.width() / 2.0, image_.height() / 2.0);
    painter.save();
    painter.translate(QPointF(x, y) + half);
    painter.rotate(angle);
    painter.drawImage(-half, image_);
    painter.restore();
    return kGdiOk;
}

int cGdiImage::ReSize(int width, int height, bool enlarge) {
    const auto size = ReSizeOf({image_.width(), image_.height()}, {width, height}, enlarge);
    if (!size) return kGdiOk;
    if (size->width <= 0 || size->height <= 0) return kGdiInvalidParameter;
    if (static_cast<qint64>(size->width) * size->height > kMostPixels) return kGdiOutOfMemory;
    work_ = image_.scaled(size->width, size->height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return work_.isNull() ? kGdiOutOfMemory : kGdiOk;
}

int cGdiImage::Rotate(int turnCode) {
    if (image_.isNull() || turnCode < 1 || turnCode > 3) return kGdiInvalidParameter;
    work_ = image_.transformed(QTransform().rotate(90 * turnCode));
    return work_.isNull() ? kGdiOutOfMemory : kGdiOk;
}

int cGdiImage::SaveJpeg(const QString& path, int quality) const {
    if (Shown().isNull()) return kGdiInvalidParameter;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return kGdiAccessDenied;
    QImageWriter writer(&file, "jpeg");
    writer.setQuality(quality);
    if (!writer.write(Shown())) return kGdiUnknownFormat;
    return file.commit() ? kGdiOk : kGdiAccessDenied;
}
