// Controls and layouts of the entry window.

#include "ledger/entry_ground.h"
#include "ledger/frm_account_new.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_calculator.h"
#include "shell/controls/kestro_calendar.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_option.h"
#include "shell/controls/kestro_png_pic.h"
#include "shell/controls/kestro_text.h"
#include "shell/controls/png_button.h"
#include "shell/skin.h"
#include "store/state.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kLeast(480, 444);
constexpr QSize kAccountArea(290, 0), kSecondKind(0, 110);  // by which the window grows
constexpr int kRow = 32, kLabel = 56, kAccountLabel = 38, kNumberBox = 44;
constexpr int kFieldsEnd = 36;  // free at the right of the fields, room for the arrow on the seam
constexpr int kGroupEdge = 12;  // the group of the second kind stands out of the form by this
constexpr int kAccountEdge = 19;
constexpr QSize kArrow(26, 44);
constexpr int kArrowTop = 198;
constexpr int kRing = 3;  // options and checks keep room for their focus ring

QString SignCaption(size_t slot) {
    return slot < kAccount1 ? u"分类"_s + (slot == kKind1 ? u"一"_s : u"二"_s)
                            : u"账户"_s + (slot == kAccount1 ? u"一"_s : u"二"_s);
}

KestroLabel* Caption(const QString& text) {
    return new KestroLabel(text, LabelKind::caption);
}

/// Rows of a caption and its field. widest: the caption whose width the column of captions has at least.
class FormRows {
 public:
    FormRows(QWidget* owner, const QMargins& margins, int captionWidth, const QString& widest)
        : grid_(new QGridLayout(owner)) {
        const QFontMetrics metrics(Skin::Font(Type::body));
        grid_->setContentsMargins(margins);
        grid_->setSpacing(0);
        const int captions = std::max(captionWidth, metrics.horizontalAdvance(widest) + 1);
        grid_->setColumnMinimumWidth(0, captions + Skin::Space::kPartner - kRing);
        grid_->setColumnMinimumWidth(1, kRing);
        grid_->setColumnStretch(2, 1);
    }
    void Gap(int pixels) { grid_->setRowMinimumHeight(next_++, pixels); }
    void Row(QWidget* caption, QWidget* field) {
        grid_->addWidget(caption, next_, 0);
        grid_->addWidget(field, next_++, 2);
    }
    void Row(QWidget* caption, QLayout* fields) {
        grid_->addWidget(caption, next_, 0);
        grid_->addLayout(fields, next_++, 2);
    }
    /// A control that keeps room for its focus ring stands out to the left by it.
    void RingRow(QWidget* caption, QWidget* field) {
        if (caption) grid_->addWidget(caption, next_, 0);
        grid_->addWidget(field, next_++, 1, 1, 2, Qt::AlignLeft);
    }
    QGridLayout* Grid() const { return grid_; }

 private:
    QGridLayout* grid_;
    int next_ = 0;
};

FormRows EntryForm(QWidget* owner, const QMargins& margins) {
    return {owner, margins, kLabel, u"分类一:"_s};
}

FormRows AccountForm(QWidget* owner) {
    return {owner, {kRing, 0, 0, 0}, kAccountLabel, u"名称:"_s};
}

}  // namespace

KestroCombox* frmAccountNew::MakeCombox(size_t slot) {
    auto* box = new KestroCombox(ComboxMode::pick);
    const bool kind = slot < kAccount1;
    box->SetLeftIcon(kind ? u"items"_s : u"book"_s);
    box->SetBrowse(u"tree"_s, kind ? u"在分类树中选择"_s : u"在账户树中选择"_s);
    box->setAccessibleName(SignCaption(slot));
    box->onChoose = [this, slot](const QString&, const QString& key) { Chosen(slot, key); };
    box->onBrowse = [this, slot] { OpenTree(slot); };
    box->onTip = [this, slot] { return CodeTip(slot); };
    combos_[slot] = box;
    options_[slot] = new KestroOptionPair;
    options_[slot]->SetGroupName(SignCaption(slot) + u"导致"_s);
    return box;
}

