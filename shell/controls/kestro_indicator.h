#pragma once
// KestroIndicator: a ring whose bright quarter goes round while something is at work.

#include <QTimer>
#include <QWidget>

class KestroIndicator : public QWidget {
 public:
    explicit KestroIndicator(QWidget* parent = nullptr);

    /// At rest nothing shows, but the place stays.
    void Run(bool on);
    bool IsRunning() const { return timer_.isActive(); }

    QSize sizeHint() const override;

 protected:
    void paintEvent(QPaintEvent* event) override;

 private:
    QTimer timer_;
};
