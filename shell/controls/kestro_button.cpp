#include "shell/controls/kestro_button.h"

#include "shell/controls/control_support.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {
constexpr int kIcon = 16;
constexpr int kGap = 6;
constexpr int kChevron = 10;
constexpr int kDropZone = 24;  // of buttons with an outline
constexpr int kDateWidth = 56;
constexpr double kRadius = 4;
// Room for the focus ring outside the outline of buttons that show theirs there.
constexpr int kRing = 3;
}  // namespace

KestroButton::KestroButton(ButtonLook look, const QString& caption, const QString& icon, QWidget* parent)
    : QAbstractButton(parent), look_(look), icon_(icon) {
    setText(caption);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    resize(sizeHint());
    connect(this, &QAbstractButton::clicked, this, [this] { RunEvent(onClick); });
}

void KestroButton::SetLook(ButtonLook look) {
    look_ = look;
    Changed();
}

void KestroButton::SetIcon(const QString& icon) {
    icon_ = icon;
    Changed();
}

void KestroButton::SetArrow(bool shown) {
    arrow_ = shown;
    Changed();
}

void KestroButton::SetHeight(int height) {
    height_ = height;
    Changed();
}

void KestroButton::SetLeastWidth(int width) {
    leastWidth_ = width;
    Changed();
}

void KestroButton::SetCompact(bool compact) {
    compact_ = compact;
    if (compact && toolTip().isEmpty()) setToolTip(text());
    Changed();
}

void KestroButton::SetDate(QDate date) {
    date_ = date;
    setAccessibleName(date.isValid() ? date.toString(u"yyyy-MM-dd"_s) : text());
    update();
}

void KestroButton::Changed() {
    updateGeometry();
    update();
}

int KestroButton::ArrowWidth() const {
    if (!arrow_) return 0;
    return InToolbar() ? kChevron + 10 : kDropZone;
}

QSize KestroButton::sizeHint() const {
    const int height = Skin::Px(height_);
    if (look_ == ButtonLook::date) return {Skin::Px(kDateWidth) + ArrowWidth(), height};
    const int padding = InToolbar() ? 8 : 16;
    const int icon = icon_.isEmpty() ? 0 : kIcon;
    const int gap = icon > 0 && CaptionWidth() > 0 ? kGap : 0;
    return {qMax(leastWidth_, 2 * padding + icon + gap + CaptionWidth() + ArrowWidth()), height};
}

int KestroButton::CaptionWidth() const {
    if (compact_ || text().isEmpty()) return 0;
    return QFontMetrics(CaptionFont()).horizontalAdvance(text()) + 1;
}

QFont KestroButton::CaptionFont() const {
    return Skin::Font(look_ == ButtonLook::primary ? Type::bodyBold : Type::body);
}

QRect KestroButton::ArrowRect() const {
    if (!arrow_) return {};
    const int wide = InToolbar() ? qMax(ArrowWidth(), width() / 3) : ArrowWidth();
    return {width() - wide, 0, wide, height()};
}

void KestroButton::mousePressEvent(QMouseEvent* event) {
    const bool onDrop = onArrow && ArrowRect().contains(event->position().toPoint());
    if (onDrop && event->button() == Qt::LeftButton)
        RunEvent(onArrow);
    else
        QAbstractButton::mousePressEvent(event);
}

void KestroButton::keyPressEvent(QKeyEvent* event) {
    const bool drop = event->key() == Qt::Key_Down && event->modifiers() & Qt::AltModifier;
    if (drop && (onArrow || look_ == ButtonLook::date))
        RunEvent(onArrow ? onArrow : onClick);
    else if (Controls::IsEnter(*event))
        byKey_ ? click() : event->ignore();
    else
        QAbstractButton::keyPressEvent(event);
}

void KestroButton::focusInEvent(QFocusEvent* event) {
    byKey_ = Controls::CameByKey(*event);
    QAbstractButton::focusInEvent(event);
}

