#pragma once
// The four reports of the statistics page: which chart they ask, whether by period, and their words.

#include "store/chart.h"
#include "store/period.h"

#include <QString>

#include <optional>
#include <vector>

enum class ReportMode { date, kind, accdate, acckind };

struct ReportModeRow {
    ReportMode mode;
    QString key;
    QString title;  ///< the mode's own name, its caption before the first run
    Chart chart;
    bool byPeriod;  ///< one code in each of its periods; otherwise all codes in one period
    QString table;  ///< the work table that holds its last report
};

/// The four rows in the order of ReportMode.
const std::vector<ReportModeRow>& ReportModes();
const ReportModeRow& ModeRow(ReportMode mode);
std::optional<ReportMode> ModeOfKey(const QString& key);

/// A finished report: five cells a line, as the list shows them.
struct Report {
    QString caption;
    std::vector<std::vector<QString>> lines;
    bool stopped = false;  ///< the user has ended it; what lines hold stands in the work table too
};

/// The bounds as a caption names them: "2016-01-01 到 ？", 所有日期.
QString PeriodText(const Period& period);
