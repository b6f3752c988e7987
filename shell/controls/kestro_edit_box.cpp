#include "shell/controls/kestro_edit_box.h"

#include "shell/parts/text_menu.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {
constexpr double kRadius = 4;
}

KestroEditBox::KestroEditBox(QWidget* parent) : QPlainTextEdit(parent) {
    setTabChangesFocus(true);
    setFrameShape(QFrame::NoFrame);
    setFont(Skin::Font(Type::body));
    setAttribute(Qt::WA_Hover);
    setViewportMargins(4, 3, 2, 3);
    viewport()->setAutoFillBackground(false);
    QPalette ground;
    ground.setColor(QPalette::Base, Qt::transparent);
    setPalette(ground);
    connect(this, &QPlainTextEdit::textChanged, this, [this] { RunEvent(onChange); });
}

void KestroEditBox::SetText(const QString& text) {
    setPlainText(text);
    set_ = text;
}

// The document's own reading would turn blanks that do not break into ordinary ones.
QString KestroEditBox::Text() const {
    if (!document()->isModified()) return set_;
    QString text = document()->toRawText();
    return text.replace(QChar(QChar::ParagraphSeparator), u'\n').replace(QChar(QChar::LineSeparator), u'\n');
}

QSize KestroEditBox::sizeHint() const {
    return {Skin::Px(200), Skin::Px(64)};
}

QSize KestroEditBox::minimumSizeHint() const {
    return {Skin::Px(80), Skin::Px(56)};
}

// The ground and outline are the frame's; the viewport paints the text over it.
bool KestroEditBox::event(QEvent* event) {
    if (event->type() != QEvent::Paint) return QPlainTextEdit::event(event);
    QPainter p(this);
    const bool focused = hasFocus() && isEnabled();
    Tok line = underMouse() ? Tok::text2 : Tok::box;
    if (focused) line = Tok::accent;
    if (!isEnabled()) line = Tok::line;
    Skin::Box(p, rect(), kRadius, Skin::Color(isEnabled() ? Tok::surface : Tok::disBg), Skin::Color(line),
              focused ? 2 : 1);
    return true;
}

void KestroEditBox::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && event->modifiers() & Qt::ControlModifier)
        event->ignore();
    else
        QPlainTextEdit::keyPressEvent(event);
}

void KestroEditBox::focusInEvent(QFocusEvent* event) {
    QPlainTextEdit::focusInEvent(event);
    update();
}

void KestroEditBox::focusOutEvent(QFocusEvent* event) {
    QPlainTextEdit::focusOutEvent(event);
    update();
    const bool stays =
        event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    if (!stays) RunEvent(onLeave);
}

void KestroEditBox::contextMenuEvent(QContextMenuEvent* event) {
    ShowTextMenuOf(this,
                   {.canUndo = document()->isUndoAvailable(),
                    .readOnly = isReadOnly(),
                    .hasSelection = textCursor().hasSelection(),
                    .isEmpty = document()->isEmpty()},
                   event->globalPos());
}