KestroButton::Colors KestroButton::StateColors() const {
    using Skin::Color;
    const bool hovered = underMouse();
    if (!isEnabled())
        return InToolbar() ? Colors{{}, {}, Color(Tok::dis)}
                           : Colors{Color(Tok::disBg), Color(Tok::line), Color(Tok::dis)};
    switch (look_) {
        case ButtonLook::primary: {
            const Tok fill = isDown() ? Tok::accentPress : hovered ? Tok::accentHover : Tok::accent;
            return {Color(fill), Color(fill), Color(Tok::onAccent)};
        }
        case ButtonLook::danger: {
            if (!hovered && !isDown()) return {Color(Tok::surface), Color(Tok::danger), Color(Tok::danger)};
            const Tok fill = isDown() ? Tok::dangerPress : Tok::dangerFill;
            return {Color(fill), Color(fill), Qt::white};
        }
        case ButtonLook::toolbar:
            return {isDown()  ? Color(Tok::line2)
                    : hovered ? Color(Tok::soft)
                              : QColor(),
                    {},
                    Color(Tok::text)};
        case ButtonLook::plain:
        case ButtonLook::date:
            break;
    }
    const Tok rest = look_ == ButtonLook::date ? Tok::box : Tok::btnLine;
    if (isDown()) return {Color(Tok::soft), Color(Tok::accent), Color(Tok::text)};
    if (hovered) return {Color(Tok::hover), Color(Tok::box), Color(Tok::text)};
    return {Color(Tok::btn), Color(rest), Color(Tok::text)};
}

void KestroButton::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const bool ring = hasFocus() && byKey_;
    const bool inside = InToolbar() || look_ == ButtonLook::date;
    const Colors colors = StateColors();
    // The ring takes its room from inside the button, so that neighbours and edges never cut it.
    const QRectF body =
        ring && !inside ? QRectF(rect()).adjusted(kRing, kRing, -kRing, -kRing) : QRectF(rect());
    Skin::Box(p, body, kRadius, colors.fill, colors.line);
    if (ring) {
        const Tok accent = look_ == ButtonLook::danger ? Tok::danger : Tok::accent;
        Skin::FocusRing(p, body, kRadius, inside, Skin::Color(accent));
    }
    if (look_ == ButtonLook::date)
        PaintDate(p, rect().adjusted(0, 0, -ArrowWidth(), 0), colors.ink);
    else
        PaintCaption(p, rect(), colors.ink);
    PaintArrow(p, colors.ink);
}

void KestroButton::PaintArrow(QPainter& p, const QColor& ink) const {
    if (!arrow_) return;
    const QRect zone(width() - ArrowWidth(), 0, ArrowWidth(), height());
    if (!InToolbar()) {
        Skin::VLine(p, zone.left(), 1, height() - 1, Skin::Color(Tok::line));
        Skin::Chevron(p, zone, 0, ink, kChevron);
    } else {
        const QRectF glyph(width() - 6 - kChevron, (height() - kChevron) / 2.0, kChevron, kChevron);
        Skin::Chevron(p, glyph, 0, ink, kChevron);
    }
}

void KestroButton::PaintCaption(QPainter& p, QRect r, const QColor& ink) const {
    p.setFont(CaptionFont());
    p.setPen(ink);
    const int icon = icon_.isEmpty() ? 0 : kIcon;
    const int gap = icon > 0 && CaptionWidth() > 0 ? kGap : 0;
    r.adjust(0, 0, -ArrowWidth(), 0);
    const int room = r.width() - icon - gap - 8;
    const int wide = qMin(CaptionWidth(), room);
    int x = r.left() + (r.width() - icon - gap - wide) / 2;
    if (icon > 0) {
        p.drawPixmap(x, (height() - kIcon) / 2, Skin::Icon(icon_, kIcon, devicePixelRatioF(), IconGround()));
        x += icon + gap;
    }
    if (wide <= 0) return;
    const QString shown = p.fontMetrics().elidedText(text(), Qt::ElideRight, wide);
    p.drawText(QRect(x, 0, wide, height()), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextDontClip, shown);
}

Ground KestroButton::IconGround() const {
    if (!isEnabled()) return Ground::disabled;
    return look_ == ButtonLook::primary ? Ground::primary : Ground::plain;
}

void KestroButton::PaintDate(QPainter& p, QRect r, const QColor& ink) const {
    const QColor quiet = Skin::Color(isEnabled() ? Tok::text3 : Tok::dis);
    if (!date_.isValid()) {
        p.setFont(Skin::Font(Type::body));
        p.setPen(quiet);
        p.drawText(r, Qt::AlignCenter, text());
        return;
    }
    const int line = Skin::LineHeight(Type::year);
    const int top = (r.height() - 2 * line) / 2;
    p.setFont(Skin::Font(Type::year));
    p.setPen(quiet);
    p.drawText(QRect(r.left(), top, r.width(), line), Qt::AlignCenter | Qt::TextDontClip,
               date_.toString(u"yyyy"_s));
    p.setFont(Skin::Font(Type::small));
    p.setPen(ink);
    p.drawText(QRect(r.left(), top + line, r.width(), line), Qt::AlignCenter | Qt::TextDontClip,
               date_.toString(u"MM-dd"_s));
}
