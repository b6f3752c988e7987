#pragma once
// Picture1: the box in which a picture is looked at. It fits, zooms, turns and moves the picture; keys and
// wheel tell its window what they ask for.

#include "pictures/view_geometry.h"

#include <QImage>
#include <QPointF>
#include <QWidget>

#include <functional>
#include <vector>

class PictureBox : public QWidget {
 public:
    explicit PictureBox(QWidget* parent = nullptr);

    /// Loads the file and shows it fitted. A picture that cannot be shown says so in the box.
    void ShowFile(const QString& path);
    /// The picture on show as large as the box allows, upright.
    void ShowFit();
    /// Another size about the centre of the box.
    void ShowZoomed(float zoom);
    /// Moves the picture by pixels.
    void ShowMoved(QPointF by);
    void Turn();
    void Empty();

    bool HasPicture() const { return !levels_.empty(); }
    float Zoom() const { return fit_.zoom; }
    float Angle() const { return angle_; }
    /// Offset and size of the picture as displayed, before its turning.
    const PictureFit& Fit() const { return fit_; }

    std::function<void(int direction)> onStep;  ///< -1 the picture before, 1 the one behind
    std::function<void()> onBig;                ///< a double click or the space bar
    std::function<void()> onOpen;               ///< Enter
    std::function<void()> onChange;             ///< size or picture

    QSize sizeHint() const override { return {372, 390}; }
    QSize minimumSizeHint() const override { return {200, 160}; }

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

 private:
    void Changed();
    const QImage& LevelFor(double ratio) const;
    void PaintPicture(QPainter& p) const;

    std::vector<QImage> levels_;  ///< the picture, and it halved again and again, for a quick repaint
    QString words_;               ///< why there is nothing to see
    PictureFit fit_;
    float angle_ = 0;
    bool fitted_ = true;  ///< a resized box fits the picture anew
    QPointF dragStart_;
};
