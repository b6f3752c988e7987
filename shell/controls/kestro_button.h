#pragma once
// KestroButton: push buttons, tool buttons and date buttons.

#include <QAbstractButton>
#include <QDate>

#include <functional>

enum class ButtonLook {
    primary,
    plain,
    danger,
    toolbar,  ///< no line and no fill until the pointer is over it
    date      ///< shows its caption until a date is set, then year over month and day
};

/// Keyboard: blank presses, Enter presses the focused button, Alt+Down opens the arrow's menu.
class KestroButton : public QAbstractButton {
 public:
    KestroButton(ButtonLook look, const QString& caption, const QString& icon = {},
                 QWidget* parent = nullptr);

    void SetLook(ButtonLook look);
    void SetIcon(const QString& icon);
    /// An arrow at the right. A tool button's right third, a date button's drop zone, then call onArrow;
    /// without onArrow the arrow acts as the button.
    void SetArrow(bool shown);
    /// 32 unless told otherwise.
    void SetHeight(int height);
    /// Only the icon, the caption goes into the tip.
    void SetCompact(bool compact);
    bool IsCompact() const { return compact_; }
    /// For date buttons; an invalid date shows the caption again.
    void SetDate(QDate date);
    QDate Date() const { return date_; }

    std::function<void()> onClick;
    std::function<void()> onArrow;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

 private:
    int ArrowWidth() const;
    int CaptionWidth() const;
    bool InToolbar() const { return look_ == ButtonLook::toolbar; }
    void PaintGround(QPainter& p, const QRectF& r) const;
    void PaintCaption(QPainter& p, QRect r) const;
    void PaintDate(QPainter& p, QRect r) const;
    QColor Ink() const;

    ButtonLook look_;
    QString icon_;
    QDate date_;
    int height_ = 32;
    bool arrow_ = false;
    bool compact_ = false;
    bool byKey_ = false;
};
