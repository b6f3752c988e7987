#include "output/export_files.h"
#include "output/export_write.h"
#include "store/dates.h"
#include "store/money.h"
#include "store/state.h"
#include "store/text.h"

using namespace Qt::StringLiterals;

namespace {

const QString kBreak = u"\r\n"_s;

// The text of a number has no zeros at the end of a fraction.
QString NumberText(QString amount) {
    if (!amount.contains(u'.')) return amount;
    while (amount.endsWith(u'0'))
        amount.chop(1);
    if (amount.endsWith(u'.')) amount.chop(1);
    return amount;
}

}  // namespace

QString ShownCell(const ExportColumn& column, const QString& cell) {
    if (column.kind != CellKind::money || cell.isEmpty()) return cell;
    return GroupText(NumberText(cell), State().settings.nGroup, u","_s, u"0"_s);
}

QStringList WriteTextFile(const ExportTable& table, Job& job) {
    QString text = QChar(QChar::ByteOrderMark) + table.textHeading;
    if (table.timeInText) text += NowText();
    text += kBreak + kBreak;
    for (const auto& column : table.columns)
        text += PadByWidth(column.textWidth, column.title);
    text += table.gapUnderHead ? kBreak + kBreak : kBreak;
    int done = 0;
    for (const auto& row : table.rows) {
        for (size_t c = 0; c < table.columns.size(); ++c)
            text += PadByWidth(table.columns[c].textWidth,
                               OneLine(ShownCell(table.columns[c], row.Text(static_cast<int>(c)))));
        text += kBreak;
        job.Step(++done);
        if (job.Stopped()) break;
    }
    const QString path = ExportPath(table.fileStem + u".txt"_s);
    WriteWholeFile(path, text.toUtf8());
    return {path};
}
