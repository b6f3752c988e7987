#include "shell/controls/kestro_option.h"

#include "shell/controls/control_support.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QPainter>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int kRing = 3, kMark = 16, kGap = 6, kHit = 24, kIcon = 16;
constexpr int kPillHeight = 30, kPillPad = 10, kArrow = 8;

bool RingShown(const QWidget* widget) {
    return widget->hasFocus() && widget->window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

/// ▲ or ▼, so that colour is not the only sign.
void PaintArrow(QPainter& p, const QRectF& r, bool up, const QColor& color) {
    const double base = up ? r.bottom() : r.top(), tip = up ? r.top() : r.bottom();
    const QPointF corners[] = {{r.left(), base}, {r.right(), base}, {r.center().x(), tip}};
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(color);
    p.drawPolygon(corners, 3);
    p.restore();
}

}  // namespace

KestroOption::KestroOption(const QString& caption, QWidget* parent, OptionLook look)
    : QRadioButton(caption, parent), look_(look) {
    setFont(Skin::Font(Type::body));
    setAttribute(Qt::WA_Hover);
    connect(this, &QRadioButton::toggled, this, [this](bool on) {
        if (on) RunEvent(onChoose);
    });
}

void KestroOption::SetOn() {
    const QSignalBlocker quiet(this);
    setChecked(true);
    update();
}

void KestroOption::SetIconName(const QString& name) {
    iconName_ = name;
    updateGeometry();
    update();
}

QSize KestroOption::sizeHint() const {
    const QFontMetrics metrics(Skin::Font(look_ == OptionLook::plain ? Type::body : Type::bodyBold));
    const int word = metrics.size(Qt::TextShowMnemonic, text()).width();
    const int icon = iconName_.isEmpty() ? 0 : kIcon + kGap;
    if (look_ == OptionLook::plain) return {2 * kRing + kMark + kGap + icon + word, kHit};
    const int height = static_cast<int>(std::lround(kPillHeight * Skin::Scale()));
    return {2 * (kRing + kPillPad) + kMark + kGap + word + kGap + kArrow, height + 2 * kRing};
}

bool KestroOption::hitButton(const QPoint& pos) const {
    return rect().contains(pos);
}

// The blank alone changes it.
void KestroOption::keyPressEvent(QKeyEvent* event) {
    Controls::IsEnter(*event) ? event->ignore() : QRadioButton::keyPressEvent(event);
}

void KestroOption::paintEvent(QPaintEvent*) {
    QPainter p(this);
    look_ == OptionLook::plain ? PaintPlain(p) : PaintPill(p);
}

void KestroOption::PaintMark(QPainter& p, const QRectF& mark, const QColor& on) const {
    QColor line = Skin::Color(underMouse() ? Tok::accent : Tok::box);
    QColor fill = Skin::Color(isDown() ? Tok::soft : Tok::surface);
    if (isChecked()) line = on;
    if (!isEnabled()) {
        line = Skin::Color(isChecked() ? Tok::dis : Tok::line);
        fill = Skin::Color(Tok::disBg);
    }
    Skin::Box(p, mark, mark.width() / 2, fill, line, isChecked() ? 5 : 1);
}

void KestroOption::PaintPlain(QPainter& p) const {
    const QRect mark(kRing, (height() - kMark) / 2, kMark, kMark);
    PaintMark(p, mark, Skin::Color(Tok::accent));
    if (RingShown(this)) Skin::FocusRing(p, mark, kMark / 2.0, false, Skin::Color(Tok::accent));
    QRect room = rect().adjusted(mark.right() + 1 + kGap, 0, 0, 0);
    if (!iconName_.isEmpty()) {
        const Ground ground = isEnabled() ? Ground::plain : Ground::disabled;
        p.drawPixmap(room.left(), (height() - kIcon) / 2,
                     Skin::Icon(iconName_, kIcon, devicePixelRatioF(), ground));
        room.setLeft(room.left() + kIcon + kGap);
    }
    p.setFont(font());
    p.setPen(Skin::Color(isEnabled() ? Tok::text : Tok::dis));
    p.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, text());
}

void KestroOption::PaintPill(QPainter& p) const {
    const bool add = look_ == OptionLook::add, on = isChecked() && isEnabled();
    const QColor color = Skin::Color(add ? Tok::add : Tok::reduce);
    const QRect pill = rect().adjusted(kRing, kRing, -kRing, -kRing);
    QColor fill = Skin::Color(underMouse() ? Tok::hover : Tok::btn), line = Skin::Color(Tok::btnLine);
    if (on) fill = Skin::Color(add ? Tok::addBg : Tok::reduceBg);
    if (on) line = color;
    if (!isEnabled()) fill = Skin::Color(Tok::disBg);
    if (!isEnabled()) line = Skin::Color(Tok::line);
    Skin::Box(p, pill, 4, fill, line);
    if (RingShown(this)) Skin::FocusRing(p, pill, 4, false, Skin::Color(Tok::accent));
    const QRect mark(pill.left() + kPillPad, pill.center().y() - kMark / 2 + 1, kMark, kMark);
    PaintMark(p, mark, color);
    const QColor ink = on ? color : Skin::Color(isEnabled() ? Tok::text : Tok::dis);
    p.setFont(Skin::Font(on ? Type::bodyBold : Type::body));
    p.setPen(ink);
    const QRect room = pill.adjusted(kPillPad + kMark + kGap, 0, -(kPillPad + kArrow), 0);
    p.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, text());
    const QRectF arrow(pill.right() + 1 - kPillPad - kArrow, pill.center().y() - 2, kArrow, 6);
    PaintArrow(p, arrow, add, on ? color : Skin::Color(isEnabled() ? Tok::text3 : Tok::dis));
}

KestroOptionPair::KestroOptionPair(QWidget* parent)
    : QWidget(parent),
      add_(new KestroOption(u"增加"_s, this, OptionLook::add)),
      reduce_(new KestroOption(u"减少"_s, this, OptionLook::reduce)) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(2);
    row->addWidget(add_);
    row->addWidget(reduce_);
    row->addStretch();
    setFocusProxy(add_);
    add_->SetOn();
    const auto tell = [this] {
        setFocusProxy(IsAdd() ? add_ : reduce_);
        if (onChange) onChange(IsAdd());
    };
    add_->onChoose = tell;
    reduce_->onChoose = tell;
}

void KestroOptionPair::SetGroupName(const QString& name) {
    setAccessibleName(name);
    for (KestroOption* option : {add_, reduce_})
        option->setAccessibleName(name + option->text());
}

bool KestroOptionPair::IsAdd() const {
    return add_->IsOn();
}

void KestroOptionPair::SetAdd(bool add) {
    KestroOption* const chosen = add ? add_ : reduce_;
    chosen->SetOn();
    setFocusProxy(chosen);
}
