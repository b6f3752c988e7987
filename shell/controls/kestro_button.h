#pragma once
// KestroButton: push buttons, tool buttons and date buttons.

#include "shell/skin.h"

#include <QAbstractButton>
#include <QColor>
#include <QDate>
#include <QFont>

#include <functional>

enum class ButtonLook {
    primary,
    plain,
    danger,
    toolbar,  ///< no line and no fill until the pointer is over it
    date      ///< shows its caption until a date is set, then year over month and day
};

/// Keyboard: blank presses, Enter presses the focused button when the focus came by key
/// (otherwise it is the window's), Alt+Down opens the arrow's menu.
class KestroButton : public QAbstractButton {
 public:
    KestroButton(ButtonLook look, const QString& caption, const QString& icon = {},
                 QWidget* parent = nullptr);

    void SetLook(ButtonLook look);
    void SetIcon(const QString& icon);
    /// An arrow at the right. A tool button's right third, another's drop zone, then call onArrow;
    /// without onArrow the arrow acts as the button.
    void SetArrow(bool shown);
    /// 32 unless told otherwise.
    void SetHeight(int height);
    /// Never narrower than this, however short the caption.
    void SetLeastWidth(int width);
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
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

 private:
    struct Colors {
        QColor fill;
        QColor line;
        QColor ink;
    };

    void Changed();
    bool InToolbar() const { return look_ == ButtonLook::toolbar; }
    int ArrowWidth() const;
    int CaptionWidth() const;
    QFont CaptionFont() const;
    QRect ArrowRect() const;
    Colors StateColors() const;
    Ground IconGround() const;
    void PaintCaption(QPainter& p, QRect r, const QColor& ink) const;
    void PaintDate(QPainter& p, QRect r, const QColor& ink) const;
    void PaintArrow(QPainter& p, const QColor& ink) const;

    ButtonLook look_;
    QString icon_;
    QDate date_;
    int height_ = 32;
    int leastWidth_ = 0;
    bool arrow_ = false;
    bool compact_ = false;
    bool byKey_ = false;
};
