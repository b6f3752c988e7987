#pragma once
// One kind or one account by year, month or day.

#include "stats/report_mode.h"
#include "store/connection.h"
#include "store/job.h"

#include <optional>

/// The values are the lengths that a date is cut to.
enum class PeriodLength { year = 4, month = 7, day = 10 };

struct PeriodQuestion {
    Chart chart = Chart::kinds;
    QString chosen;  ///< text of the chooser
    QString code;    ///< it and all below it count
    PeriodLength length = PeriodLength::month;
    Period period;
};

/// Increase and decrease from the sum of all amounts and the signed sum. The smaller side loses its fraction,
/// which stays on the larger side: half of their difference, rounded to a whole number with halves to even,
/// is halved once more without its rest.
struct SplitAmounts {
    double added = 0, reduced = 0;
};
SplitAmounts SplitSums(double all, double signedSum);

/// What is wrong with the choice of a kind or an account; empty when it is good.
QString WrongChoice(const PeriodQuestion& question);

/// Reads the sums of each period that has rows, in ascending order, and replaces tTjDate by them. Nothing,
/// and nothing changed, when the job is stopped while the book is still being read.
std::optional<Report> StatByPeriod(cConnection& book, const PeriodQuestion& question, Job& job);
