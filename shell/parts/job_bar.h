#pragma once
// The bar of a page's long jobs: hidden until one starts, a click on it asks the job to stop.

#include "shell/controls/kestro_pgress.h"
#include "store/job.h"

#include <functional>

class KestroList;

class PageJobBar : public KestroPGress {
 public:
    /// list, if given, shows that rows are on their way.
    explicit PageJobBar(QWidget* parent, KestroList* list = nullptr);

    /// The slots that a job reports to; good while the bar lives.
    JobBar Slots();
    /// What a print job tells its progress to; good while the bar lives. state -1 begins, 0 brings the pages
    /// to come, 1 a page done, 2 fills the bar, 3 takes it away. Without a preview the printing itself
    /// follows the layout, so the end lies further.
    std::function<void(int value, int maximum, int state)> PrintSlot(bool preview);

 private:
    void Show(bool running);
    void pRetunPrintInfo(int value, int maximum, int state, bool preview);

    KestroList* list_;
};
