#include "shell/book_switch.h"

#include "shell/commands.h"
#include "shell/file_dialog.h"
#include "shell/page.h"
#include "store/book_box.h"
#include "store/book_check.h"
#include "store/book_format.h"
#include "store/dialogs.h"
#include "store/errors.h"
#include "store/job.h"
#include "store/messages.h"
#include "store/notices.h"
#include "store/period.h"
#include "store/session.h"

using namespace Qt::StringLiterals;

namespace {

void Refuse(const QString& text, int icon = kMsgFail) {
    ShowMsg(text, u"确定"_s, icon);
}

bool IsKnownBook(const QString& indexText, int* index) {
    bool number = false;
    *index = indexText.toInt(&number);
    return number && *index >= 0 && *index < static_cast<int>(State().gBooks.size());
}

}  // namespace

void OpenDBFile(QString path) {
    if (IsBusy()) return;
    if (path.isEmpty())
        path = ChooseFile(u"选择墨鹊账本文件"_s, u"墨鹊账本文件|*.jotdb\n所有文件|*.*"_s,
                          State().settings.sDBPath);
    if (path.isEmpty()) return;
    const auto taken = TakeBookFile(path);
    if (taken.door == BookDoor::refused) return;
    if (taken.door == BookDoor::isOpen)
        return Refuse(u"当前打开的正是该账本：\n【"_s + path.toLower() + u"】"_s, kMsgWarn);
    if (Host().show) Host().show(kTabAccount);
    if (taken.door == BookDoor::added) Notices().booksChanged.Emit();
    if (auto* page = PageOfCode(kPageAccount)) page->SelectBook(taken.index);
    SwitchBook(QString::number(taken.index));
    if (auto* page = PageOfCode(kPageAccount)) page->SelectBook(State().gCurBook);
}

void SwitchBook(const QString& indexText) {
    if (IsBusy()) return;
    const int index = indexText.toInt();
    if (!CheckBook(index)) return;
    switch (AskBookPass(indexText, false)) {
        case kPassCancelled:
        case kPassSameBook:
            return;
        case kPassRight:
            if (ReloadPages(index)) Notices().booksChanged.Emit();
            return;
        case kPassWrong:
            return Refuse(u"口令不正确!"_s);
        default:
            return Refuse(u"意外错误!"_s);
    }
}

int AskBookPass(const QString& indexText, bool force) {
    int index = -1;
    if (!IsKnownBook(indexText, &index)) return kPassFailed;
    if (index == State().gCurBook && State().gDB.IsOpen() && !force) return kPassSameBook;
    const BookRecord book = State().gBooks[static_cast<size_t>(index)];
    ResetDlg(kDlgInput);
    InputDialog input;
    input.prompt = u"请输入账本【"_s + book.Name + u"】口令："_s;
    input.text = u"账本口令"_s;
    input.mode = 0;
    OpenModal(kDlgInput);
    if (!input.done) return kPassCancelled;
    if (!FileOf(book).exists) return kPassFailed;
    int answer = kPassFailed;
    Succeeds([&] {
        cConnection probe;
        OpenFileOf(book, probe, {});
        const auto check = CheckPass(probe, input.text);
        if (check != PassCheck::missing) answer = check == PassCheck::right ? kPassRight : kPassWrong;
    });
    return answer;
}

bool ReloadPages(int newBook) {
    const int oldBook = State().gCurBook;
    State().gCurBook = newBook;
    PendingError failed;
    if (!Succeeds([] { ReopenDB(); }, &failed)) {
        State().gCurBook = oldBook;
        TellFailure(failed);
        return false;
    }
    // Each by itself: a part that fails must not leave another showing the old book.
    RunEvent(Commands().closeReminders);
    RunEvent(Host().dropOtherPages);
    RunEvent([] {
        if (auto* page = PageOfCode(kPageAccount)) page->pTRANSACCOUNT();
    });
    RunEvent(Host().refresh);
    return true;
}

void QuickPeriod(int pageCode, const QString& key, bool search) {
    auto* page = PageOfCode(pageCode);
    if (!page || !page->Can(Act::period)) return;
    page->SetPeriod(PeriodOfKey(key));
    if (search) page->Do(Act::runPeriod);
}

void DeleteChecked(int pageCode) {
    auto* page = PageOfCode(pageCode);
    if (page && page->Can(Act::deleteChecked)) page->Do(Act::deleteChecked);
}
