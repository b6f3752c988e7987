#include "shell/controls/form_parts.h"

#include "shell/controls/accessible.h"
#include "shell/controls/control_support.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {
constexpr int kDragWay = 8;
constexpr int kIcon = 18;
constexpr int kLabelPadding = 12;
constexpr int kLabelIcon = 14;
constexpr int kLabelGap = 6;
constexpr double kOff = 0.45;  // opacity of what cannot be used

QColor White(double alpha) {
    QColor color = Qt::white;
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

QColor HoverFill() {
    return White(Skin::IsDark() ? 0.04 : 0.07);
}
class TabInterface : public QAccessibleWidget {
 public:
    explicit TabInterface(HeaderTab* tab) : QAccessibleWidget(tab, QAccessible::PageTab), tab_(tab) {}

    QAccessible::State state() const override {
        auto state = QAccessibleWidget::state();
        state.selectable = true;
        state.selected = tab_->IsChosen();
        return state;
    }
    QStringList actionNames() const override {
        return QStringList{pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        name == pressAction() ? tab_->click() : QAccessibleWidget::doAction(name);
    }

 private:
    HeaderTab* tab_;
};

QAccessibleInterface* MakeTabInterface(QObject* tab) {
    return new TabInterface(dynamic_cast<HeaderTab*>(tab));
}
}  // namespace

HeaderPart::HeaderPart(QWidget* parent, const QString& tip) : QAbstractButton(parent) {
    setToolTip(tip);
    setAccessibleName(tip);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    connect(this, &QAbstractButton::clicked, this, [this] { RunEvent(onClick); });
}

void HeaderPart::SetChosen(bool chosen) {
    chosen_ = chosen;
    update();
}

void HeaderPart::focusInEvent(QFocusEvent* event) {
    byKey_ = Controls::CameByKey(*event);
    QAbstractButton::focusInEvent(event);
}

void HeaderPart::mousePressEvent(QMouseEvent* event) {
    pressedAt_ = event->position().toPoint();
    QAbstractButton::mousePressEvent(event);
}

void HeaderPart::mouseMoveEvent(QMouseEvent* event) {
    const bool away = (event->position().toPoint() - pressedAt_).manhattanLength() >= kDragWay;
    if (!onDrag || !(event->buttons() & Qt::LeftButton) || !away)
        return QAbstractButton::mouseMoveEvent(event);
    setDown(false);
    RunEvent(onDrag);
}

void HeaderPart::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            byKey_ ? click() : event->ignore();
            break;
        case Qt::Key_Left:
            focusNextPrevChild(false);
            break;
        case Qt::Key_Right:
            focusNextPrevChild(true);
            break;
        default:
            QAbstractButton::keyPressEvent(event);
    }
}

HeaderTab::HeaderTab(QWidget* parent, const QString& caption) : HeaderPart(parent, {}) {
    setText(caption);
    setAccessibleName(caption.simplified().remove(u' '));
    UseOwnInterface(this, MakeTabInterface);
}

void HeaderTab::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const QRect tall = rect().adjusted(0, 0, 0, 10);
    if (IsChosen())
        Skin::Box(p, tall, 8, Skin::Color(Tok::page), {});
    else if (underMouse() && isEnabled())
        Skin::Box(p, tall, 8, HoverFill(), {});
    p.setFont(Skin::Font(IsChosen() ? Type::title : Type::titleRegular));
    p.setPen(Skin::Color(IsChosen() ? Tok::text : Tok::tabText));
    if (!isEnabled()) p.setOpacity(kOff);
    p.drawText(rect(), Qt::AlignCenter, text());
    if (IsChosen()) p.fillRect((width() - 26) / 2, height() - 6, 26, 2, Skin::Color(Tok::accent));
    if (ShowsFocus())
        Skin::FocusRing(p, rect(), 8, true, Skin::Color(IsChosen() ? Tok::accent : Tok::inkAccent));
}

HeaderIcon::HeaderIcon(QWidget* parent, const QString& icon, const QString& tip)
    : HeaderPart(parent, tip), icon_(icon) {}

void HeaderIcon::paintEvent(QPaintEvent*) {
    QPainter p(this);
    if (IsChosen() || isDown())
        Skin::Box(p, rect(), 4, White(0.16), {});
    else if (underMouse() && isEnabled())
        Skin::Box(p, rect(), 4, White(0.12), {});
    const Ground ground = IsChosen() ? Ground::headerChosen : Ground::header;
    const QPixmap icon = Skin::Icon(icon_, kIcon, devicePixelRatioF(), ground);
    if (!isEnabled()) p.setOpacity(kOff);
    p.drawPixmap((width() - kIcon) / 2, (height() - kIcon) / 2, icon);
    if (ShowsFocus()) Skin::FocusRing(p, rect(), 4, true, Skin::Color(Tok::inkAccent));
}

