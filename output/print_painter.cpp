#include "output/print_painter.h"

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// Texts are set in hundredths of a millimetre and scaled to the device, so that every device breaks and
// places them alike.
constexpr double kUnits = 100;
constexpr double kMmPerPoint = 25.4 / 72;
constexpr double kNarrowest = 0.5;  // millimetres of the narrowest letter
constexpr double kFaintest = 0.5;
constexpr size_t kFonts = 3;

// This family's letters come out of a PDF as the same characters that went in.
QFont MakeFont(PrintFont which) {
    const auto traits = TraitsOf(which);
    QFont font;
    font.setFamilies({u"WenQuanYi Micro Hei"_s, traits.family});
    font.setPixelSize(static_cast<int>(std::lround(traits.points * kMmPerPoint * kUnits)));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

const QFont& FontOf(PrintFont which) {
    static const std::array<QFont, kFonts> fonts{MakeFont(PrintFont::title), MakeFont(PrintFont::standard),
                                                 MakeFont(PrintFont::list)};
    return fonts.at(static_cast<size_t>(which));
}

int FlagOf(PrintAlign align) {
    switch (align) {
        case PrintAlign::right:
            return Qt::AlignRight;
        case PrintAlign::centre:
            return Qt::AlignHCenter;
        case PrintAlign::left:
            break;
    }
    return Qt::AlignLeft;
}

// Whole pixels of the device, so that a line is never blurred. One thinner than a pixel is fainter instead.
void PaintLine(QPainter& p, const PrintLine& line, double k) {
    const double told = TraitsOf(line.pen).width * k, wide = std::max(1.0, std::round(told));
    const auto at = [&](double mm) { return std::round(mm * k - wide / 2); };
    QColor ink(Qt::black);
    ink.setAlphaF(static_cast<float>(std::clamp(told, kFaintest, 1.0)));
    p.fillRect(
        QRectF(at(line.x), at(line.y), at(line.x2) - at(line.x) + wide, at(line.y2) - at(line.y) + wide),
        ink);
}

// As much of a text from its beginning as fits, in whole letters.
double WidthThatFits(const QFontMetricsF& metrics, const QString& text, double room) {
    qsizetype good = 0, bad = text.size();
    while (bad - good > 1) {
        const qsizetype middle = (good + bad) / 2;
        (metrics.horizontalAdvance(text, static_cast<int>(middle)) <= room ? good : bad) = middle;
    }
    return metrics.horizontalAdvance(text, static_cast<int>(good));
}

// Too wide for its cell: a text shows its beginning, a figure is set narrower, since it must not lose a
// digit.
void PaintTooWide(QPainter& p, const QRectF& r, const QString& shown, double wide, bool figure) {
    p.save();
    if (figure) {
        p.translate(r.topLeft());
        p.scale(r.width() / wide, 1);
    } else {
        const double fits = WidthThatFits(QFontMetricsF(p.font()), shown, r.width());
        p.setClipRect(QRectF(r.topLeft(), QSizeF(fits, r.height())), Qt::IntersectClip);
        p.translate(r.topLeft());
    }
    p.drawText(QRectF(0, 0, wide, r.height()), Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip,
               shown);
    p.restore();
}

void PaintText(QPainter& p, const PrintText& text, double room) {
    const bool bounded = text.w > 0;
    const QRectF r(text.x * kUnits, text.y * kUnits, (bounded ? text.w : room) * kUnits,
                   LineHeightOf(text.font) * kUnits);
    const QString shown = text.text.left(static_cast<qsizetype>(r.width() / kUnits / kNarrowest) + 1);
    const QFont& font = FontOf(text.font);
    p.setFont(font);
    const double wide = bounded ? QFontMetricsF(font).horizontalAdvance(shown) : 0;
    if (wide > r.width()) return PaintTooWide(p, r, shown, wide, text.align == PrintAlign::right);
    p.drawText(r, FlagOf(text.align) | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

}  // namespace

double PrintTextWidth(const QString& text, PrintFont font) {
    return QFontMetricsF(FontOf(font)).horizontalAdvance(text) / kUnits;
}

void PaintPage(QPainter& p, const PrintDocument& document, const PrintPage& page, double pixelsPerMm) {
    p.save();
    p.setClipRect(QRectF(0, 0, document.Width() * pixelsPerMm, document.Height() * pixelsPerMm),
                  Qt::IntersectClip);
    for (const auto& item : page.items)
        if (const auto* line = std::get_if<PrintLine>(&item)) PaintLine(p, *line, pixelsPerMm);
    p.scale(pixelsPerMm / kUnits, pixelsPerMm / kUnits);
    p.setPen(Qt::black);
    for (const auto& item : page.items)
        if (const auto* text = std::get_if<PrintText>(&item)) PaintText(p, *text, document.Width() - text->x);
    p.restore();
}
