#include "output/export.h"

#include "output/export_files.h"
#include "output/export_write.h"
#include "store/messages.h"

using namespace Qt::StringLiterals;

namespace {

QString NothingToExport(const ExportTable& table, ExportFormat format) {
    if (format == ExportFormat::web) return table.noneOnWeb;
    return format == ExportFormat::text ? table.noneInText : table.noneInSheet;
}

QStringList Write(const ExportTable& table, ExportFormat format, Job& job) {
    if (format == ExportFormat::web) return WriteWebPages(table, job);
    return format == ExportFormat::text ? WriteTextFile(table, job) : WriteSheetFile(table, job);
}

}  // namespace

ExportColumn NumberColumn() {
    return {.title = u"No"_s, .kind = CellKind::number, .webWidth = 40, .textWidth = 6, .sheetWidth = 6};
}

ExportColumn MoneyColumn(const QString& title, int webWidth) {
    return {.title = title,
            .kind = CellKind::money,
            .webSide = Side::right,
            .webWidth = webWidth,
            .textWidth = 15,
            .sheetWidth = 12};
}

QStringList Export(const ExportTable& table, ExportFormat format, const JobBar& bar) {
    Job job(bar);
    if (job.Refused()) return {};
    if (table.rows.empty()) {
        ShowMsg(NothingToExport(table, format));
        return {};
    }
    if (!EnsureExportFolder(format == ExportFormat::web)) return {};
    job.Start(static_cast<int>(table.rows.size()));
    auto files = Write(table, format, job);
    if (job.Stopped()) TellStopped();
    OfferToOpen(files.value(0), format == ExportFormat::sheet ? table.sheetQuestion : table.question);
    return files;
}
