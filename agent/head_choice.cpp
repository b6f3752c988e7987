#include "agent/head_choice.h"

#include "shell/controls/kestro_button.h"
#include "shell/skin.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr int kHeads = 6;
constexpr int kSide = 88;
constexpr int kPicture = 64;
}  // namespace

class HeadButton : public QAbstractButton {
 public:
    HeadButton(const QString& name, QWidget* parent) : QAbstractButton(parent), name_(name) {
        setCheckable(true);
        setFixedSize(kSide, kSide);
    }
    const QString& Name() const { return name_; }

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        const QRectF r = rect();
        if (isChecked()) Skin::Box(p, r, 4, Skin::Color(Tok::soft), Skin::Color(Tok::accent));
        if (!isChecked() && underMouse()) Skin::Box(p, r, 4, Skin::Color(Tok::hover), Skin::Color(Tok::line));
        const int at = (kSide - kPicture) / 2;
        p.drawPixmap(at, at, Skin::Icon(name_, kPicture, devicePixelRatioF()));
        if (hasFocus()) Skin::FocusRing(p, r, 4, true, Skin::Color(Tok::accent));
    }

 private:
    QString name_;
};

HeadChoice::HeadChoice() : KestroDialog(DialogKind::small, u"重设头像"_s) {
    auto* group = new QButtonGroup(this);
    auto* grid = new QGridLayout(Body());
    grid->setContentsMargins(20, 8, 20, 12);
    grid->setSpacing(8);
    for (int i = 0; i < kHeads; ++i) {
        auto* head = new HeadButton(u"head-"_s + QString::number(i + 1), Body());
        head->setAccessibleName(u"头像"_s + QString::number(i + 1));
        group->addButton(head);
        grid->addWidget(head, i / 3, i % 3);
        heads_.push_back(head);
    }
    heads_.front()->setChecked(true);
    auto* cancel = new KestroButton(ButtonLook::plain, u"取消"_s, {}, Footer());
    auto* enter = new KestroButton(ButtonLook::primary, u"确定"_s, {}, Footer());
    cancel->onClick = [this] { reject(); };
    enter->onClick = [this] { accept(); };
    auto* row = new QHBoxLayout(Footer());
    row->setContentsMargins(12, 0, 12, 0);
    row->addStretch();
    row->addWidget(cancel);
    row->addWidget(enter);
    SetNamedSize({20 * 2 + 3 * kSide + 2 * 8, 32 + 8 + 2 * kSide + 8 + 12 + 48});
}

QString HeadChoice::Chosen() const {
    const auto found =
        std::find_if(heads_.begin(), heads_.end(), [](const auto* head) { return head->isChecked(); });
    return found == heads_.end() ? u"head-1"_s : (*found)->Name();
}
