#include "output/export_write.h"
#include "output/web_page.h"
#include "store/dates.h"
#include "store/text.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kHeadRoom = 12, kBodyRoom = 13;  // columns of the markup stand under each other

QString WidthPart(const ExportColumn& column, int room) {
    const QString width =
        column.webWidth > 0 ? u"width='"_s + QString::number(column.webWidth) + u'\'' : QString();
    return width.leftJustified(room, u' ');
}

QString SideName(Side side) {
    if (side == Side::centre) return u"center"_s;
    return side == Side::right ? u"right"_s : u"left"_s;
}

QString HeadOf(const ExportTable& table) {
    QString head = u"<tr><td colspan='"_s + QString::number(table.webSpan) + u"'>"_s +
                   PageText(table.webHeading) + NowText() + u"</td></tr>"_s +
                   (table.webHeadToLeft ? u"<tr align='left'>"_s : u"<tr>"_s);
    for (const auto& column : table.columns)
        head += u"<td class='sa2' "_s + WidthPart(column, kHeadRoom) + u"align='"_s +
                SideName(column.webSide) + u"'>"_s +
                (column.webTitle.isEmpty() ? column.title : column.webTitle) + u"</td>"_s;
    return head + u"</tr>"_s;
}

/// The starts of a row's cells; rows alternate between two classes.
std::vector<QByteArray> StartsOf(const ExportTable& table, int parity) {
    std::vector<QByteArray> starts;
    for (const auto& column : table.columns) {
        QString start =
            u"<td "_s + WidthPart(column, kBodyRoom) + u"class='s"_s + QString::number(parity) + u'\'';
        if (column.kind != CellKind::number) start += u" align='"_s + SideName(column.webSide) + u'\'';
        starts.push_back((start + u'>').toLatin1());
    }
    return starts;
}

QString PageCell(const ExportColumn& column, const QString& cell) {
    if (cell.isEmpty()) return u"&nbsp;"_s;
    if (column.kind == CellKind::money) return ShownCell(column, cell);
    QString text = PageText(OneLine(cell));
    if (column.keepBlanks) text.replace(u"  "_s, u"&nbsp;"_s);
    return text;
}

}  // namespace

QStringList WriteWebPages(const ExportTable& table, Job& job) {
    const std::vector<QByteArray> starts[] = {StartsOf(table, 0), StartsOf(table, 1)};
    const int count = static_cast<int>(table.rows.size());
    WebPages pages(table.webStem, HeadOf(table), PageCount(count, RowsPerPage()), RowsPerPage());
    for (int i = 0; i < count && !job.Stopped(); ++i) {
        const auto& cells = table.rows[static_cast<size_t>(i)];
        QByteArray& row = pages.BeginRow();
        row += "<tr>";
        for (size_t c = 0; c < table.columns.size(); ++c) {
            row += starts[i % 2][c];
            row += PageBytes(PageCell(table.columns[c], cells.Text(static_cast<int>(c))));
            row += "</td>";
        }
        row += "</tr>";
        job.Step(i + 1);
    }
    return pages.Close();
}
