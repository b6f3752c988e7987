#include "output/export_page.h"

#include "output/export.h"
#include "shell/controls/kestro_list.h"

std::vector<RowTexts> RowsOnShow(const KestroList& list) {
    std::vector<RowTexts> rows;
    rows.reserve(static_cast<size_t>(list.RowCount()));
    for (int row = 0; row < list.RowCount(); ++row)
        rows.push_back(list.TextsOf(row));
    return rows;
}

bool IsExport(Act act) {
    return act == Act::exportHtml || act == Act::exportText || act == Act::exportSheet;
}

void ExportFor(Act act, const ExportTable& table, const JobBar& bar) {
    const auto format = act == Act::exportHtml   ? ExportFormat::web
                        : act == Act::exportText ? ExportFormat::text
                                                 : ExportFormat::sheet;
    Export(table, format, bar);
}
