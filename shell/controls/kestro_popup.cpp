#include "shell/controls/kestro_popup.h"

#include "shell/skin.h"
#include "store/errors.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

namespace {
constexpr double kRadius = 6;
constexpr int kGap = 2;

bool HasText(const QInputMethodEvent& event) {
    return !event.preeditString().isEmpty() || !event.commitString().isEmpty();
}
}  // namespace

// A tool tip's window is the one kind that every window system shows without moving the focus.
KestroPopup::KestroPopup(QWidget* owner)
    : QWidget(owner, Qt::ToolTip | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint) {
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TranslucentBackground, Skin::ShadowMargin() > 0);
    setMouseTracking(true);
}

void KestroPopup::ShowAt(QWidget* anchor, QSize namedSize) {
    anchor_ = anchor;
    Place(namedSize);
    if (!isVisible()) qApp->installEventFilter(this);
    show();
    raise();
}

void KestroPopup::Place(QSize namedSize) {
    const int margin = Skin::ShadowMargin();
    const QRect area = anchor_->screen()->availableGeometry();
    const QPoint top = anchor_->mapToGlobal(QPoint(0, 0));
    const int below = top.y() + anchor_->height() + kGap;
    const bool fits =
        below + namedSize.height() <= area.bottom() || top.y() - area.top() < namedSize.height();
    const int y = fits ? below : top.y() - kGap - namedSize.height();
    const int x = qMax(area.left(), qMin(top.x(), area.right() + 1 - namedSize.width()));
    setGeometry(QRect(QPoint(x, y), namedSize).adjusted(-margin, -margin, margin, margin));
}

QRect KestroPopup::Inner() const {
    const int m = Skin::ShadowMargin();
    return rect().adjusted(m, m, -m, -m);
}

bool KestroPopup::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType() || !isVisible()) return false;
    if (watched == anchor_ && event->type() == QEvent::ShortcutOverride) {
        // Escape and the arrows are ours before any shortcut of the window.
        event->accept();
        return true;
    }
    if (watched == anchor_ && event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Escape) {
            hide();
            return true;
        }
        bool used = false;
        RunEvent([&] { used = HandleKey(key); });
        return used;
    }
    if (ClosesOn(watched, event)) hide();
    return false;
}

bool KestroPopup::ClosesOn(const QObject* watched, QEvent* event) const {
    const auto* widget = static_cast<const QWidget*>(watched);
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::Wheel:
            return widget->window() != this && !(anchor_ && anchor_ == widget);
        case QEvent::InputMethod:
            return widget == anchor_ && ClosesOnTyping() && HasText(static_cast<QInputMethodEvent&>(*event));
        case QEvent::FocusOut:
            return widget == anchor_;
        case QEvent::Hide:
            return anchor_ && (widget == anchor_ || widget == anchor_->window());
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::WindowDeactivate:
            return anchor_ && widget == anchor_->window();
        default:
            return false;
    }
}

void KestroPopup::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    qApp->removeEventFilter(this);
    RunEvent(onClosed);
}

void KestroPopup::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const double radius = Skin::ShadowMargin() > 0 ? kRadius : 0;
    if (radius > 0) Skin::Shadow(p, Inner(), radius, true);
    Skin::Box(p, Inner(), radius, Skin::Color(Tok::surface), Skin::Color(radius > 0 ? Tok::line2 : Tok::box));
}
