#include "output/export_files.h"
#include "output/export_write.h"
#include "output/xls_file.h"
#include "store/connection.h"
#include "store/money.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

// A spreadsheet program that has a file open keeps such a file beside it.
bool IsOpenElsewhere(const QString& path) {
    const QFileInfo file(path);
    return QFileInfo::exists(file.path() + u"/.~lock."_s + file.fileName() + u'#');
}

/// The number format that shows a value as its text has it; nothing where none does.
std::optional<QString> FormatOf(const QString& shown) {
    static const QRegularExpression plain(u"^-?\\d+(\\.\\d+)?$"_s),
        grouped(u"^-?\\d{1,3}(,\\d{3})*(\\.\\d+)?$"_s);
    const bool groups = shown.contains(u',') && grouped.match(shown).hasMatch();
    if (!groups && !plain.match(shown).hasMatch()) return {};
    const auto point = shown.indexOf(u'.');
    const QString decimals = point < 0 ? QString() : u'.' + QString(shown.size() - point - 1, u'0');
    return (groups ? u"#,##0"_s : u"0"_s) + decimals;
}

void AddMoney(XlsSheet& sheet, int row, int column, const QString& cell, const QString& shown) {
    XlsStyle style{.side = XlsSide::right};
    const auto format = FormatOf(shown);
    if (!format) return sheet.AddText(row, column, shown, style);
    style.format = *format;
    sheet.AddNumber(row, column, Val(cell), style);
}

void AddCellOf(XlsSheet& sheet, const ExportTable& table, size_t at, int row, const QString& cell) {
    if (cell.isEmpty()) return;
    const auto& what = table.columns[at];
    const int column = static_cast<int>(at);
    if (what.kind == CellKind::money)
        return AddMoney(sheet, row, column, cell, table.groupsInSheet ? ShownCell(what, cell) : cell);
    if (what.kind == CellKind::number) return sheet.AddNumber(row, column, Val(cell));
    sheet.AddText(row, column, cell);
}

}  // namespace

QStringList WriteSheetFile(const ExportTable& table, Job& job) {
    const QString path = ExportPath(table.fileStem + u".xls"_s);
    if (IsOpenElsewhere(path)) FailStatement(u"文件正被别的程序打开"_s, path, table.sheetHint);
    if (table.rows.size() >= XlsSheet::kMostRows)
        FailStatement(u"记录太多，表格容纳不下"_s, path, table.sheetHint);
    XlsSheet sheet;
    int column = 0;
    for (const auto& what : table.columns) {
        const bool money = what.kind == CellKind::money;
        sheet.SetWidth(column, what.sheetWidth);
        sheet.AddText(0, column++, what.title,
                      {.bold = true, .side = money ? XlsSide::centre : XlsSide::general});
    }
    int done = 0;
    for (const auto& cells : table.rows) {
        ++done;
        for (size_t c = 0; c < table.columns.size(); ++c)
            AddCellOf(sheet, table, c, done, cells.Text(static_cast<int>(c)));
        job.Step(done);
        if (job.Stopped()) break;
    }
    WriteWholeFile(path, sheet.File(), table.sheetHint);
    return {path};
}
