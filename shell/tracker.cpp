#include "shell/tracker.h"

#include "store/errors.h"

#include <QDropEvent>
#include <QEvent>
#include <QHash>
#include <QMimeData>
#include <QUrl>
#include <QWheelEvent>
#include <QWidget>

#include <cstdlib>

namespace {

QHash<const QWidget*, clsTrackInfo*>& Trackers() {
    static QHash<const QWidget*, clsTrackInfo*> trackers;
    return trackers;
}

QStringList LocalFiles(const QMimeData& data) {
    QStringList files;
    for (const auto& url : data.urls())
        if (url.isLocalFile()) files << url.toLocalFile();
    return files;
}

}  // namespace

clsTrackInfo::clsTrackInfo() {
    rest_.setSingleShot(true);
    rest_.callOnTimeout([this] { RaiseMouseHover(); });
}

clsTrackInfo::~clsTrackInfo() {
    Trackers().remove(hwnd);
}

void clsTrackInfo::RaiseReceMsg(const QString& text, int code, int extra) {
    RunEvent([&] {
        if (ReceMsg) ReceMsg(text, code, extra);
    });
}

void clsTrackInfo::RaiseMouseWheel(int direction) {
    RunEvent([&] {
        if (MouseWheel) MouseWheel(direction);
    });
}

void clsTrackInfo::RaiseMouseHover() {
    if (over_) return;
    over_ = true;
    RunEvent(MouseHover);
}

void clsTrackInfo::RaiseMouseLeave() {
    over_ = false;
    if (first_) {
        first_ = false;
        return;
    }
    RunEvent(MouseLeave);
}

void clsTrackInfo::DropFiles(const QMimeData& data) {
    RaiseDrop(LocalFiles(data));
}

void clsTrackInfo::RaiseDrop(const QStringList& files) {
    if (files.isEmpty()) return;
    RunEvent([&] {
        if (DragDropFiles) DragDropFiles(files.join(u'\n'), static_cast<int>(files.size()));
    });
}

bool clsTrackInfo::eventFilter(QObject* watched, QEvent* event) {
    if (watched != hwnd) return false;
    switch (event->type()) {
        case QEvent::DragEnter:
        case QEvent::DragMove: {
            auto* drag = static_cast<QDropEvent*>(event);
            if (!LocalFiles(*drag->mimeData()).isEmpty()) drag->acceptProposedAction();
            return true;
        }
        case QEvent::Drop: {
            auto* drop = static_cast<QDropEvent*>(event);
            drop->acceptProposedAction();
            // The program that dropped them waits for the end of this event; a box may follow.
            const auto files = LocalFiles(*drop->mimeData());
            QTimer::singleShot(0, this, [this, files] { RaiseDrop(files); });
            return true;
        }
        case QEvent::Wheel: {
            const int notches = notches_.Take(*static_cast<QWheelEvent*>(event));
            for (int i = 0; i < std::abs(notches); ++i)
                RaiseMouseWheel(notches > 0 ? -1 : 1);
            return false;
        }
        case QEvent::HoverEnter:
        case QEvent::HoverMove:
            rest_.start(hoverTime);
            return false;
        case QEvent::Leave:
            rest_.stop();
            RaiseMouseLeave();
            return false;
        default:
            return false;
    }
}

void TrackAdd(clsTrackInfo& tracker) {
    tracker.over_ = false;
    tracker.first_ = true;
    Trackers().insert(tracker.hwnd, &tracker);
    tracker.hwnd->installEventFilter(&tracker);
    tracker.hwnd->setAcceptDrops(true);
    TrackArm(tracker);
}

void TrackRemove(clsTrackInfo& tracker) {
    if (Trackers().remove(tracker.hwnd) == 0) return;
    tracker.rest_.stop();
    tracker.hwnd->removeEventFilter(&tracker);
    tracker.hwnd->setAttribute(Qt::WA_Hover, false);
}

void TrackArm(clsTrackInfo& tracker) {
    tracker.hwnd->setAttribute(Qt::WA_Hover, true);
}

clsTrackInfo* TrackOf(const QWidget* window) {
    return Trackers().value(window);
}

int TrackCount() {
    return static_cast<int>(Trackers().size());
}
