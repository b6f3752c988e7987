#include "shell/parts/job_bar.h"

#include "shell/controls/kestro_list.h"
#include "shell/job_yield.h"

using namespace Qt::StringLiterals;

PageJobBar::PageJobBar(QWidget* parent, KestroList* list) : KestroPGress(parent), list_(list) {
    setObjectName(u"KestroPGress1"_s);
    auto kept = sizePolicy();
    kept.setRetainSizeWhenHidden(true);
    setSizePolicy(kept);
    hide();
    onClick = [] { Job::Stop(); };
    AllowDuringJob(this);
}

void PageJobBar::Show(bool running) {
    setVisible(running);
    if (list_) list_->SetLoading(running);
}

JobBar PageJobBar::Slots() {
    return {.start =
                [this](int maximum) {
                    SetMaximum(maximum);
                    SetValue(0);
                    Show(true);
                },
            .value = [this](int value) { SetValue(value); },
            .end = [this] { Show(false); }};
}
