#include "ledger/frm_account_new.h"

#include "chart/codes.h"
#include "ledger/entry_save.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_calculator.h"
#include "shell/controls/kestro_calendar.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_option.h"
#include "shell/controls/kestro_text.h"
#include "shell/controls/png_button.h"
#include "store/dates.h"
#include "store/errors.h"
#include "store/money.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

frmAccountNew::frmAccountNew(QWidget* parent)
    : KestroDialog(DialogKind::common, {}, parent), bNew(record_.isNew != 0) {
    record_.done = 0;
    SetTitleLine(true);
    auto* entry = BuildEntry();
    accounts_ = BuildAccounts();
    LayOut(entry);
    BuildFooter();
    ConnectEntry();
    ConnectAccounts();
    FillLists();
    SetDefaults();
    if (!bNew) {
        const auto loaded = LoadEntry(State().gDB, record_.id);
        ready_ = loaded.has_value();
        if (loaded) {
            lEntryId = loaded->main;
            lOpenedId = loaded->opened;
            ShowEntry(loaded->values);
        }
    }
    SetTabOrder();
    NameControls();
    Arrange();
    onEscape = [this] { CancelClicked(); };
    onClose = [this] {
        record_.done = 0;
        reject();
    };
}

frmAccountNew::~frmAccountNew() = default;

void frmAccountNew::ConnectEntry() {
    if (bNew) {
        txtThing->setToolTip(u"文本框右侧图标是记账模板按钮!\n只在新建记账时显示"_s);
        txtThing->SetEndButton(u"template"_s, u"选择记账模板"_s, true);
        if (HasDialog(kDlgTemplate)) txtThing->onEndButton = [this] { ChooseTemplate(); };
    }
    PngReduce->onClick = [this] { MoveDay(-1); };
    pngPlus->onClick = [this] { MoveDay(1); };
    txtDate->onClick = [this] { OpenCalendar(); };
    txtDate->onEndButton = [this] { OpenCalendar(); };
    KestroCalendar1->onPick = [this](QDate date) { txtDate->setText(DateText(date)); };
    txtMoney->onClick = [this] { OpenCalculator(0, txtMoney, false); };
    txtMoney->onEndButton = [this] { OpenCalculator(0, txtMoney, true); };
    KestroCalculator1->onValue = [this](const QString& value) { TakeCalculated(value); };
    chkOther->onChange = [this](bool) { Arrange(); };
    ShowPictures(pictures_);
    btnCamera->setEnabled(HasDialog(kDlgPictures));
    btnCamera->onClick = [this] { OpenPictures(); };
    btnEnter->onClick = [this] { EnterClicked(); };
    btnCancel->onClick = [this] { CancelClicked(); };
    pngArrow->onClick = [this] { ToggleAccounts(); };
}

void frmAccountNew::ConnectAccounts() {
    chkOther1->onChange = [this](bool) { Arrange(); };
    for (size_t i = 0; i < 2; ++i)
        clones_[i]->onClick = [this, i] { accValues_[i]->setText(txtMoney->text()); };
    accValues_[0]->SetEndButton(u"calculator"_s, u"计算器"_s, false);
    accValues_[0]->onClick = [this] { OpenCalculator(1, accValues_[0], false); };
    accValues_[0]->onEndButton = [this] { OpenCalculator(1, accValues_[0], true); };
}

void frmAccountNew::FillLists() {
    for (size_t slot = 0; slot < combos_.size(); ++slot)
        for (const auto& row : ShownCodes(State().gDB, ChartOfSlot(slot)))
            combos_[slot]->AddItem(row.code + row.name, row.code, slot < kAccount1 ? u"items"_s : u"book"_s);
}

void frmAccountNew::SetDefaults() {
    SetCaption(bNew ? u"新增记账"_s : u"新建记账"_s);
    txtDate->setText(TodayText(u"-"_s));
    const QString time = TimeText(true);
    txtHour->setText(time.left(2));
    txtMinute->setText(time.mid(3, 2));
}

