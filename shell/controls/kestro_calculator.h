#pragma once
// KestroCalculator: the pop-up calculator. Takes no focus.

#include "shell/controls/calculation.h"
#include "shell/controls/kestro_popup.h"

#include <functional>

class KestroCalculator : public KestroPopup {
 public:
    explicit KestroCalculator(QWidget* owner);

    /// Shows it at anchor with a start value (empty is 0) and digits per group. With ownKeys the digits typed
    /// are the calculator's (opened by key, or at a button); otherwise typing goes on in the box and closes
    /// it.
    void PopUp(QWidget* anchor, const QString& start, int group, bool ownKeys);

    /// Stays at anchor as a calculator for its own sake: it takes the keyboard, = shows the result, Escape or
    /// a click elsewhere closes it and gives the focus back.
    void Open(QWidget* anchor, int group);

    /// What its display shows, ungrouped.
    QString Shown() const { return calculation_.Shown(); }

    /// The value as plain number text, by =, or Enter. Not called after an error.
    std::function<void(const QString&)> onValue;

 protected:
    bool HandleKey(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

 private:
    void Begin(QWidget* anchor, const QString& start, int group);
    QRect KeyRect(int index) const;
    int KeyAt(QPoint at) const;
    void PressKey(QChar key);
    void Finish();
    void PaintDisplay(QPainter& p) const;
    QString Grouped(const QString& value) const;
    void PaintKey(QPainter& p, int index) const;

    Calculation calculation_;
    int group_ = 3;
    bool ownKeys_ = false;
    bool stays_ = false;        ///< = shows the result and nothing closes
    bool touched_ = false;      ///< a key of the calculator was pressed
    QPointer<QWidget> before_;  ///< had the focus when the calculator took the keyboard
    int hovered_ = -1;
    int pressed_ = -1;
};
