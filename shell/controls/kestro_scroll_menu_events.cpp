// Painting, mouse and keys of KestroScrollMenu.

#include "shell/controls/kestro_scroll_menu.h"
#include "shell/controls/kestro_scrollbar.h"
#include "shell/controls/kestro_tool_tip.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr int kIcon = 16, kIconAt = 12, kTextAt = 36, kDepth = 12, kMarkEnd = 12;
}

void KestroScrollMenu::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Relayout();
}

void KestroScrollMenu::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), Skin::Color(Tok::page));
    for (size_t i = 0; i < lines_.size(); ++i) {
        const Line& line = lines_[i];
        p.setClipRect(line.scrolls ? rect().adjusted(0, scrollTop_, 0, 0) : rect());
        if (!rect().intersects(LineRect(line))) continue;
        line.item < 0 ? PaintHead(p, line) : PaintItem(p, line, static_cast<int>(i));
        if (static_cast<int>(i) == focusLine_ && keyFocus_)
            Skin::FocusRing(p, LineRect(line), 4, true, Skin::Color(Tok::accent));
    }
    p.setClipping(false);
    Skin::VLine(p, width() - 1, 0, height(), Skin::Color(Tok::line));
}

void KestroScrollMenu::PaintHead(QPainter& p, const Line& line) const {
    const QRect rect = LineRect(line);
    const Section& section = sections_[static_cast<size_t>(line.section)];
    if (line.section > 0) Skin::HLine(p, 12, width() - 13, rect.top() - 8, Skin::Color(Tok::line));
    const QRectF chevron(collapsed_ ? rect.center().x() - 5 : rect.left() + 2, rect.top(), 10, rect.height());
    Skin::Chevron(p, chevron, section.folded ? 3 : 0, Skin::Color(Tok::text2));
    if (collapsed_) return;
    const QRect room = rect.adjusted(18, 0, 0, 0);
    p.setFont(Skin::Font(Type::smallBold));
    p.setPen(Skin::Color(Tok::text2));
    const QString text = p.fontMetrics().elidedText(section.caption, Qt::ElideRight, room.width());
    p.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

void KestroScrollMenu::PaintItem(QPainter& p, const Line& line, int index) const {
    const QRect rect = LineRect(line);
    const ScrollMenuItem& item = ItemOf(line);
    const QString& section = sections_[static_cast<size_t>(line.section)].key;
    const bool chosen = item.selectable && section == selectedSection_ && item.key == selectedKey_;
    if (chosen || (index == hover_ && item.selectable)) {
        const QColor ground = Skin::Color(chosen ? Tok::soft : Tok::hover);
        Skin::Box(p, rect, 4, ground, ground);
    }
    if (chosen) p.fillRect(rect.left(), rect.top() + 6, 3, rect.height() - 12, Skin::Color(Tok::accent));
    const int shift = collapsed_ ? 0 : item.depth * kDepth;
    const int iconX = collapsed_ ? rect.center().x() - kIcon / 2 : rect.left() + kIconAt + shift;
    if (!item.icon.isEmpty()) {
        const Ground ground = !item.enabled ? Ground::disabled : chosen ? Ground::selected : Ground::plain;
        const QPixmap icon = Skin::Icon(item.icon, kIcon, devicePixelRatioF(), ground);
        p.drawPixmap(iconX, rect.top() + (rect.height() - kIcon) / 2, icon);
    }
    if (collapsed_) return;
    const int textX = item.icon.isEmpty() ? kIconAt : kTextAt;
    QRect room = rect.adjusted(textX + shift, 0, -kMarkEnd, 0);
    if (!item.mark.isEmpty()) {
        p.setFont(Skin::Font(Type::body));
        p.setPen(Skin::Color(item.markColor.value_or(Tok::text)));
        p.drawText(room, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, item.mark);
        room.setRight(room.right() - p.fontMetrics().horizontalAdvance(item.mark) - 8);
    }
    p.setFont(Skin::Font(chosen || item.bold ? Type::bodyBold : Type::body));
    p.setPen(Skin::Color(!item.enabled ? Tok::dis : chosen ? Tok::accent : Tok::text));
    const QString text = p.fontMetrics().elidedText(item.caption, Qt::ElideRight, room.width());
    p.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text);
}

bool KestroScrollMenu::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    ShowTip(help->pos(), help->globalPos());
    return true;
}

