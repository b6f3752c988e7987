#include "shell/controls/kestro_text.h"

#include "shell/controls/control_support.h"
#include "shell/parts/text_menu.h"
#include "shell/skin.h"
#include "store/errors.h"
#include "store/money.h"
#include "store/text.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace {
constexpr int kHeight = 32;
constexpr int kBigHeight = 40;
constexpr int kPadding = 8;
constexpr int kEnd = 28;
constexpr int kIcon = 16;
constexpr int kIconGap = 7;
constexpr double kRadius = 4;
// QLineEdit keeps this much free at both sides of its text by itself.
constexpr int kOwnMargin = 2;
}  // namespace

KestroText::KestroText(TextMode mode, QWidget* parent) : QLineEdit(parent) {
    setFrame(false);
    // QLineEdit would fill its ground with the palette's base; ours is painted before.
    QPalette ground;
    ground.setColor(QPalette::Base, Qt::transparent);
    setPalette(ground);
    setAttribute(Qt::WA_Hover);
    setMouseTracking(true);
    setFont(Skin::Font(Type::body));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(this, &QLineEdit::textEdited, this, [this] {
        CleanEdit();
        RunEvent([this] { Edited(); });
    });
    connect(this, &QLineEdit::textChanged, this, [this] { SetWrong(false); });
    SetMode(mode);
}

