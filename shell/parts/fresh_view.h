#pragma once
// Keeps what a view shows fresh. A change elsewhere loads it at once, in place, while it shows and no job
// runs; otherwise when it is next shown.

#include <QWidget>

#include <functional>

class FreshView {
 public:
    /// load reads everything anew; when it fails, its box shows and the view stays stale.
    FreshView(QWidget* view, std::function<void()> load);

    /// Something that the view shows has changed.
    void MarkStale();
    /// The view has been brought to the front.
    void Shown();
    /// The view has been loaded by itself.
    void MarkFresh() { stale_ = false; }

    /// While it lives, changes are the view's own doing, which it shows by itself.
    class Own {
     public:
        explicit Own(FreshView& view) : view_(view) { ++view_.own_; }
        ~Own() { --view_.own_; }
        Own(const Own&) = delete;
        Own& operator=(const Own&) = delete;

     private:
        FreshView& view_;
    };

 private:
    QWidget* view_;
    std::function<void()> load_;
    bool stale_ = false;
    int own_ = 0;
};
