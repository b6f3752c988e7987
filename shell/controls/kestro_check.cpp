#include "shell/controls/kestro_check.h"

#include "shell/controls/check_mark.h"
#include "shell/controls/control_support.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QPainter>

#include <algorithm>

namespace {
constexpr int kRing = 3, kBox = 16, kGap = 6, kIcon = 16, kHit = 24;
}

KestroCheck::KestroCheck(const QString& caption, QWidget* parent) : QCheckBox(caption, parent) {
    setFont(Skin::Font(Type::body));
    setAttribute(Qt::WA_Hover);
    connect(this, &QCheckBox::clicked, this, [this](bool on) {
        RunEvent([this, on] {
            if (onChange) onChange(on);
        });
    });
}

void KestroCheck::SetIconName(const QString& name) {
    iconName_ = name;
    updateGeometry();
    update();
}

void KestroCheck::SetChecked(bool on) {
    setChecked(on);
}

QSize KestroCheck::sizeHint() const {
    int width = 2 * kRing + kBox;
    if (!iconName_.isEmpty()) width += kGap + kIcon;
    if (!text().isEmpty()) width += kGap + fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    return {width, std::max(kHit, Skin::LineHeight(Type::body))};
}

bool KestroCheck::hitButton(const QPoint& pos) const {
    return rect().contains(pos);
}

// The blank alone changes it.
void KestroCheck::keyPressEvent(QKeyEvent* event) {
    Controls::IsEnter(*event) ? event->ignore() : QCheckBox::keyPressEvent(event);
}

void KestroCheck::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QRect box(kRing, (height() - kBox) / 2, kBox, kBox);
    PaintCheckMark(p, box,
                   {.on = isChecked(), .hover = underMouse(), .pressed = isDown(), .enabled = isEnabled()});
    if (hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange))
        Skin::FocusRing(p, box, 3, false, Skin::Color(Tok::accent));
    int x = box.right() + 1 + kGap;
    if (!iconName_.isEmpty()) {
        const Ground ground = isEnabled() ? Ground::plain : Ground::disabled;
        p.drawPixmap(x, (height() - kIcon) / 2, Skin::Icon(iconName_, kIcon, devicePixelRatioF(), ground));
        x += kIcon + kGap;
    }
    p.setFont(font());
    p.setPen(Skin::Color(isEnabled() ? Tok::text : Tok::dis));
    p.drawText(rect().adjusted(x, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, text());
}
