#include "shell/controls/accessible.h"

#include <QAccessible>
#include <QWidget>

void UseOwnInterface(QWidget* control) {
    // Events of the base's constructor may have made an interface for the base.
    if (auto* early = QAccessible::queryAccessibleInterface(control))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(early));
}
