#include "shell/parts/text_menu.h"

#include "shell/controls/kestro_menu.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <utility>

using namespace Qt::StringLiterals;

void ShowTextMenu(QWidget* owner, const TextMenuState& state, QPoint at,
                  std::function<void(const QString& key)> act) {
    const auto* clipboard = QGuiApplication::clipboard()->mimeData();
    const bool mayTake = state.hasSelection && !state.masked;
    auto* menu = new KestroMenu(owner);
    menu->setObjectName(u"text"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [menu](const QString& key, const QString& caption, const QString& hint, bool enabled) {
        menu->AddItem(key, caption, {}, hint);
        menu->SetItemEnabled(key, enabled);
    };
    add(u"textundo"_s, u"撤消"_s, u"Ctl+Z"_s, state.canUndo && !state.readOnly);
    menu->AddSeparator();
    add(u"textcut"_s, u"剪切"_s, u"Ctl+X"_s, mayTake && !state.readOnly);
    add(u"textcopy"_s, u"复制"_s, u"Ctl+C"_s, mayTake);
    add(u"textpaste"_s, u"粘贴"_s, u"Ctl+V"_s, !state.readOnly && clipboard && clipboard->hasText());
    menu->AddSeparator();
    add(u"textselect"_s, u"全选"_s, u"Ctl+A"_s, !state.isEmpty);
    menu->onChoose = std::move(act);
    menu->PopupAt(at);
}
