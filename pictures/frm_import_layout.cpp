// How the picture window is put together, and its big mode.

#include "pictures/frm_import.h"
#include "pictures/picture_box.h"
#include "shell/controls/control_support.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_tiles.h"
#include "shell/controls/png_button.h"
#include "shell/skin.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize{956, 600}, kSmallest{760, 460};
constexpr int kLeftWidth = 300, kRightWidth = 216, kLeastLeft = 208, kLeastRight = 150, kBetween = 16,
              kLeastButton = 80, kLeastName = 40;
constexpr int kIcon = 14, kIconGap = 6;

// A name of any length in the room that there is, behind an icon if one is given.
class NameLabel : public KestroLabel {
 public:
    NameLabel(LabelKind kind, const QString& icon, QWidget* parent)
        : KestroLabel({}, kind, parent), icon_(icon) {
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    }
    QSize sizeHint() const override { return {kLeastName, KestroLabel::sizeHint().height()}; }
    QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        QRect room = rect();
        if (!icon_.isEmpty() && !text().isEmpty()) {
            const QRect place(0, 0, kIcon, height());
            Controls::PaintIcon(p, *this, place, icon_, kIcon);
            room.setLeft(kIcon + kIconGap);
        }
        p.setFont(font());
        p.setPen(palette().color(foregroundRole()));
        const QString shown = p.fontMetrics().elidedText(
            text(), icon_.isEmpty() ? Qt::ElideMiddle : Qt::ElideRight, room.width());
        p.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
    }

 private:
    QString icon_;
};

// The lists at the sides keep their widths where there is room, and give to the picture where there is not.
class SidePart : public QWidget {
 public:
    SidePart(int width, int least, QWidget* parent) : QWidget(parent), width_(width) {
        setMinimumWidth(least);
        setMaximumWidth(width);
    }
    QSize sizeHint() const override { return {width_, QWidget::sizeHint().height()}; }

 private:
    int width_;
};

QHBoxLayout* NewRow() {
    auto* row = new QHBoxLayout;
    row->setContentsMargins({});
    row->setSpacing(Skin::Space::kPartner);
    return row;
}

QVBoxLayout* ColumnOf(QWidget* part) {
    auto* column = new QVBoxLayout(part);
    column->setContentsMargins({});
    column->setSpacing(Skin::Space::kPartner);
    return column;
}

}  // namespace

void frmImport::Build() {
    content_ = new QWidget(Body());
    BuildLists();
    BuildButtons();
    lblArrow = new KestroLabel({}, LabelKind::plain, content_);
    lblArrow->SetColor(static_cast<int>(Tok::accent));
    lblName = new NameLabel(LabelKind::plain, {}, content_);
    lblZoom = new KestroLabel({}, LabelKind::caption, content_);
    lblBookName = new NameLabel(LabelKind::caption, u"book"_s, content_);
    lblBookName->SetText(CurrentBook().Name);
    lblBookName->setToolTip(CurrentBook().Name);
    Label1 =
        new KestroLabel(u"双击将增加到该条记账，但需要单击保存按钮才能保存!"_s, LabelKind::hint, Footer());
    lblArrow->setObjectName(u"lblArrow"_s);
    lblName->setObjectName(u"lblName"_s);
    lblZoom->setObjectName(u"lblZoom"_s);
    lblBookName->setObjectName(u"lblBookName"_s);
    Label1->setObjectName(u"Label1"_s);
}

void frmImport::BuildLists() {
    comPath = new KestroCombox(ComboxMode::chooseOnly, content_);
    comPath->setObjectName(u"comPath"_s);
    comPath->setAccessibleName(u"浏览位置"_s);
    btnFresh = new PngButton(u"reload"_s, u"重新读取目录"_s, content_, 32);
    btnFresh->setObjectName(u"btnFresh"_s);
    btnFresh->SetFramed(true);
    KestroList1 = new KestroList(content_);
    KestroList1->setObjectName(u"KestroList1"_s);
    KestroList1->setAccessibleName(u"目录中的图片"_s);
    KestroList1->DefineColumn({u"no"_s, u"NO"_s, 44, 30, u"number"_s, ListColor::dim, false, {}});
    KestroList1->DefineColumn({u"name"_s, u"图片名称"_s, 160, 80, u"string"_s, ListColor::none, true, {}});
    KestroList1->DefineColumn({u"size"_s, u"大小(Kb)"_s, 80, 70, u"money"_s, ListColor::none, false, {}});
    KestroList1->SetMoneyGroup(2, 3);
    KestroListView1 = new KestroListView(u"已添加的图片"_s, content_);
    KestroListView1->setObjectName(u"KestroListView1"_s);
}

