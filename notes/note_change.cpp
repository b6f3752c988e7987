#include "notes/note_change.h"

#include "store/entry_rows.h"
#include "store/messages.h"
#include "store/notices.h"
#include "store/picture_index.h"
#include "store/platform_messages.h"

using namespace Qt::StringLiterals;

namespace {

const QString kTable = u"tNotebook"_s;

struct Sorted {
    std::vector<qint64> notes, messages;
};

Sorted ByStore(const std::vector<NoteKey>& keys) {
    Sorted sorted;
    for (const auto& key : keys)
        (key.IsWeb() ? sorted.messages : sorted.notes).push_back(key.id);
    return sorted;
}

bool Refuse(const QString& message) {
    ShowMsg(message);
    return false;
}

bool Done(const QString& message) {
    Notices().remindersChanged.Emit();
    ShowMsg(message, u"确定"_s, kMsgDone);
    return true;
}

// How many of the notes were there.
int RemoveNotes(cConnection& book, const std::vector<qint64>& ids) {
    const qint64 before = book.Changes();
    book.Execute(u"delete from tNoteBook where "_s + book.WhereIds(kTable, ids));
    const auto count = static_cast<int>(book.Changes() - before);
    DeletePicturesOf(book, kTable, {ids.begin(), ids.end()});
    return count;
}

// Messages go within the book's transaction, so that a failure leaves both as they were.
int RemoveAll(cConnection& book, const Sorted& what) {
    if (what.notes.empty()) return DeleteReadMessages(what.messages);
    Transaction change(book);
    int count = RemoveNotes(book, what.notes);
    count += DeleteReadMessages(what.messages);
    change.Commit();
    return count;
}

bool MarkDone(cConnection& book, qint64 id) {
    Transaction change(book);
    auto row = FindRow(book, kTable, id);
    if (!row) return false;
    row->Set(u"bWakeOk", 1);
    row->Update();
    change.Commit();
    return true;
}

bool Ask(const QString& question) {
    return !IsBusy() && ShowMsg(question, u"取消,确定"_s, kMsgAsk) == 1;
}

}  // namespace

bool FinishNote(cConnection& book, const std::optional<NoteKey>& chosen) {
    if (IsBusy()) return false;
    if (!chosen) return Refuse(u"请【选择】一条记录!"_s);
    if (chosen->IsWeb()) return Refuse(u"【平台信息】必须双击阅读!"_s);
    if (!MarkDone(book, chosen->id)) {
        Notices().remindersChanged.Emit();  // the list that still shows it is to be read anew
        return Refuse(u"意外错误!"_s);
    }
    return Done(u"操作成功!"_s);
}

bool FinishTicked(cConnection& book, const std::vector<NoteKey>& ticked) {
    if (IsBusy()) return false;
    if (ticked.empty()) return Refuse(u"没有【勾选】需要完成的记录!"_s);
    std::vector<qint64> ids;
    for (const auto& key : ticked)
        if (!key.IsWeb()) ids.push_back(key.id);
    if (ids.empty()) return Refuse(u"【平台信息】不可处理，必须双击阅读!"_s);
    Transaction change(book);
    book.Execute(u"update tNoteBook set bWakeOk=1 where "_s + book.WhereIds(kTable, ids));
    change.Commit();
    return Done(u"操作成功（除【平台信息】之外）!"_s);
}

bool DeleteNoteAsked(cConnection& book, NoteList list, const std::optional<NoteKey>& chosen) {
    if (!Ask(u"你确定要删除【选定】的一条记录?"_s)) return false;
    if (!chosen) return Refuse(u"没有【选定】任何需要删除的记录!"_s);
    if (chosen->IsWeb() && list == NoteList::wake)
        return Refuse(u"【平台信息】不可删除! 双击阅读后自动移除!"_s);
    RemoveAll(book, ByStore({*chosen}));
    return Done(chosen->IsWeb() ? u"成功删除! 除『未读』的【平台信息】外!"_s : u"成功删除!"_s);
}

bool DeleteTickedAsked(cConnection& book, NoteList list, int lines, const std::vector<NoteKey>& ticked) {
    if (!Ask(u"您是否确定删除【选定】的一条或多条记录?"_s)) return false;
    if (lines == 0) return Refuse(u"请勾选一些记录!"_s);
    const bool wake = list == NoteList::wake;
    if (ticked.empty())
        return Refuse(wake ? u"没有【勾选】任何未完成提醒记录!"_s : u"没有【勾选】任何记事记录!"_s);
    auto what = ByStore(ticked);
    const auto messages = what.messages.size();
    if (wake) what.messages.clear();
    QString told = u"成功删除记录【"_s + QString::number(RemoveAll(book, what)) + u"】条!"_s;
    if (messages > 0)
        told += wake
                    ? u"\n但有【"_s + QString::number(messages) + u"】条平台信息, 因【未读】, 所以不可删除!"_s
                    : u"\n但【未读】的平台信息不可删除!"_s;
    return Done(told);
}
