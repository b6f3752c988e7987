// The controls of the general settings, in the order in which they are visited, and their places.

#include "books/common_page.h"
#include "shell/commands.h"
#include "shell/controls/control_support.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_option.h"
#include "shell/controls/kestro_scrollbar.h"
#include "shell/controls/kestro_text.h"
#include "shell/skin.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPainter>
#include <QScrollArea>

using namespace Qt::StringLiterals;
using Controls::Named;

namespace {

constexpr int kHeading = 24, kRow = 32, kNames = 128, kBox = 140, kWebBox = 292, kPathBox = 444,
              kPathHeight = 56, kButton = 108;
constexpr int kRing = 3;  // options and checks keep room for their focus ring

// A question mark behind a caption tells more.
enum Help { kNoHelp = 0, kLoginWays = 5, kBoxPlace = 8, kGrouping = 10, kPageRows = 11, kWebLogin = 13 };

QString TextOf(Help help) {
    switch (help) {
        case kLoginWays:
            return u"账本登录方式分为【两种】：\n    不用输密码直接打开账本\n    需要输入密码才能打开\n"
                   u"这里的密码是指【账本密码】!"_s;
        case kBoxPlace:
            return u"所有账本存储位置\n『注意』：请不要指定到【Windows】的各种【系统目录】下! \n"
                   u"建议使用程序默认存储位置：【系统盘:\\KestroData\\墨鹊理财】"_s;
        case kGrouping:
            return u"如数字【８１２００】，不分组显示为【８１２００】，按三位分组显示为【８１,２００】，"
                   u"按四位分组显示为【８,１２００】\n"
                   u"分组的应用范围为所有【列表中的数字】、【数字文本框】和【导出文件数字】"_s;
        case kPageRows:
            return u"是指导出的网页，每页显示多少条记录"_s;
        case kWebLogin:
            return u"如果要使用【网账功能】，『必须』在此处填写【用户名、密码】"_s;
        default:
            return {};
    }
}

QWidget* Caption(const QString& text, Help help = kNoHelp) {
    auto* label = new KestroLabel(text, help == kNoHelp ? LabelKind::caption : LabelKind::help);
    label->setMinimumHeight(Skin::Px(kRow));
    label->setToolTip(TextOf(help));
    if (help != kNoHelp) label->setObjectName(u"lblTip"_s + QString::number(help));
    return label;
}

QHBoxLayout* RowOf(std::initializer_list<QWidget*> controls, int spacing, bool rings = false) {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(rings ? -kRing : 0, 0, 0, 0);
    row->setSpacing(spacing);
    for (auto* control : controls)
        row->addWidget(control);
    row->addStretch();
    return row;
}

// The card on which a group of rows stands; its first row is the heading.
QGridLayout* Group(QVBoxLayout* column, const QString& heading) {
    auto* rows = new QGridLayout;
    rows->setContentsMargins(Skin::Space::kDialog, Skin::Space::kPartner, Skin::Space::kDialog, 16);
    rows->setHorizontalSpacing(Skin::Space::kPartner);
    rows->setVerticalSpacing(Skin::Space::kField);
    rows->setColumnMinimumWidth(0, Skin::Px(kNames));
    rows->setColumnStretch(1, 1);
    auto* label = new KestroLabel(heading, LabelKind::caption);
    label->setFont(Skin::Font(Type::smallBold));
    label->setMinimumHeight(Skin::Px(kHeading));
    rows->addWidget(label, 0, 0, 1, 2);
    column->addLayout(rows);
    return rows;
}

class Card : public QWidget {
 public:
    using QWidget::QWidget;
    std::vector<QLayout*> groups;

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        Skin::Box(p, rect(), 4, Skin::Color(Tok::surface), Skin::Color(Tok::line2));
        for (size_t i = 1; i < groups.size(); ++i)
            Skin::HLine(p, 1, width() - 2, groups[i]->geometry().top(), Skin::Color(Tok::line2));
    }
};

}  // namespace

