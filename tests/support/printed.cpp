#include "tests/support/printed.h"

using namespace Qt::StringLiterals;

QStringList Printed(const PrintPage& page) {
    static const QString aligns[] = {u"left"_s, u"right"_s, u"centre"_s};
    const auto at = [](double x, double y) { return u"%1,%2"_s.arg(x).arg(y); };
    QStringList printed;
    for (const auto& item : page.items) {
        if (const auto* text = std::get_if<PrintText>(&item))
            printed << at(text->x, text->y) + u" w%1 "_s.arg(text->w) +
                           aligns[static_cast<size_t>(text->align)] + u' ' + TraitsOf(text->font).name +
                           u' ' + text->text;
        else if (const auto* line = std::get_if<PrintLine>(&item))
            printed << at(line->x, line->y) + u" to "_s + at(line->x2, line->y2) + u' ' +
                           TraitsOf(line->pen).name;
    }
    return printed;
}

QStringList Texts(const PrintPage& page, PrintFont font) {
    QStringList texts;
    for (const auto& item : page.items)
        if (const auto* text = std::get_if<PrintText>(&item); text && text->font == font) texts << text->text;
    return texts;
}

PrintRun RunLayout(const std::vector<PrintInfo>& documents) {
    PrintRun run;
    Job job;
    run.document = PrintAll(
        State().gDB, documents, job,
        {.textWidth = [](const QString& text, PrintFont) { return 2.0 * static_cast<double>(text.size()); },
         .progress = [&](int value, int maximum,
                         int state) { run.progress << u"%1,%2,%3"_s.arg(value).arg(maximum).arg(state); }});
    return run;
}
