// How the preview is put together.

#include "output/frm_print.h"
#include "output/print_canvas.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_indicator.h"
#include "shell/controls/kestro_label.h"
#include "shell/parts/toolbar.h"
#include "shell/skin.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QShortcut>
#include <QVBoxLayout>

#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kBarHeight = 48, kPageWidth = 124;
constexpr QSize kSize{880, 680}, kSmallest{640, 400};

// Where it is short of room, buttons lose their captions from the last one on.
class Bar : public QWidget {
 public:
    Bar(QWidget* parent, std::vector<KestroButton*> shrinking)
        : QWidget(parent), row_(new QHBoxLayout(this)), shrinking_(std::move(shrinking)) {
        row_->setContentsMargins(Skin::Space::kPage, 0, Skin::Space::kPage, 1);
        row_->setSpacing(Skin::Space::kPartner);
        row_->setSizeConstraint(QLayout::SetNoConstraint);
        setFixedHeight(Skin::Px(kBarHeight));
    }
    QHBoxLayout* Row() const { return row_; }

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.fillRect(rect(), Skin::Color(Tok::page));
        Skin::HLine(p, 0, width(), height() - 1, Skin::Color(Tok::line));
    }
    void resizeEvent(QResizeEvent* event) override {
        QWidget::resizeEvent(event);
        for (auto* button : shrinking_)
            button->SetCompact(false);
        for (auto button = shrinking_.rbegin(); button != shrinking_.rend(); ++button) {
            row_->invalidate();
            if (row_->minimumSize().width() > width()) (*button)->SetCompact(true);
        }
        row_->invalidate();
    }

 private:
    QHBoxLayout* row_;
    std::vector<KestroButton*> shrinking_;
};

class Divider : public QWidget {
 public:
    using QWidget::QWidget;
    QSize sizeHint() const override { return {1, 20}; }

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        Skin::VLine(p, 0, 0, height(), Skin::Color(Tok::line2));
    }
};

}  // namespace

void frmPrint::Build() {
    btnPrint = new KestroButton(ButtonLook::primary, u"打印"_s, u"print"_s, Body());
    btnCurr = new KestroButton(ButtonLook::plain, u"打印当前页"_s, u"doc"_s, Body());
    comPage = new KestroCombox(ComboxMode::chooseOnly, Body());
    btnZoom = new KestroButton(ButtonLook::plain, u"100%"_s, u"search"_s, Body());
    lblPercent = new KestroLabel({}, LabelKind::caption, Body());
    Indicator1 = new KestroIndicator(Body());
    btnExit = new KestroButton(ButtonLook::plain, u"退出"_s, {}, Body());
    canvas_ = new PrintCanvas(document_, Body());
    btnPrint->setObjectName(u"btnPrint"_s);
    btnCurr->setObjectName(u"btnCurr"_s);
    comPage->setObjectName(u"comPage"_s);
    btnZoom->setObjectName(u"btnZoom"_s);
    lblPercent->setObjectName(u"lblPercent"_s);
    Indicator1->setObjectName(u"Indicator1"_s);
    btnExit->setObjectName(u"btnExit"_s);
    comPage->setAccessibleName(u"页"_s);
    auto* print = new QShortcut(QKeySequence::Print, this);
    connect(print, &QShortcut::activated, btnPrint, &KestroButton::click);
    btnZoom->setToolTip(u"按实际大小显示，箭头选择其他比例"_s);
    Toolbar::GiveMenu(btnZoom, u"percent"_s);
    btnPrint->onClick = [this] { Print({}); };
    btnCurr->onClick = [this] { Print(static_cast<size_t>(comPage->Current())); };
    comPage->onChoose = [this](const QString&, const QString& key) { ShowPage(key.toInt()); };
    btnZoom->onClick = [this] { DoMenu(u"percent"_s, u"100%"_s); };
    btnExit->onClick = [this] { TryLeave(); };
    Body()->installEventFilter(this);
    canvas_->onZoom = [this](int step) { StepZoom(step); };
}

void frmPrint::LayOut() {
    auto* bar = new Bar(Body(), {btnPrint, btnCurr});
    auto* row = bar->Row();
    comPage->setFixedWidth(Skin::Px(kPageWidth));
    row->addWidget(btnPrint);
    row->addWidget(btnCurr);
    row->addSpacing(Skin::Space::kPartner);
    row->addWidget(new Divider(bar), 0, Qt::AlignVCenter);
    row->addSpacing(Skin::Space::kPartner);
    row->addWidget(comPage);
    row->addWidget(btnZoom);
    row->addWidget(lblPercent);
    row->addStretch();
    row->addWidget(Indicator1);
    row->addWidget(btnExit);
    auto* column = new QVBoxLayout(Body());
    column->setContentsMargins({});
    column->setSpacing(0);
    column->addWidget(bar);
    column->addWidget(canvas_, 1);
    SetResizable(true);
    SetSmallest(kSmallest);
    SetNamedSize({Skin::Px(kSize.width()), Skin::Px(kSize.height())});
}
