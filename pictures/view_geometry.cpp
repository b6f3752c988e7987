#include "pictures/view_geometry.h"

#include <algorithm>
#include <cmath>
#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr float kSmallStep = 0.2F, kLargeStep = 0.5F, kLargestZoom = 4, kSmallestZoom = 0.1F;
constexpr float kLeastZoom = 0.01F;

int Rounded(double length) {
    constexpr double kMost = 1 << 30;
    return static_cast<int>(std::lround(std::clamp(length, -kMost, kMost)));
}

}  // namespace

std::optional<PictureFit> FitToBox(double boxW, double boxH, double imgW, double imgH) {
    if (boxW == 0 || boxH == 0 || imgW == 0 || imgH == 0) return {};
    PictureFit fit{imgW, imgH, 0, 0, 1};
    if (imgW > boxW || imgH > boxH) {
        const double across = imgW / boxW, down = imgH / boxH;
        if (down >= across) {
            fit.height = boxH;
            fit.width = imgW / down;
        } else {
            fit.width = boxW;
            fit.height = imgH / across;
        }
    }
    fit.x = (boxW - fit.width) / 2;
    fit.y = (boxH - fit.height) / 2;
    fit.zoom = static_cast<float>(fit.width / imgW);
    if (fit.zoom == 0) fit.zoom = kLeastZoom;
    return fit;
}

ZoomStep ZoomIn(float zoom) {
    const float next = zoom + (zoom < 1 ? kSmallStep : kLargeStep);
    if (next > kLargestZoom) return {kLargestZoom, u"最多放大 400%"_s};
    return {next, {}};
}

ZoomStep ZoomOut(float zoom) {
    const float next = zoom - (zoom < 1 ? kSmallStep : kLargeStep);
    if (next < kSmallestZoom) return {kSmallestZoom, u"最多缩小到 10%"_s};
    return {next, {}};
}

float NextAngle(float angle) {
    const float next = angle + 90;
    return next == 360 ? 0 : next;
}

PixelSize ThumbnailSize(PixelSize image, PixelSize wish, bool noEnlarge) {
    if (image.width <= 0 || image.height <= 0) return {};
    if (noEnlarge && (wish.width > image.width || wish.height > image.height)) return image;
    const double ratio = static_cast<double>(image.width) / image.height;
    if (image.height >= image.width) return {Rounded(ratio * wish.height), wish.height};
    return {wish.width, Rounded(wish.width / ratio)};
}

std::optional<PixelSize> ReSizeOf(PixelSize image, PixelSize wish, bool enlarge) {
    if (image.width <= 0 || image.height <= 0 || (wish.width == 0 && wish.height == 0)) return {};
    const double ratio = static_cast<double>(image.width) / image.height;
    if (wish.width == 0) wish.width = Rounded(wish.height * ratio);
    if (wish.height == 0) wish.height = Rounded(wish.width / ratio);
    if (!enlarge && (wish.width > image.width || wish.height > image.height)) return image;
    return wish;
}

QString GdiErrorString(int status) {
    static const std::map<int, QString> words{
        {1, u"Generic Error"_s},         {2, u"Invalid Parameter"_s},     {3, u"Out Of Memory"_s},
        {4, u"Object Busy"_s},           {5, u"Insufficient Buffer"_s},   {6, u"Not Implemented"_s},
        {7, u"Win32 Error"_s},           {8, u"Wrong State"_s},           {9, u"Aborted"_s},
        {10, u"File Not Found"_s},       {11, u"Value Overflow"_s},       {12, u"Access Denied"_s},
        {13, u"Unknown Image Format"_s}, {14, u"FontFamily Not Found"_s}, {15, u"FontStyle Not Found"_s},
        {16, u"Not TrueType Font"_s},    {19, u"Property Not Found"_s},   {20, u"Property Not Supported"_s}};
    const auto found = words.find(status);
    return found == words.end() ? u"Unknown GDI+ Error"_s : found->second;
}

QString GdiErrorMessage(int status, const QString& title, const QString& detail) {
    QString text = u"Error"_s;
    if (!title.isEmpty()) text += u" : "_s + title;
    text += u"\nError code "_s + QString::number(status) + u'\n' + GdiErrorString(status);
    if (!detail.isEmpty()) text += u'\n' + detail;
    return text;
}
