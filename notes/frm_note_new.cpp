#include "notes/frm_note_new.h"

#include "notes/note_list.h"
#include "output/print_run.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_calendar.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_edit_box.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_option.h"
#include "shell/controls/kestro_text.h"
#include "store/dates.h"
#include "store/money.h"

#include <QApplication>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

frmNoteNew::frmNoteNew(QWidget* parent) : KestroDialog(DialogKind::common, {}, parent) {
    record_.done = 0;
    setObjectName(u"frmNoteNew"_s);
    SetTitleLine(true);
    id_ = record_.isNew != 0 ? -1 : record_.id;
    BuildBody();
    BuildFooter();
    Connect();
    const auto opened = OpenNote(
        State().gDB, {.id = id_, .wakeMode = record_.mode != kTagNote, .message = record_.isPlatform != 0});
    ready_ = opened.has_value();
    if (opened) ShowNote(*opened);
}

frmNoteNew::~frmNoteNew() = default;

void frmNoteNew::Connect() {
    txtDate->onClick = [this] { OpenCalendar(); };
    txtDate->onEndButton = [this] { OpenCalendar(); };
    txtDate->onLeave = [this] { txtDate->setText(WakeDateText(txtDate->text())); };
    KestroCalendar1->onPick = [this](QDate day) { txtDate->setText(DateText(day)); };
    optNote->onChoose = [this] { ShowType(); };
    optWake->onChoose = [this] { ShowType(); };
    btnCamera->onClick = [this] { OpenPictures(); };
    btnPrint->onClick = [this] { Print(); };
    btnEnter->onClick = [this] { EnterClicked(); };
    btnCancel->onClick = [this] { reject(); };
}

void frmNoteNew::ShowNote(const OpenedNote& note) {
    const auto& values = note.values;
    canSave_ = note.canSave;
    SetCaption(note.caption);
    lblTip->SetText(note.moment);
    txtTitle->setText(values.title);
    editNote->SetText(values.note);
    (values.wake ? optWake : optNote)->SetOn();
    txtDate->setText(values.wakeDate);
    chkFinish->SetChecked(values.done);
    chkFlag->SetChecked(values.flag);
    ShowPictures(values.pictures);
    ShowType();
    txtTitle->setReadOnly(!canSave_);
    editNote->setReadOnly(!canSave_);
    for (QWidget* control :
         {static_cast<QWidget*>(optNote), static_cast<QWidget*>(optWake), static_cast<QWidget*>(txtDate),
          static_cast<QWidget*>(chkFinish), static_cast<QWidget*>(chkFlag), static_cast<QWidget*>(btnEnter)})
        control->setEnabled(canSave_ && control->isEnabled());
    btnEnter->setVisible(canSave_);
    if (!canSave_) btnCancel->setText(u"关闭"_s);
    btnCamera->setEnabled(canSave_ && HasDialog(kDlgPictures));
    btnPrint->setEnabled(id_ >= 0 && canSave_);
}

// A plain note has no day by which it is due.
void frmNoteNew::ShowType() {
    txtDate->setEnabled(canSave_ && optWake->IsOn());
    chkFinish->setEnabled(canSave_ && optWake->IsOn());
}

void frmNoteNew::ShowPictures(const QString& count) {
    pictures_ = count;
    btnCamera->setText(u"图片 "_s + count);
    btnCamera->SetIcon(Val(count) >= 1 ? u"image"_s : u"camera"_s);
    btnCamera->setToolTip(u"有 "_s + count + u" 张图片!\n点击查看已保存图片 或 保存图片!"_s);
}

NoteValues frmNoteNew::Gather() const {
    return {txtTitle->text(),       editNote->Text(),     txtDate->text(), optWake->IsOn(),
            chkFinish->IsChecked(), chkFlag->IsChecked(), pictures_};
}

void frmNoteNew::EnterClicked() {
    if (!canSave_) return reject();
    const auto outcome = SaveNote(State().gDB, id_, Gather());
    if (outcome.titleMissing) {
        txtTitle->setFocus(Qt::OtherFocusReason);
        txtTitle->SetWrong(true);
    }
    if (!outcome.saved) return;
    record_.id = static_cast<int>(outcome.id);
    record_.done = 1;
    accept();
}

void frmNoteNew::OpenCalendar() {
    KestroCalendar1->PopUp(txtDate, ParseDate(txtDate->text()).value_or(QDate()));
}

void frmNoteNew::OpenPictures() {
    ResetDlg(kDlgPictures);
    PictureDialog pictures;
    pictures.table = u"tNoteBook"_s;
    pictures.id = static_cast<int>(id_);
    pictures.single = 1;
    if (OpenModal(kDlgPictures) && pictures.done) ShowPictures(pictures.count);
}

void frmNoteNew::Print() {
    RunPrint({{NoteRecordInfo(id_)}, true});
}

// Enter in the text is a new line; with Ctrl it saves, as it does anywhere.
void frmNoteNew::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && event->modifiers().testFlag(Qt::ControlModifier)) return EnterClicked();
    KestroDialog::keyPressEvent(event);
}

void frmNoteNew::showEvent(QShowEvent* event) {
    KestroDialog::showEvent(event);
    if (canSave_)
        txtTitle->setFocus(Qt::OtherFocusReason);
    else
        btnCancel->setFocus(Qt::OtherFocusReason);
}

// A stored title shows from its beginning, and the first key does not replace it.
void frmNoteNew::setVisible(bool visible) {
    KestroDialog::setVisible(visible);
    if (visible && id_ >= 0) txtTitle->home(false);
}

void OpenNoteDialog(QPoint) {
    frmNoteNew window(QApplication::activeWindow());
    if (window.IsReady()) window.exec();
}
