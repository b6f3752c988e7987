#include "shell/controls/kestro_calculator.h"

#include "shell/skin.h"
#include "store/errors.h"
#include "store/money.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
struct Key {
    char16_t key;
    const char16_t* face;
};

constexpr int kColumns = 4;
constexpr std::array kKeys = std::to_array<Key>({
    {u'C', u"C"}, {u'B', u"⌫"}, {u'%', u"%"}, {u'/', u"÷"}, {u'7', u"7"}, {u'8', u"8"}, {u'9', u"9"},
    {u'*', u"×"}, {u'4', u"4"}, {u'5', u"5"}, {u'6', u"6"}, {u'-', u"−"}, {u'1', u"1"}, {u'2', u"2"},
    {u'3', u"3"}, {u'+', u"+"}, {u'N', u"±"}, {u'0', u"0"}, {u'.', u"."}, {u'=', u"="},
});

constexpr QSize kSize(228, 284);
constexpr int kEdge = 10;
constexpr int kDisplay = 56;
constexpr int kKeyHeight = 34;
constexpr int kGap = 6;
constexpr int kKeysTop = kEdge + kDisplay + 10;

QString FaceOf(int index) {
    return QString::fromUtf16(kKeys.at(static_cast<size_t>(index)).face);
}

QChar KeyOf(int index) {
    return QChar(kKeys.at(static_cast<size_t>(index)).key);
}

bool IsOperator(QChar key) {
    return u"/*-+"_s.contains(key);
}

// The calculator's key for a key of the keyboard, null when it has none.
QChar KeyFor(const QKeyEvent& event) {
    if (event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return {};
    if (event.key() == Qt::Key_Backspace) return u'B';
    if (event.key() == Qt::Key_Delete) return u'C';
    if (event.text().size() != 1) return {};
    const QChar typed = event.text().at(0).toUpper();
    for (const Key& key : kKeys)
        if (typed == QChar(key.key) && key.key != u'B' && key.key != u'N') return typed;
    return {};
}
}  // namespace

KestroCalculator::KestroCalculator(QWidget* owner) : KestroPopup(owner) {
    setAccessibleName(u"计算器"_s);
}

void KestroCalculator::PopUp(QWidget* anchor, const QString& start, int group, bool ownKeys) {
    ownKeys_ = ownKeys;
    stays_ = false;
    Begin(anchor, start, group);
}

void KestroCalculator::Open(QWidget* anchor, int group) {
    ownKeys_ = stays_ = true;
    if (!anchor->hasFocus()) before_ = QApplication::focusWidget();
    anchor->setFocus(Qt::PopupFocusReason);
    Begin(anchor, {}, group);
}

void KestroCalculator::hideEvent(QHideEvent* event) {
    KestroPopup::hideEvent(event);
    const QPointer<QWidget> before = std::exchange(before_, nullptr);
    if (before && Anchor() && Anchor()->hasFocus()) before->setFocus(Qt::PopupFocusReason);
}

void KestroCalculator::Begin(QWidget* anchor, const QString& start, int group) {
    calculation_.Start(start);
    group_ = group;
    touched_ = false;
    hovered_ = pressed_ = -1;
    ShowAt(anchor, kSize);
    update();
}

bool KestroCalculator::HandleKey(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (stays_) {
            PressKey(u'=');
            return true;
        }
        // Nothing was computed: the key is the window's, and the box keeps its text.
        if (!touched_) {
            hide();
            return false;
        }
        Finish();
        return true;
    }
    const QChar key = KeyFor(*event);
    if (ownKeys_ && !key.isNull()) {
        PressKey(key);
        return true;
    }
    if (stays_) return event->key() != Qt::Key_Tab && event->key() != Qt::Key_Backtab;
    const bool modifier = event->text().isEmpty() && event->key() != Qt::Key_Tab;
    if (!modifier) hide();
    return false;
}

void KestroCalculator::PressKey(QChar key) {
    touched_ = true;
    if (key == u'=' && !stays_) return Finish();
    calculation_.Press(key);
    update();
}

void KestroCalculator::Finish() {
    const auto value = calculation_.Result();
    update();
    if (!value) return;
    hide();
    if (onValue) onValue(*value);
}

