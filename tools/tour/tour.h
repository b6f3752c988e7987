#pragma once
// Plays the program step by step on the event loop, as a user would, and takes pictures of what it passes.

#include <QElapsedTimer>
#include <QTimer>

#include <deque>
#include <functional>

class QWidget;

class Tour {
 public:
    explicit Tour(QString pictureFolder) : folder_(std::move(pictureFolder)) {}

    /// A step waits until ready answers a window, then acts on it.
    using Ready = std::function<QWidget*()>;
    using Act = std::function<void(QWidget*)>;
    void Add(const QString& name, Ready ready, Act act);
    /// Runs the steps; the program ends with code 0 after the last one, 1 when one never becomes ready.
    void Start();
    /// Writes a picture of the window as NAME.png.
    void Picture(QWidget* window, const QString& name);
    /// Ends with a message and exit code 1.
    void Fail(const QString& why);
    bool Failed() const { return failed_; }

 private:
    struct Step {
        QString name;
        Ready ready;
        Act act;
    };
    void Tick();

    QString folder_;
    std::deque<Step> steps_;
    QTimer timer_;
    QElapsedTimer waiting_;
    bool acting_ = false;
    bool failed_ = false;
    int shots_ = 0;
};

/// The window in front: the modal one, or any that has a control of this name.
QWidget* WindowWith(const char* control);
/// A control of a window by its object name; ends the process when it is missing.
QWidget* Control(QWidget* window, const char* name);
/// The tab of the main window with this caption.
QWidget* Tab(QWidget* window, const QString& caption);
/// The message box in front, when its main button says so.
QWidget* MessageWith(const QString& button);
void Click(QWidget* control);
void ClickAt(QWidget* control, QPoint at);
void Key(QWidget* control, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// ASCII by keys, everything else as an input method commits it.
void TypeText(QWidget* control, const QString& text);
