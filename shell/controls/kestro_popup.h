#pragma once
// What the lists, the calendar and the calculator that drop from a control have in common: a window that
// never takes the focus, so typing goes on in the control below it.

#include <QPointer>
#include <QWidget>

#include <functional>

class QKeyEvent;

/// Stands under its anchor (above it where there is no room below), closes on a press elsewhere, when the
/// anchor's window moves, hides or loses the activation, and on Escape. The named size is without shadow.
class KestroPopup : public QWidget {
 public:
    explicit KestroPopup(QWidget* owner);

    /// Shows the pop-up at anchor with this named size. The keys of anchor come to HandleKey first.
    void ShowAt(QWidget* anchor, QSize namedSize);
    bool IsOpenAt(const QWidget* anchor) const { return isVisible() && anchor_ == anchor; }
    QWidget* Anchor() const { return anchor_; }

    std::function<void()> onClosed;

 protected:
    /// The room inside the shadow.
    QRect Inner() const;
    /// A key of the anchor while the pop-up is open; true when it has been used up.
    virtual bool HandleKey(QKeyEvent* event) = 0;
    /// Whether typing by an input method closes it, as typing by keys does.
    virtual bool ClosesOnTyping() const { return true; }

    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;

 private:
    void Place(QSize namedSize);
    bool ClosesOn(const QObject* watched, QEvent* event) const;

    QPointer<QWidget> anchor_;
};
