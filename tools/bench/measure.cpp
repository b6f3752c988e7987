#include "tools/bench/measure.h"

#include <algorithm>
#include <chrono>
#include <fstream>

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double Moment() {
    using std::chrono::duration;
    return duration<double, std::milli>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double MedianTime(int runs, const std::function<double()>& once) {
    std::vector<double> times;
    for (int run = 0; run <= runs; ++run) {
        const double time = once();
        if (run > 0) times.push_back(time);
    }
    return Median(times);
}

double Milliseconds(const std::function<void()>& body) {
    const double start = Moment();
    body();
    return Moment() - start;
}

Pair InTurns(int runs, const std::function<void()>& ours, const std::function<void()>& raw) {
    std::vector<double> ourTimes;
    std::vector<double> rawTimes;
    for (int run = 0; run <= runs; ++run) {
        const double ourTime = Milliseconds(ours);
        const double rawTime = Milliseconds(raw);
        if (run == 0) continue;
        ourTimes.push_back(ourTime);
        rawTimes.push_back(rawTime);
    }
    return {Median(ourTimes), Median(rawTimes)};
}

double PeakMemory(const std::string& process) {
    std::ifstream status("/proc/" + process + "/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmHWM:", 0) == 0) return std::stod(line.substr(6)) / 1024;
    return 0;
}
