#include "shell/parts/kept_place.h"

#include "shell/controls/kestro_list.h"

#include <QScrollBar>

#include <algorithm>

KeptPlace::KeptPlace(const KestroList& list, Line line)
    : line_(line),
      sorted_(list.SortedColumn()),
      ascending_(list.SortedAscending()),
      scroll_(list.verticalScrollBar()->value()),
      row_(list.CurrentRow()) {
    if (row_ >= 0) current_ = NameOf(list, row_);
    for (const int row : list.CheckedRows())
        checked_.insert(NameOf(list, row));
}

KeptPlace::Name KeptPlace::NameOf(const KestroList& list, int row) const {
    return {list.RowKey(row), line_ == Line::key ? QString() : list.RowSubKey(row)};
}

void KeptPlace::PutBack(KestroList& list) const {
    if (sorted_ >= 0) list.SortBy(sorted_, ascending_);
    int current = -1;
    for (int row = 0; row < list.RowCount() && (row_ >= 0 || !checked_.empty()); ++row) {
        const auto name = NameOf(list, row);
        if (row_ >= 0 && current < 0 && name == current_) current = row;
        if (checked_.contains(name)) list.SetChecked(row, true);
    }
    if (row_ >= 0 && list.RowCount() > 0)
        list.SetCurrentRow(current >= 0 ? current : std::min(row_, list.RowCount() - 1));
    list.verticalScrollBar()->setValue(scroll_);
}
