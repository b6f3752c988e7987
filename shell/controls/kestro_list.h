#pragma once
// KestroList: the list of every page, a table view over a row vector. Rows keep plain texts; grouping, the
// alignment on the decimal point and icons are paint only. Row and column indexes count from 0 as shown; the
// column of check boxes has no index.

#include "shell/controls/control_support.h"
#include "store/row_texts.h"

#include <QPersistentModelIndex>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <QTableView>
#include <QTimer>

#include <functional>
#include <map>
#include <vector>

class KestroListHeader;
class KestroListModel;
class QKeyEvent;

enum class ListColor { none, dim, add, reduce, signedMoney };

/// dim is text2; signedMoney paints an amount below 0 as reduce and one above as add.
struct ListColumn {
    QString key;
    QString caption;
    int width = 80;     ///< starting width in pixels
    int smallest = 24;  ///< the least width the column may be pressed to
    QString type;       ///< "string", "number", "money", "date" or "icons" (digits, 1 shows)
    ListColor color = ListColor::none;
    bool flexible = false;                  ///< takes the room that is left and gives first
    QString tip = {};                       ///< tool tip of the heading
    std::map<QString, QString> icons = {};  ///< icons before the cells with these texts
};

enum class RowStyle { normal, grey1 };

/// How a row looks; indent in pixels moves the text of the flexible column, else of the first text column.
struct RowLook {
    RowStyle style = RowStyle::normal;
    int indent = 0;
    bool bold = false;
    bool warn = false;    ///< the flexible column in the danger colour, with a sign at its end
    bool danger = false;  ///< date in the danger colour and bold (a day gone by)
};

/// Keys: arrows, Page, Home, End; blank ticks, Enter opens, Delete deletes, letters look for the row that
/// begins with them, Ctrl+C copies the row as text, Shift+F10 opens its menu. Alt+Up goes to the headings:
/// arrows choose one, blank or Enter sorts by it, Down or Escape comes back.
class KestroList : public QTableView {
 public:
    using Handle = quint32;  ///< names a row for its whole life, through sorting and removal; never 0

    explicit KestroList(QWidget* parent = nullptr);
    ~KestroList() override;

    // Columns. They are defined before the first row.
    void DefineColumn(const ListColumn& column);
    void ClearColumns();
    int ColumnCount() const;
    const ListColumn& Column(int column) const;
    int ColumnOf(const QString& key) const;  ///< -1 if there is none
    void SetColumnCaption(int column, const QString& caption);
    void SetColumnTip(int column, const QString& tip);
    void SetColumnHidden(int column, bool hidden);
    /// Widths that the user has given, -1 for a column that was left alone.
    std::vector<int> UserWidths() const;
    /// Takes such widths up; nothing when their number is not that of the columns.
    void SetUserWidths(const std::vector<int>& widths);
    /// Digits per group of a money column: 3 or 4, otherwise none.
    void SetMoneyGroup(int column, int nGroup);
    /// A column of check boxes at the left, with a box in the heading that marks all ("HeaderChk").
    void SetCheckColumn(bool on);
    /// Rows of 24 instead of 28 and a heading of 24, for detail lists.
    void SetCompact(bool on);
    void SetSortable(bool on);
    /// Two bars in the free room of a column, from the amounts of two others (period statistics).
    void SetBars(int column, int addColumn, int reduceColumn);

    // Rows.
    void Clear();
    void Reserve(int count);
    Handle AddRow(RowTexts cells, const QString& key = {}, const QString& subKey = {},
                  const RowLook& look = {});
    int RowCount() const;
    QStringList RowCells(int row) const;
    RowTexts TextsOf(int row) const;
    QString Cell(int row, int column) const;  ///< empty for a place that does not exist
    void SetCell(int row, int column, const QString& text);
    void SetRowLook(int row, const RowLook& look);
    void SetRowKey(int row, const QString& key, const QString& subKey);
    QString RowKey(int row) const;
    QString RowSubKey(int row) const;
    /// Removes the rows; the current row stays, or goes to the next one left, or to the last.
    void RemoveRows(std::vector<int> rows);
    Handle HandleOf(int row) const;  ///< 0 for a row that does not exist
    int RowOf(Handle handle) const;  ///< -1 if it is gone
    int FindRow(const QString& key) const;