KestroText* frmAccountNew::MakeText(TextMode mode, const QString& name) {
    auto* box = new KestroText(mode);
    box->setAccessibleName(name);
    if (mode == TextMode::amount) box->SetGroup(State().settings.nGroup);
    return box;
}

QWidget* frmAccountNew::BuildEntry() {
    auto* side = new QWidget;
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(Skin::Space::kDialog - kGroupEdge, 16, kFieldsEnd - kGroupEdge, 12);
    column->setSpacing(0);
    column->addWidget(BuildForm());
    column->addSpacing(8);
    kind2_ = BuildSecondKind();
    column->addWidget(kind2_);
    auto* remark = new QWidget;
    auto rows = EntryForm(remark, {kGroupEdge, 0, kGroupEdge, 0});
    editNote = new KestroEditBox;
    editNote->setAccessibleName(u"备注"_s);
    auto* caption = Caption(u"备注:"_s);
    caption->setMinimumHeight(Skin::Px(kRow));
    rows.Row(caption, editNote);
    rows.Grid()->setAlignment(caption, Qt::AlignTop);
    column->addWidget(remark, 1);
    return side;
}

QWidget* frmAccountNew::BuildForm() {
    auto* form = new QWidget;
    auto rows = EntryForm(form, {kGroupEdge, 0, kGroupEdge, 0});
    txtThing = MakeText(TextMode::normal, u"事情"_s);
    rows.Row(Caption(u"事情:"_s), txtThing);
    rows.Gap(Skin::Space::kField);
    rows.Row(Caption(u"日期:"_s), BuildMoment());
    rows.Gap(Skin::Space::kField);
    txtMoney = MakeText(TextMode::amount, u"金额"_s);
    txtMoney->SetBig(true);
    txtMoney->SetPrompt(u"限2位小数"_s);
    txtMoney->SetEndButton(u"calculator"_s, u"计算器"_s, false);
    rows.Row(Caption(u"金额:"_s), txtMoney);
    rows.Gap(Skin::Space::kField);
    rows.Row(Caption(u"分类一:"_s), MakeCombox(kKind1));
    rows.Gap(5);
    rows.RingRow(Caption(u"导致:"_s), options_[kKind1]);
    rows.Gap(7);
    chkOther = new KestroCheck(u"同时记入第二个分类"_s);
    rows.RingRow(nullptr, chkOther);
    return form;
}

QLayout* frmAccountNew::BuildMoment() {
    txtDate = MakeText(TextMode::normal, u"日期"_s);
    txtDate->SetEndButton(u"date"_s, u"选择日期"_s, false);
    txtDate->setFixedWidth(Skin::Px(132));
    PngReduce = new PngButton(u"minus"_s, u"前一天"_s, nullptr, Skin::Px(kRow));
    pngPlus = new PngButton(u"plus"_s, u"后一天"_s, nullptr, Skin::Px(kRow));
    auto* row = new QHBoxLayout;
    row->setSpacing(4);
    row->addWidget(txtDate);
    for (auto* step : {PngReduce, pngPlus}) {
        step->SetFramed(true);
        step->setFixedWidth(Skin::Px(28));
        row->addWidget(step);
    }
    row->addStretch();
    txtHour = MakeText(TextMode::normal, u"小时"_s);
    txtMinute = MakeText(TextMode::normal, u"分钟"_s);
    for (auto* number : {txtHour, txtMinute}) {
        number->setAlignment(Qt::AlignCenter);
        number->setFixedWidth(Skin::Px(kNumberBox));
        if (number == txtMinute) row->addWidget(Caption(u":"_s));
        row->addWidget(number);
    }
    return row;
}

