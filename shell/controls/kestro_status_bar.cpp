#include "shell/controls/kestro_status_bar.h"

#include "shell/controls/kestro_tool_tip.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QFontMetrics>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {
constexpr int kHeight = 30, kPad = 10, kIcon = 14, kDot = 8, kGrip = 18;
constexpr QRect kOver(8, 5, 214, 22);
}  // namespace

KestroStatusBar::KestroStatusBar(QWidget* parent) : QWidget(parent) {
    setFixedHeight(static_cast<int>(std::lround(kHeight * Skin::Scale())));
    setMouseTracking(true);
    setAccessibleName(u"状态栏"_s);
}

QSize KestroStatusBar::sizeHint() const {
    return {600, height()};
}

int KestroStatusBar::AddPanel(const QString& text, int width, bool spring, const QString& icon) {
    panels_.push_back({.text = text, .icon = icon, .tip = {}, .width = width, .spring = spring, .rect = {}});
    Relayout();
    return PanelCount() - 1;
}

int KestroStatusBar::PanelCount() const {
    return static_cast<int>(panels_.size());
}

QString KestroStatusBar::PanelText(int panel) const {
    return panel >= 0 && panel < PanelCount() ? panels_[static_cast<size_t>(panel)].text : QString();
}

void KestroStatusBar::SetPanelText(int panel, const QString& text) {
    if (panel < 0 || panel >= PanelCount()) return;
    panels_[static_cast<size_t>(panel)].text = text;
    Relayout();
}

void KestroStatusBar::SetPanelIcon(int panel, const QString& icon) {
    if (panel < 0 || panel >= PanelCount()) return;
    panels_[static_cast<size_t>(panel)].icon = icon;
    Relayout();
}

void KestroStatusBar::SetPanelDot(int panel, StatusDot dot) {
    if (panel < 0 || panel >= PanelCount()) return;
    panels_[static_cast<size_t>(panel)].dot = dot;
    Relayout();
}

void KestroStatusBar::SetPanelTip(int panel, const QString& tip) {
    if (panel >= 0 && panel < PanelCount()) panels_[static_cast<size_t>(panel)].tip = tip;
}

QRect KestroStatusBar::PanelRect(int panel) const {
    return panel >= 0 && panel < PanelCount() ? panels_[static_cast<size_t>(panel)].rect : QRect();
}

void KestroStatusBar::SetOver(QWidget* widget) {
    widget->setParent(this);
    over_.push_back(widget);
    Relayout();
}

void KestroStatusBar::ShowGrip(bool on) {
    grip_ = on;
    Relayout();
}

QRect KestroStatusBar::GripRect() const {
    return grip_ ? QRect(width() - kGrip, height() - kGrip, kGrip, kGrip) : QRect();
}

// A panel of its own width grows with its text; the springs give the room.
int KestroStatusBar::LeastWidth(const Panel& panel) const {
    if (panel.spring || panel.text.isEmpty()) return panel.width;
    const int dot = panel.dot == StatusDot::none ? 0 : kDot + 6;
    const int icon = panel.icon.isEmpty() ? 0 : kIcon + 6;
    const int text = QFontMetrics(Skin::Font(Type::small)).horizontalAdvance(panel.text) + 1;
    return std::max(panel.width, 2 * kPad + dot + icon + text);
}

void KestroStatusBar::Relayout() {
    int room = width() - GripRect().width(), springs = 0;
    for (const Panel& panel : panels_) {
        room -= LeastWidth(panel);
        springs += panel.spring ? 1 : 0;
    }
    int x = 0;
    for (Panel& panel : panels_) {
        const int extra = panel.spring ? std::max(0, room) / springs : 0;
        panel.rect = QRect(x, 1, LeastWidth(panel) + extra, height() - 1);
        x += panel.rect.width();
    }
    for (QWidget* widget : over_) {
        QRect place = kOver;
        place.moveTop((height() + 1 - place.height()) / 2);
        widget->setGeometry(place);
    }
    update();
}

