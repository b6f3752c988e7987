// Controls and places of the entry window. Lengths are device-independent pixels below the title.

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
#include "store/state.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kLabelX = 24;
constexpr int kFieldX = 88;
constexpr int kFieldEnd = 444;
constexpr int kRow = 32;
constexpr int kPair = 30;
constexpr int kPairWidth = 180;
constexpr int kLabelWidth = 64;
constexpr int kThingY = 16;
constexpr int kDateY = 60;
constexpr int kMoneyY = 104;
constexpr int kKindY = 156;
constexpr int kKindPairY = 196;
constexpr int kOtherY = 236;
constexpr int kGroupY = 268;
constexpr int kGroupHeight = 98;
constexpr int kSecondKind = 110;
constexpr int kNoteHeight = 64;
constexpr int kAccLabelX = EntryGround::kEntryWidth + 19;
constexpr int kAccFieldX = EntryGround::kEntryWidth + 65;
constexpr int kAccEnd = EntryGround::kEntryWidth + 269;
constexpr int kAcc1Y = 14;
constexpr int kAccLineY = 172;
constexpr int kAcc2Y = 186;

constexpr int kRing = 3;  // options and checks keep room for their focus ring

QString SignCaption(size_t slot) {
    return slot < kAccount1 ? u"分类"_s + (slot == kKind1 ? u"一"_s : u"二"_s)
                            : u"账户"_s + (slot == kAccount1 ? u"一"_s : u"二"_s);
}

void PlacePair(QWidget* pair, int x, int y) {
    pair->setGeometry(x - kRing, y - kRing, kPairWidth + 2 * kRing, kPair + 2 * kRing);
}

}  // namespace

KestroCombox* frmAccountNew::MakeCombox(size_t slot) {
    auto* box = new KestroCombox(ComboxMode::pick, ground_);
    const bool kind = slot < kAccount1;
    box->SetLeftIcon(kind ? u"items"_s : u"book"_s);
    box->SetBrowse(u"tree"_s, kind ? u"在分类树中选择"_s : u"在账户树中选择"_s);
    box->setAccessibleName(SignCaption(slot));
    box->onChoose = [this, slot](const QString&, const QString& key) { Chosen(slot, key); };
    box->onBrowse = [this, slot] { OpenTree(slot); };
    combos_[slot] = box;
    options_[slot] = new KestroOptionPair(ground_);
    options_[slot]->setAccessibleName(SignCaption(slot) + u"导致"_s);
    optionLabels_[slot] = new KestroLabel(u"导致:"_s, LabelKind::caption, ground_);
    return box;
}

