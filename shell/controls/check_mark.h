#pragma once
// The box of a check, as KestroCheck and the lists paint it.

#include <QRectF>

class QPainter;

struct CheckLook {
    bool on = false;
    bool partly = false;  ///< some of many
    bool hover = false;
    bool pressed = false;
    bool enabled = true;
};

/// box is 16 x 16.
void PaintCheckMark(QPainter& p, const QRectF& box, const CheckLook& look);
