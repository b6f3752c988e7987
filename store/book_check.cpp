#include "store/book_check.h"

#include "store/book_format.h"
#include "store/connection.h"
#include "store/errors.h"
#include "store/messages.h"
#include "store/paths.h"
#include "store/state.h"

using namespace Qt::StringLiterals;

namespace {

const QString kVersion = u"10.0"_s;

TakenBook Refuse(const QString& text) {
    ShowMsg(text, u"确定"_s, kMsgFail);
    return {};
}

BookRecord* RecordOf(int index) {
    auto& books = State().gBooks;
    const int wanted = index == -1 ? State().gCurBook : index;
    return wanted < 0 || wanted >= static_cast<int>(books.size()) ? nullptr
                                                                  : &books[static_cast<size_t>(wanted)];
}

bool CanOpen(const QString& file, QString& reason) {
    PendingError failed;
    if (Succeeds([&] { cConnection().Open(file); }, &failed)) return true;
    reason = failed.hint.isEmpty() ? LikelyReason(failed) : failed.hint;
    return false;
}

}  // namespace

TakenBook TakeBookFile(const QString& path) {
    const QString lower = path.toLower();
    const auto file = SpelledPath(path);
    if (!file.rivals.isEmpty()) return Refuse(RivalsText(file.rivals));
    if (!FileExists(file.path)) return Refuse(u"文件【"_s + lower + u"】不存在！"_s);
    if (lower.right(kBookExtension) != u".jotdb") return Refuse(u"文件【"_s + lower + u"】不是账本文件！"_s);
    const int index = FindBook(file.path);
    if (index >= 0 && index == State().gCurBook && State().gDB.IsOpen()) return {BookDoor::isOpen, index};
    QString reason;
    if (!CanOpen(file.path, reason))
        return Refuse(u"打开账本文件【"_s + lower + u"】错误！"_s +
                      (reason.isEmpty() ? reason : u'\n' + reason));
    if (index >= 0) return {BookDoor::known, index};
    return {BookDoor::added, AddOutsideBook(file.path)};
}

bool CheckBook(int index) {
    auto* book = RecordOf(index);
    if (!book || book->Path.isEmpty()) return CheckBookVersion(index);
    if (const auto file = FileOf(*book); !file.rivals.isEmpty()) {
        Refuse(RivalsText(file.rivals));
        return false;
    }
    PendingError failed;
    if (Succeeds([&] { ReadBookInfo(*book); }, &failed)) return CheckBookVersion(index);
    if (FaultOf(failed.number) != DbFault::noBook) {
        TellFailure(failed);
        return false;
    }
    book->Year = 0;
    book->Version.clear();
    return CheckBookVersion(index);
}

bool CheckBookVersion(int index) {
    const auto* book = RecordOf(index);
    if (!book) {
        ShowMsg(u"未指定账本 或 指定的【账本文件】不存在!"_s);
        return false;
    }
    if (book->Version == kVersion) return true;
    ShowMsg(u"程序要求账本版本是：【"_s + kVersion + u"】\n当前账本版本是：【"_s + book->Version +
            u"】\n账本版本不符不能打开! 请与开发商联系!"_s);
    return false;
}
