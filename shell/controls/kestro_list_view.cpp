// The view's side of KestroList: widths, the current row, painting.

#include "shell/controls/corners.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_list_header.h"
#include "shell/controls/kestro_list_model.h"
#include "shell/controls/kestro_list_painter.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QFontMetrics>
#include <QPaintEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr int kCheckWidth = 32;
constexpr int kSkeletonBars[] = {140, 96, 120};
}  // namespace

int KestroList::ToView(int column) const {
    return model_->ToView(column);
}
int KestroList::FromView(int viewColumn) const {
    return model_->FromView(viewColumn);
}

void KestroList::GrowColumns(int firstRow) {
    for (int column = 0; column < ColumnCount() && firstRow < RowCount(); ++column) {
        ListColumnState& state = model_->Column(column);
        if (state.IsText() || state.IsIcons()) continue;
        Type type = TypeOf(state, {});
        const FigureMeter* meter = &FigureMeter::Of(type);
        for (int row = firstRow; row < RowCount(); ++row) {
            if (const Type own = TypeOf(state, model_->Row(row).look); own != type)
                meter = &FigureMeter::Of(type = own);
            GrowBy(state, model_->Bytes(row, column), *meter);
        }
    }
}

void KestroList::FitColumns() {
    const int checks = model_->hasChecks ? kCheckWidth : 0;
    if (checks > 0) header_->resizeSection(0, checks);
    const std::vector<int> widths = FitWidths(model_->columns, viewport()->width() - checks);
    for (int column = 0; column < ColumnCount(); ++column) {
        const int width = widths[static_cast<size_t>(column)];
        header_->setSectionHidden(ToView(column), width == 0);
        if (width > 0) header_->resizeSection(ToView(column), width);
    }
    viewport()->update();
    header_->viewport()->update();
}

void KestroList::ResizeByUser(int viewColumn, int width) {
    ListColumnState& state = model_->Column(FromView(viewColumn));
    state.userWidth = std::max(width, std::max(24, state.what.smallest));
    FitColumns();
}

std::vector<int> KestroList::UserWidths() const {
    std::vector<int> widths;
    for (int column = 0; column < ColumnCount(); ++column)
        widths.push_back(model_->Column(column).userWidth);
    return widths;
}

void KestroList::SetUserWidths(const std::vector<int>& widths) {
    if (static_cast<int>(widths.size()) != ColumnCount()) return;
    for (int column = 0; column < ColumnCount(); ++column) {
        const int width = widths[static_cast<size_t>(column)];
        if (width >= 0) ResizeByUser(ToView(column), width);
    }
}

void KestroList::FitByUser(int viewColumn) {
    const int column = FromView(viewColumn);
    const KestroListPainter painter(*model_);
    int widest = QFontMetrics(Skin::Font(Type::smallBold)).horizontalAdvance(Column(column).caption) + 18;
    const int first = FirstVisibleRow(), last = std::min(RowCount(), first + RowsPerScreen() + 1);
    for (int row = std::max(0, first); row < last; ++row)
        widest = std::max(widest, painter.NeededWidth(row, column) + 2);
    ResizeByUser(viewColumn, widest);
}

int KestroList::FixedWidth() const {
    if (horizontalScrollBar()->value() == 0) return 0;
    int width = model_->hasChecks ? kCheckWidth : 0;
    if (model_->HasColumn(0) && model_->Column(0).IsNumber()) width += header_->sectionSize(ToView(0));
    return width * 2 > viewport()->width() ? 0 : width;
}

QModelIndex KestroList::indexAt(const QPoint& pos) const {
    if (pos.x() >= FixedWidth()) return QTableView::indexAt(pos);
    const int row = rowAt(pos.y());
    const int column = header_->logicalIndexAt(pos.x() - header_->offset());
    return row < 0 ? QModelIndex() : model_->index(row, column);
}

QRect KestroList::visualRect(const QModelIndex& index) const {
    QRect rect = QTableView::visualRect(index);
    if (index.isValid() && header_->sectionPosition(index.column()) < FixedWidth())
        rect.moveLeft(header_->sectionPosition(index.column()));
    return rect;
}

int KestroList::CurrentRow() const {
    const QModelIndex current = currentIndex();
    return current.isValid() ? current.row() : -1;
}

void KestroList::SetCurrentRow(int row) {
    const QScopedValueRollback quiet(quiet_, true);
    if (row < 0 || row >= model_->rowCount()) return setCurrentIndex({});
    setCurrentIndex(model_->index(row, ToView(0)));
    ScrollToRow(row);
}

QString KestroList::CurrentKey() const {
    return RowKey(CurrentRow());
}

