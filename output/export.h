#pragma once
// One list as web pages, a text file or a spreadsheet.

#include "output/export_table.h"
#include "store/job.h"

enum class ExportFormat { web, text, sheet };

/// Writes the table below the folder of exports and asks what to open. Refuses while a job runs; says so when
/// the list is empty or the folder cannot be made. A stop ends it with the rows written so far. The files
/// that were written, in order.
QStringList Export(const ExportTable& table, ExportFormat format, const JobBar& bar);
