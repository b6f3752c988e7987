#pragma once
// The dark side of the login window: logo, name, version.

#include <QWidget>

class LoginHero : public QWidget {
 public:
    static constexpr int kWidth = 156;
    static constexpr int kHeight = 278;

    using QWidget::QWidget;
    void SetRadius(double radius) { radius_ = radius; }
    /// The strip below goes on to the window's lower edge.
    void SetStripShown(bool shown);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    double radius_ = 8;
    bool stripShown_ = false;
};

/// The ground of the strip with the book box folder.
class LoginStrip : public QWidget {
 public:
    using QWidget::QWidget;

 protected:
    void paintEvent(QPaintEvent* event) override;
};
