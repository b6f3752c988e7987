#pragma once
// The list that drops from a KestroCombox.

#include "shell/controls/control_support.h"
#include "shell/controls/kestro_popup.h"

#include <functional>
#include <vector>

struct ComboxItem;

class ComboxList : public KestroPopup {
 public:
    ComboxList(QWidget* owner, const std::vector<ComboxItem>& items);

    /// Shows the items with these indices; chosen is the current one or -1.
    void Open(QWidget* anchor, std::vector<int> shown, int chosen);
    /// Index of the item under the bar, -1 none.
    int Marked() const;

    std::function<void(int index)> onPick;

 protected:
    bool HandleKey(QKeyEvent* event) override;
    bool ClosesOnTyping() const override { return false; }
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

 private:
    int RowHeight() const;
    int RowsShown() const;
    int RowAt(QPoint at) const;
    int Count() const { return static_cast<int>(shown_.size()); }
    int WantedWidth() const;
    void Mark(int row);
    bool PickMarked();
    void ScrollTo(int top);
    void PaintRow(QPainter& p, int row, const QRect& r) const;
    void PaintThumb(QPainter& p) const;

    const std::vector<ComboxItem>& items_;
    std::vector<int> shown_;
    int chosen_ = -1;
    int marked_ = -1;
    bool markedByKey_ = false;
    int top_ = 0;
    Controls::WheelNotches notches_;
};
