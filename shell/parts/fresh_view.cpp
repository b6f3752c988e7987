#include "shell/parts/fresh_view.h"

#include "store/errors.h"
#include "store/state.h"

FreshView::FreshView(QWidget* view, std::function<void()> load) : view_(view), load_(std::move(load)) {}

void FreshView::MarkStale() {
    if (own_ > 0) return;
    stale_ = true;
    Shown();
}

void FreshView::Shown() {
    if (!stale_ || State().gBusy || !view_->isVisible()) return;
    RunEvent([this] {
        load_();
        stale_ = false;
    });
}
