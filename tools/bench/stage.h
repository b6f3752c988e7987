#pragma once
// A book opened as the program opens it, and a window as large as the program's for one of its pages.

#include "store/messages.h"
#include "tools/bench/measure.h"
#include "tools/bench/speed_table.h"

#include <QApplication>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <algorithm>

constexpr double kPageBound = 1.3, kReadBound = 1.5, kWriteBound = 2;
constexpr double kClickBound = 100, kLastPageBound = 150, kWindowBound = 50;  // milliseconds

void OpenBook(const QString& path);

/// Questions are answered by their last button, as long as the object lives.
class Consent {
 public:
    Consent();
    ~Consent();
    Consent(const Consent&) = delete;
    Consent& operator=(const Consent&) = delete;

 private:
    std::function<int(const MessageRequest&)> kept_;
};

/// Statements that pass over all entries while the object lives.
class EntryPasses {
 public:
    EntryPasses();
    ~EntryPasses();
    EntryPasses(const EntryPasses&) = delete;
    EntryPasses& operator=(const EntryPasses&) = delete;
    double Count() const { return static_cast<double>(statements_.size()); }

 private:
    QStringList statements_;
};

/// How a job looks from outside: the longest time without a turn of the event loop, and how often it turned.
class Pulse {
 public:
    Pulse() {
        timer_.setInterval(0);
        QObject::connect(&timer_, &QTimer::timeout, [this] { Beat(); });
        timer_.start();
    }
    void Beat() {
        const double now = Moment();
        longest_ = std::max(longest_, now - last_);
        last_ = now;
        ++beats_;
    }
    double Longest() const { return longest_; }
    double Beats() const { return beats_; }

 private:
    QTimer timer_;
    double last_ = Moment();
    double longest_ = 0;
    double beats_ = 0;
};

template <class Widget>
Widget* Control(const QWidget& page, const QString& name) {
    return dynamic_cast<Widget*>(page.findChild<QWidget*>(name));
}

/// A page or a control, shown and at rest.
template <class Content>
class Stage {
 public:
    template <class... Args>
    explicit Stage(Args&&... args) : content(new Content(std::forward<Args>(args)..., &window_)) {
        window_.resize(1100, 650);
        content->setGeometry(window_.rect());
        window_.show();
        Settle();
    }
    static void Settle() {
        for (int turn = 0; turn < 5; ++turn)
            QApplication::processEvents();
    }

 private:
    QWidget window_;

 public:
    Content* content;
};

inline SpeedRow Compared(const QString& action, int entries, const Pair& pair, std::optional<double> bound) {
    return {action, entries, pair.ours, pair.raw, QStringLiteral("ms"), bound};
}
