#include "notes/frm_wake.h"

#include "notes/frm_note.h"
#include "shell/commands.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_tool_tip.h"
#include "shell/skin.h"
#include "store/due.h"
#include "store/errors.h"
#include "store/messages.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QPointer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kLeast(390, 300);

QPointer<frmWake>& Opened() {
    static QPointer<frmWake> window;
    return window;
}

frmNote* NotesPage() {
    if (!Host().page || !Host().show) return nullptr;
    Host().show(kTabNote);
    return dynamic_cast<frmNote*>(Host().page(kTabNote));
}

}  // namespace

frmWake::frmWake(QWidget* parent) : KestroDialog(DialogKind::small, u"提醒"_s, parent) {
    setObjectName(u"frmWake"_s);
    setModal(false);
    Build();
    Fill();
    webBusy_ = Notices().webBusy.Subscribe([this](bool busy) { SetLocked(busy); });
}

frmWake::~frmWake() = default;

// Every road out ends here. A window that only hid would bar the next one, and count as a pop-up for ever.
void frmWake::done(int result) {
    KestroDialog::done(result);
    if (Opened() == this) Opened().clear();
    deleteLater();
}

void frmWake::Build() {
    lblTip = new KestroLabel(u"您有: 提醒0条"_s, LabelKind::caption);
    lblTip->setObjectName(u"lblTip"_s);
    KestroList1 = new KestroList;
    KestroList1->setObjectName(u"KestroList1"_s);
    KestroList1->setAccessibleName(u"提醒"_s);
    KestroList1->SetCheckColumn(true);
    KestroList1->DefineColumn({.key = u"type"_s,
                               .caption = u"类型"_s,
                               .width = 80,
                               .smallest = 60,
                               .type = u"string"_s,
                               .icons = {{u"提醒"_s, u"wake"_s}, {u"平台"_s, u"web"_s}}});
    KestroList1->DefineColumn({u"title"_s, u"标题"_s, 200, 100, u"string"_s, ListColor::none, true, {}});
    KestroList1->SetEmptyText(u"没有提醒"_s);
    KestroList1->onDoubleClick = [this](int row, int) { OpenNote(row); };
    KestroList1->viewport()->installEventFilter(this);
    auto* column = new QVBoxLayout(Body());
    column->setContentsMargins(Skin::Space::kBox, 4, Skin::Space::kBox, 12);
    column->setSpacing(6);
    column->addWidget(lblTip);
    column->addWidget(KestroList1, 1);
    btnResetHeadIco = new KestroButton(ButtonLook::toolbar, u"重设头像"_s, u"user"_s);
    btnClose = new KestroButton(ButtonLook::plain, u"关闭"_s);
    btnWake = new KestroButton(ButtonLook::primary, u"查看"_s, u"wake"_s);
    btnClose->SetLeastWidth(80);
    btnWake->SetLeastWidth(80);
    btnResetHeadIco->setObjectName(u"btnResetHeadIco"_s);
    btnClose->setObjectName(u"btnClose"_s);
    btnWake->setObjectName(u"btnWake"_s);
    btnResetHeadIco->setEnabled(static_cast<bool>(Commands().resetHeadIco));
    btnResetHeadIco->onClick = [this] {
        reject();
        Commands().resetHeadIco();
    };
    btnClose->onClick = [this] { reject(); };
    btnWake->onClick = [this] { GoToNote(); };
    auto* foot = new QHBoxLayout(Footer());
    foot->setContentsMargins(Skin::Space::kBox - 8, 0, Skin::Space::kBox, 2);
    foot->setSpacing(Skin::Space::kPartner);
    foot->addWidget(btnResetHeadIco);
    foot->addStretch();
    foot->addWidget(btnClose);
    foot->addWidget(btnWake);
    SetNamedSize(kLeast);
    KestroList1->setFocus();
}

// What leads to the pages is locked with them.
void frmWake::SetLocked(bool locked) {
    if (KestroList1->isEnabled() != locked) return;
    KestroList1->setEnabled(!locked);
    btnWake->setEnabled(!locked);
    btnResetHeadIco->setEnabled(!locked && Commands().resetHeadIco);
    if (!locked) KestroList1->setFocus();
}

void frmWake::Fill() {
    const auto lines = ReadDueLines();
    const ListFill fill(*KestroList1);
    for (const auto& line : lines)
        KestroList1->AddRow({DueTypeText(line), line.title}, QString::number(line.id), line.tag);
    lblTip->SetText(u"您有: 提醒"_s + QString::number(lines.size()) + u"条"_s);
}

NoteKey frmWake::KeyOf(int row) const {
    return {KestroList1->RowKey(row).toLongLong(), KestroList1->RowSubKey(row)};
}

bool frmWake::eventFilter(QObject* object, QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        RunEvent([&] { ShowNoteTip(help->pos(), help->globalPos()); });
        return true;
    }
    return KestroDialog::eventFilter(object, event);
}

void frmWake::ShowNoteTip(QPoint at, QPoint globalPos) {
    const auto index = KestroList1->indexAt(at);
    const auto key = index.isValid() ? KeyOf(index.row()) : NoteKey{};
    const QString text = index.isValid() ? NoteTipText(State().gDB, key) : QString();
    if (text.isEmpty()) return KestroToolTip::Hide();
    KestroToolTip::Show(key.tag + QString::number(key.id), text, globalPos, KestroList1->viewport());
}

void frmWake::OpenNote(int row) {
    if (row < 0) return;
    const auto key = KeyOf(row);
    if (auto* page = NotesPage()) page->PopupBookNew(key.id, key.tag);
}

void frmWake::GoToNote() {
    const int row = KestroList1->CurrentRow();
    if (row < 0) {
        ShowMsg(u"请【选择】一条记录!"_s);
        return;
    }
    const auto key = KeyOf(row);
    auto* page = NotesPage();
    if (!page) return;
    page->GoTo(key);
    page->window()->activateWindow();
}

void OpenReminders() {
    auto& window = Opened();
    if (!window) {
        window = new frmWake(QApplication::activeWindow());
        window->show();
    }
    window->raise();
    window->activateWindow();
}

void CloseReminders() {
    delete Opened();
}
