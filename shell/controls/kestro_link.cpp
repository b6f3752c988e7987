#include "shell/controls/kestro_link.h"

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
    if (hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange))
        Skin::FocusRing(p, rect(), 2, true, color);
}

void KestroLink::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return click();
    QPushButton::keyPressEvent(event);
}
