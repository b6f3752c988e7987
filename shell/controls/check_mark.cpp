#include "shell/controls/check_mark.h"

#include "shell/skin.h"

#include <QPainter>
#include <QPainterPath>
#include <QPen>

namespace {

QColor FillOf(const CheckLook& look) {
    if (!look.enabled) return Skin::Color(Tok::disBg);
    if (look.on || look.partly)
        return Skin::Color(look.pressed ? Tok::accentPress : look.hover ? Tok::accentHover : Tok::accent);
    return Skin::Color(look.pressed ? Tok::soft : Tok::surface);
}

QColor OutlineOf(const CheckLook& look) {
    if (!look.enabled) return Skin::Color(Tok::line);
    if (look.on || look.partly) return FillOf(look);
    return Skin::Color(look.hover || look.pressed ? Tok::accent : Tok::box);
}

}  // namespace

void PaintCheckMark(QPainter& p, const QRectF& box, const CheckLook& look) {
    Skin::Box(p, box, 3, FillOf(look), OutlineOf(look));
    if (!look.on && !look.partly) return;
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(Skin::Color(look.enabled ? Tok::onAccent : Tok::dis), 1.75, Qt::SolidLine, Qt::RoundCap,
                  Qt::RoundJoin));
    QPainterPath mark;
    if (look.partly) {
        mark.moveTo(box.left() + 4.5, box.center().y());
        mark.lineTo(box.right() - 4.5, box.center().y());
    } else {
        mark.moveTo(box.left() + 4, box.top() + 8.3);
        mark.lineTo(box.left() + 6.8, box.top() + 11);
        mark.lineTo(box.left() + 12, box.top() + 5.2);
    }
    p.drawPath(mark);
    p.restore();
}
