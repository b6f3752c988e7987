#include "output/print_document.h"

using namespace Qt::StringLiterals;

PrintFontTraits TraitsOf(PrintFont font) {
    switch (font) {
        case PrintFont::title:
            return {u"TitleFont"_s, u"宋体"_s, 16};
        case PrintFont::standard:
            return {u"DefaultFont"_s, u"Arial"_s, 10};
        case PrintFont::list:
            break;
    }
    return {u"ListFont"_s, u"Arial"_s, 8};
}

double LineHeightOf(PrintFont font) {
    return font == PrintFont::title ? 10 : 6;
}

PrintPenTraits TraitsOf(PrintPen pen) {
    if (pen == PrintPen::thin) return {u"BlackPen_01"_s, 0.2};
    return {u"BlackPen_00"_s, 0.3};
}
