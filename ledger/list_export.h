#pragma once
// The two lists of the ledger as they leave the program.

#include "ledger/entry_delete.h"
#include "output/export_table.h"

/// rows: the cells of each line, in the order on show; those beyond the seventh are left out.
ExportTable LinesExport(LineKind lines, std::vector<RowTexts> rows);
