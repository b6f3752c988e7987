#pragma once
// KestroPGress: the bar of a long job. A click asks the job to stop.

#include <QString>
#include <QTimer>
#include <QWidget>

#include <functional>

class KestroPGress : public QWidget {
 public:
    explicit KestroPGress(QWidget* parent = nullptr);

    int Minimum() const { return minimum_; }
    int Maximum() const { return maximum_; }
    int Value() const { return value_; }
    void SetMinimum(int minimum);
    void SetMaximum(int maximum);
    void SetValue(int value);  ///< kept within minimum and maximum
    /// Work of unknown length: a piece runs through the bar behind this text. An empty text ends it.
    void SetWaiting(const QString& text);

    /// How much of the bar counts as one in its words: "2 / 3" of 2,400 and 3,000 with 1,000.
    void SetUnit(int unit) { unit_ = unit; }

    std::function<void()> onClick;

    QSize sizeHint() const override;

 protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

 private:
    QRect Filled() const;

    int unit_ = 1;
    int minimum_ = 0;
    int maximum_ = 100;
    int value_ = 0;
    QString waiting_;
    QTimer step_;
    int phase_ = 0;  ///< of the piece, in hundredths of its way
};
