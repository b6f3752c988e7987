#include "shell/controls/window_frame.h"

#include "shell/skin.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QStyleHints>
#include <QWidget>
#include <QWindow>

namespace {
constexpr int kEdge = 6;
constexpr int kCorner = 14;
constexpr double kRadius = 8;

Qt::CursorShape CursorFor(Qt::Edges edges) {
    if (edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge))
        return Qt::SizeFDiagCursor;
    if (edges == (Qt::RightEdge | Qt::TopEdge) || edges == (Qt::LeftEdge | Qt::BottomEdge))
        return Qt::SizeBDiagCursor;
    return edges & (Qt::LeftEdge | Qt::RightEdge) ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

QRect Dragged(QRect r, Qt::Edges edges, QPoint by, QSize smallest) {
    if (!edges) return r.translated(by);
    if (edges & Qt::LeftEdge) r.setLeft(qMin(r.left() + by.x(), r.right() + 1 - smallest.width()));
    if (edges & Qt::RightEdge) r.setRight(qMax(r.right() + by.x(), r.left() - 1 + smallest.width()));
    if (edges & Qt::TopEdge) r.setTop(qMin(r.top() + by.y(), r.bottom() + 1 - smallest.height()));
    if (edges & Qt::BottomEdge) r.setBottom(qMax(r.bottom() + by.y(), r.top() - 1 + smallest.height()));
    return r;
}
}  // namespace

WindowFrame::WindowFrame(QWidget* window, bool canResize) : window_(window), canResize_(canResize) {
    window->setWindowFlags(window->windowFlags() | Qt::FramelessWindowHint | Qt::WindowSystemMenuHint);
    window->setAttribute(Qt::WA_TranslucentBackground, Skin::ShadowMargin() > 0);
    window->installEventFilter(this);
}

WindowFrame::~WindowFrame() {
    ShowCursor({});
}

int WindowFrame::Margin() const {
    const bool fills = window_->isMaximized() || window_->isFullScreen();
    return fills ? 0 : Skin::ShadowMargin();
}

QRect WindowFrame::Named() const {
    const int m = Margin();
    return window_->rect().adjusted(m, m, -m, -m);
}

double WindowFrame::Radius() const {
    return Margin() > 0 ? kRadius : 0;
}

void WindowFrame::SetNamedSize(QSize size) {
    const int m = Margin();
    const QSize outer = size.grownBy({m, m, m, m});
    if (!place_ || !window_->isVisible()) return window_->resize(outer);
    const QRect area = window_->screen()->availableGeometry().adjusted(-m, -m, m, m);
    QRect r(*place_, outer);
    r.moveLeft(qMax(area.left(), qMin(r.left(), area.right() + 1 - r.width())));
    r.moveTop(qMax(area.top(), qMin(r.top(), area.bottom() + 1 - r.height())));
    place_ = r.topLeft();
    window_->setGeometry(r);
}

void WindowFrame::SetPlace(QPoint place) {
    place_ = place;
    window_->move(place);
}

void WindowFrame::SetSmallest(QSize size) {
    smallest_ = size;
    window_->setMinimumSize(size.grownBy({Margin(), Margin(), Margin(), Margin()}));
}

void WindowFrame::Paint(QPainter& p, const QColor& ground) const {
    const QRect named = Named();
    if (Margin() > 0) Skin::Shadow(p, named, Radius(), false, opacity_);
    QColor outline = Skin::Color(Tok::box);
    if (Margin() > 0 && !Skin::IsDark()) {
        outline = Skin::Color(Tok::ink);
        outline.setAlphaF(0.55F);
    }
    Skin::Box(p, named, Radius(), ground, window_->isMaximized() ? ground : outline);
}

void WindowFrame::ToggleMaximised() {
    if (!canResize_) return;
    if (window_->isMaximized())
        window_->showNormal();
    else
        window_->showMaximized();
}

void WindowFrame::StartMove() {
    Begin({}, QCursor::pos());
}

void WindowFrame::Begin(Qt::Edges edges, QPoint global) {
    pressed_ = false;
    edges_ = edges;
    QWindow* handle = window_->windowHandle();
    const bool taken = handle && (edges ? handle->startSystemResize(edges) : handle->startSystemMove());
    byHand_ = !taken && !window_->isMaximized();
    pressedAt_ = global;
    pressedRect_ = window_->geometry();
}

