#include "shell/job_yield.h"

#include "store/job.h"
#include "store/outside.h"

#include <QCoreApplication>
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
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

class InputGate : public QObject {
 protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!IsInput(event->type()) || !watched->isWidgetType()) return false;
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
            Job::Stop();
        return std::none_of(Bars().begin(), Bars().end(), [&](const auto& bar) { return bar == watched; });
    }
};

}  // namespace

void InstallJobYield() {
    Outside().yield = [] {
        InputGate gate;
        QCoreApplication::instance()->installEventFilter(&gate);
        QCoreApplication::processEvents();
        QCoreApplication::instance()->removeEventFilter(&gate);
    };
}

void AllowDuringJob(QWidget* bar) {
    std::erase_if(Bars(), [](const auto& b) { return b.isNull(); });
    Bars().emplace_back(bar);
}
