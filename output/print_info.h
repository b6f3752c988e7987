#pragma once
// What a list or an editor asks to be printed.

#include <QString>

#include <vector>

/// One document of a print job.
struct PrintInfo {
    QString table;  ///< the rows come from it; also names its rows of tPrint
    bool list = true;
    QString title = {};
    QString condition = {};  ///< follows " where 1 ", begins with " and "; may be empty
    QString mark = {};       ///< empty counts as "1": all rows of tPrint
    QString layout = {};     ///< whose rows of tPrint lay it out; empty: the table's own

    const QString& Layout() const { return layout.isEmpty() ? table : layout; }
};

/// "tAccount/1/title/condition/1": documents joined by "#", an empty mark left out. For showing and keeping;
/// a layout does not stand in it.
QString PrintInfoText(const std::vector<PrintInfo>& documents);

/// Reads such a text. "/" and "#" inside a title or a condition stay where they cannot be a border: a
/// document begins only where a name and 0 or 1 stand, a condition only with "and " or right behind the
/// title.
std::vector<PrintInfo> ParsePrintInfo(const QString& text);