void frmAccountNew::ShowEntry(const EntryValues& e) {
    txtThing->setText(e.title);
    txtMoney->setText(e.money);
    txtDate->setText(e.date);
    txtHour->setText(e.hour);
    txtMinute->setText(e.minute);
    editNote->SetText(e.note);
    chkMark->SetChecked(e.mark);
    for (size_t slot = 0; slot < combos_.size(); ++slot) {
        combos_[slot]->SetText(e.text[slot], e.code[slot]);
        options_[slot]->SetAdd(e.add[slot]);
    }
    loaded_ = e;
    sKey = e.code;
    sName = e.name;
    for (size_t i = 0; i < 2; ++i)
        accValues_[i]->setText(e.accountValue[i]);
    chkOther->SetChecked(e.kind2On);
    bToAccount = e.toAccount;
    chkOther1->SetChecked(e.account2On);
    ShowPictures(e.pictures);
}

void frmAccountNew::ShowPictures(const QString& count) {
    pictures_ = count;
    btnCamera->setText(u"图片 "_s + count);
    btnCamera->SetIcon(Val(count) >= 1 ? u"image"_s : u"camera"_s);
    btnCamera->setToolTip(u"有 "_s + count + u" 张图片!\n点击查看已保存图片 或 保存图片!"_s);
}

void frmAccountNew::OpenPictures() {
    ResetDlg(kDlgPictures);
    PictureDialog pictures;
    pictures.table = u"tAccount"_s;
    pictures.id = static_cast<int>(lEntryId);
    pictures.single = bNew ? 1 : 0;
    OpenModal(kDlgPictures);
    if (pictures.done) ShowPictures(pictures.count.trimmed());
}

void frmAccountNew::ChooseTemplate() {
    ResetDlg(kDlgTemplate);
    OpenModal(kDlgTemplate);
    const TemplateDialog chosen;
    if (chosen.done) txtThing->setText(chosen.title);
}

EntryValues frmAccountNew::Gather() const {
    EntryValues e;
    e.title = txtThing->text();
    e.money = txtMoney->text();
    e.date = txtDate->text();
    e.hour = txtHour->text();
    e.minute = txtMinute->text();
    e.note = editNote->Text();
    e.mark = chkMark->IsChecked();
    e.pictures = pictures_;
    for (size_t slot = 0; slot < combos_.size(); ++slot) {
        e.text[slot] = combos_[slot]->text();
        e.add[slot] = options_[slot]->IsAdd();
    }
    e.code = sKey;
    e.name = sName;
    e.accountValue = {accValues_[0]->text(), accValues_[1]->text()};
    e.loadedAmounts = loaded_.loadedAmounts;
    e.kind2On = chkOther->IsChecked();
    e.toAccount = bToAccount;
    e.account2On = chkOther1->IsChecked();
    return e;
}

void frmAccountNew::EnterClicked() {
    for (auto* box : combos_)
        box->Settle();
    EntryValues entry = Gather();
    EntryField focus = EntryField::none;
    const bool saved = bNew ? SaveNew(entry, focus) : SaveChange(entry, focus);
    txtMoney->setText(entry.money);
    for (size_t i = 0; i < 2; ++i)
        accValues_[i]->setText(entry.accountValue[i]);
    if (!saved) {
        SetFocusTo(focus);
        return;
    }
    record_.done = 1;
    accept();
}

bool frmAccountNew::SaveNew(EntryValues& entry, EntryField& focus) {
    const auto outcome = SaveNewEntry(State().gDB, entry);
    focus = outcome.focus;
    if (!outcome.done) return false;
    record_.id = static_cast<int>(outcome.ids.main);
    record_.secondId = static_cast<int>(outcome.ids.second);
    return true;
}

bool frmAccountNew::SaveChange(EntryValues& entry, EntryField& focus) {
    const auto outcome = SaveEditedEntry(State().gDB, entry, lEntryId, lOpenedId);
    focus = outcome.focus;
    if (!outcome.done) return false;
    record_.id = static_cast<int>(outcome.id);
    return true;
}

void frmAccountNew::CancelClicked() {
    if (bNew) RunEvent([] { DropUnclaimedPictures(State().gDB); });
    record_.done = 0;
    reject();
}

