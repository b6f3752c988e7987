#pragma once
// What assistive tools read of the controls that paint themselves: names, roles, states, and pressing.

class QWidget;

/// Called by the constructor of such a control, at its end: until then the toolkit takes it for its base.
void UseOwnInterface(QWidget* control);