void KestroStatusBar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Relayout();
}

void KestroStatusBar::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), Skin::Color(Tok::head));
    Skin::HLine(p, 0, width(), 0, Skin::Color(Tok::line2));
    for (const Panel& panel : panels_) {
        PaintPanel(p, panel);
        if (&panel != &panels_.back())
            Skin::VLine(p, panel.rect.right(), 8, height() - 8, Skin::Color(Tok::line2));
    }
    if (!grip_) return;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j <= i; ++j)
            p.fillRect(width() - 6 - 4 * j, height() - 14 + 4 * i, 2, 2, Skin::Color(Tok::box));
}

void KestroStatusBar::PaintPanel(QPainter& p, const Panel& panel) const {
    QRect room = panel.rect.adjusted(kPad, 0, -kPad, 0);
    const int middle = room.center().y();
    if (panel.dot != StatusDot::none) {
        const QColor color = Skin::Color(panel.dot == StatusDot::good ? Tok::reduce : Tok::warn);
        Skin::Box(p, QRectF(room.left(), middle - kDot / 2.0 + 1, kDot, kDot), kDot / 2.0, color, color);
        room.setLeft(room.left() + kDot + 6);
    }
    if (!panel.icon.isEmpty()) {
        const QPixmap icon = Skin::Icon(panel.icon, kIcon, devicePixelRatioF());
        p.drawPixmap(room.left(), middle - kIcon / 2 + 1, icon);
        room.setLeft(room.left() + kIcon + 6);
    }
    p.setFont(Skin::Font(Type::small));
    p.setPen(Skin::Color(Tok::text2));
    const QString text = p.fontMetrics().elidedText(panel.text, Qt::ElideRight, std::max(0, room.width()));
    p.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

int KestroStatusBar::PanelAt(const QPoint& pos) const {
    for (int i = 0; i < PanelCount(); ++i)
        if (PanelRect(i).contains(pos)) return i;
    return -1;
}

void KestroStatusBar::mousePressEvent(QMouseEvent* event) {
    const QPoint pos = event->position().toPoint();
    if (event->button() != Qt::LeftButton) return;
    pressed_ = GripRect().contains(pos) ? -1 : PanelAt(pos);
    if (GripRect().contains(pos) && window()->windowHandle())
        window()->windowHandle()->startSystemResize(Qt::BottomEdge | Qt::RightEdge);
}

void KestroStatusBar::mouseReleaseEvent(QMouseEvent* event) {
    const int panel = PanelAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || panel < 0 || panel != pressed_) return;
    RunEvent([this, panel] {
        if (onClick) onClick(panel);
    });
}

void KestroStatusBar::mouseMoveEvent(QMouseEvent* event) {
    const QPoint pos = event->position().toPoint();
    setCursor(GripRect().contains(pos) ? Qt::SizeFDiagCursor : Qt::ArrowCursor);
    SetHover(PanelAt(pos));
}

void KestroStatusBar::leaveEvent(QEvent*) {
    SetHover(-1);
}

void KestroStatusBar::SetHover(int panel) {
    if (panel == hover_) return;
    hover_ = panel;
    RunEvent([this, panel] {
        if (onHover) onHover(panel);
    });
}

bool KestroStatusBar::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int panel = PanelAt(help->pos());
    if (panel < 0) return true;
    const Panel& what = panels_[static_cast<size_t>(panel)];
    const int room = what.rect.width() - 2 * kPad - (what.icon.isEmpty() ? 0 : kIcon + 6);
    const bool cut = QFontMetrics(Skin::Font(Type::small)).horizontalAdvance(what.text) > room;
    const QString tip = what.tip.isEmpty() && cut ? what.text : what.tip;
    if (!tip.isEmpty()) KestroToolTip::Show(u"bartip"_s, tip, help->globalPos(), this);
    return true;
}