void frmAccountNew::BuildEntry() {
    const auto label = [this](const QString& text, int y) {
        auto* made = new KestroLabel(text, LabelKind::caption, ground_);
        made->setGeometry(kLabelX, y, kLabelWidth, kRow);
        return made;
    };
    label(u"事情:"_s, kThingY);
    txtThing = new KestroText(TextMode::normal, ground_);
    txtThing->setAccessibleName(u"事情"_s);
    txtThing->setGeometry(kFieldX, kThingY, kFieldEnd - kFieldX, kRow);

    label(u"日期:"_s, kDateY);
    txtDate = new KestroText(TextMode::normal, ground_);
    txtDate->setAccessibleName(u"日期"_s);
    txtDate->SetEndButton(u"date"_s, u"选择日期"_s, false);
    txtDate->setGeometry(kFieldX, kDateY, 132, kRow);
    PngReduce = new PngButton(u"minus"_s, u"前一天"_s, ground_, kRow);
    pngPlus = new PngButton(u"plus"_s, u"后一天"_s, ground_, kRow);
    PngReduce->SetFramed(true);
    pngPlus->SetFramed(true);
    PngReduce->setGeometry(kFieldX + 136, kDateY, 28, kRow);
    pngPlus->setGeometry(kFieldX + 168, kDateY, 28, kRow);
    txtHour = new KestroText(TextMode::normal, ground_);
    txtMinute = new KestroText(TextMode::normal, ground_);
    txtHour->setAccessibleName(u"小时"_s);
    txtMinute->setAccessibleName(u"分钟"_s);
    txtHour->setAlignment(Qt::AlignCenter);
    txtMinute->setAlignment(Qt::AlignCenter);
    txtHour->setGeometry(kFieldEnd - 103, kDateY, 44, kRow);
    txtMinute->setGeometry(kFieldEnd - 44, kDateY, 44, kRow);
    lblColon = new KestroLabel(u":"_s, LabelKind::caption, ground_);
    lblColon->setGeometry(kFieldEnd - 54, kDateY, 8, kRow);

    label(u"金额:"_s, kMoneyY)->setGeometry(kLabelX, kMoneyY, kLabelWidth, 40);
    txtMoney = new KestroText(TextMode::amount, ground_);
    txtMoney->setAccessibleName(u"金额"_s);
    txtMoney->SetBig(true);
    txtMoney->SetGroup(State().settings.nGroup);
    txtMoney->SetPrompt(u"限2位小数"_s);
    txtMoney->SetEndButton(u"calculator"_s, u"计算器"_s, false);
    txtMoney->setGeometry(kFieldX, kMoneyY, kFieldEnd - kFieldX, 40);

    label(u"分类一:"_s, kKindY);
    MakeCombox(kKind1)->setGeometry(kFieldX, kKindY, kFieldEnd - kFieldX, kRow);
    optionLabels_[kKind1]->setGeometry(kLabelX, kKindPairY, kLabelWidth, kPair);
    PlacePair(options_[kKind1], kFieldX, kKindPairY);
    chkOther = new KestroCheck(u"同时记入第二个分类"_s, ground_);
    chkOther->setGeometry(kFieldX - kRing, kOtherY, chkOther->sizeHint().width(), 24);
    lblKind1 = label(u"分类二:"_s, kGroupY + 14);
    MakeCombox(kKind2)->setGeometry(kFieldX, kGroupY + 14, kFieldEnd - kFieldX, kRow);
    optionLabels_[kKind2]->setGeometry(kLabelX, kGroupY + 54, kLabelWidth, kPair);
    PlacePair(options_[kKind2], kFieldX, kGroupY + 54);

    lblNote = label(u"备注:"_s, 0);
    editNote = new KestroEditBox(ground_);
    editNote->setAccessibleName(u"备注"_s);
    chkMark = new KestroCheck(u"重要"_s, ground_);
    chkMark->SetIconName(u"flag"_s);
    btnCamera = new KestroButton(ButtonLook::toolbar, u"图片 0"_s, u"camera"_s, ground_);
    btnCancel = new KestroButton(ButtonLook::plain, u"取消"_s, {}, ground_);
    btnEnter = new KestroButton(ButtonLook::primary, u"确定"_s, {}, ground_);
    pngArrow = new PngButton(u"arrowRight"_s, u"增加到账户 或 不增加到账户!"_s, this, 26);
    pngArrow->SetFramed(true);
    KestroCalculator1 = new KestroCalculator(this);
    KestroCalendar1 = new KestroCalendar(this);
}

