#include "shell/job_yield.h"

#include "store/job.h"
#include "store/outside.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>

#include <algorithm>
#include <vector>

namespace {

std::vector<QPointer<QWidget>>& Bars() {
    static std::vector<QPointer<QWidget>> bars;
    return bars;
}

bool IsInput(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::InputMethod:
        case QEvent::DragEnter:
        case QEvent::Drop:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TabletPress:
            return true;
        default:
            return false;
    }
}

class InputGate : public QObject {
 protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        // A box that something inside the yield has opened must be answered.
        if (QApplication::activeModalWidget() != front_) return false;
        const bool input = IsInput(event->type()) && watched->isWidgetType();
        if (!input && event->type() != QEvent::Shortcut) return false;
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
            Job::Stop();
        if (std::any_of(Bars().begin(), Bars().end(), [&](const auto& bar) { return bar == watched; }))
            return false;
        event->ignore();
        return true;
    }

 private:
    QWidget* front_ = QApplication::activeModalWidget();
};

}  // namespace

void InstallJobYield() {
    Outside().yield = [] {
        InputGate gate;
        qApp->installEventFilter(&gate);
        QCoreApplication::processEvents();
        qApp->removeEventFilter(&gate);
    };
}

void AllowDuringJob(QWidget* bar) {
    std::erase_if(Bars(), [](const auto& b) { return b.isNull(); });
    Bars().emplace_back(bar);
}
