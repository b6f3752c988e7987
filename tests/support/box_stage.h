#pragma once
// A window with a box under test, and text as an input method commits it.

#include "shell/controls/kestro_text.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QVBoxLayout>

#include <utility>

inline void Commit(QWidget& box, const QString& text) {
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(&box, &event);
}

// A window with a box under test and another control for the focus to go to.
template <class Box>
struct Stage {
    template <class... Args>
    explicit Stage(Args&&... args)
        : box(new Box(std::forward<Args>(args)..., &window)), other(new KestroText({}, &window)) {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(box);
        layout->addWidget(other);
        window.show();
        QApplication::setActiveWindow(&window);
        box->setFocus();
    }

    QWidget window;
    Box* box;
    KestroText* other;
};
