#pragma once
// The heading of a KestroList: captions, the box that marks all, sorting by a click, dragging of separators.

#include "shell/controls/kestro_list.h"

#include <QHeaderView>

class KestroListHeader : public QHeaderView {
 public:
    KestroListHeader(KestroList* list, KestroListModel* model);

    void SetHeight(int height);
    QSize sizeHint() const override { return {0, height_}; }

    /// Goes to the headings by key, to the sorted one if there is one.
    void EnterByKey();
    void LeaveByKey();
    /// A key while a heading is chosen by key; false when none is or the key is not one of the headings'.
    bool HandleKey(int key);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool viewportEvent(QEvent* event) override;

 private:
    void StepByKey(int by);
    QRect SectionRect(int section) const;  ///< where it shows, the fixed ones at the left
    int SectionAt(int x) const;
    int SeparatorAt(int x) const;  ///< the section whose right edge can be dragged at x, -1 none
    void PaintSection(QPainter& p, int section) const;
    void PaintCaption(QPainter& p, const QRect& rect, int column) const;
    bool ShowTip(int x, const QPoint& globalPos);

    KestroList* list_;
    KestroListModel* rows_;
    int height_ = 30;
    int keySection_ = -1;  ///< chosen by key
    int tipSection_ = -1;
    int dragged_ = -1;
    int dragStart_ = 0;
    int dragWidth_ = 0;
    int pressed_ = -1;
};
