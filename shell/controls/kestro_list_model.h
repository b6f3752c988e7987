#pragma once
// The rows of a KestroList and their order. It knows nothing of pixels.

#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_list_columns.h"

#include <QAbstractTableModel>
#include <QString>

#include <vector>

struct ListRow {
    RowTexts cells;
    QString key;
    QString subKey;
    RowLook look;
    KestroList::Handle handle = 0;
    bool checked = false;
};

/// View columns count the column of check boxes, list columns do not.
class KestroListModel : public QAbstractTableModel {
 public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    std::vector<ListColumnState> columns;
    std::vector<ListRow> rows;
    bool hasChecks = false;
    bool hasGrey = false;  ///< rows of the first level stand out, so there are no stripes
    int sortedColumn = -1;
    bool ascending = true;

    // The two bars of the period statistics, -1 none.
    int barColumn = -1, addColumn = -1, reduceColumn = -1;
    double barMost = 0;

    int ToView(int column) const { return hasChecks ? column + 1 : column; }
    int FromView(int viewColumn) const { return hasChecks ? viewColumn - 1 : viewColumn; }
    bool HasRow(int row) const { return row >= 0 && row < static_cast<int>(rows.size()); }
    bool HasColumn(int column) const { return column >= 0 && column < static_cast<int>(columns.size()); }
    const ListRow& Row(int row) const { return rows[static_cast<size_t>(row)]; }
    ListRow& Row(int row) { return rows[static_cast<size_t>(row)]; }
    const ListColumnState& Column(int column) const { return columns[static_cast<size_t>(column)]; }
    ListColumnState& Column(int column) { return columns[static_cast<size_t>(column)]; }
    // Empty for a place that does not exist.
    QString Cell(int row, int column) const { return QString::fromUtf8(Bytes(row, column)); }
    QByteArrayView Bytes(int row, int column) const;  ///< good until the row changes

    KestroList::Handle Append(ListRow&& row);
    int RowOf(KestroList::Handle handle) const;
    int CheckedCount() const;

    /// Shows all rows at once, in place of those shown before.
    void Publish();
    /// Shows the rows behind those already shown.
    void PublishTail();
    void TellRow(int row);
    bool IsFilling() const { return filling_; }
    void SetFilling(bool on) { filling_ = on; }

    /// Stable: rows that are equal keep the order in which they stood.
    void Sort(int column, bool up);
    void MeasureBars();

 private:
    KestroList::Handle lastHandle_ = 0;
    int shown_ = 0;
    bool filling_ = false;
};
