#pragma once
// The frame that the frameless windows share: shadow margin, outline, moving, resizing, maximising.

#include <QObject>
#include <QPoint>
#include <QRect>

#include <functional>
#include <optional>

class QColor;
class QMouseEvent;
class QPainter;
class QWidget;

/// Watches one window. Moving and resizing are handed to the window system; where it refuses, the frame
/// moves and resizes by itself.
class WindowFrame : public QObject {
 public:
    /// canResize also allows maximising by a double click on the title area.
    WindowFrame(QWidget* window, bool canResize);
    ~WindowFrame() override;

    void SetResizable(bool on) { canResize_ = on; }
    /// Height of the title area from the top of the named rectangle; every free spot in it moves the window.
    void SetTitleHeight(int height) { titleHeight_ = height; }
    /// Strength of the shadow, 0.2 to 1.
    void SetOpacity(double opacity) { opacity_ = opacity; }
    /// Transparent margin round the named rectangle, 0 when maximised or without a compositor.
    int Margin() const;
    /// The window without its shadow.
    QRect Named() const;
    /// 8, or 0 where corners cannot be translucent.
    double Radius() const;
    /// A window on show grows from the place that was set, and stays on its screen.
    void SetNamedSize(QSize size);
    /// Moves the window and remembers where: some window managers tell it another place than it has.
    void SetPlace(QPoint place);
    void SetSmallest(QSize size);
    /// Shadow, ground and outline.
    void Paint(QPainter& p, const QColor& ground) const;
    void ToggleMaximised();
    /// Begins a move from a press at a spot that belongs to a child, such as a tab.
    void StartMove();

    /// The margin changed: the owner lays out its children again.
    std::function<void()> onMargin;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    Qt::Edges EdgesAt(QPoint at) const;
    void ShowCursor(Qt::Edges edges);
    bool OnWindow(QEvent* event);
    bool OnHandle(QEvent* event);
    bool InTitle(QPoint at) const;
    bool Press(const QMouseEvent& event);
    bool Move(const QMouseEvent& event);
    void Begin(Qt::Edges edges, QPoint global);
    void FollowPointer(QPoint global);

    QWidget* window_;
    bool canResize_;
    int titleHeight_ = 0;
    double opacity_ = 0.4;
    QSize smallest_;
    Qt::Edges edges_;
    Qt::Edges shownEdges_;
    bool pressed_ = false;
    bool byHand_ = false;
    QPoint pressedAt_;
    QRect pressedRect_;
    std::optional<QPoint> place_;
};
