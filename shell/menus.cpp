#include "shell/menus.h"

#include "shell/controls/kestro_menu.h"
#include "store/errors.h"

#include <QApplication>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace Menus {
namespace {

struct Item {
    QString key;
    QString caption;
    QString icon = {};
    QString hint = {};
    std::function<bool()> can = {};
    bool separator = false;
    bool opensMenu = false;
    bool checked = false;
};

struct Menu {
    QString name;
    std::vector<Item> items;
};

struct Service {
    std::vector<Menu> menus;
    Handler onMenu;
};

Service& TheService() {
    static Service service;
    return service;
}

Menu* FindMenu(const QString& name) {
    const auto found = std::ranges::find(TheService().menus, name.toLower(), &Menu::name);
    return found == TheService().menus.end() ? nullptr : &*found;
}

Item* FindItem(const QString& menu, const QString& key) {
    Menu* const owner = FindMenu(menu);
    if (!owner) return nullptr;
    const auto found = std::ranges::find(owner->items, key.toLower(), &Item::key);
    return found == owner->items.end() ? nullptr : &*found;
}

void Add(const QString& menu, Item&& item) {
    item.key = item.key.toLower();
    if (Menu* const owner = FindMenu(menu)) owner->items.push_back(std::move(item));
}

bool IsEnabled(const Item& item) {
    return !item.can || item.can();
}

void Build(KestroMenu& menu, const Menu& told) {
    menu.onChoose = [name = told.name](const QString& key) { Choose(name, key); };
    for (const Item& item : told.items) {
        if (item.separator) {
            menu.AddSeparator(item.key);
            continue;
        }
        if (item.opensMenu) {
            const Menu* const below = FindMenu(item.key);
            KestroMenu* const shown = menu.AddSubMenu(item.key, item.caption, item.icon);
            if (below) Build(*shown, *below);
        } else {
            menu.AddItem(item.key, item.caption, item.icon, item.hint);
            menu.SetItemChecked(item.key, item.checked);
        }
        menu.SetItemEnabled(item.key, IsEnabled(item));
    }
}

}  // namespace

void AddMenu(const QString& name) {
    if (Menu* const there = FindMenu(name)) {
        there->items.clear();
    } else {
        TheService().menus.push_back({name.toLower(), {}});
    }
}

void AddItem(const QString& menu, const QString& key, const QString& caption, const QString& icon,
             const QString& hint, std::function<bool()> can) {
    Add(menu, {.key = key, .caption = caption, .icon = icon, .hint = hint, .can = std::move(can)});
}

void AddSeparator(const QString& menu, const QString& key) {
    Add(menu, {.key = key, .caption = {}, .separator = true});
}

void AddSubMenu(const QString& menu, const QString& subMenu, const QString& caption, const QString& icon) {
    Add(menu, {.key = subMenu, .caption = caption, .icon = icon, .opensMenu = true});
}

void SetItemChecked(const QString& menu, const QString& key, bool on) {
    if (Item* const item = FindItem(menu, key)) item->checked = on;
}

void Popup(const QString& name, const QPoint& globalPos) {
    const Menu* const told = FindMenu(name);
    if (!told || told->items.empty()) return;
    auto* const menu = new KestroMenu(QApplication::activeWindow());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setObjectName(told->name);
    Build(*menu, *told);
    menu->PopupAt(globalPos);
}

void SetOnMenu(Handler handler) {
    TheService().onMenu = std::move(handler);
}

void Choose(const QString& menu, const QString& item) {
    const QString name = menu.toLower(), key = item.toLower();
    const Item* const chosen = FindItem(name, key);
    if (chosen && !IsEnabled(*chosen)) return;
    RunEvent([handler = TheService().onMenu, name, key] {
        if (handler) handler(name, key);
    });
}

void Reset() {
    TheService() = {};
}

}  // namespace Menus
