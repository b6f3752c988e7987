#pragma once
// The round corners of a framed list. Header and rows are square and lie over the frame, so each paints its
// share of the corners itself.

class QPainter;
class QRect;
class QWidget;

/// frame is the whole control's rectangle in the painter's coordinates; of is the control.
void PaintCorners(QPainter& p, const QRect& frame, const QWidget* of, bool marked);
/// The frame itself, for the paint event of the control, with the heading's ground in its first headHeight
/// pixels. marked says that the focus is here and nothing else inside shows it.
void PaintFrame(QPainter& p, const QRect& frame, bool marked, int headHeight = 0);