void CommonPage::Build() {
    btnSave = Named(new KestroButton(ButtonLook::primary, u"保存"_s, u"save"_s), u"btnSave"_s, u"保存"_s);
    btnSave->setToolTip(u"保存通用设置"_s);
    auto* card = new Card;
    auto* groups = new QVBoxLayout(card);
    groups->setContentsMargins({});
    groups->setSpacing(0);
    const std::pair<QString, void (CommonPage::*)(QGridLayout*)> parts[] = {
        {u"显示"_s, &CommonPage::BuildShown},
        {u"网账"_s, &CommonPage::BuildWeb},
        {u"账本"_s, &CommonPage::BuildBook}};
    for (const auto& [heading, build] : parts) {
        auto* rows = Group(groups, heading);
        (this->*build)(rows);
        card->groups.push_back(rows);
    }
    auto* inside = new QWidget;
    auto* held = new QVBoxLayout(inside);
    held->setContentsMargins({});
    held->addWidget(card);
    held->addStretch();
    auto* scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setWidget(inside);
    UseKestroScrollbars(scroll);
    for (auto* ground : {scroll->viewport(), inside})
        ground->setAutoFillBackground(false);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->setSpacing(Skin::Space::kField);
    column->addWidget(btnSave, 0, Qt::AlignLeft);
    column->addWidget(scroll, 1);
}

void CommonPage::BuildShown(QGridLayout* rows) {
    const std::array<std::pair<QString, QString>, 3> splits{
        {{u"三位分组"_s, u"81,200"_s}, {u"四位分组"_s, u"8,1200"_s}, {u"不分组"_s, u"81200"_s}}};
    auto* split = RowOf({}, Skin::Space::kPartner);
    auto* choices = new QWidget;
    for (size_t i = 0; i < splits.size(); ++i) {
        optSplit[i] =
            Named(new KestroOption(splits[i].first), u"optSplit"_s + QString::number(i), splits[i].first);
        const int at = split->count() - 1;
        split->insertWidget(at, optSplit[i]);
        split->insertWidget(at + 1, new KestroLabel(splits[i].second, LabelKind::hint));
        split->insertSpacing(at + 2, Skin::Space::kDialog);
    }
    choices->setLayout(split);
    rows->addWidget(Caption(u"数字分组:"_s, kGrouping), 1, 0);
    rows->addWidget(choices, 1, 1);
    comHtmItems = Named(new KestroCombox(ComboxMode::chooseOnly), u"comHtmItems"_s, u"网页每页记录"_s);
    for (int items = 10; items <= 100; items += 10)
        comHtmItems->AddItem(QString::number(items) + u" 条"_s, QString::number(items), u"items"_s);
    comLoad = Named(new KestroCombox(ComboxMode::chooseOnly), u"comLoad"_s, u"打开时的期间"_s);
    const std::pair<QString, QString> periods[] = {{u"这个星期"_s, u"week"_s}, {u"今天"_s, u"today"_s},
                                                   {u"昨天"_s, u"yestoday"_s}, {u"最近10天"_s, u"rcently"_s},
                                                   {u"本月"_s, u"month"_s},    {u"上月"_s, u"premonth"_s},
                                                   {u"今年"_s, u"year"_s},     {u"所有"_s, u"all"_s}};
    for (const auto& [caption, key] : periods)
        comLoad->AddItem(caption, key, u"date"_s);
    for (auto* box : {comHtmItems, comLoad})
        box->setFixedWidth(Skin::Px(kBox));
    rows->addWidget(Caption(u"网页每页记录:"_s, kPageRows), 2, 0);
    rows->addLayout(RowOf({comHtmItems}, 0), 2, 1);
    rows->addWidget(Caption(u"打开时的期间:"_s), 3, 0);
    rows->addLayout(RowOf({comLoad}, 0), 3, 1);
    chkAgent = Named(new KestroCheck(u"显示图标"_s), u"chkAgent"_s, u"显示图标"_s);
    btnRestHeadIco = Named(new KestroButton(ButtonLook::plain, u"重设头像"_s, u"user"_s), u"btnRestHeadIco"_s,
                           u"重设头像"_s);
    btnRestHeadIco->SetLeastWidth(kBox);
    btnRestHeadIco->setEnabled(static_cast<bool>(Commands().resetHeadIco));
    rows->addWidget(Caption(u"提醒程序:"_s), 4, 0);
    rows->addLayout(RowOf({chkAgent, btnRestHeadIco}, 76, true), 4, 1);
}

