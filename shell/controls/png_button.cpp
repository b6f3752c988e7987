#include "shell/controls/png_button.h"

#include "shell/controls/control_support.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QKeyEvent>
#include <QPainter>

namespace {
constexpr int kIcon = 16;
constexpr double kRadius = 4;
}  // namespace

PngButton::PngButton(const QString& icon, const QString& tip, QWidget* parent, int side)
    : QAbstractButton(parent), icon_(icon), side_(side) {
    SetTip(tip);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    resize(side, side);
    connect(this, &QAbstractButton::clicked, this, [this] { RunEvent(onClick); });
}

void PngButton::SetIcon(const QString& icon) {
    icon_ = icon;
    update();
}

void PngButton::SetTip(const QString& tip) {
    setToolTip(tip);
    setAccessibleName(tip);
}

void PngButton::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const bool hovered = underMouse() && isEnabled();
    const QColor outline = framed_ ? Skin::Color(isEnabled() ? Tok::btnLine : Tok::line) : QColor();
    QColor fill = framed_ ? Skin::Color(isEnabled() ? Tok::btn : Tok::disBg) : QColor();
    if (hovered) fill = Skin::Color(closing_ ? Tok::dangerFill : Tok::soft);
    if (isDown()) fill = Skin::Color(closing_ ? Tok::dangerPress : Tok::line2);
    Skin::Box(p, rect(), kRadius, fill, outline);
    if (closing_) {
        PaintCross(p, hovered || isDown());
    } else {
        Controls::PaintIcon(p, *this, rect(), icon_, kIcon);
    }
    if (hasFocus() && byKey_) Skin::FocusRing(p, rect(), kRadius, true, Skin::Color(Tok::accent));
}

void PngButton::PaintCross(QPainter& p, bool onFill) const {
    const QColor color = onFill ? QColor(Qt::white) : Skin::Color(isEnabled() ? Tok::text2 : Tok::dis);
    const QRectF r(width() / 2.0 - 5, height() / 2.0 - 5, 10, 10);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(color, 1.25, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(r.topLeft(), r.bottomRight());
    p.drawLine(r.topRight(), r.bottomLeft());
}

void PngButton::focusInEvent(QFocusEvent* event) {
    byKey_ = Controls::CameByKey(*event);
    QAbstractButton::focusInEvent(event);
}

void PngButton::keyPressEvent(QKeyEvent* event) {
    if (Controls::IsEnter(*event))
        byKey_ ? click() : event->ignore();
    else
        QAbstractButton::keyPressEvent(event);
}
