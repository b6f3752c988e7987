#pragma once
// What assistive tools read of a strip: its lines as items.

class QAccessibleInterface;
class QObject;

/// For UseOwnInterface.
QAccessibleInterface* MakeStripInterface(QObject* control);