Qt::Edges WindowFrame::EdgesAt(QPoint at) const {
    const QRect r = Named();
    if (!canResize_ || window_->isMaximized() || window_->isFullScreen() || !r.contains(at)) return {};
    const int left = at.x() - r.left();
    const int right = r.right() - at.x();
    const int top = at.y() - r.top();
    const int bottom = r.bottom() - at.y();
    if (qMin(qMin(left, right), qMin(top, bottom)) >= kEdge) {
        const bool inCorner = qMin(left, right) < kCorner && qMin(top, bottom) < kCorner;
        if (!inCorner || top < bottom) return {};
    }
    Qt::Edges edges;
    if (left < kCorner) edges |= Qt::LeftEdge;
    if (right < kCorner) edges |= Qt::RightEdge;
    if (top < kCorner) edges |= Qt::TopEdge;
    if (bottom < kCorner) edges |= Qt::BottomEdge;
    if ((edges & (Qt::LeftEdge | Qt::RightEdge)) && (edges & (Qt::TopEdge | Qt::BottomEdge))) return edges;
    if (qMin(left, right) >= kEdge) edges &= ~(Qt::LeftEdge | Qt::RightEdge);
    if (qMin(top, bottom) >= kEdge) edges &= ~(Qt::TopEdge | Qt::BottomEdge);
    return edges;
}

// An override cursor, as the children under the edge have cursors of their own.
void WindowFrame::ShowCursor(Qt::Edges edges) {
    if (edges == shownEdges_) return;
    if (shownEdges_) QApplication::restoreOverrideCursor();
    if (edges) QApplication::setOverrideCursor(CursorFor(edges));
    shownEdges_ = edges;
}

bool WindowFrame::eventFilter(QObject* watched, QEvent* event) {
    if (watched == window_) return OnWindow(event);
    return OnHandle(event);
}

// The native window sees the pointer before any child does, so the edges belong to it.
bool WindowFrame::OnHandle(QEvent* event) {
    const auto* mouse = dynamic_cast<QMouseEvent*>(event);
    if (event->type() == QEvent::Leave) ShowCursor({});
    if (mouse == nullptr) return false;
    const QPoint at = mouse->position().toPoint();
    if (event->type() == QEvent::MouseMove && byHand_) {
        FollowPointer(mouse->globalPosition().toPoint());
        return true;
    }
    if (event->type() == QEvent::MouseMove && mouse->buttons() == Qt::NoButton) ShowCursor(EdgesAt(at));
    if (event->type() == QEvent::MouseButtonRelease) byHand_ = false;
    if (event->type() != QEvent::MouseButtonPress || mouse->button() != Qt::LeftButton) return false;
    const Qt::Edges edges = EdgesAt(at);
    if (edges) Begin(edges, mouse->globalPosition().toPoint());
    return edges != 0;
}

// What reaches the window itself has passed all children: a free spot.
bool WindowFrame::OnWindow(QEvent* event) {
    switch (event->type()) {
        case QEvent::Show:
            if (window_->windowHandle()) window_->windowHandle()->installEventFilter(this);
            return false;
        case QEvent::Move:
            // What is told as the screen's corner is most often no place at all.
            if (place_ && !window_->pos().isNull()) place_ = window_->pos();
            return false;
        case QEvent::WindowStateChange:
            if (!smallest_.isEmpty()) SetSmallest(smallest_);
            if (onMargin) onMargin();
            return false;
        case QEvent::MouseButtonPress:
            return Press(*static_cast<QMouseEvent*>(event));
        case QEvent::MouseMove:
            return Move(*static_cast<QMouseEvent*>(event));
        case QEvent::MouseButtonRelease:
            pressed_ = byHand_ = false;
            return false;
        case QEvent::MouseButtonDblClick:
            if (!InTitle(static_cast<QMouseEvent*>(event)->position().toPoint())) return false;
            ToggleMaximised();
            return true;
        default:
            return false;
    }
}

bool WindowFrame::InTitle(QPoint at) const {
    const QRect named = Named();
    return named.contains(at) && at.y() < named.top() + titleHeight_;
}

bool WindowFrame::Press(const QMouseEvent& event) {
    pressed_ = event.button() == Qt::LeftButton && InTitle(event.position().toPoint());
    pressedAt_ = event.globalPosition().toPoint();
    return false;
}

// The move begins only after some way: a move begun by the press would swallow the double click.
bool WindowFrame::Move(const QMouseEvent& event) {
    const QPoint global = event.globalPosition().toPoint();
    if (byHand_) {
        FollowPointer(global);
        return true;
    }
    if (!pressed_) return false;
    if ((global - pressedAt_).manhattanLength() < QApplication::styleHints()->startDragDistance())
        return false;
    Begin({}, global);
    return true;
}

void WindowFrame::FollowPointer(QPoint global) {
    window_->setGeometry(Dragged(pressedRect_, edges_, global - pressedAt_, window_->minimumSize()));
}
