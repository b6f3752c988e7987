#pragma once
// KestroScrollbar: 10 wide (12 in the preview), a thumb without arrows, its track seen only under the
// pointer.

#include <QScrollBar>

class QAbstractScrollArea;

class KestroScrollbar : public QScrollBar {
 public:
    explicit KestroScrollbar(Qt::Orientation orientation, QWidget* parent = nullptr, int breadth = 10);
    QSize sizeHint() const override;

 private:
    int breadth_;
};

/// Gives a list, tree or edit box the program's scroll bars.
void UseKestroScrollbars(QAbstractScrollArea* area);
