// Controls and layouts of the book window, in the order in which they are visited.

#include "books/frm_book_new.h"
#include "shell/controls/control_support.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_indicator.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_text.h"
#include "shell/skin.h"

#include <QGridLayout>
#include <QHBoxLayout>

using namespace Qt::StringLiterals;
using Controls::Named;

namespace {

constexpr QSize kLeast(760, 332);
constexpr int kHigher = 130;
constexpr int kRow = 32, kYear = 120, kBoxes = 56, kLeftWidth = 344, kMoreLeft = 184;
constexpr int kRing = 3;  // checks keep room for their focus ring

KestroLabel* Caption(const QString& text, int height = kRow) {
    auto* label = new KestroLabel(text, LabelKind::caption);
    label->setMinimumHeight(Skin::Px(height));
    return label;
}

QGridLayout* Rows() {
    auto* rows = new QGridLayout;
    rows->setContentsMargins({});
    rows->setHorizontalSpacing(Skin::Space::kPartner);
    rows->setVerticalSpacing(Skin::Space::kField);
    rows->setColumnMinimumWidth(0, Skin::Px(56));
    rows->setColumnStretch(1, 1);
    return rows;
}

}  // namespace

void frmBookNew::Build() {
    BuildForm();
    BuildMore();
    BuildFooter();
    LayOut();
    Connect();
}

void frmBookNew::BuildForm() {
    txtName = Named(new KestroText, u"txtName"_s, u"账本名称"_s);
    comYear = Named(new KestroCombox(ComboxMode::chooseOnly), u"comYear"_s, u"记账年度"_s);
    comYear->setFixedWidth(Skin::Px(kYear));
    for (const auto& year : OfferedYears())
        comYear->AddItem(year, year, u"date"_s);
    txtPass[0] = Named(new KestroText(TextMode::masked), u"txtPass0"_s, u"账本口令"_s);
    txtPass[1] = Named(new KestroText(TextMode::masked), u"txtPass1"_s, u"重复口令"_s);
    editNote = Named(new KestroEditBox, u"editNote"_s, u"备注"_s);
    editPath = Named(new KestroEditBox, u"editPath"_s, u"账本文件"_s);
    editPath->setReadOnly(true);
    editPath->setFocusPolicy(Qt::ClickFocus);
    for (auto* box : {editNote, editPath})
        box->setFixedHeight(Skin::Px(kBoxes));
    lblDBVerInfo = new KestroLabel(u"v10.0"_s, LabelKind::hint);
    lblDate = new KestroLabel({}, LabelKind::hint);
    lblSize = new KestroLabel({}, LabelKind::hint);
    lblDBVerInfo->setObjectName(u"lblDBVerInfo"_s);
    lblDate->setObjectName(u"lblDate"_s);
    lblSize->setObjectName(u"lblSize"_s);
}

void frmBookNew::BuildMore() {
    chkOther = Named(new KestroCheck(u"更多选项"_s), u"chkOther"_s, u"更多选项"_s);
    more_ = new QWidget;
    comBook = Named(new KestroCombox(ComboxMode::chooseOnly), u"comBook"_s, u"参考账本"_s);
    chkTransfer = Named(new KestroCheck(u"结转分类余额"_s), u"chkTransfer"_s, u"结转分类余额"_s);
    chkSubAcc = Named(new KestroCheck(u"结转账户余额"_s), u"chkSubAcc"_s, u"结转账户余额"_s);
    lblHelp_ = new KestroLabel({}, LabelKind::help);
    const QString example =
        u"例如:您账本2012,有事情分类生活费,共增加12000元,减少2000元,差额10000元."
        u"您待新建账本2013想把差额生活费"
        u"10000元作为新账本的余额.这时您就要选中这个选项."_s;
    chkTransfer->setToolTip(example);
    lblHelp_->setToolTip(example);
    KestroList1 = NewList(u"KestroList1"_s, u"分类名称"_s);
    KestroList2 = NewList(u"KestroList2"_s, u"账户名称"_s);
}

KestroList* frmBookNew::NewList(const QString& name, const QString& words) {
    auto* list = Named(new KestroList, name, words);
    list->SetCompact(true);
    list->SetCheckColumn(true);
    list->DefineColumn({u"no"_s, u"NO"_s, 36, 30, u"number"_s, ListColor::dim, false, {}});
    list->DefineColumn({u"name"_s, words, 92, 60, u"string"_s, ListColor::none, true, {}});
    list->DefineColumn({u"money"_s, u"余额"_s, 76, 60, u"money"_s, ListColor::none, false, {}});
    list->SetMoneyGroup(2, State().settings.nGroup);
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    list->setMinimumHeight(Skin::Px(kHigher));
    return list;
}

