#pragma once
// A list as it leaves the program: columns, rows and the words around them, as plain values. Who exports a
// list fills one; the writers know no list.

#include "store/row_texts.h"

#include <QString>
#include <QStringList>

#include <vector>

enum class CellKind {
    text,
    number,  ///< the running number: a number in a spreadsheet
    money    ///< grouped by digits; empty stays empty
};

enum class Side { left, centre, right };

struct ExportColumn {
    QString title;
    CellKind kind = CellKind::text;
    Side webSide = Side::left;
    int webWidth = 0;         ///< pixels on a web page; 0 takes what is left
    int textWidth = 0;        ///< places in a text file; a Chinese character takes two
    double sheetWidth = 0;    ///< characters in a spreadsheet
    QString webTitle = {};    ///< where a web page calls it otherwise
    bool keepBlanks = false;  ///< runs of blanks stand on a web page too
};

/// The columns that every list has: the running number, and amounts.
ExportColumn NumberColumn();
ExportColumn MoneyColumn(const QString& title, int webWidth);

struct ExportTable {
    QString webStem;   ///< pages are webStem_1.html and on
    QString fileStem;  ///< of the text file and the spreadsheet
    QString webHeading;
    QString textHeading;
    bool timeInText = true;                      ///< the text heading ends in the present time
    bool gapUnderHead = true;                    ///< an empty line under the headings of a text file
    int webSpan = 7;                             ///< columns that the heading of a web page goes over
    bool webHeadToLeft = false;                  ///< the row of headings says so itself
    QString noneOnWeb, noneInText, noneInSheet;  ///< what is said of an empty list
    QString question;            ///< "%1" is the file; what to open, after a web page or a text file
    QString sheetQuestion;       ///< the same after a spreadsheet
    bool groupsInSheet = false;  ///< amounts stand in groups of digits in a spreadsheet too
    QString sheetHint;           ///< why a spreadsheet could not be written, as far as one can tell
    std::vector<ExportColumn> columns;
    std::vector<RowTexts> rows;  ///< texts as the list holds them, ungrouped
};

inline const QString kAskWhatToOpen =
    QStringLiteral("文件已导出到【%1】是要打开【文件】还是打开文件所在【目录】,还是【取消】?");
