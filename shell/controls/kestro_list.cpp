#include "shell/controls/kestro_list.h"

#include "shell/controls/corners.h"
#include "shell/controls/kestro_list_header.h"
#include "shell/controls/kestro_list_model.h"
#include "shell/controls/kestro_list_painter.h"
#include "shell/controls/kestro_scrollbar.h"
#include "shell/skin.h"

#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {
constexpr int kLoadingDelay = 150;  // milliseconds

/// The end of the heading above the scroll bar.
class HeaderEnd : public QWidget {
 public:
    explicit HeaderEnd(KestroList* list) : QWidget(list), list_(list) {}

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.fillRect(rect(), Skin::Color(Tok::head));
        Skin::HLine(p, 0, width(), height() - 1, Skin::Color(Tok::line2));
        if (list_->frameShape() == QFrame::NoFrame) return;
        const QRect frame(mapFrom(list_, QPoint()), list_->size());
        PaintCorners(p, frame, list_, list_->FrameMarked());
    }

 private:
    KestroList* list_;
};

int Scaled(int pixels) {
    return static_cast<int>(std::lround(pixels * Skin::Scale()));
}
}  // namespace

KestroList::KestroList(QWidget* parent)
    : QTableView(parent), model_(new KestroListModel(this)), emptyText_(u"没有记录"_s) {
    header_ = new KestroListHeader(this, model_);
    setHorizontalHeader(header_);
    setModel(model_);
    setFrameShape(QFrame::Box);
    setLineWidth(1);
    setShowGrid(false);
    setAccessibleName(u"列表"_s);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    UseKestroScrollbars(this);
    headerEnd_ = new HeaderEnd(this);
    addScrollBarWidget(headerEnd_, Qt::AlignTop);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    viewport()->setMouseTracking(true);
    SetCompact(false);
    loadingTimer_.setSingleShot(true);
    loadingTimer_.setInterval(kLoadingDelay);
    loadingTimer_.callOnTimeout(this, [this] { viewport()->update(); });
}

KestroList::~KestroList() = default;

void KestroList::DefineColumn(const ListColumn& column) {
    ListColumnState state;
    state.what = column;
    model_->columns.push_back(std::move(state));
    model_->Publish();
    FitColumns();
}

void KestroList::ClearColumns() {
    Clear();
    model_->columns.clear();
    SetBars(-1, -1, -1);
    model_->Publish();
}

int KestroList::ColumnCount() const {
    return static_cast<int>(model_->columns.size());
}
const ListColumn& KestroList::Column(int column) const {
    return model_->Column(column).what;
}

int KestroList::ColumnOf(const QString& key) const {
    for (int i = 0; i < ColumnCount(); ++i)
        if (Column(i).key == key) return i;
    return -1;
}

void KestroList::SetColumnCaption(int column, const QString& caption) {
    if (!model_->HasColumn(column)) return;
    model_->Column(column).what.caption = caption;
    FitColumns();
    header_->viewport()->update();
}

void KestroList::SetColumnTip(int column, const QString& tip) {
    if (model_->HasColumn(column)) model_->Column(column).what.tip = tip;
}

void KestroList::SetColumnHidden(int column, bool hidden) {
    if (!model_->HasColumn(column)) return;
    model_->Column(column).hidden = hidden;
    FitColumns();
}

void KestroList::SetMoneyGroup(int column, int nGroup) {
    if (!model_->HasColumn(column)) return;
    ListColumnState& state = model_->Column(column);
    state.nGroup = nGroup;
    state.wholeWidth = state.partWidth = 0;
    GrowColumns(0);
    FitColumns();
    viewport()->update();
}

void KestroList::SetCheckColumn(bool on) {
    model_->hasChecks = on;
    model_->Publish();
    FitColumns();
}

void KestroList::SetCompact(bool on) {
    verticalHeader()->setDefaultSectionSize(Scaled(on ? 24 : 28));
    header_->SetHeight(on ? 24 : 30);
    headerEnd_->setFixedHeight(header_->height());
}

void KestroList::SetSortable(bool on) {
    sortable_ = on;
}

void KestroList::SetBars(int column, int addColumn, int reduceColumn) {
    model_->barColumn = column;
    model_->addColumn = addColumn;
    model_->reduceColumn = reduceColumn;
    model_->MeasureBars();
}

void KestroList::Clear() {
    model_->rows.clear();
    model_->hasGrey = false;
    model_->sortedColumn = -1;
    for (ListColumnState& column : model_->columns)
        column.wholeWidth = column.partWidth = 0;
    hoverRow_ = -1;
    KeepCurrent([this] { model_->Publish(); });
    verticalScrollBar()->setValue(0);
}

void KestroList::Reserve(int count) {
    model_->rows.reserve(static_cast<size_t>(std::max(0, count)));
}

void KestroList::BeginFill() {
    model_->SetFilling(true);
}

void KestroList::EndFill() {
    model_->SetFilling(false);
    SetLoading(false);
    model_->MeasureBars();
    GrowColumns(0);
    KeepCurrent([this] { model_->Publish(); });
}