HeaderLogo::HeaderLogo(QWidget* parent) : HeaderPart(parent, u"墨鹊理财"_s) {}

void HeaderLogo::SetBadge(int number) {
    number_ = number;
    const QString tip = number > 0 ? u"到期提醒：%1 条"_s.arg(number) : u"墨鹊理财"_s;
    setToolTip(tip);
    setAccessibleName(tip);
    update();
}

// The logo is 36 wide; the badge stands out of it to the upper right.
void HeaderLogo::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const int top = height() - 36;
    p.drawPixmap(0, top, Skin::Icon(u"logo"_s, 36, devicePixelRatioF()));
    if (number_ > 0) {
        const QString text = number_ > 99 ? u"99+"_s : QString::number(number_);
        p.setFont(Skin::Font(Type::badge));
        const int wide = qMax(16, p.fontMetrics().horizontalAdvance(text) + 8);
        const QRect pill(qMin(26, width() - wide - 2), 2, wide, 16);
        Skin::Box(p, pill.adjusted(-2, -2, 2, 2), 10, Skin::Color(Tok::ink), {});
        Skin::Box(p, pill, 8, Skin::Color(Tok::seal), {});
        p.setPen(Qt::white);
        p.drawText(pill, Qt::AlignCenter, text);
    }
    if (ShowsFocus()) Skin::FocusRing(p, QRect(0, top, 36, 36), 8, true, Skin::Color(Tok::inkAccent));
}

HeaderLabel::HeaderLabel(QWidget* parent) : HeaderPart(parent, {}) {}

void HeaderLabel::SetText(const QString& text) {
    text_ = text;
    setAccessibleName(text);
    update();
}

int HeaderLabel::WantedWidth() const {
    const int text_width = QFontMetrics(Skin::Font(Type::body)).horizontalAdvance(text_);
    return 2 * kLabelPadding + kLabelIcon + kLabelGap + text_width + 1;
}

void HeaderLabel::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const bool hovered = underMouse() && isEnabled();
    Skin::Box(p, rect(), height() / 2.0, hovered ? White(0.12) : QColor(), White(0.22));
    if (!isEnabled()) p.setOpacity(kOff);
    const QPixmap icon = Skin::Icon(u"book"_s, kLabelIcon, devicePixelRatioF(), Ground::header);
    p.drawPixmap(kLabelPadding, (height() - kLabelIcon) / 2, icon);
    const int left = kLabelPadding + kLabelIcon + kLabelGap;
    const QRect room = rect().adjusted(left, 0, -kLabelPadding, 0);
    p.setFont(Skin::Font(Type::body));
    p.setPen(Skin::Color(Tok::inkText));
    p.drawText(room, Qt::AlignVCenter, p.fontMetrics().elidedText(text_, Qt::ElideRight, room.width()));
    if (ShowsFocus()) Skin::FocusRing(p, rect(), height() / 2.0, true, Skin::Color(Tok::inkAccent));
}

HeaderGlyph::HeaderGlyph(QWidget* parent, WindowGlyph glyph, const QString& tip)
    : HeaderPart(parent, tip), glyph_(glyph) {
    setFocusPolicy(Qt::NoFocus);
}

void HeaderGlyph::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const bool closing = glyph_ == WindowGlyph::close;
    if (underMouse()) Skin::Box(p, rect(), 4, closing ? Skin::Color(Tok::dangerFill) : White(0.12), {});
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(underMouse() ? QColor(Qt::white) : Skin::Color(Tok::inkText), 1.25));
    const QRectF r(width() / 2.0 - 5, height() / 2.0 - 5, 10, 10);
    if (closing) {
        p.drawLine(r.topLeft(), r.bottomRight());
        p.drawLine(r.topRight(), r.bottomLeft());
    } else if (glyph_ == WindowGlyph::minimise) {
        p.drawLine(QPointF(r.left(), r.center().y()), QPointF(r.right(), r.center().y()));
    } else if (window()->isMaximized()) {
        p.drawRect(r.adjusted(0, 2.5, -2.5, 0));
        p.drawPolyline(QPolygonF{r.topLeft() + QPointF(2.5, 2.5), r.topLeft() + QPointF(2.5, 0), r.topRight(),
                                 r.bottomRight() - QPointF(0, 2.5), r.bottomRight() - QPointF(2.5, 2.5)});
    } else {
        p.drawRect(r);
    }
}
