#pragma once
// The end of the program at the wish of the system: nothing is asked and nothing said.

#include <functional>

/// Stops a running job, cancels what is open, window by window, and runs end when nothing stands over the
/// window any more. What was half typed is not saved.
void CloseQuietly(const std::function<void()>& end);
