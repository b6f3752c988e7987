#pragma once
// How a control that paints itself hands its own interface to assistive tools.

class QAccessibleInterface;
class QObject;
class QWidget;

/// Called by the constructor of such a control, at its end: until then the toolkit takes it for its base.
/// make gets the control whenever its interface is wanted.
void UseOwnInterface(QWidget* control, QAccessibleInterface* (*make)(QObject* control));