void KestroText::SetMode(TextMode mode) {
    mode_ = mode;
    setEchoMode(mode == TextMode::masked ? QLineEdit::Password : QLineEdit::Normal);
    setAlignment((mode == TextMode::amount ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    unit_ = mode == TextMode::amount ? u"元"_s : QString();
    if (mode == TextMode::amount) setInputMethodHints(Qt::ImhFormattedNumbersOnly);
    if (mode == TextMode::search) SetEndButton(u"search"_s, u"搜索"_s, false);
    SetPrompt(prompt_);
    Fit();
}

void KestroText::SetGroup(int digits) {
    group_ = digits;
    update();
}

void KestroText::SetBig(bool big) {
    big_ = big;
    setFont(Skin::Font(big ? Type::amount : Type::body));
    Fit();
    updateGeometry();
}

void KestroText::SetUnit(const QString& unit) {
    unit_ = unit;
    Fit();
}

void KestroText::SetPrompt(const QString& prompt) {
    prompt_ = prompt;
    setPlaceholderText(mode_ == TextMode::amount ? QString() : prompt);
    if (accessibleName().isEmpty()) setAccessibleName(prompt);
    update();
}

void KestroText::SetLeftIcon(const QString& icon) {
    leftIcon_ = icon;
    Fit();
}

void KestroText::SetEndButton(const QString& icon, const QString& tip, bool opensWindow) {
    endIcon_ = icon;
    endTip_ = tip;
    endLine_ = opensWindow;
    Fit();
}

void KestroText::SetWrong(bool wrong) {
    if (wrong == wrong_) return;
    wrong_ = wrong;
    update();
}

void KestroText::SetRightZone(int width) {
    zone_ = width;
    Fit();
}

// Everything but the text stands in the margins that QLineEdit leaves to us.
void KestroText::Fit() {
    const int left = kPadding - kOwnMargin + (leftIcon_.isEmpty() ? 0 : kIcon + kIconGap);
    const int end = endIcon_.isEmpty() ? 0 : kEnd;
    const int pad = end + zone_ > 0 ? kOwnMargin : kPadding;
    setTextMargins(left, 0, pad - kOwnMargin + end + zone_ + UnitWidth(), 0);
    update();
}

QSize KestroText::sizeHint() const {
    return {Skin::Px(160), Skin::Px(big_ ? kBigHeight : kHeight)};
}

QSize KestroText::minimumSizeHint() const {
    return {44, sizeHint().height()};
}

QRect KestroText::EndRect() const {
    return endIcon_.isEmpty() ? QRect() : QRect(width() - kEnd, 0, kEnd, height());
}

QRect KestroText::ZoneRect() const {
    return {width() - EndRect().width() - zone_, 0, zone_, height()};
}

void KestroText::Edited() {
    if (onChange) onChange(text());
}

QString KestroText::Clean(const QString& t) const {
    return mode_ == TextMode::amount ? CleanAmount(t) : OneLine(t);
}

// What is typed, pasted, composed or dropped is cleaned before it goes in, so that each stays a step that can
// be undone. This is for the roads that remain, such as the pointer's own selection.
void KestroText::CleanEdit() {
    const QString was = text();
    if (Clean(was) == was) return;
    const auto cursor = Clean(was.left(cursorPosition())).size();
    setText(Clean(was));
    setModified(true);
    setCursorPosition(static_cast<int>(cursor));
}

// True when the key's text is not what goes in.
bool KestroText::TypeCleaned(const QKeyEvent& event) {
    const QString typed = event.text();
    const bool prints = !typed.isEmpty() && typed.at(0).isPrint();
    if (!prints || isReadOnly() || event.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) return false;
    const QString clean = Clean(typed);
    if (clean == typed) return false;
    if (!clean.isEmpty()) insert(clean);
    return true;
}

// What is inserted where the last text was inserted would be undone together with it; the cursor's leaving
// and coming back parts the two.
void KestroText::EndStep() {
    const QSignalBlocker quiet(this);
    const int at = cursorPosition();
    if (hasSelectedText() || text().isEmpty()) return;
    setCursorPosition(at == 0 ? 1 : 0);
    setCursorPosition(at);
}

void KestroText::paste() {
    if (isReadOnly()) return;
    EndStep();
    insert(Clean(QGuiApplication::clipboard()->text()));
    EndStep();
}

void KestroText::dropEvent(QDropEvent* event) {
    if (!event->mimeData()->hasText() || isReadOnly()) return QLineEdit::dropEvent(event);
    QMimeData clean;
    clean.setText(Clean(event->mimeData()->text()));
    QDropEvent cleaned(event->position(), event->possibleActions(), &clean, event->buttons(),
                       event->modifiers());
    cleaned.setDropAction(event->dropAction());
    QLineEdit::dropEvent(&cleaned);
    event->setDropAction(cleaned.dropAction());
    event->setAccepted(cleaned.isAccepted());
}

QColor KestroText::TextColor() const {
    return Skin::Color(isEnabled() ? Tok::text : Tok::dis);
}

QColor KestroText::Fill() const {
    return Skin::Color(isEnabled() ? Tok::surface : Tok::disBg);
}

void KestroText::paintEvent(QPaintEvent* event) {
    {
        QPainter p(this);
        Skin::Box(p, rect(), kRadius, Fill(), {});
        if (mode_ == TextMode::amount) PaintAmount(p);
        if (mode_ == TextMode::masked) PaintDots(p);
    }
    if (ShowsCut())
        PaintCut();
    else if (!PaintsItself())
        QLineEdit::paintEvent(event);
    QPainter p(this);
    PaintEnds(p);
    PaintZone(p);
    PaintOutline(p);
}

// A text that nobody types into ends in dots where it is cut.
bool KestroText::ShowsCut() const {
    return isReadOnly() && !PaintsItself() && fontMetrics().horizontalAdvance(text()) > TextRoom().width();
}

void KestroText::PaintCut() {
    QPainter p(this);
    p.setFont(font());
    p.setPen(TextColor());
    p.drawText(TextRoom(), Qt::AlignVCenter | Qt::AlignLeft,
               p.fontMetrics().elidedText(text(), Qt::ElideRight, TextRoom().width()));
}

void KestroText::PaintOutline(QPainter& p) const {
    Tok line = Tok::box;
    if (!isEnabled())
        line = Tok::line;
    else if (wrong_)
        line = Tok::danger;
    else if (hasFocus())
        line = Tok::accent;
    else if (underMouse())
        line = Tok::text2;
    const bool strong = isEnabled() && (wrong_ || hasFocus());
    Skin::Box(p, rect(), kRadius, {}, Skin::Color(line), strong ? 2 : 1);
}

void KestroText::PaintEnds(QPainter& p) const {
    if (!leftIcon_.isEmpty()) Controls::PaintIcon(p, *this, {kPadding, 0, kIcon, height()}, leftIcon_, kIcon);
    if (endIcon_.isEmpty()) return;
    const QRect end = EndRect();
    if (endLine_) Skin::VLine(p, end.left(), 1, height() - 1, Skin::Color(Tok::line));
    Controls::PaintIcon(p, *this, end, endIcon_, kIcon, HasEndAction());
}

void KestroText::mousePressEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    const bool left = event->button() == Qt::LeftButton;
    if (left && EndRect().contains(at)) {
        RunEvent(onEndButton);
        return;
    }
    QLineEdit::mousePressEvent(event);
    if (!left) return;
    if (PaintsItself()) PutCursor(PositionAt(at.x()), event->modifiers() & Qt::ShiftModifier);
    RunEvent([&] { Pressed(at); });
    RunEvent(onClick);
}

void KestroText::mouseMoveEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    const bool ends = EndRect().contains(at) || ZoneRect().contains(at);
    setCursor(ends || isReadOnly() ? Qt::ArrowCursor : Qt::IBeamCursor);
    ShowEndTip(EndRect().contains(at));
    if (!PaintsItself())
        QLineEdit::mouseMoveEvent(event);
    else if (event->buttons() & Qt::LeftButton)
        PutCursor(PositionAt(at.x()), true);
}

