#include "notes/note_edit.h"

#include "store/book_format.h"
#include "store/dates.h"
#include "store/entry_rows.h"
#include "store/errors.h"
#include "store/messages.h"
#include "store/notices.h"
#include "store/picture_index.h"
#include "store/platform_messages.h"

using namespace Qt::StringLiterals;

namespace {

const QString kTable = u"tNotebook"_s;

// The lists that still show it are to be read anew.
std::optional<OpenedNote> Missing() {
    Notices().remindersChanged.Emit();
    ShowMsg(u"意外错误!"_s);
    return {};
}

OpenedNote NewNote(cConnection& book, bool wake) {
    DropPendingPictures(book);
    OpenedNote opened{.caption = wake ? u"新提醒"_s : u"新记事"_s, .moment = NowText()};
    opened.values.wake = wake;
    opened.values.wakeDate = TodayText(u"-"_s);
    return opened;
}

std::optional<OpenedNote> StoredNote(cConnection& book, qint64 id) {
    const auto row = FindRow(book, kTable, id);
    if (!row) return Missing();
    OpenedNote opened;
    auto& values = opened.values;
    values.wake = row->Int(u"bWake") != 0;
    values.wakeDate = row->Text(u"WakeDate");
    values.title = row->Text(u"Title1");
    values.note = row->Text(u"Note1");
    values.flag = row->Int(u"Mark1") != 0;
    values.done = row->Int(u"bWakeOk") != 0;
    if (!row->Text(u"sPic").isEmpty()) values.pictures = row->Text(u"sPic");
    opened.caption = values.wake ? u"提醒修改"_s : u"记事修改"_s;
    opened.moment = row->Text(u"Date1") + u' ' + row->Text(u"Time1");
    return opened;
}

std::optional<OpenedNote> Message(qint64 id) {
    const auto message = FindMessage(id);
    if (!message) return Missing();
    OpenedNote opened{.caption = u"平台信息查看"_s, .moment = message->date + u' ' + message->time};
    opened.values.title = message->title;
    opened.values.note = message->note;
    opened.canSave = false;
    // A settings file that cannot be written keeps nobody from reading.
    RunEvent([id] { MarkMessageRead(id); });
    return opened;
}

void SetTyped(cRecordset& row, const NoteValues& values) {
    row.Set(u"Title1", values.title.trimmed());
    row.Set(u"Note1", values.note);
    row.Set(u"Mark1", values.flag ? 1 : 0);
    row.Set(u"bWake", values.wake ? 1 : 0);
    row.Set(u"bWakeOk", values.done ? 1 : 0);
    row.Set(u"WakeDate", WakeDateText(values.wakeDate));
    row.Set(u"sPic", values.pictures);
}

qint64 AddNote(cConnection& book, const NoteValues& values) {
    Transaction save(book);
    const qint64 id = NewId(book, u"tnotebook"_s);
    auto row = book.OpenRecordset(u"select * from tNoteBook where 0"_s);
    row.AddRow();
    row.Set(u"Id1", id);
    row.Set(u"Date1", TodayText(u"-"_s));
    row.Set(u"Time1", TimeText(false));
    SetTyped(row, values);
    row.Update();
    ClaimNotePictures(book, id);
    save.Commit();
    return id;
}

bool RewriteNote(cConnection& book, qint64 id, const NoteValues& values) {
    Transaction save(book);
    auto row = FindRow(book, kTable, id);
    if (!row) return false;
    SetTyped(*row, values);
    row->Update();
    save.Commit();
    return true;
}

}  // namespace

std::optional<OpenedNote> OpenNote(cConnection& book, const NoteJob& job) {
    if (job.message) return Message(job.id);
    if (job.id < 0) return NewNote(book, job.wakeMode);
    return StoredNote(book, job.id);
}

QString WakeDateText(const QString& typed) {
    const auto date = ParseDate(typed);
    return date ? DateText(*date) : typed;
}

NoteOutcome SaveNote(cConnection& book, qint64 id, const NoteValues& values) {
    if (values.title.isEmpty()) {
        ShowMsg(u"【标题】不能为空!"_s);
        return {.titleMissing = true};
    }
    const bool isNew = id < 0;
    if (isNew) {
        id = AddNote(book, values);
    } else if (!RewriteNote(book, id, values)) {
        Notices().remindersChanged.Emit();
        ShowMsg(u"意外错误,修改不成功!"_s, u"确定"_s, kMsgFail);
        return {};
    }
    Notices().remindersChanged.Emit();
    ShowMsg(isNew ? u"新增成功!"_s : u"修改成功!"_s, u"确定"_s, kMsgDone);
    return {.saved = true, .id = id};
}
