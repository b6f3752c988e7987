#include "shell/parts/job_bar.h"

#include "shell/controls/kestro_list.h"
#include "shell/job_yield.h"

#include <cmath>

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

void PageJobBar::pRetunPrintInfo(int value, int maximum, int state, bool preview) {
    constexpr double kPrintingToo = 1.3;
    switch (state) {
        case -1:
            SetMinimum(0);
            SetMaximum(0);
            SetValue(0);
            return show();
        case 0:
            SetMaximum(preview ? maximum : static_cast<int>(std::lround(kPrintingToo * value)));
            return SetMinimum(1);
        case 1:
            return SetValue(value);
        default:
            SetValue(Maximum());
            if (state != 3) return;
            SetMinimum(0);
            hide();
    }
}

std::function<void(int, int, int)> PageJobBar::PrintSlot(bool preview) {
    return [this, preview](int value, int maximum, int state) {
        pRetunPrintInfo(value, maximum, state, preview);
    };
}

JobBar PageJobBar::Slots() {
    return {.start =
                [this](int maximum) {
                    SetMaximum(maximum);
                    SetValue(0);
                    Show(maximum != 0);
                },
            .value = [this](int value) { SetValue(value); },
            .end = [this] { Show(false); }};
}
