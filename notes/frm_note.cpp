#include "notes/frm_note.h"

#include "notes/note_change.h"
#include "output/print_run.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/controls/kestro_text.h"
#include "shell/parts/job_bar.h"
#include "shell/parts/kept_place.h"
#include "shell/parts/period_buttons.h"
#include "store/dates.h"
#include "store/dialogs.h"
#include "store/messages.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace {

NoteKey KeyOf(const KestroList& list, int row) {
    return {list.RowKey(row).toLongLong(), list.RowSubKey(row)};
}

int FindLine(const KestroList& list, const NoteKey& key) {
    for (int row = 0; row < list.RowCount(); ++row)
        if (KeyOf(list, row) == key) return row;
    return -1;
}

}  // namespace

void frmNote::Shown() {
    fresh_.Shown();
}

void frmNote::TakeFocus() {
    List()->setFocus();
}

bool frmNote::Can(Act act) const {
    switch (act) {
        case Act::add:
            return HasDialog(kDlgNote);
        case Act::edit:
            return HasDialog(kDlgNote) && List()->CurrentRow() >= 0;
        case Act::remove:
            return List()->CurrentRow() >= 0;
        case Act::deleteChecked:
        case Act::print:
        case Act::preview:
        case Act::printChecked:
        case Act::previewChecked:
        case Act::reload:
        case Act::find:
        case Act::period:
            return true;
        default:
            return false;
    }
}

void frmNote::Do(Act act) {
    switch (act) {
        case Act::add:
            return NewNote();
        case Act::edit:
            return EditCurrent();
        case Act::remove:
            DeleteNoteAsked(State().gDB, list_, Chosen());
            return;
        case Act::deleteChecked:
            return DoBtnMenuDelAll();
        case Act::print:
        case Act::printChecked:
            return Print(false, act == Act::printChecked);
        case Act::preview:
        case Act::previewChecked:
            return Print(true, act == Act::previewChecked);
        case Act::reload:
            if (!IsBusy()) ReloadData();
            return;
        case Act::find:
            return txtSearch->setFocus(Qt::ShortcutFocusReason);
        default:
            return;
    }
}

void frmNote::pTRANSACCOUNT() {
    fresh_.MarkStale();
}

void frmNote::SetPeriod(const Period& period) {
    period_->SetValue(period);
}

void frmNote::ShowList(NoteList list) {
    list_ = list;
    KestroScrollMenu1->Select(u"title0"_s, list == NoteList::wake ? kTagWake : kTagNote);
    for (auto* other : lists_)
        other->setVisible(other == List());
}

void frmNote::ReloadData() {
    Job job(KestroPGress1->Slots());
    if (job.Refused()) return;
    fresh_.Loading();
    for (const auto which : {NoteList::wake, NoteList::note})
        if (!job.Stopped()) Load(which, job);
    if (job.Stopped()) TellStopped();
    fresh_.MarkFresh();
}

void frmNote::Load(NoteList which, Job& job) {
    auto& list = *ListOf(which);
    const KeptPlace place(list, KeptPlace::Line::keyAndSubKey);
    const QByteArray today = TodayText(u"-"_s).toUtf8();
    const bool wake = which == NoteList::wake;
    {
        const ListFill fill(list);
        list.Clear();
        ReadNotes(State().gDB, which, wake ? QString() : condition_, job, [&](NoteLine&& line) {
            RowLook look;
            if (wake) {
                const QByteArrayView until = line.cells.Utf8(kNoteDeadline);
                look.danger = !until.isEmpty() && until <= today;
            }
            if (!line.cells.Utf8(kNoteFlag).isEmpty()) line.cells.Set(kNoteFlag, u"1");
            list.AddRow(std::move(line.cells), QString::number(line.key.id), line.key.tag, look);
        });
    }
    place.PutBack(list);
    if (wake) KestroScrollMenu1->SetMark(u"title0"_s, kTagWake, QString::number(list.RowCount()));
}

void frmNote::Search() {
    if (IsBusy()) return;
    condition_ =
        NoteCondition({txtSearch->text(), chkFlag->IsChecked(), chkWake->IsChecked(), period_->Value()});
    ShowList(NoteList::note);
    ReloadData();
}

std::optional<NoteKey> frmNote::Chosen() const {
    const int row = List()->CurrentRow();
    return row < 0 ? std::nullopt : std::optional(KeyOf(*List(), row));
}

std::vector<NoteKey> frmNote::Ticked() const {
    std::vector<NoteKey> keys;
    for (const int row : List()->CheckedRows())
        keys.push_back(KeyOf(*List(), row));
    return keys;
}

void frmNote::NewNote() {
    ResetDlg(kDlgNote);
    NoteDialog note;
    note.isNew = 1;
    note.mode = list_ == NoteList::wake ? kTagWake : kTagNote;
    OpenModal(kDlgNote);
    if (note.done) Choose({note.id, list_ == NoteList::wake ? kTagWake : kTagNote});
}

void frmNote::PopupBookNew(qint64 id, const QString& tag) {
    if (id > std::numeric_limits<int>::max()) {
        ShowMsg(u"意外错误!"_s, u"确定"_s, kMsgFail);
        return;
    }
    ResetDlg(kDlgNote);
    NoteDialog note;
    note.isNew = 0;
    note.id = static_cast<int>(id);
    note.mode = tag;
    note.isPlatform = tag == kTagWeb ? 1 : 0;
    OpenModal(kDlgNote);
}

void frmNote::EditCurrent() {
    const auto key = Chosen();
    if (key) return PopupBookNew(key->id, key->tag);
    ShowMsg(u"【未选定】需要修改的记录!"_s);
}

bool frmNote::Choose(const NoteKey& key) {
    if (key.tag == kTagWake || key.IsWeb()) {
        ShowList(NoteList::wake);
        if (FindLine(*List(), key) < 0) ShowList(NoteList::note);
    } else {
        ShowList(NoteList::note);
    }
    const NoteKey there{key.id, key.IsWeb() ? kTagWeb : list_ == NoteList::wake ? kTagWake : kTagNote};
    const int row = FindLine(*List(), there);
    if (row < 0) return false;
    List()->SetCurrentRow(row);
    List()->ScrollToRow(row);
    return true;
}

// A search that hides the line gives way.
void frmNote::GoTo(const NoteKey& key) {
    if (Choose(key) || condition_.isEmpty()) return;
    txtSearch->clear();
    period_->SetValue({});
    for (auto* check : {chkFlag, chkWake})
        check->SetChecked(false);
    Search();
    Choose(key);
}

void frmNote::DoBtnMenuDelAll() {
    DeleteTickedAsked(State().gDB, list_, List()->RowCount(), Ticked());
}

// With nothing ticked the whole list on show is printed; the empty table belongs to what asks for ticked
// lines.
void frmNote::Print(bool preview, bool ticked) {
    const auto keys = Ticked();
    const auto asked = ticked || !keys.empty() ? std::optional(keys) : std::nullopt;
    RunPrint({{NotePrintInfo(list_, condition_, asked)}, preview, KestroPGress1->PrintSlot(preview)});
}
