#pragma once
// How a measured child ends: it tells when its window was at rest and how much memory that took.

#include "tools/bench/measure.h"

#include <cstdio>
#include <cstdlib>

/// started: the moment at which the parent started this process, as it was passed on.
inline void TellStart(const char* started) {
    std::printf("%.3f %.3f\n", Moment() - std::atof(started), PeakMemory());
    std::fflush(stdout);
}
