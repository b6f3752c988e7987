#pragma once
// A finished report as it leaves the program.

#include "output/export_table.h"
#include "stats/report_mode.h"

/// rows: the five cells of each line, in the order on show. caption heads the file.
ExportTable ReportExport(ReportMode mode, const QString& caption, std::vector<RowTexts> rows);
