#pragma once
// The signals that ask the program to end.

#include <functional>

/// From now on TERM, INT and HUP run stop in the event loop, once.
void OnEndSignal(const std::function<void()>& stop);