    // Current row, marks, place.
    int CurrentRow() const;  ///< -1 none
    void SetCurrentRow(int row);
    QString CurrentKey() const;
    std::vector<int> CheckedRows() const;
    QStringList CheckedKeys() const;
    bool IsChecked(int row) const;
    void SetChecked(int row, bool on);
    void CheckAll(bool on);
    void ScrollToRow(int row);
    int RowsPerScreen() const;
    int FirstVisibleRow() const;
    /// The focus is here and no current row shows it, so the frame does.
    bool FrameMarked() const { return hasFocus() && CurrentRow() < 0; }
    int SortedColumn() const;  ///< -1 while rows stand as they were added
    bool SortedAscending() const;
    void SortBy(int column, bool ascending);
    /// Asks the list to show that rows are on their way; seen after 150 ms, until rows or the end of the fill
    /// come.
    void SetLoading(bool on);
    void SetEmptyText(const QString& text);

    // Callbacks tell what the user did; calls of this interface are not reported back. A column of -1 is the
    // column of check boxes.
    std::function<void(int row)> onCurrent;
    std::function<void(int row, int column)> onClick;
    std::function<void(int row, int column)> onDoubleClick;  ///< Enter comes here too, with column 0
    std::function<void(int row, const QPoint& globalPos)> onRightClick;  ///< row -1 beside the rows
    std::function<bool(QKeyEvent*)> onKey;          ///< seen before the list; true: it is done
    std::function<void()> onDelete;                 ///< the Delete key
    std::function<void(int row, bool on)> onCheck;  ///< row -1: all, from the heading
    std::function<void(int firstRow)> onScroll;
    std::function<void()> onFirstPaint;  ///< once, after the list was first painted

    QModelIndex indexAt(const QPoint& pos) const override;
    QRect visualRect(const QModelIndex& index) const override;

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
    friend class KestroListHeader;
    friend class ListFill;
    /// Between the two neither painting nor any other work is done per row. EndFill shows the rows, fits the
    /// columns and keeps the current row if it is still there.
    void BeginFill();
    void EndFill();
    int ToView(int column) const;
    int FromView(int viewColumn) const;
    void FitColumns();
    void GrowColumns(int firstRow);
    void ResizeByUser(int viewColumn, int width);
    void FitByUser(int viewColumn);
    void HeadingClicked(int viewColumn);
    int FixedWidth() const;
    void SetHoverRow(int row);
    void UpdateAll();
    void ToggleCheck(int row);
    void KeepCurrent(const std::function<void()>& change);
    void PaintRows(QPainter& p, const QRect& dirty) const;
    void PaintEmpty(QPainter& p) const;
    void PaintLoading(QPainter& p) const;
    bool ShowCellTip(const QPoint& pos, const QPoint& globalPos);
    void Activate(int row, int column);
    void MoveTo(int row);
    bool HandleKey(int key);
    bool HandleControlKey(int key);
    void OpenRowMenu();
    bool SearchByTyping(const QString& letters);
    int LastRow() const;

    KestroListModel* model_;
    KestroListHeader* header_;
    QWidget* headerEnd_;  ///< keeps the scroll bar below the heading
    QTimer loadingTimer_;
    QString emptyText_;
    Handle current_ = 0;  ///< the current row through changes of the rows
    int hoverRow_ = -1;
    QPersistentModelIndex tipCell_;  ///< the cell whose whole text may show in a tip
    Controls::TypeAhead typing_;
    int pressedRow_ = -1;
    bool sortable_ = true;
    bool loading_ = false;
    bool painted_ = false;
    bool quiet_ = false;  ///< a change of ours moves the current row, nobody is told
};

/// Fills a list for as long as it lives, without painting or any other work per row. At its end, also when
/// reading the rows fails half-way, the rows show, the columns fit, and the current row stays if it is still
/// there.
class ListFill {
 public:
    explicit ListFill(KestroList& list) : list_(list) { list_.BeginFill(); }
    ~ListFill() { list_.EndFill(); }
    ListFill(const ListFill&) = delete;
    ListFill& operator=(const ListFill&) = delete;

 private:
    KestroList& list_;
};