void KestroList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    UpdateAll();
    current_ = HandleOf(current.isValid() ? current.row() : -1);
    if (quiet_ || current.row() == previous.row()) return;
    RunEvent([this, row = current.row()] {
        if (onCurrent) onCurrent(row);
    });
}

void KestroList::KeepCurrent(const std::function<void()>& change) {
    const QScopedValueRollback quiet(quiet_, true);
    const Handle kept = current_;
    const int y = verticalScrollBar()->value();
    change();
    hoverRow_ = -1;
    FitColumns();
    doItemsLayout();
    verticalScrollBar()->setValue(y);
    const int row = RowOf(kept);
    current_ = row < 0 ? 0 : kept;
    if (row >= 0) setCurrentIndex(model_->index(row, ToView(0)));
}

void KestroList::ScrollToRow(int row) {
    if (row < 0 || row >= model_->rowCount()) return;
    const int x = horizontalScrollBar()->value();
    scrollTo(model_->index(row, ToView(0)));
    horizontalScrollBar()->setValue(x);
}

int KestroList::RowsPerScreen() const {
    return std::max(1, viewport()->height() / verticalHeader()->defaultSectionSize());
}

int KestroList::FirstVisibleRow() const {
    return rowAt(0);
}

void KestroList::paintEvent(QPaintEvent* event) {
    QPainter p(viewport());
    p.fillRect(event->rect(), Skin::Color(Tok::surface));
    if (model_->rowCount() > 0) {
        PaintRows(p, event->rect());
    } else if (loading_) {
        if (!loadingTimer_.isActive()) PaintLoading(p);
    } else if (!model_->IsFilling()) {
        PaintEmpty(p);
    }
    if (frameShape() != QFrame::NoFrame)
        PaintCorners(p, rect().translated(-viewport()->pos()), this, FrameMarked());
    if (painted_) return;
    painted_ = true;
    QTimer::singleShot(0, this, [this] { RunEvent(onFirstPaint); });
}

void KestroList::PaintRows(QPainter& p, const QRect& dirty) const {
    const KestroListPainter painter(*model_);
    const int height = verticalHeader()->defaultSectionSize();
    const int top = verticalHeader()->offset(), width = viewport()->width(), fixedWidth = FixedWidth();
    const int last = std::min(model_->rowCount() - 1, (dirty.bottom() + top) / height);
    for (int row = (dirty.top() + top) / height; row <= last; ++row) {
        const QRect line(0, row * height - top, width, height);
        const RowState state{row == CurrentRow(), hasFocus(), row == hoverRow_};
        const auto paintCells = [&](bool fixed) {
            for (int section = 0; section < header_->count(); ++section) {
                const int at = header_->sectionPosition(section);
                if (header_->isSectionHidden(section) || (at < fixedWidth) != fixed) continue;
                const QRect cell(fixed ? at : at - header_->offset(), line.top(),
                                 header_->sectionSize(section), height);
                if (cell.right() >= dirty.left() && cell.left() <= dirty.right())
                    painter.PaintCell(p, cell, row, FromView(section), state);
            }
        };
        painter.PaintRow(p, line, row, state);
        if (fixedWidth > 0) p.setClipRect(line.adjusted(fixedWidth, 0, 0, 0));
        paintCells(false);
        p.setClipping(false);
        paintCells(true);
        painter.PaintBar(p, line, state);
    }
    if (fixedWidth > 0) Skin::VLine(p, fixedWidth - 1, dirty.top(), dirty.bottom(), Skin::Color(Tok::line2));
}

void KestroList::PaintEmpty(QPainter& p) const {
    constexpr int kTop = 18, kIcon = 32, kSide = 12;
    const QPixmap icon = Skin::Icon(u"bill"_s, kIcon, devicePixelRatioF(), Ground::disabled);
    p.drawPixmap((viewport()->width() - kIcon) / 2, kTop, icon);
    p.setFont(Skin::Font(Type::body));
    p.setPen(Skin::Color(Tok::text3));
    const QRect room = viewport()->rect().adjusted(kSide, kTop + kIcon + 4, -kSide, 0);
    p.drawText(room, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, emptyText_);
}

void KestroList::PaintLoading(QPainter& p) const {
    const int width = viewport()->width(), height = verticalHeader()->defaultSectionSize();
    p.fillRect(0, 0, width * 6 / 10, 3, Skin::Color(Tok::accent));
    p.setPen(Qt::NoPen);
    p.setBrush(Skin::Color(Tok::line));
    p.setRenderHint(QPainter::Antialiasing);
    int y = height / 2 - 4;
    for (const int bar : kSkeletonBars) {
        p.drawRoundedRect(QRectF(8, y, 36, 8), 4, 4);
        p.drawRoundedRect(QRectF(56, y, std::min(bar, width - 64), 8), 4, 4);
        y += height;
    }
}
