#pragma once
// Paints the rows of a KestroList.

#include "shell/controls/kestro_list_model.h"
#include "shell/skin.h"

#include <QFontMetrics>
#include <QRect>

class QPainter;

struct RowState {
    bool current = false;
    bool focused = false;  ///< the list has the focus
    bool hover = false;
};

class KestroListPainter {
 public:
    explicit KestroListPainter(const KestroListModel& model);

    /// Ground and lower line over the whole width.
    void PaintRow(QPainter& p, const QRect& rect, int row, const RowState& state) const;
    /// column -1 is the check box.
    void PaintCell(QPainter& p, const QRect& rect, int row, int column, const RowState& state) const;
    /// The bar at the left of the current row.
    void PaintBar(QPainter& p, const QRect& rect, const RowState& state) const;
    /// Room that the text of a cell needs, with its padding.
    int NeededWidth(int row, int column) const;

 private:
    QFont FontOf(int row, int column) const;
    Tok ColorOf(int row, int column, const RowState& state) const;
    int IndentOf(int row, int column) const;
    void PaintMoney(QPainter& p, const QRect& rect, int row, int column) const;
    void PaintText(QPainter& p, const QRect& rect, int row, int column) const;
    void PaintIcons(QPainter& p, const QRect& rect, const QString& digits) const;
    void PaintBars(QPainter& p, const QRect& rect, int row) const;

    const KestroListModel& model_;
    int textColumn_ = -1;  ///< the column that the indent moves
};
