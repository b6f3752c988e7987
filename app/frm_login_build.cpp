// Controls and layouts of the login window.

#include "app/frm_login.h"
#include "app/login_hero.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_text.h"
#include "shell/controls/png_button.h"
#include "shell/skin.h"
#include "store/dialogs.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr int kWidth = 500;
constexpr int kStripHeight = 130;
constexpr int kX = 180;
constexpr int kEnd = 476;
constexpr int kBox = 34;
}  // namespace

void frmLogin::Build() {
    setWindowIcon(Skin::WindowIcon());
    Menus::AddMenu(u"login"_s);
    Menus::AddItem(u"login"_s, u"about"_s, u"关于..."_s, u"about"_s);
    Menus::AddItem(u"login"_s, u"help"_s, u"使用帮助"_s, u"help"_s);
    hero_ = new LoginHero(this);
    title_ = new KestroLabel(u"墨鹊登录"_s, LabelKind::hint, this);
    lblBookName = new KestroLabel(u"账本名称"_s, LabelKind::caption);
    comBook = new KestroCombox(ComboxMode::chooseOnly);
    comBook->setAccessibleName(u"账本名称"_s);
    comBook->SetLeftIcon(u"book"_s);
    comBook->SetBrowse(u"path"_s, u"打开其它位置的账本文件"_s);
    comBook->onChoose = [this](const QString&, const QString& key) { ChooseBookItem(key); };
    comBook->onBrowse = [this] { OpenBookFile({}); };
    btnNew = new KestroButton(ButtonLook::plain, u"新"_s);
    btnNew->setToolTip(u"可以单击这里,新建一个新的账本!"_s);
    btnNew->setObjectName(u"btnNew"_s);
    btnNew->setEnabled(HasDialog(kDlgBook));
    btnNew->onClick = [this] { BtnNewClicked(); };
    lblPass = new KestroLabel(u"账本口令"_s, LabelKind::caption);
    txtPass = new KestroText(TextMode::masked);
    txtPass->setAccessibleName(u"账本口令"_s);
    txtPass->SetLeftIcon(u"lock"_s);
    txtPass->SetEndButton(u"eye"_s, u"显示口令"_s, false);
    txtPass->onEndButton = [this] {
        const bool masked = txtPass->Mode() == TextMode::masked;
        txtPass->SetMode(masked ? TextMode::normal : TextMode::masked);
        txtPass->SetEndButton(masked ? u"eyeOff"_s : u"eye"_s, masked ? u"隐藏口令"_s : u"显示口令"_s, false);
    };
    lblAuto = new KestroLabel(u"口令为空时，直接按 Enter 登录"_s, LabelKind::hint);
    btnEnter = new KestroButton(ButtonLook::primary, u"登录"_s);
    btnCancel = new KestroButton(ButtonLook::plain, u"取消"_s);
    btnEnter->onClick = [this] { BtnEnterClicked(); };
    btnCancel->onClick = [this] { BtnCancelClicked(); };
    const QString last = State().settings.sLogDateTime;
    lblLogDate = new KestroLabel(last.isEmpty() ? QString() : u"上次登录 "_s + last, LabelKind::hint);
    pngArrow = new PngButton(u"arrowDown"_s, u"账本盒位置"_s);
    pngArrow->onClick = [this] { ToggleStrip(); };
    for (auto* button : {btnNew, btnEnter, btnCancel})
        button->SetHeight(kBox);
    comBook->setObjectName(u"comBook"_s);
    txtPass->setObjectName(u"txtPass"_s);
    btnEnter->setObjectName(u"btnEnter"_s);
    btnCancel->setObjectName(u"btnCancel"_s);
    pngArrow->setObjectName(u"pngArrow"_s);
}

