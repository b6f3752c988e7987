#include "shell/controls/kestro_list_header.h"

#include "shell/controls/check_mark.h"
#include "shell/controls/corners.h"
#include "shell/controls/kestro_list_model.h"
#include "shell/controls/kestro_tool_tip.h"
#include "shell/skin.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {
constexpr int kGrip = 4;  // pixels on either side of a separator
constexpr int kTriangle = 6;
}  // namespace

KestroListHeader::KestroListHeader(KestroList* list, KestroListModel* model)
    : QHeaderView(Qt::Horizontal, list), list_(list), rows_(model) {
    setMinimumSectionSize(1);
    setSectionResizeMode(QHeaderView::Fixed);
    setHighlightSections(false);
    viewport()->setMouseTracking(true);
}

void KestroListHeader::SetHeight(int height) {
    height_ = static_cast<int>(std::lround(height * Skin::Scale()));
    setFixedHeight(height_);
}

QRect KestroListHeader::SectionRect(int section) const {
    const int at = sectionPosition(section);
    const int x = at < list_->FixedWidth() ? at : at - offset();
    return {x, 0, sectionSize(section), height()};
}

int KestroListHeader::SectionAt(int x) const {
    return x < list_->FixedWidth() ? logicalIndexAt(x - offset()) : logicalIndexAt(x);
}

int KestroListHeader::SeparatorAt(int x) const {
    for (int section = rows_->ToView(0); section < count(); ++section) {
        if (isSectionHidden(section)) continue;
        if (std::abs(x - SectionRect(section).right()) <= kGrip) return section;
    }
    return -1;
}

void KestroListHeader::paintEvent(QPaintEvent*) {
    QPainter p(viewport());
    p.fillRect(rect(), Skin::Color(Tok::head));
    const int fixedWidth = list_->FixedWidth();
    p.setClipRect(rect().adjusted(fixedWidth, 0, 0, 0));
    for (int section = 0; section < count(); ++section)
        if (sectionPosition(section) >= fixedWidth) PaintSection(p, section);
    p.setClipping(false);
    for (int section = 0; section < count(); ++section)
        if (sectionPosition(section) < fixedWidth) PaintSection(p, section);
    Skin::HLine(p, 0, width(), height() - 1, Skin::Color(Tok::line2));
    if (list_->frameShape() != QFrame::NoFrame)
        PaintCorners(p, list_->rect().translated(-pos()), list_, list_->FrameMarked());
}

void KestroListHeader::PaintSection(QPainter& p, int section) const {
    if (isSectionHidden(section)) return;
    const QRect rect = SectionRect(section);
    const int column = rows_->FromView(section);
    if (column < 0) {
        const int marked = rows_->CheckedCount();
        const bool all = marked > 0 && marked == static_cast<int>(rows_->rows.size());
        const QRect box(rect.center().x() - 7, rect.center().y() - 7, 16, 16);
        PaintCheckMark(p, box, {.on = all, .partly = marked > 0 && !all});
    } else {
        if (column == rows_->sortedColumn) p.fillRect(rect, Skin::Color(Tok::soft));
        PaintCaption(p, rect, column);
    }
    if (section == keySection_) Skin::FocusRing(p, rect, 4, true, Skin::Color(Tok::accent));
    const bool last = rect.right() >= width() - 2;
    if (!last) Skin::VLine(p, rect.right(), 8, height() - 9, Skin::Color(Tok::line2));
}

