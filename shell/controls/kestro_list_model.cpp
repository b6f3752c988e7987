#include "shell/controls/kestro_list_model.h"

#include "store/money.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {
// What the icons of a cell say to somebody who does not see them.
QString IconWords(const QString& digits) {
    static const QStringList words{u"重要"_s, u"有图片"_s, u"记入账户"_s};
    QStringList shown;
    for (qsizetype i = 0; i < digits.size() && i < words.size(); ++i)
        if (digits[i] == u'1') shown += words[i];
    return shown.join(u'，');
}
}  // namespace

int KestroListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : shown_;
}

int KestroListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : ToView(static_cast<int>(columns.size()));
}

QVariant KestroListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !HasRow(index.row())) return {};
    const int column = FromView(index.column());
    if (column < 0) {
        if (role == Qt::AccessibleTextRole) return u"勾选第 %1 行"_s.arg(index.row() + 1);
        if (role != Qt::CheckStateRole) return {};
        return static_cast<int>(Row(index.row()).checked ? Qt::Checked : Qt::Unchecked);
    }
    if (role == Qt::AccessibleTextRole && HasColumn(column) && Column(column).IsIcons())
        return IconWords(Cell(index.row(), column));
    if (role != Qt::DisplayRole || !HasColumn(column)) return {};
    return PaintedText(Column(column), Bytes(index.row(), column));
}

QVariant KestroListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const int column = FromView(section);
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::AccessibleTextRole && column < 0) return u"全部勾选"_s;
    if ((role != Qt::DisplayRole && role != Qt::AccessibleTextRole) || !HasColumn(column)) return {};
    return Column(column).what.caption;
}

Qt::ItemFlags KestroListModel::flags(const QModelIndex& index) const {
    const auto usual = QAbstractTableModel::flags(index);
    return FromView(index.column()) < 0 ? usual | Qt::ItemIsUserCheckable : usual;
}

QByteArrayView KestroListModel::Bytes(int row, int column) const {
    return HasRow(row) && column >= 0 ? Row(row).cells.Utf8(column) : QByteArrayView();
}

KestroList::Handle KestroListModel::Append(ListRow&& row) {
    row.handle = ++lastHandle_;
    hasGrey = hasGrey || row.look.style == RowStyle::grey1;
    rows.push_back(std::move(row));
    return lastHandle_;
}

int KestroListModel::RowOf(KestroList::Handle handle) const {
    const auto found = std::ranges::find(rows, handle, &ListRow::handle);
    return handle == 0 || found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
}

int KestroListModel::CheckedCount() const {
    return static_cast<int>(std::ranges::count(rows, true, &ListRow::checked));
}

void KestroListModel::Publish() {
    beginResetModel();
    shown_ = static_cast<int>(rows.size());
    endResetModel();
}

void KestroListModel::PublishTail() {
    const int count = static_cast<int>(rows.size());
    if (count == shown_) return;
    beginInsertRows({}, shown_, count - 1);
    shown_ = count;
    endInsertRows();
}

void KestroListModel::TellRow(int row) {
    if (row < shown_) Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
}

void KestroListModel::Sort(int column, bool up) {
    sortedColumn = column;
    ascending = up;
    const bool byValue = Column(column).IsMoney() || Column(column).IsNumber();
    std::vector<double> values;
    std::vector<QString> texts;
    for (int i = 0; i < static_cast<int>(rows.size()); ++i) {
        texts.push_back(Cell(i, column));
        if (byValue) values.push_back(Val(texts.back()));
    }
    std::vector<int> order(rows.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, [&](int a, int b) {
        if (!up) std::swap(a, b);
        if (byValue) return values[static_cast<size_t>(a)] < values[static_cast<size_t>(b)];
        return texts[static_cast<size_t>(a)] < texts[static_cast<size_t>(b)];
    });
    std::vector<ListRow> sorted;
    sorted.reserve(std::max(rows.capacity(), rows.size()));
    for (const int row : order)
        sorted.push_back(std::move(Row(row)));
    rows = std::move(sorted);
}

void KestroListModel::MeasureBars() {
    barMost = 0;
    if (barColumn < 0) return;
    for (int row = 0; row < static_cast<int>(rows.size()); ++row)
        barMost = std::max({barMost, Val(Cell(row, addColumn)), Val(Cell(row, reduceColumn))});
}
