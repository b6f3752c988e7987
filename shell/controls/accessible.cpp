#include "shell/controls/accessible.h"

#include <QAccessible>
#include <QWidget>

#include <map>

namespace {

using Maker = QAccessibleInterface* (*)(QObject*);

std::map<const QObject*, Maker>& Makers() {
    static std::map<const QObject*, Maker> makers;
    return makers;
}

QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    const auto found = Makers().find(object);
    return found == Makers().end() ? nullptr : found->second(object);
}

}  // namespace

void UseOwnInterface(QWidget* control, Maker make) {
    static bool installed = false;
    if (!installed) QAccessible::installFactory(MakeInterface);
    installed = true;
    Makers()[control] = make;
    QObject::connect(control, &QObject::destroyed, [control] { Makers().erase(control); });
    // Events of the base's constructor may have made an interface for the base.
    if (auto* early = QAccessible::queryAccessibleInterface(control))
        QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(early));
}