void frmBookNew::BuildFooter() {
    btnBackUp = Named(new KestroButton(ButtonLook::plain, u"备份"_s), u"btnBackUp"_s, u"备份"_s);
    btnZip = Named(new KestroButton(ButtonLook::plain, u"压缩"_s), u"btnZip"_s, u"压缩"_s);
    running_ = Named(new KestroIndicator, u"running"_s, u"正在压缩"_s);
    btnCancel = Named(new KestroButton(ButtonLook::plain, u"取消"_s), u"btnCancel"_s, u"取消"_s);
    btnEnter = Named(new KestroButton(ButtonLook::primary, u"确定"_s), u"btnEnter"_s, u"确定"_s);
    auto* foot = new QHBoxLayout(Footer());
    foot->setContentsMargins(Skin::Space::kDialog, 0, Skin::Space::kDialog, 0);
    foot->setSpacing(Skin::Space::kPartner);
    for (auto* button : {btnBackUp, btnZip, btnCancel, btnEnter}) {
        if (button == btnCancel) {
            foot->addWidget(running_);
            foot->addStretch();
        }
        button->SetLeastWidth(80);
        foot->addWidget(button);
    }
    SetDefaultButton(btnEnter);
}

QLayout* frmBookNew::LeftRows() {
    auto* rows = Rows();
    const std::pair<QString, QWidget*> fields[] = {{u"账本名称:"_s, txtName},
                                                   {u"记账年度:"_s, comYear},
                                                   {u"账本口令:"_s, txtPass[0]},
                                                   {u"重复口令:"_s, txtPass[1]}};
    for (const auto& [caption, field] : fields) {
        const int row = rows->rowCount();
        rows->addWidget(Caption(caption), row, 0);
        rows->addWidget(field, row, 1, field == comYear ? Qt::AlignLeft : Qt::Alignment());
    }
    return rows;
}

QLayout* frmBookNew::RightRows() {
    auto* rows = Rows();
    rows->addWidget(Caption(u"备注:"_s), 0, 0, Qt::AlignTop);
    rows->addWidget(editNote, 0, 1);
    rows->addWidget(Caption(u"账本文件:"_s), 1, 0, Qt::AlignTop);
    rows->addWidget(editPath, 1, 1);
    rows->addLayout(Facts(), 2, 1);
    rows->setRowStretch(3, 1);
    return rows;
}

QLayout* frmBookNew::Facts() {
    auto* facts = new QHBoxLayout;
    facts->setSpacing(Skin::Space::kPartner);
    facts->addWidget(lblDBVerInfo);
    facts->addStretch();
    facts->addWidget(lblDate);
    facts->addStretch();
    facts->addWidget(lblSize);
    return facts;
}

void frmBookNew::LayOut() {
    auto* body = new QGridLayout(Body());
    body->setContentsMargins(Skin::Space::kDialog, 16, Skin::Space::kDialog, 12);
    body->setHorizontalSpacing(Skin::Space::kDialog);
    body->setVerticalSpacing(Skin::Space::kField);
    auto* form = new QHBoxLayout;
    form->setSpacing(Skin::Space::kDialog);
    form->addLayout(LeftRows(), kLeftWidth);
    form->addLayout(RightRows(), kLeftWidth);
    auto* left = new QVBoxLayout;
    left->setContentsMargins(-kRing, 0, 0, 0);
    left->setSpacing(6);
    left->addWidget(chkOther);
    auto* chosen = new QVBoxLayout(more_);
    chosen->setContentsMargins({});
    chosen->setSpacing(6);
    auto* transfer = new QHBoxLayout;
    transfer->setSpacing(0);
    transfer->addWidget(chkTransfer);
    transfer->addWidget(lblHelp_);
    transfer->addStretch();
    auto* caption = new KestroLabel(u"参考账本:"_s, LabelKind::caption);
    caption->setIndent(kRing);
    auto* book = new QHBoxLayout;
    book->setContentsMargins(kRing, 0, 0, 0);
    book->addWidget(comBook);
    chosen->addWidget(caption);
    chosen->addLayout(book);
    chosen->addLayout(transfer);
    chosen->addWidget(chkSubAcc);
    left->addWidget(more_);
    left->addStretch();
    auto* lower = new QHBoxLayout;
    lower->setSpacing(Skin::Space::kField);
    lower->addLayout(left);
    lower->addWidget(KestroList1, 1);
    lower->addWidget(KestroList2, 1);
    chkOther->setMinimumWidth(Skin::Px(kMoreLeft));
    body->addLayout(form, 0, 0);
    body->addLayout(lower, 1, 0);
    body->setRowStretch(1, 1);
    for (QWidget* part : {more_, static_cast<QWidget*>(KestroList1), static_cast<QWidget*>(KestroList2)})
        part->hide();
    SetTitleLine(true);
    SetNamedSize(kLeast);
}

void frmBookNew::SetMore(bool on) {
    for (QWidget* part : {more_, static_cast<QWidget*>(KestroList1), static_cast<QWidget*>(KestroList2)})
        part->setVisible(on);
    if (!on) ClearReference();
    SetNamedSize(kLeast + QSize(0, on ? kHigher : 0));
}