void KestroScrollMenu::ShowTip(const QPoint& pos, const QPoint& globalPos) {
    const int index = LineAt(pos);
    if (index < 0) return;
    const Line& line = lines_[static_cast<size_t>(index)];
    const Section& section = sections_[static_cast<size_t>(line.section)];
    QString tip;
    if (line.item < 0) {
        RunEvent([&] {
            if (onTip) tip = onTip(section.key, {});
        });
        if (collapsed_) tip = tip.isEmpty() ? section.caption : section.caption + u'\n' + tip;
    } else {
        const ScrollMenuItem& item = ItemOf(line);
        RunEvent([&] {
            if (onTip) tip = onTip(section.key, item.key);
        });
        if (tip.isEmpty()) tip = item.tip;
        const int room = LineRect(line).width() - kTextAt - kMarkEnd - item.depth * kDepth;
        const bool cut = QFontMetrics(Skin::Font(Type::bodyBold)).horizontalAdvance(item.caption) > room;
        if (tip.isEmpty() && (cut || collapsed_)) tip = item.caption;
    }
    if (!tip.isEmpty()) KestroToolTip::Show(u"scrollmenu"_s, tip, globalPos, this);
}

void KestroScrollMenu::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) Press(LineAt(event->position().toPoint()));
}

void KestroScrollMenu::mouseDoubleClickEvent(QMouseEvent* event) {
    const int index = LineAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || index < 0) return;
    if (lines_[static_cast<size_t>(index)].item < 0) return Press(index);
    Open(index);
}

void KestroScrollMenu::Open(int index) {
    if (index < 0 || index >= static_cast<int>(lines_.size())) return;
    const Line line = lines_[static_cast<size_t>(index)];
    if (line.item < 0) return;
    const QString section = sections_[static_cast<size_t>(line.section)].key, item = ItemOf(line).key;
    RunEvent([this, section, item] {
        if (onDoubleClick) onDoubleClick(section, item);
    });
}

void KestroScrollMenu::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const int index = byKey ? focusLine_ : LineAt(event->pos());
    if (index < 0) return;
    const Line line = lines_[static_cast<size_t>(index)];
    const QString section = sections_[static_cast<size_t>(line.section)].key;
    const QString item = line.item < 0 ? QString() : ItemOf(line).key;
    const QPoint at = byKey ? mapToGlobal(LineRect(line).center()) : event->globalPos();
    RunEvent([this, section, item, at] {
        if (onContextMenu) onContextMenu(section, item, at);
    });
}

void KestroScrollMenu::OpenMenuByKey() {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, rect().center(), mapToGlobal(rect().center()));
    contextMenuEvent(&event);
}

void KestroScrollMenu::mouseMoveEvent(QMouseEvent* event) {
    SetHover(LineAt(event->position().toPoint()));
}
void KestroScrollMenu::leaveEvent(QEvent*) {
    SetHover(-1);
}

void KestroScrollMenu::SetHover(int line) {
    if (line == hover_) return;
    hover_ = line;
    KestroToolTip::Hide(u"scrollmenu"_s);
    update();
}

void KestroScrollMenu::wheelEvent(QWheelEvent* event) {
    bar_->setValue(bar_->value() - 3 * bar_->singleStep() * notches_.Take(*event));
    event->accept();
}

void KestroScrollMenu::keyPressEvent(QKeyEvent* event) {
    const int last = static_cast<int>(lines_.size());
    if (last == 0) return QWidget::keyPressEvent(event);
    switch (event->key()) {
        case Qt::Key_Up:
            return MoveFocus(-1);
        case Qt::Key_Down:
            return MoveFocus(1);
        case Qt::Key_PageUp:
        case Qt::Key_PageDown: {
            const int page = std::max(1, height() / LineRect(lines_.front()).height() - 1);
            return MoveFocus(event->key() == Qt::Key_PageUp ? -page : page);
        }
        case Qt::Key_F10:
            if (!(event->modifiers() & Qt::ShiftModifier)) return QWidget::keyPressEvent(event);
            return OpenMenuByKey();
        case Qt::Key_Home:
            return MoveFocus(-last);
        case Qt::Key_End:
            return MoveFocus(last);
        case Qt::Key_Space:
            return Press(focusLine_);
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Press(focusLine_);
            return Open(focusLine_);
        case Qt::Key_Left:
        case Qt::Key_Right:
            if (focusLine_ >= 0) {
                const Line& line = lines_[static_cast<size_t>(focusLine_)];
                return Fold(sections_[static_cast<size_t>(line.section)].key, event->key() == Qt::Key_Left);
            }
            return;
        default:
            return QWidget::keyPressEvent(event);
    }
}

void KestroScrollMenu::focusInEvent(QFocusEvent* event) {
    keyFocus_ = event->reason() != Qt::MouseFocusReason;
    if (focusLine_ < 0) MoveFocus(1);
    update();
}

void KestroScrollMenu::focusOutEvent(QFocusEvent*) {
    keyFocus_ = false;
    update();
}
