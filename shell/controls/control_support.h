#pragma once
// Small things that the controls share.

#include <QFocusEvent>
#include <QString>

class QPainter;
class QRect;
class QWidget;

namespace Controls {
/// Focus that came by key shows itself.
inline bool CameByKey(const QFocusEvent& event) {
    return event.reason() == Qt::TabFocusReason || event.reason() == Qt::BacktabFocusReason ||
           event.reason() == Qt::ShortcutFocusReason;
}

/// An icon of the set centred in r, for the ground that suits the widget's state; one that is not active is
/// painted as disabled.
void PaintIcon(QPainter& p, const QWidget& widget, const QRect& r, const QString& name, int size,
               bool active = true);
}  // namespace Controls
