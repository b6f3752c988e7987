#pragma once
// The ground of the print preview: one sheet of paper in its middle, with scroll bars where it is larger than
// the room.

#include "output/print_document.h"

#include <QPoint>
#include <QWidget>

#include <functional>

class KestroScrollbar;
class PagePicture;

class PrintCanvas : public QWidget {
 public:
    PrintCanvas(const PrintDocument& document, QWidget* parent);

    /// Shows the top of a page, from 0.
    void ShowPage(size_t page);
    /// 1 is the paper's own size.
    void SetZoom(double zoom);
    void ScrollBy(int dx, int dy);

    std::function<void(int step)> onZoom;  ///< the wheel was turned with Ctrl: 1 larger, -1 smaller

    QSize sizeHint() const override { return {}; }
    QSize minimumSizeHint() const override { return {}; }

 protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void showEvent(QShowEvent* event) override;

 private:
    void Arrange();
    void Place();
    QSize PictureSize() const;
    void PaintGround(QPainter& p, QPoint offset) const;

    const PrintDocument& document_;
    double zoom_ = 1;
    int wheel_ = 0;
    QWidget* room_;  ///< what the scroll bars leave
    PagePicture* picPreview;
    KestroScrollbar* ScrollV;
    KestroScrollbar* ScrollH;
};
