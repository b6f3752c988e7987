#pragma once
// The painted grounds of the entry window: the group of the second kind, the account area and its foot.

#include <QWidget>

/// A rounded group; kGap below it stays free of paint.
class KindGroup : public QWidget {
 public:
    static constexpr int kGap = 12;
    using QWidget::QWidget;

 protected:
    void paintEvent(QPaintEvent* event) override;
};

/// The side where accounts are chosen, with its line to the entry. The foot ends in the window's round
/// corner.
class AccountGround : public QWidget {
 public:
    AccountGround(bool isFoot, QWidget* parent) : QWidget(parent), isFoot_(isFoot) {}

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    bool isFoot_;
};

/// A line of one pixel across.
class DividerLine : public QWidget {
 public:
    explicit DividerLine(QWidget* parent = nullptr) : QWidget(parent) { setFixedHeight(1); }

 protected:
    void paintEvent(QPaintEvent* event) override;
};
