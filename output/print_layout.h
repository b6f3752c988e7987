#pragma once
// Lays a print job out on pages: from the rows of tPrint and of the book to texts and lines in millimetres.

#include "output/print_document.h"
#include "output/print_info.h"
#include "store/connection.h"
#include "store/job.h"

#include <functional>
#include <vector>

struct PrintSlots {
    /// Millimetres that a text takes.
    std::function<double(const QString& text, PrintFont font)> textWidth;
    /// Told to the caller: (n, n, 0) before a document whose rows take about n pages, (page, n, 1) when a
    /// page is full, (n, n, 2) when all is laid out. May be empty.
    std::function<void(int value, int maximum, int state)> progress = {};
};

/// All documents one below the other, with header and footer. Reads under job; when it was stopped, or the
/// question at the 99th page was answered with 否, the pages hold what has been laid out until then. A
/// document without rows of tPrint, or whose columns the table does not have, prints its title alone.
PrintDocument PrintAll(cConnection& book, const std::vector<PrintInfo>& documents, Job& job,
                       const PrintSlots& slots);