// The end button has a tip of its own; the box gets its tip back when the pointer goes on.
void KestroText::ShowEndTip(bool over) {
    if (over == overEnd_) return;
    overEnd_ = over;
    if (over) restTip_ = toolTip();
    setToolTip(over ? endTip_ : restTip_);
}

void KestroText::leaveEvent(QEvent* event) {
    ShowEndTip(false);
    QLineEdit::leaveEvent(event);
}

// The cursor at a position of the text; marking keeps the selection's other end.
void KestroText::PutCursor(int position, bool marking) {
    if (marking)
        cursorForward(true, position - cursorPosition());
    else
        setCursorPosition(position);
}

bool KestroText::EmptiesBox(const QKeyEvent& event) const {
    return onEmptied && preedit_.isEmpty() && (event.key() == Qt::Key_Space || event.key() == Qt::Key_Escape);
}

void KestroText::keyPressEvent(QKeyEvent* event) {
    bool used = false;
    RunEvent([&] { used = onKey && onKey(event); });
    if (used) return;
    if (EmptiesBox(*event)) {
        clear();
        RunEvent(onEmptied);
        return;
    }
    SetWrong(false);
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool drop = event->key() == Qt::Key_Down && event->modifiers() & Qt::AltModifier;
    if (enter && onEnter && !(event->modifiers() & Qt::ControlModifier)) {
        RunEvent(onEnter);
    } else if (drop && onEndButton) {
        RunEvent(onEndButton);
    } else if (event->key() == Qt::Key_Escape && mode_ == TextMode::search && !text().isEmpty()) {
        clear();
        RunEvent([this] { Edited(); });
    } else if (event->key() == Qt::Key_F10 && event->modifiers() & Qt::ShiftModifier) {
        ShowMenu(mapToGlobal(QPoint(kPadding, height())));
    } else if (event->matches(QKeySequence::Paste)) {
        paste();
    } else if (!TypeCleaned(*event)) {
        QLineEdit::keyPressEvent(event);
    }
}

void KestroText::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    update();
}

void KestroText::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    preedit_.clear();
    update();
    const bool stays =
        event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    if (!stays) RunEvent(onLeave);
}

void KestroText::contextMenuEvent(QContextMenuEvent* event) {
    ShowMenu(event->globalPos());
}

void KestroText::ShowMenu(QPoint at) {
    ShowTextMenuOf(this,
                   {.canUndo = isUndoAvailable(),
                    .readOnly = isReadOnly(),
                    .masked = mode_ == TextMode::masked,
                    .hasSelection = hasSelectedText(),
                    .isEmpty = text().isEmpty()},
                   at);
}
