#include "shell/parts/toolbar.h"

#include "shell/controls/kestro_button.h"
#include "shell/menus.h"
#include "shell/skin.h"

#include <QHBoxLayout>
#include <QPainter>

namespace {

constexpr int kLineRoom = 9, kLineHeight = 20;

class ToolbarLine : public QWidget {
 public:
    explicit ToolbarLine(QWidget* parent) : QWidget(parent) { setFixedSize(kLineRoom, kLineHeight); }

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        Skin::VLine(p, width() / 2, 0, height(), Skin::Color(Tok::line2));
    }
};

}  // namespace

Toolbar::Toolbar(QWidget* parent) : QWidget(parent), row_(new QHBoxLayout(this)) {
    row_->setContentsMargins({});
    row_->setSpacing(Skin::Space::kPartner);
    row_->setSizeConstraint(QLayout::SetNoConstraint);
    row_->addStretch();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

KestroButton* Toolbar::Add(Act act, const QString& name, std::function<void()> onClick, const QString& tip) {
    const auto& row = ActionOf(act);
    const bool first = buttons_.empty();
    auto* button =
        Add(row.button.isEmpty() ? row.caption : row.button, row.icon, name, std::move(onClick), tip);
    if (first) button->SetLook(ButtonLook::primary);
    return button;
}

KestroButton* Toolbar::Add(const QString& caption, const QString& icon, const QString& name,
                           std::function<void()> onClick, const QString& tip) {
    auto* button = new KestroButton(ButtonLook::toolbar, caption, icon, this);
    button->setObjectName(name);
    button->setToolTip(tip);
    button->onClick = std::move(onClick);
    row_->insertWidget(static_cast<int>(buttons_.size()) + lines_, button);
    buttons_.push_back(button);
    KeepOrder();
    return button;
}

void Toolbar::PutFirst(KestroButton* button) {
    std::erase(buttons_, button);
    buttons_.insert(buttons_.begin(), button);
    row_->removeWidget(button);
    row_->insertWidget(0, button);
    KeepOrder();
}

void Toolbar::AddLine() {
    row_->insertWidget(static_cast<int>(buttons_.size()) + lines_++, new ToolbarLine(this));
}

void Toolbar::KeepOrder() {
    for (size_t i = 1; i < buttons_.size(); ++i)
        setTabOrder(buttons_[i - 1], buttons_[i]);
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
    int sum = lines_ * (kLineRoom + Skin::Space::kPartner);
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
