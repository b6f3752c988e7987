#pragma once
// The pages of a print job as drawing lists: texts and lines in millimetres from the sheet's upper left
// corner. Whoever paints them needs no book.

#include <QString>

#include <variant>
#include <vector>

enum class PrintFont { title, standard, list };
enum class PrintPen { thin, strong };
enum class PrintAlign { left, right, centre };

/// A text of one line. Its line is 10 high in the title's font, otherwise 6, with the letters in its middle.
struct PrintText {
    double x = 0, y = 0;
    double w = 0;  ///< width that it is drawn within; 0: as far as it goes
    PrintAlign align = PrintAlign::left;
    PrintFont font = PrintFont::standard;
    QString text;
};

struct PrintLine {
    double x = 0, y = 0, x2 = 0, y2 = 0;
    PrintPen pen = PrintPen::thin;
};

using PrintItem = std::variant<PrintText, PrintLine>;

struct PrintPage {
    std::vector<PrintItem> items;
};

struct PrintDocument {
    bool turned = false;  ///< the sheets lie on their side
    std::vector<PrintPage> pages{1};
    double Width() const { return turned ? 297 : 210; }
    double Height() const { return turned ? 210 : 297; }
};

struct PrintFontTraits {
    QString name;
    QString family;
    int points;
};
PrintFontTraits TraitsOf(PrintFont font);
double LineHeightOf(PrintFont font);

struct PrintPenTraits {
    QString name;
    double width;  ///< millimetres
};
PrintPenTraits TraitsOf(PrintPen pen);
