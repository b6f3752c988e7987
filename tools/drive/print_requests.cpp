// The driver's request that lays out and prints.

#include "chart/codes.h"
#include "ledger/list_print.h"
#include "ledger/record_query.h"
#include "output/print_layout.h"
#include "output/print_painter.h"
#include "output/print_target.h"
#include "store/state.h"
#include "tools/drive/request.h"

using namespace Qt::StringLiterals;

namespace {

// What the page's chooser would show.
QString ChosenText(const EntryFilter& filter, Chart chart) {
    if (filter.kind == u"all") return u"全部"_s;
    return filter.kind + NameByCode(State().gDB, filter.kind, chart);
}

// The documents of the request, or what is wrong with it.
struct Asked {
    std::vector<PrintInfo> documents;
    QString wrong;
};

Asked AskedFor(const QJsonObject& r) {
    if (r.contains(u"info"_s)) return {ParsePrintInfo(r[u"info"].toString()), {}};
    const QString list = r[u"list"].toString();
    const auto checked = IdsOf(r, u"checked"_s);
    if (r.contains(u"checked"_s) && !checked) return {{}, u"bad field: checked"_s};
    const auto filter = FilterOf(r);
    if (list == u"entries")
        return {{EntryPrintInfo(BuildEntryQuery(filter), ChosenText(filter, Chart::kinds), checked)}, {}};
    if (list == u"records")
        return {{RecordPrintInfo(BuildRecordQuery(filter), ChosenText(filter, Chart::accounts), checked)},
                {}};
    return {{}, list.isEmpty() ? u"missing field: info"_s : u"bad field: list"_s};
}

QJsonObject ItemOf(qsizetype page, const PrintItem& item) {
    QJsonObject told{{u"page"_s, page}};
    if (const auto* text = std::get_if<PrintText>(&item)) {
        told[u"kind"] = u"text"_s;
        told[u"x"] = text->x;
        told[u"y"] = text->y;
        told[u"w"] = text->w;
        told[u"align"] = static_cast<int>(text->align);
        told[u"font"] = TraitsOf(text->font).name;
        told[u"text"] = text->text;
    } else if (const auto* line = std::get_if<PrintLine>(&item)) {
        told[u"kind"] = u"line"_s;
        told[u"x"] = line->x;
        told[u"y"] = line->y;
        told[u"x2"] = line->x2;
        told[u"y2"] = line->y2;
        told[u"pen"] = TraitsOf(line->pen).name;
    }
    return told;
}

QJsonArray ItemsOf(const PrintDocument& document) {
    QJsonArray items;
    qsizetype number = 0;
    for (const auto& page : document.pages) {
        ++number;
        for (const auto& item : page.items)
            items.append(ItemOf(number, item));
    }
    return items;
}

void WritePdf(const QString& path, const PrintDocument& document) {
    Job job;
    auto target = PdfTarget(path, document);
    WritePages(target, document, job);
}

QJsonObject AnswerPrint(const QJsonObject& r) {
    const auto asked = AskedFor(r);
    if (!asked.wrong.isEmpty()) return Failure(asked.wrong);
    QJsonArray progress;
    const auto tell = [&](int value, int maximum, int state) {
        progress.append(QJsonArray{value, maximum, state});
    };
    PrintDocument document;
    {
        Job job;
        document =
            PrintAll(State().gDB, asked.documents, job, {.textWidth = PrintTextWidth, .progress = tell});
    }
    const int most = progress.last()[1].toInt();
    if (r.contains(u"pdf"_s)) WritePdf(r[u"pdf"].toString(), document);
    tell(most, most, 3);
    return {{u"ok"_s, true},
            {u"info"_s, PrintInfoText(asked.documents)},
            {u"pages"_s, static_cast<qint64>(document.pages.size())},
            {u"items"_s, ItemsOf(document)},
            {u"progress"_s, progress}};
}

}  // namespace

std::span<const Request> PrintRequests() {
    using enum FieldType;
    static const Request requests[] = {{u"print",
                                        {{u"info", text},
                                         {u"list", text},
                                         {u"pdf", text},
                                         {u"kind", text},
                                         {u"text", text},
                                         {u"date1", text},
                                         {u"date2", text},
                                         {u"mark", flag}},
                                        AnswerPrint}};
    return requests;
}
