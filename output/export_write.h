#pragma once
// The three writers of an export. Each writes the rows in their order until the job is stopped, and answers
// the files.

#include "output/export_table.h"
#include "store/job.h"

QStringList WriteWebPages(const ExportTable& table, Job& job);
QStringList WriteTextFile(const ExportTable& table, Job& job);
QStringList WriteSheetFile(const ExportTable& table, Job& job);

/// A cell as files show it: money in groups of digits.
QString ShownCell(const ExportColumn& column, const QString& cell);