void frmAccountNew::BuildAccounts() {
    lblAccount1 = new KestroLabel(u"账户一"_s, LabelKind::title, ground_);
    lblAccount1->setGeometry(kAccLabelX + 24, kAcc1Y, 176, 24);
    picAccount_ = new KestroPngPic(ground_);
    picAccount_->SetIcon(u"account"_s);
    picAccount_->setGeometry(kAccLabelX, kAcc1Y + 4, 16, 16);
    chkOther1 = new KestroCheck(u"账户二"_s, ground_);
    chkOther1->setGeometry(kAccLabelX - kRing, kAcc2Y, chkOther1->sizeHint().width(), 24);
    for (size_t i = 0; i < 2; ++i) {
        const int top = (i == 0 ? kAcc1Y : kAcc2Y) + 32;
        accNameLabels_[i] = new KestroLabel(u"名称:"_s, LabelKind::caption, ground_);
        accNameLabels_[i]->setGeometry(kAccLabelX, top, 46, kRow);
        MakeCombox(kAccount1 + i)->setGeometry(kAccFieldX, top, kAccEnd - kAccFieldX, kRow);
        accValueLabels_[i] = new KestroLabel(u"金额:"_s, LabelKind::caption, ground_);
        accValueLabels_[i]->setGeometry(kAccLabelX, top + 40, 46, kRow);
        accValues_[i] = new KestroText(TextMode::amount, ground_);
        accValues_[i]->setAccessibleName(SignCaption(kAccount1 + i) + u"金额"_s);
        accValues_[i]->SetGroup(State().settings.nGroup);
        accValues_[i]->setGeometry(kAccFieldX, top + 40, kAccEnd - kAccFieldX - 36, kRow);
        clones_[i] = new PngButton(u"clone"_s, u"复制记账金额"_s, ground_, kRow);
        clones_[i]->SetFramed(true);
        clones_[i]->setGeometry(kAccEnd - kRow, top + 40, kRow, kRow);
        optionLabels_[kAccount1 + i]->setGeometry(kAccLabelX, top + 80, 46, kPair);
        PlacePair(options_[kAccount1 + i], kAccFieldX, top + 80);
    }
}

void frmAccountNew::Arrange() {
    const bool second = chkOther->IsChecked();
    const int noteY = kGroupY + (second ? kSecondKind : 0);
    const int height = noteY + kNoteHeight + 16 + EntryGround::kFooter;
    for (QWidget* control :
         {static_cast<QWidget*>(lblKind1), static_cast<QWidget*>(combos_[kKind2]),
          static_cast<QWidget*>(optionLabels_[kKind2]), static_cast<QWidget*>(options_[kKind2])})
        control->setVisible(second);
    lblNote->setGeometry(kLabelX, noteY, kLabelWidth, kRow);
    editNote->setGeometry(kFieldX, noteY, kFieldEnd - kFieldX, kNoteHeight);
    const int footY = height - EntryGround::kFooter + 12;
    chkMark->setGeometry(kLabelX - kRing, footY, chkMark->sizeHint().width(), kRow);
    btnCamera->setGeometry(chkMark->geometry().right() + 12, footY, btnCamera->sizeHint().width(), kRow);
    btnEnter->setGeometry(kFieldEnd - 92, footY, 92, kRow);
    btnCancel->setGeometry(kFieldEnd - 92 - 8 - 80, footY, 80, kRow);
    ArrangeAccounts();
    SetNamedSize(
        {EntryGround::kEntryWidth + (bToAccount ? EntryGround::kAccountWidth : 0), height + TitleHeight()});
    ground_->setGeometry(Body()->rect());
    ground_->SetAreas(second ? QRect(12, kGroupY, kFieldEnd, kGroupHeight) : QRect(), bToAccount, kAccLineY);
    const int seam = bToAccount ? EntryGround::kEntryWidth - 13 : EntryGround::kEntryWidth - 28;
    pngArrow->setGeometry(Body()->x() + seam, Body()->y() + 198, 26, 44);
    pngArrow->SetIcon(bToAccount ? u"arrowLeft"_s : u"arrowRight"_s);
    pngArrow->raise();
}

void frmAccountNew::ArrangeAccounts() {
    const bool account2 = bToAccount && chkOther1->IsChecked();
    lblAccount1->setVisible(bToAccount);
    picAccount_->setVisible(bToAccount);
    chkOther1->setVisible(bToAccount);
    for (size_t i = 0; i < 2; ++i) {
        const bool shown = i == 0 ? bToAccount : account2;
        for (QWidget* control :
             {static_cast<QWidget*>(accNameLabels_[i]), static_cast<QWidget*>(combos_[kAccount1 + i]),
              static_cast<QWidget*>(accValueLabels_[i]), static_cast<QWidget*>(accValues_[i]),
              static_cast<QWidget*>(clones_[i]), static_cast<QWidget*>(optionLabels_[kAccount1 + i]),
              static_cast<QWidget*>(options_[kAccount1 + i])})
            control->setVisible(shown);
    }
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