KestroList::Handle KestroList::AddRow(RowTexts cells, const QString& key, const QString& subKey,
                                      const RowLook& look) {
    const Handle handle = model_->Append({std::move(cells), key, subKey, look});
    if (model_->IsFilling()) return handle;
    SetLoading(false);
    GrowColumns(RowCount() - 1);
    model_->PublishTail();
    model_->MeasureBars();
    FitColumns();
    return handle;
}

int KestroList::RowCount() const {
    return static_cast<int>(model_->rows.size());
}

QStringList KestroList::RowCells(int row) const {
    QStringList cells;
    if (!model_->HasRow(row)) return cells;
    for (int column = 0; column < ColumnCount(); ++column)
        cells.append(Cell(row, column));
    return cells;
}

RowTexts KestroList::TextsOf(int row) const {
    return model_->HasRow(row) ? model_->Row(row).cells : RowTexts();
}

QString KestroList::Cell(int row, int column) const {
    return model_->Cell(row, column);
}

void KestroList::SetCell(int row, int column, const QString& text) {
    if (!model_->HasRow(row) || !model_->HasColumn(column)) return;
    model_->Row(row).cells.Set(column, text);
    if (model_->IsFilling()) return;
    ListColumnState& state = model_->Column(column);
    const FigureMeter& meter = FigureMeter::Of(TypeOf(state, model_->Row(row).look));
    if (!state.IsText() && !state.IsIcons()) GrowBy(state, model_->Bytes(row, column), meter);
    model_->MeasureBars();
    model_->TellRow(row);
    FitColumns();
}

void KestroList::SetRowLook(int row, const RowLook& look) {
    if (!model_->HasRow(row)) return;
    model_->Row(row).look = look;
    model_->hasGrey = std::ranges::any_of(
        model_->rows, [](const ListRow& other) { return other.look.style == RowStyle::grey1; });
    viewport()->update();
}

void KestroList::SetRowKey(int row, const QString& key, const QString& subKey) {
    if (!model_->HasRow(row)) return;
    model_->Row(row).key = key;
    model_->Row(row).subKey = subKey;
}

QString KestroList::RowKey(int row) const {
    return model_->HasRow(row) ? model_->Row(row).key : QString();
}
QString KestroList::RowSubKey(int row) const {
    return model_->HasRow(row) ? model_->Row(row).subKey : QString();
}

void KestroList::RemoveRows(std::vector<int> rows) {
    std::erase_if(rows, [this](int row) { return !model_->HasRow(row); });
    if (rows.empty()) return;
    std::vector<bool> gone(model_->rows.size());
    for (const int row : rows)
        gone[static_cast<size_t>(row)] = true;
    int next = CurrentRow();
    const bool hadCurrent = next >= 0;
    while (next >= 0 && next < RowCount() && gone[static_cast<size_t>(next)])
        ++next;
    const Handle wanted = hadCurrent ? HandleOf(next) : 0;
    size_t index = 0;
    std::erase_if(model_->rows, [&](const ListRow&) { return gone[index++]; });
    model_->MeasureBars();
    KeepCurrent([this] { model_->Publish(); });
    if (hadCurrent) SetCurrentRow(wanted ? RowOf(wanted) : RowCount() - 1);
    header_->viewport()->update();
}

KestroList::Handle KestroList::HandleOf(int row) const {
    return model_->HasRow(row) ? model_->Row(row).handle : 0;
}
int KestroList::RowOf(Handle handle) const {
    return model_->RowOf(handle);
}

int KestroList::FindRow(const QString& key) const {
    const auto found = std::ranges::find(model_->rows, key, &ListRow::key);
    return found == model_->rows.end() ? -1 : static_cast<int>(found - model_->rows.begin());
}

std::vector<int> KestroList::CheckedRows() const {
    std::vector<int> rows;
    for (int row = 0; row < RowCount(); ++row)
        if (model_->Row(row).checked) rows.push_back(row);
    return rows;
}

QStringList KestroList::CheckedKeys() const {
    QStringList keys;
    for (const int row : CheckedRows())
        keys.append(model_->Row(row).key);
    return keys;
}

bool KestroList::IsChecked(int row) const {
    return model_->HasRow(row) && model_->Row(row).checked;
}

void KestroList::SetChecked(int row, bool on) {
    if (!model_->HasRow(row)) return;
    model_->Row(row).checked = on;
    model_->TellRow(row);
    header_->viewport()->update();
}

void KestroList::CheckAll(bool on) {
    for (ListRow& row : model_->rows)
        row.checked = on;
    viewport()->update();
    header_->viewport()->update();
}

int KestroList::SortedColumn() const {
    return model_->sortedColumn;
}

bool KestroList::SortedAscending() const {
    return model_->ascending;
}

void KestroList::SortBy(int column, bool ascending) {
    if (!model_->HasColumn(column)) return;
    model_->Sort(column, ascending);
    KeepCurrent([this] { model_->Publish(); });
    header_->viewport()->update();
}

void KestroList::SetLoading(bool on) {
    if (on == loading_) return;
    loading_ = on;
    if (on) {
        loadingTimer_.start();
    } else {
        loadingTimer_.stop();
        viewport()->update();
    }
}

void KestroList::SetEmptyText(const QString& text) {
    emptyText_ = text;
    viewport()->update();
}