void KestroListHeader::PaintCaption(QPainter& p, const QRect& rect, int column) const {
    const ListColumnState& what = rows_->Column(column);
    const bool sorted = column == rows_->sortedColumn;
    const QColor color = Skin::Color(sorted ? Tok::accent : Tok::text2);
    const CellPadding padding = PaddingOf(what);
    QRect room = rect.adjusted(padding.left, 0, -padding.right, -1);
    Qt::Alignment side = Qt::AlignLeft;
    if (what.IsMoney() || what.IsNumber()) side = Qt::AlignRight;
    if (what.IsIcons()) side = Qt::AlignHCenter;
    if (sorted) room.setWidth(room.width() - kTriangle - 4);
    p.setFont(Skin::Font(Type::smallBold));
    p.setPen(color);
    const QString text = p.fontMetrics().elidedText(what.what.caption, Qt::ElideRight, room.width());
    QRect used;
    p.drawText(room, static_cast<int>(side | Qt::AlignVCenter) | Qt::TextSingleLine, text, &used);
    if (!sorted) return;
    const double x = used.right() + 4, y = room.center().y() + 0.5, half = kTriangle / 2.0;
    const double up = rows_->ascending ? half : -half;
    const QPointF corners[] = {{x, y + up}, {x + kTriangle, y + up}, {x + half, y - up}};
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(color);
    p.drawPolygon(corners, 3);
    p.restore();
}

void KestroListHeader::EnterByKey() {
    keySection_ = -1;
    if (rows_->sortedColumn >= 0)
        keySection_ = rows_->ToView(rows_->sortedColumn);
    else
        StepByKey(1);
    viewport()->update();
}

void KestroListHeader::LeaveByKey() {
    if (keySection_ < 0) return;
    keySection_ = -1;
    viewport()->update();
}

void KestroListHeader::StepByKey(int by) {
    for (int section = keySection_ + by; section >= 0 && section < count(); section += by) {
        if (isSectionHidden(section)) continue;
        keySection_ = section;
        break;
    }
    viewport()->update();
}

bool KestroListHeader::HandleKey(int key) {
    if (keySection_ < 0) return false;
    switch (key) {
        case Qt::Key_Left:
            StepByKey(-1);
            return true;
        case Qt::Key_Right:
            StepByKey(1);
            return true;
        case Qt::Key_Space:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            list_->HeadingClicked(keySection_);
            return true;
        case Qt::Key_Down:
        case Qt::Key_Escape:
            LeaveByKey();
            return true;
        default:
            LeaveByKey();
            return false;
    }
}

void KestroListHeader::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const int x = event->position().toPoint().x();
    dragged_ = SeparatorAt(x);
    pressed_ = dragged_ < 0 ? SectionAt(x) : -1;
    if (dragged_ < 0) return;
    dragStart_ = x;
    dragWidth_ = sectionSize(dragged_);
}

void KestroListHeader::mouseMoveEvent(QMouseEvent* event) {
    const int x = event->position().toPoint().x();
    if (dragged_ >= 0) return list_->ResizeByUser(dragged_, dragWidth_ + x - dragStart_);
    if (SectionAt(x) != tipSection_) KestroToolTip::Hide(u"heading"_s);
    viewport()->setCursor(SeparatorAt(x) >= 0 ? Qt::SplitHCursor : Qt::ArrowCursor);
}

void KestroListHeader::mouseReleaseEvent(QMouseEvent* event) {
    const int section = pressed_;
    dragged_ = -1;
    pressed_ = -1;
    if (section >= 0 && SectionAt(event->position().toPoint().x()) == section) list_->HeadingClicked(section);
}

void KestroListHeader::mouseDoubleClickEvent(QMouseEvent* event) {
    const int separator = SeparatorAt(event->position().toPoint().x());
    if (separator >= 0) return list_->FitByUser(separator);
    mousePressEvent(event);
}

bool KestroListHeader::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        return ShowTip(help->pos().x(), help->globalPos());
    }
    return QHeaderView::viewportEvent(event);
}

bool KestroListHeader::ShowTip(int x, const QPoint& globalPos) {
    tipSection_ = SectionAt(x);
    const int column = rows_->FromView(tipSection_);
    if (!rows_->HasColumn(column)) return true;
    const ListColumn& what = rows_->Column(column).what;
    QString tip = what.tip;
    const int room = sectionSize(rows_->ToView(column)) - 12;
    const QFontMetrics metrics(Skin::Font(Type::smallBold));
    if (tip.isEmpty() && metrics.horizontalAdvance(what.caption) > room) tip = what.caption;
    if (!tip.isEmpty()) KestroToolTip::Show(u"heading"_s, tip, globalPos, viewport());
    return true;
}
