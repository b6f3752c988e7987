#include "shell/controls/control_support.h"

#include "shell/skin.h"

#include <QPainter>
#include <QWidget>

namespace Controls {
void PaintIcon(QPainter& p, const QWidget& widget, const QRect& r, const QString& name, int size, bool active) {
    const Ground ground = active && widget.isEnabled() ? Ground::plain : Ground::disabled;
    const QPixmap icon = Skin::Icon(name, size, widget.devicePixelRatioF(), ground);
    p.drawPixmap(r.x() + (r.width() - size) / 2, r.y() + (r.height() - size) / 2, icon);
}
}  // namespace Controls
