// Controls and places of the login window. Lengths are device-independent pixels below the title.

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
    auto* title = new KestroLabel(u"墨鹊登录"_s, LabelKind::hint, this);
    title->setObjectName(u"lblTitle"_s);
    lblBookName = new KestroLabel(u"账本名称"_s, LabelKind::caption, Body());
    comBook = new KestroCombox(ComboxMode::chooseOnly, Body());
    comBook->setAccessibleName(u"账本名称"_s);
    comBook->SetLeftIcon(u"book"_s);
    comBook->SetBrowse(u"path"_s, u"打开其它位置的账本文件"_s);
    comBook->onChoose = [this](const QString&, const QString& key) { ChooseBookItem(key); };
    comBook->onBrowse = [this] { OpenBookFile({}); };
    btnNew = new KestroButton(ButtonLook::plain, u"新"_s, {}, Body());
    btnNew->setToolTip(u"可以单击这里,新建一个新的账本!"_s);
    btnNew->setEnabled(HasDialog(kDlgBook));
    lblPass = new KestroLabel(u"账本口令"_s, LabelKind::caption, Body());
    txtPass = new KestroText(TextMode::masked, Body());
    txtPass->setAccessibleName(u"账本口令"_s);
    txtPass->SetLeftIcon(u"lock"_s);
    txtPass->SetEndButton(u"eye"_s, u"显示口令"_s, false);
    txtPass->onEndButton = [this] {
        const bool masked = txtPass->Mode() == TextMode::masked;
        txtPass->SetMode(masked ? TextMode::normal : TextMode::masked);
        txtPass->SetEndButton(masked ? u"eyeOff"_s : u"eye"_s, masked ? u"隐藏口令"_s : u"显示口令"_s, false);
    };
    lblAuto = new KestroLabel(u"口令为空时，直接按 Enter 登录"_s, LabelKind::hint, Body());
    btnEnter = new KestroButton(ButtonLook::primary, u"登录"_s, {}, Body());
    btnCancel = new KestroButton(ButtonLook::plain, u"取消"_s, {}, Body());
    btnEnter->onClick = [this] { BtnEnterClicked(); };
    btnCancel->onClick = [this] { BtnCancelClicked(); };
    const QString last = State().settings.sLogDateTime;
    lblLogDate = new KestroLabel(last.isEmpty() ? QString() : u"上次登录 "_s + last, LabelKind::hint, Body());
    pngArrow = new PngButton(u"arrowDown"_s, u"账本盒位置"_s, Body());
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
    auto* strip = new LoginStrip(Body());
    strip->setObjectName(u"strip"_s);
    lblPath = new KestroLabel(u"账本盒位置"_s, LabelKind::caption, strip);
    lblPath->setGeometry(24, 14, 200, 20);
    editNote = new KestroEditBox(strip);
    editNote->setAccessibleName(u"账本盒位置"_s);
    editNote->setReadOnly(true);
    editNote->setGeometry(24, 41, 348, 64);
    btnPath = new KestroButton(ButtonLook::plain, u"选择目录"_s, u"path"_s, strip);
    btnPath->setGeometry(380, 41, 96, 32);
    btnPath->onClick = [this] { BtnPathClicked(); };
    strip->setVisible(false);
}

void frmLogin::Arrange() {
    SetNamedSize({kWidth, LoginHero::kHeight + (stripShown_ ? kStripHeight : 0)});
    const QPoint corner = Body()->pos() - QPoint(0, TitleHeight());
    hero_->setGeometry(QRect(corner, QSize(LoginHero::kWidth, LoginHero::kHeight)));
    hero_->SetRadius(Skin::ShadowMargin() > 0 ? 8 : 0);
    hero_->SetStripShown(stripShown_);
    auto* title = findChild<KestroLabel*>(u"lblTitle"_s);
    title->setGeometry(corner.x() + kX, corner.y() + 10, 160, 20);
    lblBookName->setGeometry(kX, 4, 200, 20);
    comBook->setGeometry(kX, 28, 248, kBox);
    btnNew->setGeometry(kEnd - 40, 28, 40, kBox);
    lblPass->setGeometry(kX, 72, 200, 20);
    txtPass->setGeometry(kX, 96, kEnd - kX, kBox);
    lblAuto->setGeometry(kX, 136, kEnd - kX, 20);
    btnEnter->setGeometry(kX, 168, 200, kBox);
    btnCancel->setGeometry(kEnd - 88, 168, 88, kBox);
    lblLogDate->setGeometry(kX, 208, 250, 20);
    pngArrow->setGeometry(kEnd - 24, 204, 28, 28);
    auto* strip = findChild<QWidget*>(u"strip"_s);
    strip->setGeometry(0, LoginHero::kHeight - TitleHeight(), kWidth, kStripHeight);
    strip->setVisible(stripShown_);
}

void frmLogin::ToggleStrip() {
    stripShown_ = !stripShown_;
    pngArrow->SetIcon(stripShown_ ? u"arrowUp"_s : u"arrowDown"_s);
    Arrange();
}
