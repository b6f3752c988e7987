#pragma once
// KestroPngPic: a picture, scaled into the control with its aspect kept.

#include <QPixmap>
#include <QString>
#include <QWidget>

#include <functional>

class KestroPngPic : public QWidget {
 public:
    explicit KestroPngPic(QWidget* parent = nullptr);

    void SetIcon(const QString& name);  ///< of the icon set, rendered at the control's size
    void SetPixmap(const QPixmap& picture);
    void Clear();

    std::function<void()> onClick;
    std::function<void()> onDoubleClick;

 protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
    QString icon_;
    QPixmap picture_;
};
