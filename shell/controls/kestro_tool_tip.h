#pragma once
// KestroToolTip: the one tool tip of the program. Installed, it shows the tips of all widgets; a window may
// also show a text itself, under a key word that tells whether it is already up.

#include <QPoint>
#include <QString>
#include <QWidget>

namespace KestroToolTip {
/// Takes over the tips of every widget of the application; the second call does nothing.
void Install();

/// Shows text 12 below and right of globalPos, kept on its screen. The same key word with the same text stays
/// as it is. It hides when the pointer leaves owner (if given), on a click, a key or the wheel.
void Show(const QString& keyWord, const QString& text, const QPoint& globalPos, QWidget* owner = nullptr);
void Hide();
void Hide(const QString& keyWord);  ///< only if this key word is up
bool IsShown(const QString& keyWord);
QString ShownText();  ///< empty while hidden
}  // namespace KestroToolTip
