#pragma once
// What assistive tools read of the controls that paint themselves: names, roles, states, and pressing.

/// Once for the program, before its first window.
void InstallControlInterfaces();
