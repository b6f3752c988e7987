#include "shell/controls/corners.h"

#include "shell/skin.h"

#include <QPainter>
#include <QPainterPath>
#include <QWidget>

namespace {
constexpr int kRadius = 4;

QColor LineColor(bool marked) {
    return Skin::Color(marked ? Tok::accent : Tok::line2);
}
}  // namespace

void PaintFrame(QPainter& p, const QRect& frame, bool marked, int headHeight) {
    Skin::Box(p, frame, kRadius, Skin::Color(Tok::surface), LineColor(marked));
    if (headHeight == 0) return;
    p.setClipRect(frame.left(), frame.top(), frame.width(), headHeight);
    Skin::Box(p, frame, kRadius, Skin::Color(Tok::head), LineColor(marked));
    p.setClipping(false);
}

void PaintCorners(QPainter& p, const QRect& frame, const QWidget* of, bool marked) {
    const bool inDialog = of->window()->windowFlags().testFlag(Qt::Dialog) && of->window() != of;
    const QSize size(kRadius, kRadius);
    QRegion corners;
    for (const int x : {frame.left(), frame.right() - kRadius + 1})
        for (const int y : {frame.top(), frame.bottom() - kRadius + 1})
            corners += QRect(QPoint(x, y), size);
    QPainterPath outside, inside;
    outside.addRect(frame);
    inside.addRoundedRect(frame, kRadius, kRadius);
    p.save();
    p.setClipRegion(corners);
    p.setRenderHint(QPainter::Antialiasing);
    p.fillPath(outside.subtracted(inside), Skin::Color(inDialog ? Tok::surface : Tok::page));
    Skin::Box(p, frame, kRadius, Qt::transparent, LineColor(marked));
    p.restore();
}
