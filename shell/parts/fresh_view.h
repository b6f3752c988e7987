#pragma once
// Keeps what a view shows fresh. A change elsewhere loads it at once, in place, while it shows and no job
// runs; otherwise when the job has ended, or when it is next shown.

#include <QTimer>
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
    /// A load by the view itself begins: should it fail, the view is stale.
    void Loading() { stale_ = true; }
    /// The view has been loaded whole.
    void MarkFresh() { stale_ = false; }
    /// The view has shown its own change by itself. What came in besides is loaded.
    void ShownOwn();

    /// While it lives, changes are the view's own doing, which it shows by itself and tells by ShownOwn.
    /// Until then it counts as stale.
    class Own {
     public:
        explicit Own(FreshView& view) : view_(view) {
            if (view_.own_++ == 0) view_.heard_ = view_.stale_ ? 1 : 0;
        }
        ~Own() { --view_.own_; }
        Own(const Own&) = delete;
        Own& operator=(const Own&) = delete;

     private:
        FreshView& view_;
    };

 private:
    QWidget* view_;
    std::function<void()> load_;
    QTimer afterJob_;
    bool stale_ = false;
    int own_ = 0;
    int heard_ = 0;  ///< notices since the view's own change began
};
