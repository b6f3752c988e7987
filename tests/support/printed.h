#pragma once
// What a layout holds, as lines of text.

#include "output/print_layout.h"
#include "tests/support/fixture.h"

#include <QStringList>

/// A page's items: "20,25 w0 left TitleFont 标题" and "20,47 to 206,47 BlackPen_01".
QStringList Printed(const PrintPage& page);
/// The texts of a font alone, in their order.
QStringList Texts(const PrintPage& page, PrintFont font);

struct PrintRun {
    PrintDocument document;
    QStringList progress;  ///< "value,maximum,state"
};
/// Lays documents out on the open book; each character counts 2 mm.
PrintRun RunLayout(const std::vector<PrintInfo>& documents);
