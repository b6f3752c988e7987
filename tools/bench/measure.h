#pragma once
// Times and memory of one process.

#include <functional>
#include <string>
#include <vector>

/// Middle value; of an even number of values the upper one.
double Median(std::vector<double> values);
/// Median of what once returns, after one call that does not count.
double MedianTime(int runs, const std::function<double()>& once);
/// Milliseconds that body takes.
double Milliseconds(const std::function<void()>& body);

/// Two sides of one comparison, as medians of runs that take turns, after one run of each that does not
/// count.
struct Pair {
    double ours = 0;
    double raw = 0;
};
Pair InTurns(int runs, const std::function<void()>& ours, const std::function<void()>& raw);

/// Largest resident size that a process has had, in MB; 0 for one that is gone.
double PeakMemory(const std::string& process = "self");

/// Milliseconds on the monotonic clock, which all processes of the machine share.
double Moment();