void frmAccountNew::SetFocusTo(EntryField field) {
    const std::array<KestroText*, 12> controls{nullptr,    txtThing,      txtMoney,   txtDate,
                                               txtHour,    txtMinute,     combos_[0], combos_[1],
                                               combos_[2], accValues_[0], combos_[3], accValues_[1]};
    auto* control = controls[static_cast<size_t>(field)];
    if (!control) return;
    control->setFocus(Qt::OtherFocusReason);
    control->SetWrong(true);
}

void frmAccountNew::MoveDay(int days) {
    const auto date = ParseDate(txtDate->text());
    txtDate->setText(date ? DateText(date->addDays(days)) : TodayText(u"-"_s));
}

void frmAccountNew::OpenCalendar() {
    constexpr int kFirstYear = 2010;
    constexpr int kLastYear = 2015;
    const QString shown = txtDate->text().isEmpty() ? TodayText(u"-"_s) : txtDate->text();
    KestroCalendar1->PopUp(txtDate, ParseDate(shown).value_or(QDate()), kFirstYear, kLastYear);
}

void frmAccountNew::OpenCalculator(int forBox, KestroText* box, bool ownKeys) {
    nCalcFor = forBox;
    KestroCalculator1->PopUp(box, box->text(), State().settings.nGroup, ownKeys);
}

void frmAccountNew::TakeCalculated(const QString& value) {
    QString text = FixedText(Val(value));
    if (text.endsWith(u".00"_s)) text.chop(3);
    (nCalcFor == 0 ? txtMoney : accValues_[0])->setText(text);
}

void frmAccountNew::Chosen(size_t slot, const QString& key) {
    EntryValues picked;
    // What the entry was loaded with stands, though its kind has another name by now or is hidden.
    if (!key.isEmpty() && key == loaded_.code[slot] && combos_[slot]->text() == loaded_.text[slot]) {
        sKey[slot] = loaded_.code[slot];
        sName[slot] = loaded_.name[slot];
        return;
    }
    const bool leaf = !key.isEmpty() && PickCode(State().gDB, picked, slot, key);
    sKey[slot] = picked.code[slot];
    sName[slot] = picked.name[slot];
    if (!leaf) combos_[slot]->SetText({});
}

void frmAccountNew::OpenTree(size_t slot) {
    ResetDlg(kDlgTree);
    TreeDialog tree;
    tree.key = TableOf(ChartOfSlot(slot)).table;
    auto* box = combos_[slot];
    OpenModal(kDlgTree, box->mapToGlobal(box->rect().bottomLeft()));
    if (!tree.done || tree.key.isEmpty() || !CheckLeaf(State().gDB, slot, tree.key)) return;
    if (!box->SetCurrentKey(tree.key)) box->SetText(tree.name);
    Chosen(slot, tree.key);
}

// The path sums a whole branch, so it is read only when the pointer asks for it.
QString frmAccountNew::CodeTip(size_t slot) const {
    return sKey[slot].isEmpty() ? QString() : CodePathText(State().gDB, ChartOfSlot(slot), sKey[slot], true);
}

void frmAccountNew::ToggleAccounts() {
    bToAccount = !bToAccount;
    Arrange();
    if (bToAccount) combos_[kAccount1]->setFocus(Qt::OtherFocusReason);
}

void frmAccountNew::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter) {
        btnEnter->click();
        return;
    }
    KestroDialog::keyPressEvent(event);
}

void frmAccountNew::showEvent(QShowEvent* event) {
    KestroDialog::showEvent(event);
    const std::vector<QLineEdit*> boxes{txtThing, txtDate,         txtHour,        txtMinute,
                                        txtMoney, combos_[kKind1], combos_[kKind2]};
    const auto empty = std::find_if(boxes.begin(), boxes.end(), [](const QLineEdit* box) {
        return box->isVisible() && box->text().isEmpty();
    });
    (empty == boxes.end() ? boxes.front() : *empty)->setFocus(Qt::OtherFocusReason);
}

void OpenEntryDialog(QPoint) {
    frmAccountNew window(QApplication::activeWindow());
    if (window.IsReady()) window.exec();
}
