#include "shell/input_dialog.h"

#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_text.h"
#include "shell/skin.h"
#include "store/messages.h"
#include "store/money.h"

#include <QApplication>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace {
constexpr int kWidth = 392;
constexpr int kMargin = 20;
constexpr int kGap = 12;
constexpr int kLabel = 72;
constexpr int kButtonWidth = 80;

QLabel* NewLabel(const QString& text, Type type, Tok ink, QWidget* parent) {
    auto* label = new QLabel(text, parent);
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
    int y = BuildNote(8);
    if (record_.mode >= 1) y = BuildMoney(y);
    if (hasMemo_) y = BuildMemo(y);
    BuildFooter();
    SetNamedSize({kWidth, TitleHeight() + y + 4 + FooterHeight()});
    txtNote_->setFocus();
    txtNote_->selectAll();
}

// Prompt over its box.
int frmInput::BuildNote(int y) {
    const int room = kWidth - 2 * kMargin;
    QLabel* prompt = NewLabel(record_.prompt, Type::small, Tok::text2, Body());
    prompt->setObjectName(u"lblTip"_s);
    prompt->setGeometry(kMargin, y, room, prompt->heightForWidth(room));
    y += prompt->height() + 6;
    txtNote_ = new KestroText(record_.mode >= 1 ? TextMode::normal : TextMode::masked, Body());
    txtNote_->setObjectName(u"txtNote"_s);
    txtNote_->setAccessibleName(record_.prompt);
    txtNote_->setText(record_.startText);
    txtNote_->setGeometry(kMargin, y, room, txtNote_->sizeHint().height());
    return y + txtNote_->height() + kGap;
}

int frmInput::BuildMoney(int y) {
    const QString caption = record_.label2.isEmpty() ? u"期初余额:"_s : record_.label2;
    txtMoney_ = new KestroText(TextMode::amount, Body());
    txtMoney_->setObjectName(u"txtMoney"_s);
    txtMoney_->SetGroup(State().settings.nGroup);
    txtMoney_->setText(MoneyText(record_.money / 100.0));
    y = AddRow(y, caption, txtMoney_, txtMoney_->sizeHint().height());
    const QString hint = record_.label3.isEmpty() ? u"若非最末级不可输非0数字"_s : record_.label3;
    QLabel* label = NewLabel(hint, Type::small, Tok::text3, Body());
    const int room = kWidth - 2 * kMargin - kLabel;
    label->setGeometry(kMargin + kLabel, y - kGap + 4, room, label->heightForWidth(room));
    return label->geometry().bottom() + 1 + kGap - 4;
}

int frmInput::BuildMemo(int y) {
    editNote_ = new KestroEditBox(Body());
    editNote_->setObjectName(u"editNote"_s);
    editNote_->SetText(record_.memo);
    return AddRow(y, u"备注:"_s, editNote_, Skin::Px(56));
}

int frmInput::AddRow(int y, const QString& caption, QWidget* box, int height) {
    QLabel* label = NewLabel(caption, Type::body, Tok::text2, Body());
    label->setWordWrap(false);
    label->setGeometry(kMargin, y, kLabel - 4, Skin::Px(32));
    box->setGeometry(kMargin + kLabel, y, kWidth - 2 * kMargin - kLabel, height);
    box->setAccessibleName(caption.chopped(1));
    return y + height + kGap;
}

void frmInput::BuildFooter() {
    const int middle = (FooterHeight() - 2) / 2;
    if (record_.mode >= 1) {
        chkOther_ = new KestroCheck(u"隐藏"_s, Footer());
        chkOther_->setObjectName(u"chkOther"_s);
        chkOther_->SetChecked(record_.other != 0);
        chkOther_->setEnabled(record_.otherDisabled == 0);
        if (record_.prompt.contains(u"分类"_s)) chkOther_->setToolTip(KindTip());
        chkOther_->adjustSize();
        chkOther_->move(kMargin, middle - chkOther_->height() / 2);
    }
    int x = kWidth - kMargin - 2 * kButtonWidth - 8;
    for (const bool main : {false, true}) {
        const ButtonLook look = main ? ButtonLook::primary : ButtonLook::plain;
        auto* button = new KestroButton(look, main ? u"确定"_s : u"取消"_s, {}, Footer());
        button->setObjectName(main ? u"btnEnter"_s : u"btnCancel"_s);
        button->onClick = [this, main] { main ? Accept() : reject(); };
        const int high = button->sizeHint().height();
        button->setGeometry(x, middle - high / 2, kButtonWidth, high);
        if (main) SetDefaultButton(button);
        x += kButtonWidth + 8;
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
