#pragma once
// PngButton: a picture that is pressed.

#include <QAbstractButton>

#include <functional>

class PngButton : public QAbstractButton {
 public:
    /// A picture alone needs words: tip is shown on hover and is the accessible name. side is 28, or 24 in
    /// rows.
    PngButton(const QString& icon, const QString& tip, QWidget* parent = nullptr, int side = 28);

    void SetIcon(const QString& icon);
    void SetTip(const QString& tip);
    /// The close button of a window: a cross, on `danger` under the pointer.
    void SetClosing(bool closing) { closing_ = closing; }
    /// A 1 px outline, for buttons that stand beside a box.
    void SetFramed(bool framed) { framed_ = framed; }

    std::function<void()> onClick;

    QSize sizeHint() const override { return {side_, side_}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void PaintCross(QPainter& p, bool onFill) const;

    QString icon_;
    int side_;
    bool closing_ = false;
    bool framed_ = false;
    bool byKey_ = false;
};
