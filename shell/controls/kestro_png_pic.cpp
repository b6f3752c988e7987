#include "shell/controls/kestro_png_pic.h"

#include "shell/skin.h"
#include "store/errors.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

KestroPngPic::KestroPngPic(QWidget* parent) : QWidget(parent) {}

void KestroPngPic::SetIcon(const QString& name) {
    icon_ = name;
    picture_ = {};
    update();
}

void KestroPngPic::SetPixmap(const QPixmap& picture) {
    icon_.clear();
    picture_ = picture;
    update();
}

void KestroPngPic::Clear() {
    SetPixmap({});
}

void KestroPngPic::paintEvent(QPaintEvent*) {
    const int side = std::min(width(), height());
    const QPixmap shown = icon_.isEmpty() ? picture_ : Skin::Icon(icon_, side, devicePixelRatioF());
    if (shown.isNull()) return;
    const QSizeF size = QSizeF(shown.size()).scaled(rect().size(), Qt::KeepAspectRatio);
    const QPointF at((width() - size.width()) / 2, (height() - size.height()) / 2);
    QPainter p(this);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.drawPixmap(QRectF(at, size), shown, QRectF(QPointF(), shown.size()));
}

void KestroPngPic::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) RunEvent(onClick);
}

void KestroPngPic::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) RunEvent(onDoubleClick);
}
