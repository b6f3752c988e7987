#pragma once
// All kinds or all accounts in one period, each with what lies below it.

#include "stats/report_mode.h"
#include "store/connection.h"
#include "store/job.h"

#include <optional>

/// With a bound the sums of the rows in the period; without one the kept totals of the chart, and no row is
/// read. Every parent gets what its branch holds besides its own. Replaces tTjKind by the result. Nothing,
/// and nothing changed, when the job is stopped while the book is still being read.
std::optional<Report> StatAllByPeriod(cConnection& book, Chart chart, const Period& period, Job& job);
