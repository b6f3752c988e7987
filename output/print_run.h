#pragma once
// The one road to paper for every page.

#include "output/print_info.h"

#include <functional>
#include <vector>

struct PrintJob {
    std::vector<PrintInfo> documents;
    bool preview = false;  ///< shows the pages first; otherwise they go straight to the printer
    /// How far it is: state -1 before it begins, 0 with the pages to come, 1 at each full page, 2 when all is
    /// laid out, 3 at the end, on every way out. May be empty.
    std::function<void(int value, int maximum, int state)> progress = {};
};

/// Lays the documents out and shows or prints them; returns when the preview has been left or all is printed.
/// Refuses with its box while another job runs, and is a job itself until it returns.
void RunPrint(const PrintJob& job);
