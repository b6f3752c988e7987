#pragma once
// Paints the pages of a print job, on the screen, on paper and into a PDF alike.

#include "output/print_document.h"

#include <QString>

class QPainter;

/// Millimetres that a text takes, the same whatever is painted on.
double PrintTextWidth(const QString& text, PrintFont font);

/// Paints a page with its sheet's corner at the painter's origin.
void PaintPage(QPainter& p, const PrintDocument& document, const PrintPage& page, double pixelsPerMm);
