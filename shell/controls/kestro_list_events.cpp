// Keys, mouse and tips of KestroList.

#include "shell/controls/corners.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_list_header.h"
#include "shell/controls/kestro_list_model.h"
#include "shell/controls/kestro_list_painter.h"
#include "shell/controls/kestro_tool_tip.h"
#include "store/errors.h"
#include "store/outside.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr int kSideStep = 40;
}

int KestroList::LastRow() const {
    return model_->rowCount() - 1;
}

void KestroList::MoveTo(int row) {
    if (LastRow() < 0) return;
    const int wanted = std::clamp(row, 0, LastRow());
    setCurrentIndex(model_->index(wanted, ToView(0)));
    ScrollToRow(wanted);
}

void KestroList::Activate(int row, int column) {
    RunEvent([this, row, column] {
        if (onDoubleClick) onDoubleClick(row, column);
    });
}

void KestroList::keyPressEvent(QKeyEvent* event) {
    bool done = false;
    RunEvent([this, event, &done] { done = onKey && onKey(event); });
    if (done) return event->accept();
    const auto held = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (held == Qt::ControlModifier) return event->setAccepted(HandleControlKey(event->key()));
    if (held == Qt::AltModifier && event->key() == Qt::Key_Up) return header_->EnterByKey();
    if (held) return event->ignore();
    if (event->key() == Qt::Key_F10 && event->modifiers() & Qt::ShiftModifier) return OpenRowMenu();
    event->setAccepted(header_->HandleKey(event->key()) || SearchByTyping(event->text()) ||
                       HandleKey(event->key()));
}

bool KestroList::HandleControlKey(int key) {
    if (key == Qt::Key_Home) MoveTo(0);
    if (key == Qt::Key_End) MoveTo(LastRow());
    if (key == Qt::Key_C && CurrentRow() >= 0) Outside().copyText(RowCells(CurrentRow()).join(u'\t'));
    return key == Qt::Key_Home || key == Qt::Key_End || key == Qt::Key_C;
}

void KestroList::OpenRowMenu() {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {}, mapToGlobal(viewport()->rect().center()));
    contextMenuEvent(&event);
}

// The next row with a text that begins so. A blank ticks, unless it stands within what is being typed.
bool KestroList::SearchByTyping(const QString& letters) {
    if (letters.isEmpty() || !letters.at(0).isPrint() || RowCount() == 0) return false;
    if (letters.at(0).isSpace() && !typing_.IsRunning()) return false;
    const QString typed = typing_.Add(letters);
    const auto begins = [&](int row) {
        for (int column = 0; column < ColumnCount(); ++column)
            if (model_->Column(column).IsText() && Cell(row, column).startsWith(typed, Qt::CaseInsensitive))
                return true;
        return false;
    };
    const int from = std::max(0, CurrentRow() + (typing_.IsFirst() && CurrentRow() >= 0 ? 1 : 0));
    for (int step = 0; step < RowCount(); ++step) {
        const int row = (from + step) % RowCount();
        if (!begins(row)) continue;
        MoveTo(row);
        break;
    }
    return true;
}

bool KestroList::HandleKey(int key) {
    const int row = CurrentRow(), page = std::max(1, RowsPerScreen() - 1);
    QScrollBar* const sideways = horizontalScrollBar();
    switch (key) {
        case Qt::Key_Up:
            MoveTo(row < 0 ? LastRow() : row - 1);
            return true;
        case Qt::Key_Down:
            MoveTo(row + 1);
            return true;
        case Qt::Key_PageUp:
            MoveTo(row - page);
            return true;
        case Qt::Key_PageDown:
            MoveTo(row + page);
            return true;
        case Qt::Key_Home:
            MoveTo(0);
            return true;
        case Qt::Key_End:
            MoveTo(LastRow());
            return true;
        case Qt::Key_Left:
            sideways->setValue(sideways->value() - kSideStep);
            return true;
        case Qt::Key_Right:
            sideways->setValue(sideways->value() + kSideStep);
            return true;
        case Qt::Key_Space:
            if (model_->hasChecks && row >= 0) ToggleCheck(row);
            return model_->hasChecks;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (row >= 0 && onDoubleClick) Activate(row, 0);
            return row >= 0 && onDoubleClick;
        case Qt::Key_Delete:
            RunEvent(onDelete);
            return static_cast<bool>(onDelete);
        default:
            return false;
    }
}

