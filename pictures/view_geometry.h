#pragma once
// Sizes of pictures as pure functions: how one stands in the picture box, the steps of its zoom, the sizes
// that the image helper makes, and the words of its status numbers. Lengths are pixels.

#include <QString>

#include <optional>

/// Where and how large a picture is drawn; zoom is displayed width / image width.
struct PictureFit {
    double width = 0, height = 0;
    double x = 0, y = 0;
    float zoom = 1;
};
/// A picture larger than its box is made smaller, any other keeps its size; it stands in the middle.
/// nullopt when a length is 0.
std::optional<PictureFit> FitToBox(double boxW, double boxH, double imgW, double imgH);

/// The next zoom factor, and what is to be told when it stopped at its limit.
struct ZoomStep {
    float zoom = 1;
    QString message;
};
ZoomStep ZoomIn(float zoom);
ZoomStep ZoomOut(float zoom);
/// A quarter turn further, in degrees below 360.
float NextAngle(float angle);

struct PixelSize {
    int width = 0, height = 0;
    bool operator==(const PixelSize&) const = default;
};
/// Size of a scaled copy of an image of this size; the longer side decides. With noEnlarge a wish that is
/// larger in one direction leaves the image's own size.
PixelSize ThumbnailSize(PixelSize image, PixelSize wish, bool noEnlarge);
/// Size of a resized image: a length of 0 follows the other one. Without enlarge a larger wish leaves the
/// image's own size. nullopt when both lengths are 0 or there is no image.
std::optional<PixelSize> ReSizeOf(PixelSize image, PixelSize wish, bool enlarge);

/// Status numbers of the image helper.
enum GdiStatus {
    kGdiOk = 0,
    kGdiGenericError = 1,
    kGdiInvalidParameter = 2,
    kGdiOutOfMemory = 3,
    kGdiFileNotFound = 10,
    kGdiAccessDenied = 12,
    kGdiUnknownFormat = 13
};
QString GdiErrorString(int status);
/// The words of a status with its number, below a title and above a detail, each if given.
QString GdiErrorMessage(int status, const QString& title, const QString& detail);
