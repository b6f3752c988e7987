#include "shell/controls/kestro_link.h"

#include "shell/controls/control_support.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>

namespace {
constexpr int kRing = 3;
}

KestroLink::KestroLink(const QString& text, QWidget* parent) : QPushButton(text, parent) {
    setFont(Skin::Font(Type::body));
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
    setAutoDefault(false);
    connect(this, &QPushButton::clicked, this, [this] { RunEvent(onClick); });
}

QSize KestroLink::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + 2 * kRing, Skin::LineHeight(Type::body) + 4};
}

void KestroLink::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QColor color = Skin::Color(isEnabled() ? Tok::accent : Tok::dis);
    const QRect room = rect().adjusted(kRing, 0, -kRing, 0);
    p.setFont(font());
    p.setPen(color);
    QRect used;
    p.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text(), &used);
    if (underMouse() || hasFocus()) Skin::HLine(p, used.left(), used.right(), used.bottom(), color);
    if (hasFocus() && byKey_) Skin::FocusRing(p, rect(), 2, true, color);
}

void KestroLink::focusInEvent(QFocusEvent* event) {
    byKey_ = Controls::CameByKey(*event);
    QPushButton::focusInEvent(event);
}

void KestroLink::keyPressEvent(QKeyEvent* event) {
    if (Controls::IsEnter(*event)) return byKey_ ? click() : event->ignore();
    QPushButton::keyPressEvent(event);
}
