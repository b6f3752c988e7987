#include "shell/controls/combox_list.h"

#include "shell/controls/kestro_combox.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QWheelEvent>

#include <algorithm>

namespace {
constexpr int kMostRows = 10;
constexpr int kPadding = 4;
constexpr int kLeft = 12;
constexpr int kIcon = 16;
constexpr int kTextLeft = 34;
constexpr int kThumbRoom = 10;
constexpr int kWheelRows = 3;
}  // namespace

ComboxList::ComboxList(QWidget* owner, const std::vector<ComboxItem>& items)
    : KestroPopup(owner), items_(items) {}

int ComboxList::RowHeight() const {
    return Skin::Px(28);
}

int ComboxList::RowsShown() const {
    return std::min(kMostRows, Count());
}

void ComboxList::Open(QWidget* anchor, std::vector<int> shown, int chosen) {
    shown_ = std::move(shown);
    chosen_ = chosen;
    const auto found = std::find(shown_.begin(), shown_.end(), chosen);
    marked_ = found == shown_.end() ? -1 : static_cast<int>(found - shown_.begin());
    markedByKey_ = false;
    top_ = 0;
    if (shown_.empty()) return hide();
    ScrollTo(marked_ - RowsShown() / 2);
    const int wide = std::min(WantedWidth(), anchor->screen()->availableGeometry().width());
    ShowAt(anchor, QSize(std::max(anchor->width(), wide), RowsShown() * RowHeight() + 2 * kPadding));
    update();
}

int ComboxList::WantedWidth() const {
    const QFontMetrics metrics(Skin::Font(Type::body));
    int widest = 0;
    for (const int index : shown_)
        widest = std::max(widest, metrics.horizontalAdvance(items_[static_cast<size_t>(index)].text));
    return kTextLeft + widest + 1 + kLeft + (Count() > kMostRows ? kThumbRoom : 0);
}

int ComboxList::Marked() const {
    return marked_ < 0 ? -1 : shown_[static_cast<size_t>(marked_)];
}

int ComboxList::RowAt(QPoint at) const {
    const QRect inner = Inner().adjusted(1, kPadding, -1, -kPadding);
    if (!inner.contains(at)) return -1;
    return std::min(top_ + (at.y() - inner.top()) / RowHeight(), Count() - 1);
}

void ComboxList::ScrollTo(int top) {
    top_ = std::clamp(top, 0, Count() - RowsShown());
    update();
}

void ComboxList::Mark(int row) {
    markedByKey_ = true;
    marked_ = std::clamp(row, 0, Count() - 1);
    if (marked_ < top_) ScrollTo(marked_);
    if (marked_ >= top_ + RowsShown()) ScrollTo(marked_ - RowsShown() + 1);
    update();
}

bool ComboxList::HandleKey(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Down:
            Mark(marked_ + 1);
            return true;
        case Qt::Key_Up:
            if (event->modifiers() & Qt::AltModifier)
                hide();
            else
                Mark(marked_ < 0 ? Count() - 1 : marked_ - 1);
            return true;
        case Qt::Key_PageDown:
            Mark(marked_ + RowsShown());
            return true;
        case Qt::Key_PageUp:
            Mark(marked_ - RowsShown());
            return true;
        case Qt::Key_F4:
            hide();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (marked_ < 0 && Count() == 1) marked_ = 0;
            return PickMarked();
        case Qt::Key_Tab:
            if (markedByKey_) PickMarked();
            return false;
        default:
            return false;
    }
}

// False when nothing is marked: the key is the box's then.
bool ComboxList::PickMarked() {
    if (marked_ < 0) {
        hide();
        return false;
    }
    if (onPick) onPick(Marked());
    return true;
}

void ComboxList::mouseMoveEvent(QMouseEvent* event) {
    const int row = RowAt(event->position().toPoint());
    if (row >= 0) marked_ = row;
    update();
}

void ComboxList::mouseReleaseEvent(QMouseEvent* event) {
    const int row = RowAt(event->position().toPoint());
    if (row < 0 || event->button() != Qt::LeftButton) return;
    RunEvent([&] {
        if (onPick) onPick(shown_[static_cast<size_t>(row)]);
    });
}

void ComboxList::wheelEvent(QWheelEvent* event) {
    ScrollTo(top_ - kWheelRows * notches_.Take(*event));
    event->accept();
}

void ComboxList::paintEvent(QPaintEvent* event) {
    KestroPopup::paintEvent(event);
    QPainter p(this);
    const QRect inner = Inner().adjusted(1, kPadding, -1, -kPadding);
    for (int i = 0; i < RowsShown(); ++i)
        PaintRow(p, top_ + i, {inner.left(), inner.top() + i * RowHeight(), inner.width(), RowHeight()});
    if (Count() > kMostRows) PaintThumb(p);
}

void ComboxList::PaintRow(QPainter& p, int row, const QRect& r) const {
    const int index = shown_[static_cast<size_t>(row)];
    const ComboxItem& item = items_[static_cast<size_t>(index)];
    Tok ink = Tok::text;
    if (index == chosen_) {
        p.fillRect(r, Skin::Color(Tok::sel));
        ink = Tok::selText;
    }
    if (row == marked_ && index != chosen_) {
        p.fillRect(r, Skin::Color(Tok::soft));
        ink = Tok::accent;
    }
    // The bar over the chosen item still has to be seen.
    if (row == marked_ && index == chosen_)
        p.fillRect(r.left(), r.top(), 3, r.height(), Skin::Color(Tok::selBar));
    if (!item.icon.isEmpty())
        Controls::PaintIcon(p, *this, {r.left() + kLeft, r.top(), kIcon, r.height()}, item.icon, kIcon);
    const int left = item.icon.isEmpty() ? kLeft : kTextLeft;
    const QRect room = r.adjusted(left, 0, -kLeft, 0);
    p.setFont(Skin::Font(Type::body));
    p.setPen(Skin::Color(ink));
    p.drawText(room, Qt::AlignVCenter, p.fontMetrics().elidedText(item.text, Qt::ElideRight, room.width()));
}

void ComboxList::PaintThumb(QPainter& p) const {
    const QRect inner = Inner().adjusted(0, kPadding, 0, -kPadding);
    const int high = std::max(32, inner.height() * RowsShown() / Count());
    const int way = inner.height() - high;
    const int y = inner.top() + way * top_ / (Count() - RowsShown());
    Skin::Box(p, QRect(inner.right() - 8, y, 6, high), 3, Skin::Color(Tok::line2), {});
}
