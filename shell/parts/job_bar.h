#pragma once
// The bar of a page's long jobs: hidden until one starts, a click on it asks the job to stop.

#include "shell/controls/kestro_pgress.h"
#include "store/job.h"

class KestroList;

class PageJobBar : public KestroPGress {
 public:
    /// list, if given, shows that rows are on their way.
    explicit PageJobBar(QWidget* parent, KestroList* list = nullptr);

    /// The slots that a job reports to; good while the bar lives.
    JobBar Slots();

 private:
    void Show(bool running);

    KestroList* list_;
};