void frmImport::BuildButtons() {
    static const std::array<std::pair<QString, QString>, 5> views{{{u"放大"_s, u"plus"_s},
                                                                   {u"缩小"_s, u"minus"_s},
                                                                   {u"原大"_s, u"image"_s},
                                                                   {u"适合"_s, u"picView"_s},
                                                                   {u"旋转"_s, u"reload"_s}}};
    middle_ = new QWidget(content_);
    Picture1 = new PictureBox(middle_);
    for (size_t i = 0; i < views.size(); ++i) {
        btnView[i] = new KestroButton(ButtonLook::toolbar, views[i].first, views[i].second, middle_);
        btnView[i]->setObjectName(u"btnView"_s + QString::number(i));
    }
    btnDel = new KestroButton(ButtonLook::danger, u"删除"_s, u"del"_s, content_);
    btnDel->setEnabled(false);
    btnCancel = new KestroButton(ButtonLook::plain, u"取消"_s, {}, Footer());
    btnSave = new KestroButton(ButtonLook::primary, u"保存"_s, {}, Footer());
    btnDel->setObjectName(u"btnDel"_s);
    btnCancel->setObjectName(u"btnCancel"_s);
    btnSave->setObjectName(u"btnSave"_s);
}

QWidget* frmImport::MakeLeft() {
    auto* part = new SidePart(kLeftWidth, kLeastLeft, content_);
    auto* row = NewRow();
    row->addWidget(comPath, 1);
    row->addWidget(btnFresh);
    auto* column = ColumnOf(part);
    column->addLayout(row);
    column->addWidget(KestroList1, 1);
    return part;
}

QWidget* frmImport::MakeMiddle() {
    auto* row = NewRow();
    row->addWidget(lblArrow);
    row->addWidget(lblName, 1);
    row->addWidget(lblZoom);
    auto* head = new QWidget(middle_);
    head->setLayout(row);
    head->setFixedHeight(Skin::Px(32));
    auto* views = NewRow();
    views->setSpacing(0);
    for (auto* button : btnView) {
        views->addWidget(button);
        if (button != btnView.back()) views->addStretch();
    }
    auto* column = ColumnOf(middle_);
    column->addWidget(head);
    column->addWidget(Picture1, 1);
    column->addLayout(views);
    return middle_;
}

QWidget* frmImport::MakeRight() {
    auto* part = new SidePart(kRightWidth, kLeastRight, content_);
    auto* row = NewRow();
    row->addWidget(lblBookName, 1);
    row->addWidget(btnDel);
    auto* column = ColumnOf(part);
    column->addLayout(row);
    column->addWidget(KestroListView1, 1);
    return part;
}

void frmImport::LayOut() {
    auto* body = new QVBoxLayout(Body());
    body->setContentsMargins(Skin::Space::kDialog, kBetween, Skin::Space::kDialog, kBetween);
    body->addWidget(content_);
    auto* parts = new QHBoxLayout(content_);
    parts->setContentsMargins({});
    parts->setSpacing(kBetween);
    parts->addWidget(MakeLeft());
    parts->addWidget(MakeMiddle(), 1);
    parts->addWidget(MakeRight());
    auto* foot = new QHBoxLayout(Footer());
    foot->setContentsMargins(Skin::Space::kDialog, 0, Skin::Space::kDialog, 0);
    foot->setSpacing(Skin::Space::kPartner);
    foot->addWidget(Label1);
    foot->addStretch();
    for (auto* button : {btnCancel, btnSave}) {
        button->SetLeastWidth(kLeastButton);
        foot->addWidget(button);
    }
    SetDefaultButton(btnSave);
    SetResizable(true);
    SetSmallest(kSmallest);
    SetNamedSize({Skin::Px(kSize.width()), Skin::Px(kSize.height())});
    KestroList1->setFocus();
}

// The box leaves its place for the whole window below the title, and comes back to it.
void frmImport::SetBig(bool big) {
    if (bBig == big) return;
    bBig = big;
    content_->setHidden(big);
    Footer()->setHidden(big);
    if (big) {
        Picture1->setParent(this);
        PlaceBig();
    } else {
        static_cast<QVBoxLayout*>(middle_->layout())->insertWidget(1, Picture1, 1);
    }
    Picture1->show();
    Picture1->raise();
    Picture1->setFocus(Qt::OtherFocusReason);
}

void frmImport::PlaceBig() {
    Picture1->setGeometry(BodyRect().adjusted(0, 0, 0, FooterHeight() - 1));
}

void frmImport::resizeEvent(QResizeEvent* event) {
    KestroDialog::resizeEvent(event);
    if (bBig) PlaceBig();
}
