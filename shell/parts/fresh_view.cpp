#include "shell/parts/fresh_view.h"

#include "store/errors.h"
#include "store/state.h"

namespace {
constexpr int kRetryMs = 100;
}

FreshView::FreshView(QWidget* view, std::function<void()> load) : view_(view), load_(std::move(load)) {
    afterJob_.setSingleShot(true);
    afterJob_.setInterval(kRetryMs);
    afterJob_.callOnTimeout([this] { Shown(); });
}

void FreshView::MarkStale() {
    stale_ = true;
    ++heard_;
    if (own_ == 0) Shown();
}

void FreshView::Shown() {
    if (!stale_ || own_ > 0 || !view_->isVisible()) return;
    if (State().gBusy) return afterJob_.start();
    RunEvent([this] {
        load_();
        stale_ = false;
    });
}

void FreshView::ShownOwn() {
    if (heard_ <= 1) stale_ = false;
    Shown();
}
