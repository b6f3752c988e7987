#pragma once
// A chart as it leaves the program: every row of its table, in the order of codes.

#include "output/export_table.h"
#include "store/chart.h"
#include "store/connection.h"

ExportTable ChartExport(cConnection& book, Chart chart);
