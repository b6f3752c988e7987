#include "shell/parts/toolbar.h"

#include "shell/controls/kestro_button.h"
#include "shell/menus.h"
#include "shell/skin.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

Toolbar::Toolbar(QWidget* parent) : QWidget(parent), row_(new QHBoxLayout(this)) {
    row_->setContentsMargins({});
    row_->setSpacing(Skin::Space::kPartner);
    row_->setSizeConstraint(QLayout::SetNoConstraint);
    row_->addStretch();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

KestroButton* Toolbar::Add(Act act, const QString& name, std::function<void()> onClick) {
    const auto& row = ActionOf(act);
    const QString& caption = row.button.isEmpty() ? row.caption : row.button;
    auto* button = Insert(static_cast<int>(buttons_.size()), caption, row.icon, name, std::move(onClick));
    if (buttons_.size() == 1) button->SetLook(ButtonLook::primary);
    return button;
}

KestroButton* Toolbar::Insert(int at, const QString& caption, const QString& icon, const QString& name,
                              std::function<void()> onClick) {
    auto* button = new KestroButton(ButtonLook::toolbar, caption, icon, this);
    button->setObjectName(name);
    button->onClick = std::move(onClick);
    row_->insertWidget(at, button);
    buttons_.insert(buttons_.begin() + at, button);
    for (size_t i = 1; i < buttons_.size(); ++i)
        setTabOrder(buttons_[i - 1], buttons_[i]);
    return button;
}

void Toolbar::GiveMenu(KestroButton* button, const QString& menu) {
    button->SetArrow(true);
    button->onArrow = [button, menu] {
        Menus::Popup(menu, button->mapToGlobal(button->rect().bottomLeft()));
    };
}

void Toolbar::SetEnd(QWidget* box, int least, int wanted) {
    end_ = box;
    wanted_ = wanted;
    box->setMinimumWidth(least);
    box->setMaximumWidth(wanted);
    row_->addWidget(box, 1);
}

int Toolbar::Needed() const {
    int sum = 0;
    for (const auto* button : buttons_)
        if (!button->isHidden()) sum += button->sizeHint().width() + Skin::Space::kPartner;
    return sum;
}

void Toolbar::Fit() {
    for (auto* button : buttons_)
        button->SetCompact(false);
    whole_ = Needed();
    const int room = width() - (end_ && !end_->isHidden() ? wanted_ : 0);
    for (auto button = buttons_.rbegin(); button != buttons_.rend() && Needed() > room; ++button)
        (*button)->SetCompact(true);
}

QSize Toolbar::sizeHint() const {
    return {whole_ > 0 ? whole_ + (end_ ? wanted_ : 0) : Needed(), row_->sizeHint().height()};
}

QSize Toolbar::minimumSizeHint() const {
    return {0, row_->minimumSize().height()};
}

void Toolbar::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Fit();
}
