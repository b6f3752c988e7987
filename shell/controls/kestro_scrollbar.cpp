#include "shell/controls/kestro_scrollbar.h"

#include "shell/controls/kestro_style.h"

#include <QAbstractScrollArea>

KestroScrollbar::KestroScrollbar(Qt::Orientation orientation, QWidget* parent, int breadth)
    : QScrollBar(orientation, parent), breadth_(breadth) {
    setStyle(KestroStyle::Shared());
    setAttribute(Qt::WA_Hover);
}

QSize KestroScrollbar::sizeHint() const {
    const QSize told = QScrollBar::sizeHint();
    return orientation() == Qt::Vertical ? QSize(breadth_, told.height()) : QSize(told.width(), breadth_);
}

void UseKestroScrollbars(QAbstractScrollArea* area) {
    area->setVerticalScrollBar(new KestroScrollbar(Qt::Vertical, area));
    area->setHorizontalScrollBar(new KestroScrollbar(Qt::Horizontal, area));
}
