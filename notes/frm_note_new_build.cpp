// Controls and layouts of the note editor, in the order in which they are visited.

#include "notes/frm_note_new.h"
#include "shell/controls/control_support.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_calendar.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_option.h"
#include "shell/controls/kestro_text.h"
#include "shell/skin.h"

#include <QGridLayout>
#include <QHBoxLayout>

using namespace Qt::StringLiterals;
using Controls::Named;

namespace {

constexpr QSize kLeast(478, 434);
constexpr int kRow = 32, kDate = 132;
constexpr int kRing = 3;  // options and checks keep room for their focus ring

KestroLabel* Caption(const QString& text) {
    auto* label = new KestroLabel(text, LabelKind::caption);
    label->setMinimumHeight(Skin::Px(kRow));
    return label;
}

QHBoxLayout* RowOf(int spacing, bool rings) {
    auto* row = new QHBoxLayout;
    row->setContentsMargins(rings ? -kRing : 0, 0, 0, 0);
    row->setSpacing(spacing);
    return row;
}

}  // namespace

void frmNoteNew::BuildBody() {
    auto* rows = new QGridLayout(Body());
    rows->setContentsMargins(Skin::Space::kDialog, 16, Skin::Space::kDialog + 12, 16);
    rows->setHorizontalSpacing(Skin::Space::kPartner);
    rows->setVerticalSpacing(Skin::Space::kField);
    rows->setColumnMinimumWidth(0, Skin::Px(56));
    rows->setColumnStretch(1, 1);
    txtTitle = Named(new KestroText, u"txtTitle"_s, u"标题"_s);
    editNote = new KestroEditBox;
    rows->addWidget(Caption(u"标题:"_s), 0, 0);
    rows->addWidget(txtTitle, 0, 1);
    rows->addWidget(Caption(u"类型:"_s), 1, 0);
    rows->addLayout(BuildType(), 1, 1);
    rows->addWidget(Caption(u"期限:"_s), 2, 0);
    rows->addLayout(BuildUntil(), 2, 1);
    rows->addWidget(Caption(u"内容:"_s), 3, 0, Qt::AlignTop);
    rows->addWidget(Named(editNote, u"editNote"_s, u"内容"_s), 3, 1);
    rows->setRowStretch(3, 1);
    KestroCalendar1 = new KestroCalendar(this);
}

QLayout* frmNoteNew::BuildType() {
    auto* row = RowOf(Skin::Space::kPage, true);
    optNote = Named(new KestroOption(u"记事"_s), u"optType0"_s, u"记事"_s);
    optWake = Named(new KestroOption(u"提醒"_s), u"optType1"_s, u"提醒"_s);
    optNote->SetIconName(u"note"_s);
    optWake->SetIconName(u"wake"_s);
    lblTip = new KestroLabel({}, LabelKind::hint);
    lblTip->setObjectName(u"lblTip"_s);
    row->addWidget(optNote);
    row->addWidget(optWake);
    row->addStretch();
    row->addWidget(lblTip);
    return row;
}

QLayout* frmNoteNew::BuildUntil() {
    auto* row = RowOf(Skin::Space::kPage, false);
    txtDate = Named(new KestroText, u"txtDate"_s, u"期限"_s);
    txtDate->SetEndButton(u"date"_s, u"选择日期"_s, false);
    txtDate->setFixedWidth(Skin::Px(kDate));
    chkFinish = new KestroCheck(u"完成"_s);
    chkFinish->setObjectName(u"chkFinish"_s);
    row->addWidget(txtDate);
    row->addWidget(chkFinish);
    row->addStretch();
    return row;
}

void frmNoteNew::BuildFooter() {
    chkFlag = new KestroCheck(u"重要"_s);
    chkFlag->SetIconName(u"flag"_s);
    btnCamera = new KestroButton(ButtonLook::toolbar, u"图片 0"_s, u"camera"_s);
    btnPrint = new KestroButton(ButtonLook::toolbar, u"打印"_s, u"print"_s);
    btnCancel = new KestroButton(ButtonLook::plain, u"取消"_s);
    btnEnter = new KestroButton(ButtonLook::primary, u"确定"_s);
    btnCancel->SetLeastWidth(80);
    btnEnter->SetLeastWidth(92);
    SetDefaultButton(btnEnter);
    const std::pair<QWidget*, QString> names[] = {{chkFlag, u"chkFlag"_s},
                                                  {btnCamera, u"btnCamera"_s},
                                                  {btnPrint, u"btnPrint"_s},
                                                  {btnCancel, u"btnCancel"_s},
                                                  {btnEnter, u"btnEnter"_s}};
    auto* foot = new QHBoxLayout(Footer());
    foot->setContentsMargins(Skin::Space::kDialog - kRing, 0, Skin::Space::kDialog + 12, 0);
    foot->setSpacing(Skin::Space::kPartner);
    for (const auto& [control, name] : names) {
        control->setObjectName(name);
        if (control == btnCancel) foot->addStretch();
        foot->addWidget(control);
    }
    SetNamedSize(kLeast);
}
