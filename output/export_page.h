#pragma once
// What pages need to export a list: the lines on show, and the format behind an act.

#include "output/export_table.h"
#include "shell/actions.h"
#include "store/job.h"

class KestroList;

/// The cells of a list in the order on show.
std::vector<RowTexts> RowsOnShow(const KestroList& list);

bool IsExport(Act act);
/// Exports in the format that the act asks for.
void ExportFor(Act act, const ExportTable& table, const JobBar& bar);