QWidget* frmAccountNew::BuildSecondKind() {
    auto* group = new KindGroup;
    auto rows = EntryForm(group, {kGroupEdge, 14, kGroupEdge, 8 + KindGroup::kGap});
    rows.Row(Caption(u"分类二:"_s), MakeCombox(kKind2));
    rows.Gap(5);
    rows.RingRow(Caption(u"导致:"_s), options_[kKind2]);
    return group;
}

QWidget* frmAccountNew::BuildAccounts() {
    auto* side = new AccountGround(false, nullptr);
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(kAccountEdge - kRing, 14, kAccountEdge, 12);
    column->setSpacing(0);
    auto* picture = new KestroPngPic;
    picture->SetIcon(u"account"_s);
    picture->setFixedSize(16, 16);
    auto* title = new QHBoxLayout;
    title->setContentsMargins(kRing, 0, 0, 0);
    title->setSpacing(Skin::Space::kPartner);
    title->addWidget(picture);
    title->addWidget(new KestroLabel(u"账户一"_s, LabelKind::title), 1);
    column->addLayout(title);
    column->addSpacing(10);
    column->addWidget(BuildAccount(0));
    column->addSpacing(13);
    auto* divider = new QHBoxLayout;
    divider->setContentsMargins(kRing, 0, 0, 0);
    divider->addWidget(new DividerLine);
    column->addLayout(divider);
    column->addSpacing(13);
    chkOther1 = new KestroCheck(u"账户二"_s);
    column->addWidget(chkOther1, 0, Qt::AlignLeft);
    column->addSpacing(8);
    account2_ = BuildAccount(1);
    column->addWidget(account2_);
    column->addStretch();
    return side;
}

QWidget* frmAccountNew::BuildAccount(size_t i) {
    auto* block = new QWidget;
    auto rows = AccountForm(block);
    rows.Row(Caption(u"名称:"_s), MakeCombox(kAccount1 + i));
    rows.Gap(Skin::Space::kPartner);
    accValues_[i] = MakeText(TextMode::amount, SignCaption(kAccount1 + i) + u"金额"_s);
    clones_[i] = new PngButton(u"clone"_s, u"复制记账金额"_s, nullptr, Skin::Px(kRow));
    clones_[i]->SetFramed(true);
    auto* value = new QHBoxLayout;
    value->setSpacing(4);
    value->addWidget(accValues_[i], 1);
    value->addWidget(clones_[i]);
    rows.Row(Caption(u"金额:"_s), value);
    rows.Gap(5);
    rows.RingRow(Caption(u"导致:"_s), options_[kAccount1 + i]);
    return block;
}

// The arrow stands on the seam of both sides: it shares a column of the grid with each.
void frmAccountNew::LayOut(QWidget* entry) {
    sides_ = new QGridLayout(Body());
    sides_->setContentsMargins(0, 0, 0, 0);
    sides_->setSpacing(0);
    sides_->addWidget(entry, 0, 0, 3, 2);
    sides_->addWidget(accounts_, 0, 2, 3, 2);
    sides_->setColumnStretch(0, 1);
    sides_->setRowMinimumHeight(0, kArrowTop);
    sides_->setRowStretch(2, 1);
    pngArrow = new PngButton(u"arrowRight"_s, u"增加到账户 或 不增加到账户!"_s, nullptr, kArrow.width());
    pngArrow->SetFramed(true);
    pngArrow->setFixedSize(kArrow);
    sides_->addWidget(pngArrow, 1, 1, 1, 2);
    pngArrow->raise();
}

