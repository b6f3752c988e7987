#pragma once
// The two date buttons of a filter with their calendar: a period either end of which may be unset.

#include "store/period.h"

#include <QWidget>

#include <functional>

class KestroButton;
class KestroCalendar;

class PeriodButtons : public QWidget {
 public:
    explicit PeriodButtons(QWidget* parent);

    void SetTips(const QString& first, const QString& second);
    Period Value() const;
    void SetValue(const Period& period);

    /// The user has picked a day.
    std::function<void()> onPick;

 private:
    void OpenCalendar(KestroButton* button);

    KestroButton* btnDate0;
    KestroButton* btnDate1;
    KestroCalendar* KestroCalendar1;
    KestroButton* chosen_ = nullptr;  ///< the button that the calendar serves
};
