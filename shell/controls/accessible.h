#pragma once
// Controls that paint themselves have interfaces of their own for assistive tools (control_interfaces.h).

class QWidget;

/// Called by the constructor of such a control, at its end: until then the toolkit takes it for its base.
void UseOwnInterface(QWidget* control);