void frmLogin::BuildStrip() {
    strip_ = new LoginStrip;
    strip_->setObjectName(u"strip"_s);
    lblPath = new KestroLabel(u"账本盒位置"_s, LabelKind::caption);
    editNote = new KestroEditBox;
    editNote->setAccessibleName(u"账本盒位置"_s);
    editNote->setReadOnly(true);
    btnPath = new KestroButton(ButtonLook::plain, u"选择目录"_s, u"path"_s);
    btnPath->onClick = [this] { BtnPathClicked(); };
    auto* grid = new QGridLayout(strip_);
    grid->setContentsMargins(Skin::Space::kDialog - 1, 14, Skin::Space::kDialog - 1, Skin::Space::kDialog);
    grid->setHorizontalSpacing(Skin::Space::kPartner);
    grid->setVerticalSpacing(6);
    grid->addWidget(lblPath, 0, 0);
    grid->addWidget(editNote, 1, 0);
    grid->addWidget(btnPath, 1, 1, Qt::AlignTop);
    grid->setRowStretch(1, 1);
    strip_->setMinimumHeight(kStripHeight);
}

// The form beside the dark side, which reaches up through the title.
void frmLogin::LayOut() {
    auto* form = new QVBoxLayout;
    form->setContentsMargins(kX - 1, 4, kWidth - kEnd - 1, 2);
    form->setSpacing(4);
    form->addWidget(lblBookName);
    auto* book = new QHBoxLayout;
    book->setSpacing(Skin::Space::kPartner);
    book->addWidget(comBook, 1);
    book->addWidget(btnNew);
    form->addLayout(book);
    form->addSpacing(6);
    form->addWidget(lblPass);
    form->addWidget(txtPass);
    form->addSpacing(2);
    form->addWidget(lblAuto);
    form->addSpacing(8);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(Skin::Space::kPartner);
    buttons->addWidget(btnEnter, 25);
    buttons->addWidget(btnCancel, 11);
    form->addLayout(buttons);
    form->addWidget(lblLogDate);
    lblLogDate->setMinimumHeight(28);
    form->addStretch();
    for (QWidget* box : {static_cast<QWidget*>(comBook), static_cast<QWidget*>(txtPass)})
        box->setFixedHeight(Skin::Px(kBox));
    upper_ = new QWidget;
    upper_->setLayout(form);
    corner_ = new QWidget;
    auto* corner = new QHBoxLayout(corner_);
    corner->setContentsMargins(0, 0, kWidth - kEnd - 5, 5);
    corner->addWidget(pngArrow);
    rows_ = new QGridLayout(Body());
    rows_->setContentsMargins(0, 0, 0, 0);
    rows_->setSpacing(0);
    rows_->addWidget(upper_, 0, 0);
    rows_->addWidget(strip_, 1, 0);
    rows_->setRowStretch(0, 1);
}

void frmLogin::Arrange() {
    strip_->setVisible(stripShown_);
    // The arrow stands in the lower right corner of what shows.
    rows_->removeWidget(corner_);
    rows_->addWidget(corner_, stripShown_ ? 1 : 0, 0, Qt::AlignRight | Qt::AlignBottom);
    corner_->raise();
    SetNamedSize({kWidth, LoginHero::kHeight + (stripShown_ ? kStripHeight : 0)});
    Body()->layout()->activate();
    PlaceHero();
}

// The dark side and the title stand in the window's own band.
void frmLogin::PlaceHero() {
    const QPoint corner = BodyRect().topLeft() - QPoint(0, TitleHeight());
    const int below = stripShown_ ? strip_->height() : 0;
    hero_->setGeometry(QRect(corner, QSize(LoginHero::kWidth, TitleHeight() + BodyRect().height() - below)));
    hero_->SetRadius(Skin::ShadowMargin() > 0 ? 8 : 0);
    hero_->SetStripShown(stripShown_);
    title_->setGeometry(corner.x() + kX, corner.y(), title_->sizeHint().width(), TitleHeight());
}

void frmLogin::ToggleStrip() {
    stripShown_ = !stripShown_;
    pngArrow->SetIcon(stripShown_ ? u"arrowUp"_s : u"arrowDown"_s);
    Arrange();
}