void KestroList::ToggleCheck(int row) {
    SetChecked(row, !IsChecked(row));
    RunEvent([this, row] {
        if (onCheck) onCheck(row, IsChecked(row));
    });
}

void KestroList::HeadingClicked(int viewColumn) {
    const int column = FromView(viewColumn);
    if (column < 0) {
        const bool on = model_->CheckedCount() < RowCount();
        CheckAll(on);
        RunEvent([this, on] {
            if (onCheck) onCheck(-1, on);
        });
    } else if (sortable_ && !model_->IsFilling() && !Column(column).type.isEmpty()) {
        SortBy(column, column != model_->sortedColumn || !model_->ascending);
    }
}

void KestroList::mousePressEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    const bool onCheckBox = index.isValid() && FromView(index.column()) < 0;
    pressedRow_ = -1;
    if (!index.isValid()) return;
    if (onCheckBox && event->button() == Qt::LeftButton) return ToggleCheck(index.row());
    if (event->button() == Qt::LeftButton) pressedRow_ = index.row();
    MoveTo(index.row());
}

void KestroList::mouseReleaseEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    const int pressed = std::exchange(pressedRow_, -1);
    if (event->button() != Qt::LeftButton || !index.isValid() || index.row() != pressed) return;
    RunEvent([this, row = index.row(), column = FromView(index.column())] {
        if (onClick) onClick(row, column);
    });
}

void KestroList::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (!index.isValid() || event->button() != Qt::LeftButton) return;
    const int column = FromView(index.column());
    if (column < 0) return ToggleCheck(index.row());
    Activate(index.row(), column);
}

void KestroList::mouseMoveEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (index != tipCell_) KestroToolTip::Hide(u"cell"_s);
    SetHoverRow(index.isValid() ? index.row() : -1);
}

void KestroList::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const int row = byKey ? CurrentRow() : rowAt(event->pos().y());
    const QPoint at(viewport()->width() / 4, rowViewportPosition(row) + rowHeight(std::max(0, row)));
    const QPoint pos = byKey && row >= 0 ? viewport()->mapToGlobal(at) : event->globalPos();
    RunEvent([this, row, pos] {
        if (onRightClick) onRightClick(row, pos);
    });
}

void KestroList::SetHoverRow(int row) {
    if (row == hoverRow_) return;
    for (const int changed : {hoverRow_, row})
        if (changed >= 0 && changed <= LastRow())
            viewport()->update(0, rowViewportPosition(changed), viewport()->width(), rowHeight(changed));
    hoverRow_ = row;
}

void KestroList::UpdateAll() {
    update();
    viewport()->update();
    header_->viewport()->update();
}

void KestroList::focusInEvent(QFocusEvent*) {
    UpdateAll();
}
void KestroList::focusOutEvent(QFocusEvent*) {
    header_->LeaveByKey();
    UpdateAll();
}

void KestroList::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    FitColumns();
}

bool KestroList::event(QEvent* event) {
    if (event->type() != QEvent::Paint || frameShape() == QFrame::NoFrame) return QTableView::event(event);
    QPainter p(this);
    PaintFrame(p, rect(), FrameMarked(), header_->height() + 1);
    return true;
}

bool KestroList::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave) SetHoverRow(-1);
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        return ShowCellTip(help->pos(), help->globalPos());
    }
    return QTableView::viewportEvent(event);
}

bool KestroList::ShowCellTip(const QPoint& pos, const QPoint& globalPos) {
    const QModelIndex index = indexAt(pos);
    const int column = index.isValid() ? FromView(index.column()) : -1;
    if (column < 0 || Column(column).type == u"icons"_s) return true;
    const bool cut =
        KestroListPainter(*model_).NeededWidth(index.row(), column) > columnWidth(index.column());
    tipCell_ = index;
    if (cut) KestroToolTip::Show(u"cell"_s, Cell(index.row(), column), globalPos, viewport());
    return true;
}

void KestroList::scrollContentsBy(int dx, int dy) {
    constexpr int kCorner = 6;
    SetHoverRow(-1);
    QTableView::scrollContentsBy(dx, dy);
    if (dx != 0) {
        viewport()->update();
        header_->viewport()->update();
    }
    // The corners were moved along with the rows.
    const QRect foot(0, viewport()->height() - kCorner, viewport()->width(), kCorner);
    viewport()->update(foot);
    viewport()->update(foot.translated(0, dy));
    if (dy == 0) return;
    RunEvent([this] {
        if (onScroll) onScroll(FirstVisibleRow());
    });
}