QRect KestroCalculator::KeyRect(int index) const {
    const QRect inner = Inner();
    const int wide = (inner.width() - 2 * kEdge - (kColumns - 1) * kGap) / kColumns;
    return {inner.left() + kEdge + index % kColumns * (wide + kGap),
            inner.top() + kKeysTop + index / kColumns * (kKeyHeight + kGap), wide, kKeyHeight};
}

int KestroCalculator::KeyAt(QPoint at) const {
    for (int i = 0; i < static_cast<int>(kKeys.size()); ++i)
        if (KeyRect(i).contains(at)) return i;
    return -1;
}

void KestroCalculator::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) pressed_ = KeyAt(event->position().toPoint());
    update();
}

void KestroCalculator::mouseReleaseEvent(QMouseEvent* event) {
    const int released = KeyAt(event->position().toPoint());
    const bool hit = released >= 0 && released == pressed_;
    pressed_ = -1;
    update();
    if (hit) RunEvent([&] { PressKey(KeyOf(released)); });
}

void KestroCalculator::mouseMoveEvent(QMouseEvent* event) {
    hovered_ = KeyAt(event->position().toPoint());
    update();
}

void KestroCalculator::leaveEvent(QEvent*) {
    hovered_ = -1;
    update();
}

void KestroCalculator::paintEvent(QPaintEvent* event) {
    KestroPopup::paintEvent(event);
    QPainter p(this);
    Skin::Box(p, Inner().adjusted(1, 1, -1, -1), 5, Skin::Color(Tok::page), {});
    PaintDisplay(p);
    for (int i = 0; i < static_cast<int>(kKeys.size()); ++i)
        PaintKey(p, i);
}

void KestroCalculator::PaintDisplay(QPainter& p) const {
    const QRect inner = Inner();
    const QRect r(inner.left() + kEdge, inner.top() + kEdge, inner.width() - 2 * kEdge, kDisplay);
    Skin::Box(p, r, 4, Skin::Color(Tok::surface), Skin::Color(Tok::box));
    const QRect room = r.adjusted(8, 4, -10, -2);
    p.setFont(Skin::Font(Type::small));
    p.setPen(Skin::Color(Tok::text3));
    p.drawText(room, Qt::AlignRight | Qt::AlignTop,
               p.fontMetrics().elidedText(calculation_.Trail(), Qt::ElideLeft, room.width()));
    const QString value = calculation_.Shown();
    const bool grouped = !calculation_.Failed() && !value.endsWith(u'.');
    const QString shown = grouped ? Grouped(value) : value;
    p.setFont(Skin::Font(Type::amount));
    if (p.fontMetrics().horizontalAdvance(shown) > room.width()) p.setFont(Skin::Font(Type::title));
    p.setPen(Skin::Color(calculation_.Failed() ? Tok::danger : Tok::text));
    p.drawText(room, Qt::AlignRight | Qt::AlignBottom, shown);
}

// Only the whole part: the decimals stand as typed.
QString KestroCalculator::Grouped(const QString& value) const {
    const auto point = value.indexOf(u'.');
    const QString whole = point < 0 ? value : value.left(point);
    const QString tail = point < 0 ? QString() : value.mid(point);
    return GroupText(whole, group_, u","_s, whole) + tail;
}

void KestroCalculator::PaintKey(QPainter& p, int index) const {
    const QChar key = KeyOf(index);
    Tok fill = key.isDigit() || key == u'.' ? Tok::surface : Tok::head;
    Tok line = fill == Tok::surface ? Tok::line2 : Tok::head;
    Tok ink = fill == Tok::surface ? Tok::text : Tok::text2;
    if (IsOperator(key)) fill = line = Tok::soft, ink = Tok::accent;
    if (key == u'=') fill = line = Tok::accent, ink = Tok::onAccent;
    if (index == hovered_) {
        fill = key == u'=' ? Tok::accentHover : Tok::soft;
        line = Tok::accent;
    }
    if (index == pressed_) fill = key == u'=' ? Tok::accentPress : Tok::line2;
    const QRect r = KeyRect(index);
    Skin::Box(p, r, 4, Skin::Color(fill), Skin::Color(line));
    p.setFont(Skin::Font(key.isDigit() || key == u'.' ? Type::titleRegular : Type::title));
    p.setPen(Skin::Color(ink));
    p.drawText(r, Qt::AlignCenter, FaceOf(index));
}
