#pragma once
// The ground of the entry window: the account area at the right, the group of the second kind, the footer.

#include <QWidget>

class EntryGround : public QWidget {
 public:
    static constexpr int kEntryWidth = 480;
    static constexpr int kAccountWidth = 290;
    static constexpr int kFooter = 56;

    using QWidget::QWidget;
    void SetAreas(const QRect& kindGroup, bool accounts, int accountLine);

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QRect kindGroup_;
    bool accounts_ = false;
    int accountLine_ = 0;
};
