#pragma once
// What a window needs from the platform beyond its controls: wheel, hover and leave, dropped files, and the
// message of another process. One tracker per window turns them into events for its owner.

#include "shell/controls/control_support.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>

class QMimeData;
class QWidget;

class clsTrackInfo : public QObject {
 public:
    static constexpr int kHoverTime = 400;

    clsTrackInfo();
    ~clsTrackInfo() override;

    QWidget* hwnd = nullptr;
    int hoverTime = kHoverTime;  ///< milliseconds that the pointer rests before it counts as a hover

    std::function<void(const QString& text, int code, int extra)> ReceMsg;
    std::function<void()> MouseHover;
    std::function<void()> MouseLeave;
    std::function<void(int direction)> MouseWheel;  ///< -1 away from the user, otherwise 1; once a notch
    std::function<void(const QString& names, int count)> DragDropFiles;  ///< names joined by line breaks

    void RaiseReceMsg(const QString& text, int code, int extra);
    void RaiseMouseWheel(int direction);
    void RaiseMouseHover();
    /// The very first leave after tracking starts is lost, on purpose.
    void RaiseMouseLeave();
    void DropFiles(const QMimeData& data);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    friend void TrackAdd(clsTrackInfo& tracker);
    friend void TrackRemove(clsTrackInfo& tracker);
    void RaiseDrop(const QStringList& files);

    QTimer rest_;
    Controls::WheelNotches notches_;
    bool over_ = false;
    bool first_ = true;
};

/// Starts tracking tracker.hwnd; the window accepts dropped files from now on.
void TrackAdd(clsTrackInfo& tracker);
/// Ends it; must be called before the window goes.
void TrackRemove(clsTrackInfo& tracker);
/// Asks the platform for hover and leave.
void TrackArm(clsTrackInfo& tracker);
/// The tracker of a window, or null.
clsTrackInfo* TrackOf(const QWidget* window);
int TrackCount();
