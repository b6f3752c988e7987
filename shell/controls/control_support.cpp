#include "shell/controls/control_support.h"

#include "shell/skin.h"

#include <QPainter>
#include <QWheelEvent>
#include <QWidget>

namespace {
constexpr int kNotch = 120;
constexpr int kTypingPause = 1000;  // milliseconds
}  // namespace

namespace Controls {
int WheelNotches::Take(const QWheelEvent& event) {
    const int turn = event.angleDelta().y();
    if (turn == 0) return 0;
    if ((turn > 0) != (sum_ > 0)) sum_ = 0;
    sum_ += turn;
    const int whole = sum_ / kNotch;
    sum_ -= whole * kNotch;
    return whole;
}

QString TypeAhead::Add(const QString& letters) {
    if (!IsRunning()) typed_.clear();
    typed_ += letters;
    pause_.start();
    return typed_;
}

bool TypeAhead::IsRunning() const {
    return pause_.isValid() && pause_.elapsed() < kTypingPause;
}

void PaintIcon(QPainter& p, const QWidget& widget, const QRect& r, const QString& name, int size,
               bool active) {
    const Ground ground = active && widget.isEnabled() ? Ground::plain : Ground::disabled;
    const QPixmap icon = Skin::Icon(name, size, widget.devicePixelRatioF(), ground);
    p.drawPixmap(r.x() + (r.width() - size) / 2, r.y() + (r.height() - size) / 2, icon);
}
}  // namespace Controls
