#include "shell/controls/kestro_label.h"

#include "shell/skin.h"
#include "store/errors.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kIcon = 14, kGap = 6;

Type FontOf(LabelKind kind) {
    if (kind == LabelKind::title) return Type::title;
    if (kind == LabelKind::value) return Type::bodyBold;
    return kind == LabelKind::hint ? Type::small : Type::body;
}

Tok ColorOf(LabelKind kind) {
    if (kind == LabelKind::caption || kind == LabelKind::help) return Tok::text2;
    return kind == LabelKind::hint ? Tok::text3 : Tok::text;
}

/// Length of the part up to the first colon, 0 without one.
qsizetype HeadLength(const QString& text) {
    return text.indexOf(QRegularExpression(u"[:：]"_s)) + 1;
}

}  // namespace

KestroLabel::KestroLabel(const QString& text, LabelKind kind, QWidget* parent) : QLabel(parent), kind_(kind) {
    setTextFormat(Qt::PlainText);
    SetKind(kind);
    SetText(text);
}

void KestroLabel::SetText(const QString& text) {
    setText(text);
    updateGeometry();
}

void KestroLabel::SetKind(LabelKind kind) {
    kind_ = kind;
    setFont(Skin::Font(FontOf(kind)));
    update();
}

void KestroLabel::SetCopyIcon(bool on) {
    copyIcon_ = on;
    updateGeometry();
    update();
}

void KestroLabel::SetColor(int token) {
    color_ = token;
    update();
}

int KestroLabel::IconWidth() const {
    return copyIcon_ || kind_ == LabelKind::help ? kGap + kIcon : 0;
}

QSize KestroLabel::sizeHint() const {
    QSize size = QLabel::sizeHint() + QSize(IconWidth(), 0);
    size.setHeight(std::max(size.height(), Skin::LineHeight(FontOf(kind_))));
    return size;
}

QSize KestroLabel::minimumSizeHint() const {
    return wordWrap() ? QLabel::minimumSizeHint() : sizeHint();
}

void KestroLabel::showEvent(QShowEvent* event) {
    QLabel::showEvent(event);
    if (onClick) setCursor(Qt::PointingHandCursor);
}

void KestroLabel::mouseReleaseEvent(QMouseEvent* event) {
    if (!onClick) return QLabel::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) RunEvent(onClick);
}

void KestroLabel::paintEvent(QPaintEvent*) {
    QPainter p(this);
    const Tok own = color_ >= 0 ? static_cast<Tok>(color_) : ColorOf(kind_);
    const Tok token = isEnabled() ? own : Tok::dis;
    const QRect room = contentsRect().adjusted(0, 0, -IconWidth(), 0);
    const int breaks = wordWrap() ? Qt::TextWordWrap : 0;
    const int flags = static_cast<int>(alignment()) | breaks;
    const qsizetype head = kind_ == LabelKind::value ? HeadLength(text()) : 0;
    QRect used, headUsed;
    if (head > 0) {
        p.setFont(Skin::Font(Type::body));
        p.setPen(Skin::Color(isEnabled() ? Tok::text2 : Tok::dis));
        p.drawText(room, flags, text().left(head), &headUsed);
    }
    p.setFont(font());
    p.setPen(Skin::Color(token));
    p.drawText(room.adjusted(headUsed.width(), 0, 0, 0), flags, text().mid(head), &used);
    if (IconWidth() == 0) return;
    const QString icon = kind_ == LabelKind::help ? u"help"_s : u"clone"_s;
    const QPoint at(used.right() + 1 + kGap, room.center().y() - kIcon / 2 + 1);
    const Ground ground = isEnabled() ? Ground::plain : Ground::disabled;
    p.drawPixmap(at, Skin::Icon(icon, kIcon, devicePixelRatioF(), ground));
}
