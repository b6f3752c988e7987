#pragma once
// KestroCalendar: a month to pick a date from. Takes no focus: typing goes on in the box and closes it.

#include "shell/controls/control_support.h"
#include "shell/controls/kestro_popup.h"

#include <QDate>

#include <functional>

class KestroCalendar : public KestroPopup {
 public:
    explicit KestroCalendar(QWidget* owner);

    /// Shows the month of chosen (today's when invalid) at anchor. The years are a hint of what the
    /// year list begins with; 1900 to 2100 can be chosen.
    void PopUp(QWidget* anchor, QDate chosen, int firstYear = 0, int lastYear = 0);
    /// The day that Enter would pick.
    QDate Chosen() const { return chosen_; }

    /// First day of the month on view.
    QDate ShownMonth() const { return shown_; }

    std::function<void(QDate)> onPick;

 protected:
    bool HandleKey(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

 private:
    enum class Choosing { days, months, years };

    QDate FirstCell() const;
    QRect DayRect(int cell) const;
    QRect ChoiceRect(int cell) const;
    QRect YearRect() const;
    QRect MonthRect() const;
    QRect ArrowRect(bool next) const;
    QRect TodayRect() const;
    void MoveTo(QDate date);
    void Pick(QDate date);
    void Turn(int steps);
    void Press(QPoint at);
    void PressChoice(QPoint at);
    void PaintTitle(QPainter& p) const;
    void PaintDays(QPainter& p) const;
    void PaintDay(QPainter& p, const QRect& r, QDate day) const;
    void PaintChoices(QPainter& p) const;
    void PaintToday(QPainter& p) const;

    QDate chosen_;
    QDate shown_;  ///< first day of the month on view
    int yearPage_ = 0;
    Choosing choosing_ = Choosing::days;
    QPoint pointer_{-1, -1};
    Controls::WheelNotches notches_;
};
