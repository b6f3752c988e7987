#pragma once
// What assistive tools read of a chooser.

class QAccessibleInterface;
class QObject;

/// For UseOwnInterface.
QAccessibleInterface* MakeChooserInterface(QObject* control);
