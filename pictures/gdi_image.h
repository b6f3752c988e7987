#pragma once
// cGdiImage: loads an image, makes a scaled or turned copy, draws it and saves it as JPEG. Statuses are those
// of GdiErrorString, 0 for success. A photograph that carries its own turning is loaded upright.

#include "pictures/view_geometry.h"

#include <QImage>
#include <QString>

class QPainter;

/// The picture of a file, upright and within a square; null when it cannot be read.
QImage LoadSmall(const QString& path, int side);

class cGdiImage {
 public:
    /// Width and height of the work bitmap if there is one, else of the image; 0 without both.
    float ImageWidth() const { return static_cast<float>(Shown().width()); }
    float ImageHeight() const { return static_cast<float>(Shown().height()); }
    /// Whether the image library can read JPEG.
    bool Initialised() const;

    bool Load(const QString& path);
    /// Why the last Load failed.
    int LoadStatus() const { return loadStatus_; }
    /// Loads the file and keeps a scaled copy of it as the image, of the size of ThumbnailSize.
    void Thumbnail(const QString& path, int width, int height, bool noEnlarge);
    /// Draws the work bitmap at x, y, otherwise the image turned clockwise about its centre by angle degrees.
    int PaintDC(QPainter& painter, double x, double y, float angle) const;
    /// Makes the work bitmap: the image in the size of ReSizeOf.
    int ReSize(int width, int height, bool enlarge);
    /// Makes the work bitmap: the image turned clockwise; 1, 2 and 3 are 90, 180 and 270 degrees.
    int Rotate(int turnCode);
    /// The work bitmap, or the image.
    QImage Picture() const { return Shown(); }
    int SaveJpeg(const QString& path, int quality = -1) const;

 private:
    const QImage& Shown() const { return work_.isNull() ? image_ : work_; }

    QImage image_;
    QImage work_;
    int loadStatus_ = kGdiOk;
};
