#pragma once
// All menus of the program under their names, without a frame: who needs a menu pops it up, and the choice
// goes to one slot. Names and keys are compared in lower case and reported so. The
// menu of text boxes is not among them: shell/parts/text_menu.h.

#include <QPoint>
#include <QString>

#include <functional>

namespace Menus {
using Handler = std::function<void(const QString& menu, const QString& item)>;

/// Adds an empty menu; one of the same name is emptied.
void AddMenu(const QString& name);
/// can is asked each time the menu opens and before the item acts; without it the item can be chosen.
void AddItem(const QString& menu, const QString& key, const QString& caption, const QString& icon = {},
             const QString& hint = {}, std::function<bool()> can = {});
void AddSeparator(const QString& menu, const QString& key = {});
/// An item of menu that opens the menu subMenu beside it; a choice there is reported under subMenu's name.
void AddSubMenu(const QString& menu, const QString& subMenu, const QString& caption,
                const QString& icon = {});

/// Ticks an item or takes its tick away.
void SetItemChecked(const QString& menu, const QString& key, bool on);

/// Shows a menu; an unknown or empty one does nothing. Returns at once.
void Popup(const QString& name, const QPoint& globalPos);

/// Replaces the slot that hears every choice; an empty one lets choices pass unheard.
void SetOnMenu(Handler handler);
/// Reports a choice as if it had been made in the menu. An item that stands disabled is not reported.
void Choose(const QString& menu, const QString& item);

/// Empties menus and slot.
void Reset();
}  // namespace Menus
