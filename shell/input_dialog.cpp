#include "shell/input_dialog.h"

#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_text.h"
#include "shell/skin.h"
#include "store/messages.h"
#include "store/money.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr int kWidth = 392;
constexpr int kLabel = 72;
constexpr int kButtonWidth = 80;
constexpr int kRing = 3;  // the check box keeps room for its focus ring

QLabel* NewLabel(const QString& text, Type type, Tok ink) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFont(Skin::Font(type));
    QPalette colors;
    colors.setColor(QPalette::WindowText, Skin::Color(ink));
    label->setPalette(colors);
    return label;
}

QString KindTip() {
    return u"    "
           u"1.一个【分类】如果在记账中使用了，是『不可删除』的。但如果该【分类】以后又不使用，那么只能建议"
           "『隐藏』。\n    2.『隐藏』后在记账时不可见。"_s;
}
}  // namespace

frmInput::frmInput(DialogRecord& record, QWidget* parent)
    : KestroDialog(DialogKind::small, record.Text4, parent), record_(record), hasMemo_(record_.done != 0) {
    setObjectName(u"frmInput"_s);
    record_.done = 0;
    if (windowTitle().isEmpty()) SetCaption(u"输入框"_s);
    Build();
}

frmInput::~frmInput() = default;

void frmInput::Build() {
    auto* column = new QVBoxLayout(Body());
    column->setContentsMargins(Skin::Space::kBox, 8, Skin::Space::kBox, Skin::Space::kField + 4);
    column->setSpacing(Skin::Space::kField);
    column->addLayout(BuildNote());
    if (record_.mode >= 1 || hasMemo_) column->addLayout(BuildRows());
    column->addStretch();
    BuildFooter();
    SetNamedSize({kWidth, 0});
    txtNote_->setFocus();
    txtNote_->selectAll();
}

// Prompt over its box.
QLayout* frmInput::BuildNote() {
    auto* prompt = NewLabel(record_.prompt, Type::small, Tok::text2);
    prompt->setObjectName(u"lblTip"_s);
    txtNote_ = new KestroText(record_.mode == 0 ? TextMode::masked : TextMode::normal);
    txtNote_->setObjectName(u"txtNote"_s);
    txtNote_->setAccessibleName(record_.prompt);
    txtNote_->setText(record_.startText);
    auto* note = new QVBoxLayout;
    note->setSpacing(6);
    note->addWidget(prompt);
    note->addWidget(txtNote_);
    return note;
}

QLayout* frmInput::BuildRows() {
    auto* rows = new QGridLayout;
    rows->setHorizontalSpacing(Skin::Space::kPartner);
    rows->setVerticalSpacing(0);
    rows->setColumnMinimumWidth(0, kLabel - Skin::Space::kPartner);
    rows->setColumnStretch(1, 1);
    if (record_.mode >= 1) {
        txtMoney_ = new KestroText(TextMode::amount);
        txtMoney_->setObjectName(u"txtMoney"_s);
        txtMoney_->SetGroup(State().settings.nGroup);
        txtMoney_->setText(MoneyText(record_.money / 100.0));
        AddRow(rows, record_.label2.isEmpty() ? u"期初余额:"_s : record_.label2, txtMoney_);
        const QString hint = record_.label3.isEmpty() ? u"若非最末级不可输非0数字"_s : record_.label3;
        rows->setRowMinimumHeight(rows->rowCount(), 4);
        rows->addWidget(NewLabel(hint, Type::small, Tok::text3), rows->rowCount(), 1);
    }
    if (hasMemo_) {
        if (txtMoney_) rows->setRowMinimumHeight(rows->rowCount(), Skin::Space::kPartner);
        editNote_ = new KestroEditBox;
        editNote_->setObjectName(u"editNote"_s);
        editNote_->SetText(record_.memo);
        editNote_->setFixedHeight(Skin::Px(56));
        AddRow(rows, u"备注:"_s, editNote_);
    }
    return rows;
}

void frmInput::AddRow(QGridLayout* rows, const QString& caption, QWidget* box) {
    const int row = rows->rowCount();
    auto* label = NewLabel(caption, Type::body, Tok::text2);
    label->setWordWrap(false);
    label->setMinimumHeight(Skin::Px(32));
    box->setAccessibleName(caption.chopped(1));
    rows->addWidget(label, row, 0, Qt::AlignTop);
    rows->addWidget(box, row, 1);
}

void frmInput::BuildFooter() {
    auto* foot = new QHBoxLayout(Footer());
    foot->setContentsMargins(Skin::Space::kBox - kRing, 0, Skin::Space::kBox, 2);
    foot->setSpacing(Skin::Space::kPartner);
    if (record_.mode >= 1) {
        chkOther_ = new KestroCheck(u"隐藏"_s);
        chkOther_->setObjectName(u"chkOther"_s);
        chkOther_->SetChecked(record_.other != 0);
        chkOther_->setEnabled(record_.otherDisabled == 0);
        if (record_.prompt.contains(u"分类"_s)) chkOther_->setToolTip(KindTip());
        foot->addWidget(chkOther_);
    }
    foot->addStretch();
    for (const bool main : {false, true}) {
        const ButtonLook look = main ? ButtonLook::primary : ButtonLook::plain;
        auto* button = new KestroButton(look, main ? u"确定"_s : u"取消"_s);
        button->setObjectName(main ? u"btnEnter"_s : u"btnCancel"_s);
        button->SetLeastWidth(kButtonWidth);
        button->onClick = [this, main] { main ? Accept() : reject(); };
        if (main) SetDefaultButton(button);
        foot->addWidget(button);
    }
}

void frmInput::Accept() {
    if (txtMoney_) {
        const auto amount = TypedHundredths(txtMoney_->text());
        if (!amount) {
            txtMoney_->SetWrong(true);
            txtMoney_->setFocus();
            ShowMsg(u"金额不正确!"_s);
            return;
        }
        record_.money = *amount;
        record_.moneyTyped = txtMoney_->isModified() ? 1 : 0;
    }
    record_.done = 1;
    record_.text = txtNote_->text();
    if (editNote_) record_.memo = editNote_->Text();
    record_.otherChecked = chkOther_ && chkOther_->IsChecked() ? 1 : 0;
    accept();
}

void OpenInputDialog(QPoint) {
    auto& records = State().gDlg;
    const int code = State().gPage;
    const bool known = code >= 0 && code < static_cast<int>(records.size());
    frmInput dialog(records.at(static_cast<size_t>(known ? code : kDlgInput)), QApplication::activeWindow());
    dialog.exec();
}
