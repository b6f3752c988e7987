#include "shell/controls/kestro_menu.h"

#include "shell/controls/kestro_style.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QHideEvent>
#include <QIcon>

using namespace Qt::StringLiterals;

namespace {

constexpr int kIcon = 16;

QIcon MenuIcon(const QString& name, double ratio) {
    QIcon icon;
    if (name.isEmpty()) return icon;
    icon.addPixmap(Skin::Icon(name, kIcon, ratio), QIcon::Normal);
    icon.addPixmap(Skin::Icon(name, kIcon, ratio, Ground::selected), QIcon::Active);
    icon.addPixmap(Skin::Icon(name, kIcon, ratio, Ground::disabled), QIcon::Disabled);
    return icon;
}

}  // namespace

KestroMenu::KestroMenu(QWidget* parent) : QMenu(parent) {
    setStyle(KestroStyle::Shared());
    setFont(Skin::Font(Type::body));
}

QAction* KestroMenu::AddItem(const QString& key, const QString& caption, const QString& icon,
                             const QString& hint) {
    QString text = caption;
    text.replace(u'&', u"&&"_s);
    if (!hint.isEmpty()) text += u'\t' + hint;
    QAction* action = addAction(MenuIcon(icon, qGuiApp->devicePixelRatio()), text);
    action->setObjectName(key);
    connect(action, &QAction::triggered, this, [this, action] { Chosen(action); });
    return action;
}

void KestroMenu::AddSeparator(const QString& key) {
    addSeparator()->setObjectName(key);
}

KestroMenu* KestroMenu::AddSubMenu(const QString& key, const QString& caption, const QString& icon) {
    auto* menu = new KestroMenu(this);
    menu->owner_ = this;
    menu->setTitle(caption);
    menu->setIcon(MenuIcon(icon, qGuiApp->devicePixelRatio()));
    addMenu(menu)->setObjectName(key);
    return menu;
}

QAction* KestroMenu::FindItem(const QString& key) const {
    for (QAction* action : actions())
        if (action->objectName() == key) return action;
    return nullptr;
}

void KestroMenu::SetItemEnabled(const QString& key, bool on) {
    if (QAction* action = FindItem(key)) action->setEnabled(on);
}

void KestroMenu::SetItemChecked(const QString& key, bool on) {
    QAction* action = FindItem(key);
    if (!action) return;
    action->setCheckable(on);
    action->setChecked(on);
}

void KestroMenu::PopupAt(const QPoint& globalPos) {
    const int margin = Skin::ShadowMargin();
    popup(globalPos - QPoint(margin, margin));
}

// The widget under the pointer when the menu took the mouse heard nothing of the pointer's leaving.
void KestroMenu::hideEvent(QHideEvent* event) {
    QMenu::hideEvent(event);
    for (QWidget* widget : QApplication::allWidgets()) {
        if (!widget->underMouse() || widget->rect().contains(widget->mapFromGlobal(QCursor::pos()))) continue;
        widget->setAttribute(Qt::WA_UnderMouse, false);
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(widget, &leave);
        widget->update();
    }
}

void KestroMenu::Chosen(const QAction* action) {
    for (KestroMenu* menu = this; menu; menu = menu->owner_) {
        if (!menu->onChoose) continue;
        RunEvent([menu, key = action->objectName()] { menu->onChoose(key); });
        return;
    }
}
