#pragma once
// The menu of every box that holds text: 撤消, 剪切, 复制, 粘贴, 全选, enabled as the box stands.

#include <QPoint>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <functional>

/// How a box stands when its menu opens.
struct TextMenuState {
    bool canUndo = false;
    bool readOnly = false;
    bool masked = false;  ///< its text must not leave it
    bool hasSelection = false;
    bool isEmpty = false;
};

/// Does a key of the menu in a box: textundo, textcut, textcopy, textpaste, textselect; others do nothing.
template <class Box>
void DoTextMenu(Box& box, const QString& key) {
    if (key == QStringLiteral("textundo")) box.undo();
    if (key == QStringLiteral("textcut")) box.cut();
    if (key == QStringLiteral("textcopy")) box.copy();
    if (key == QStringLiteral("textpaste")) box.paste();
    if (key == QStringLiteral("textselect")) box.selectAll();
}

/// Shows the menu at a point of the screen and returns at once; the chosen key goes to act.
void ShowTextMenu(QWidget* owner, const TextMenuState& state, QPoint at,
                  std::function<void(const QString& key)> act);

/// The menu for box, which may go while it is up.
template <class Box>
void ShowTextMenuOf(Box* box, const TextMenuState& state, QPoint at) {
    ShowTextMenu(box, state, at, [box = QPointer<Box>(box)](const QString& key) {
        if (box) DoTextMenu(*box, key);
    });
}