void frmAccountNew::BuildFooter() {
    chkMark = new KestroCheck(u"重要"_s);
    chkMark->SetIconName(u"flag"_s);
    btnCamera = new KestroButton(ButtonLook::toolbar, u"图片 0"_s, u"camera"_s);
    btnCancel = new KestroButton(ButtonLook::plain, u"取消"_s);
    btnEnter = new KestroButton(ButtonLook::primary, u"确定"_s);
    btnCancel->SetLeastWidth(80);
    btnEnter->SetLeastWidth(92);
    auto* foot = new QHBoxLayout(Footer());
    foot->setContentsMargins(Skin::Space::kDialog - kRing, 0, 0, 0);
    foot->setSpacing(Skin::Space::kPartner);
    foot->addWidget(chkMark);
    foot->addWidget(btnCamera);
    foot->addStretch();
    foot->addWidget(btnCancel);
    foot->addWidget(btnEnter);
    foot->addSpacing(kFieldsEnd - Skin::Space::kPartner);
    foot->addWidget(accountFoot_ = new AccountGround(true, nullptr));
    KestroCalculator1 = new KestroCalculator(this);
    KestroCalendar1 = new KestroCalendar(this);
}

void frmAccountNew::Arrange() {
    const bool second = chkOther->IsChecked();
    const int onSeam = kArrow.width() / 2;
    kind2_->setVisible(second);
    accounts_->setVisible(bToAccount);
    accountFoot_->setVisible(bToAccount);
    account2_->setVisible(chkOther1->IsChecked());
    sides_->setColumnMinimumWidth(1, bToAccount ? onSeam : kArrow.width());
    sides_->setColumnMinimumWidth(2, bToAccount ? onSeam : 0);
    for (auto* part : {accounts_, accountFoot_})
        part->setFixedWidth(
            std::max(kAccountArea.width() - 2, accounts_->layout()->totalMinimumSize().width()));
    pngArrow->SetIcon(bToAccount ? u"arrowLeft"_s : u"arrowRight"_s);
    SetNamedSize(kLeast + (second ? kSecondKind : QSize(0, 0)) + (bToAccount ? kAccountArea : QSize(0, 0)));
    SetFooterLine(bToAccount ? accounts_->width() : 0);
}

void frmAccountNew::NameControls() {
    const std::vector<std::pair<QWidget*, QString>> names{{txtThing, u"txtThing"_s},
                                                          {txtMoney, u"txtMoney"_s},
                                                          {txtDate, u"txtDate"_s},
                                                          {txtHour, u"txtHour"_s},
                                                          {txtMinute, u"txtMinute"_s},
                                                          {pngPlus, u"pngPlus"_s},
                                                          {PngReduce, u"PngReduce"_s},
                                                          {combos_[0], u"comKind"_s},
                                                          {combos_[1], u"comKind1"_s},
                                                          {combos_[2], u"comAccName"_s},
                                                          {combos_[3], u"comAccName1"_s},
                                                          {options_[0], u"opt0"_s},
                                                          {options_[1], u"opt1"_s},
                                                          {options_[2], u"opt2"_s},
                                                          {options_[3], u"opt3"_s},
                                                          {accValues_[0], u"txtAccValue"_s},
                                                          {accValues_[1], u"txtAccValue1"_s},
                                                          {clones_[0], u"btnClone0"_s},
                                                          {clones_[1], u"btnClone1"_s},
                                                          {chkOther, u"chkOther"_s},
                                                          {chkOther1, u"chkOther1"_s},
                                                          {editNote, u"editNote"_s},
                                                          {chkMark, u"chkMark"_s},
                                                          {btnCamera, u"btnCamera"_s},
                                                          {btnEnter, u"btnEnter"_s},
                                                          {btnCancel, u"btnCancel"_s},
                                                          {pngArrow, u"pngArrow"_s}};
    for (const auto& [control, name] : names)
        control->setObjectName(name);
}

void frmAccountNew::SetTabOrder() {
    const std::vector<QWidget*> order{
        txtThing,   txtDate,       PngReduce,  pngPlus,       txtHour,     txtMinute,   txtMoney,
        combos_[0], options_[0],   chkOther,   combos_[1],    options_[1], editNote,    chkMark,
        btnCamera,  pngArrow,      combos_[2], accValues_[0], clones_[0],  options_[2], chkOther1,
        combos_[3], accValues_[1], clones_[1], options_[3],   btnCancel,   btnEnter};
    for (size_t i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
}
