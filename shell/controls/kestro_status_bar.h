#pragma once
// KestroStatusBar: the 30 px strip at the foot of the main window.

#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

enum class StatusDot { none, good, warn };

class KestroStatusBar : public QWidget {
 public:
    explicit KestroStatusBar(QWidget* parent = nullptr);

    /// Adds a panel and returns its index. width in pixels; spring panels share the room that is left.
    int AddPanel(const QString& text, int width, bool spring = false, const QString& icon = {});
    int PanelCount() const;
    QString PanelText(int panel) const;
    void SetPanelText(int panel, const QString& text);
    void SetPanelIcon(int panel, const QString& icon);
    void SetPanelDot(int panel, StatusDot dot);
    void SetPanelTip(int panel, const QString& tip);
    QRect PanelRect(int panel) const;
    /// Lays widget over the first panel (214 x 22, 8 from the left). Several may take turns: the visible one
    /// shows.
    void SetOver(QWidget* widget);
    void ShowGrip(bool on);

    std::function<void(int panel)> onClick;
    std::function<void(int panel)> onHover;  ///< -1 when the pointer leaves

    QSize sizeHint() const override;

 protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

 private:
    struct Panel {
        QString text;
        QString icon;
        QString tip;
        int width = 0;
        bool spring = false;
        StatusDot dot = StatusDot::none;
        QRect rect;
    };

    int LeastWidth(const Panel& panel) const;
    void Relayout();
    int PanelAt(const QPoint& pos) const;
    QRect GripRect() const;
    void SetHover(int panel);
    void PaintPanel(QPainter& p, const Panel& panel) const;

    std::vector<Panel> panels_;
    std::vector<QWidget*> over_;
    int hover_ = -1;
    int pressed_ = -1;
    bool grip_ = true;
};
