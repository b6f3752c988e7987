#pragma once
// Small things that the controls share.

#include <QElapsedTimer>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QString>

class QPainter;
class QRect;
class QWheelEvent;
class QWidget;

namespace Controls {
/// The control under its name, and with the words by which it is read out.
template <class Control>
Control* Named(Control* control, const QString& name, const QString& words) {
    control->setObjectName(name);
    control->setAccessibleName(words);
    return control;
}

/// Focus that came by key shows itself.
inline bool CameByKey(const QFocusEvent& event) {
    return event.reason() == Qt::TabFocusReason || event.reason() == Qt::BacktabFocusReason ||
           event.reason() == Qt::ShortcutFocusReason;
}

/// Enter belongs to the window, unless the focus came to the control by key. Desktops whose theme presses
/// every button by Enter are overruled: such a key goes on.
inline bool IsEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

/// Turns of a wheel in whole notches. Smooth wheels send many small steps, which add up; what turns sideways
/// alone does not count.
class WheelNotches {
 public:
    /// Notches since the last whole one: above 0 away from the user.
    int Take(const QWheelEvent& event);

 private:
    int sum_ = 0;
};

/// Letters typed one after the other without a pause: what a search by typing looks for.
class TypeAhead {
 public:
    /// The letters so far with these.
    QString Add(const QString& letters);
    /// A first letter looks on from the next row, a longer text from the one that stands.
    bool IsFirst() const { return typed_.size() <= 1; }
    /// Whether a blank belongs to a text that is being typed.
    bool IsRunning() const;

 private:
    QString typed_;
    QElapsedTimer pause_;
};

/// An icon of the set centred in r, for the ground that suits the widget's state; one that is not active is
/// painted as disabled.
void PaintIcon(QPainter& p, const QWidget& widget, const QRect& r, const QString& name, int size,
               bool active = true);
}  // namespace Controls