void CommonPage::BuildWeb(QGridLayout* rows) {
    txtWebUserName = Named(new KestroText, u"txtWebUserName"_s, u"用户名"_s);
    txtWebPass = Named(new KestroText(TextMode::masked), u"txtWebPass"_s, u"密码"_s);
    btnValidate =
        Named(new KestroButton(ButtonLook::plain, u"验证"_s, u"check"_s), u"btnValidate"_s, u"验证"_s);
    btnAccount = Named(new KestroButton(ButtonLook::plain, u"打开我的网账"_s, u"web"_s), u"btnAccount"_s,
                       u"打开我的网账"_s);
    for (auto* box : {txtWebUserName, txtWebPass}) {
        box->setMaximumWidth(Skin::Px(kWebBox));
        box->setMinimumWidth(Skin::Px(kBox));
    }
    for (auto* button : {btnValidate, btnAccount})
        button->SetLeastWidth(kBox);
    btnValidate->setEnabled(static_cast<bool>(Commands().webValidate));
    btnAccount->setEnabled(static_cast<bool>(Commands().webHome));
    rows->addWidget(Caption(u"用户名:"_s, kWebLogin), 1, 0);
    rows->addLayout(RowOf({txtWebUserName, btnValidate}, Skin::Space::kField), 1, 1);
    rows->addWidget(Caption(u"密码:"_s), 2, 0);
    rows->addLayout(RowOf({txtWebPass, btnAccount}, Skin::Space::kField), 2, 1);
    for (const int row : {1, 2})
        static_cast<QHBoxLayout*>(rows->itemAtPosition(row, 1)->layout())->setStretch(0, 1);
}

void CommonPage::BuildBook(QGridLayout* rows) {
    lblDBVer = Named(new KestroLabel, u"lblDBVer"_s, u"当前账本版本"_s);
    lblLogin_ = new KestroLabel;
    editNote = Named(new KestroEditBox, u"editNote"_s, u"账本盒位置"_s);
    editNote->setFixedHeight(Skin::Px(kPathHeight));
    editNote->setMaximumWidth(Skin::Px(kPathBox));
    btnPath =
        Named(new KestroButton(ButtonLook::plain, u"选择目录"_s, u"path"_s), u"btnPath"_s, u"选择目录"_s);
    btnOpenPath = Named(new KestroButton(ButtonLook::plain, u"打开目录"_s, u"ExportOpenPath"_s),
                        u"btnOpenPath"_s, u"打开目录"_s);
    for (auto* button : {btnPath, btnOpenPath})
        button->SetLeastWidth(kButton);
    auto* version = RowOf({lblDBVer, Caption(u"登录方式:"_s, kLoginWays), lblLogin_}, Skin::Space::kPartner);
    version->insertSpacing(1, 92);
    rows->addWidget(Caption(u"当前账本版本:"_s), 1, 0);
    rows->addLayout(version, 1, 1);
    auto* path = new QHBoxLayout;
    path->setSpacing(Skin::Space::kField);
    path->addWidget(editNote, 1);
    for (auto* button : {btnPath, btnOpenPath})
        path->addWidget(button, 0, Qt::AlignTop);
    path->addStretch();
    rows->addWidget(Caption(u"账本盒位置:"_s, kBoxPlace), 2, 0, Qt::AlignTop);
    rows->addLayout(path, 2, 1);
}
