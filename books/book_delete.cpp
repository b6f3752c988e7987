#include "books/book_delete.h"

#include "books/book_password.h"
#include "store/book_box.h"
#include "store/file_actions.h"
#include "store/messages.h"
#include "store/notices.h"
#include "store/paths.h"

using namespace Qt::StringLiterals;

namespace {

int Moved(int other, int removed) {
    return other == removed ? -1 : other > removed ? other - 1 : other;
}

void DropRecord(int index) {
    auto& state = State();
    state.gBooks.erase(state.gBooks.begin() + index);
    state.gCurBook = Moved(state.gCurBook, index);
    state.gCmdBook = Moved(state.gCmdBook, index);
}

}  // namespace

bool DeleteSelectedBook(int index) {
    const auto refuse = [](const QString& text) {
        ShowMsg(text);
        return false;
    };
    if (index < 0) return refuse(u"没有【选定】要删除的账本!"_s);
    if (ShowMsg(u"你确定要删除【选定的账本】?"_s, u"取消,确定"_s, kMsgAsk) != 1) return false;
    const BookRecord book = State().gBooks.at(static_cast<size_t>(index));
    if (book.Path.isEmpty()) return false;
    // By whatever link it stands in the box.
    if (index == State().gCurBook || IsSameFile(FileOf(book).path, FileOf(CurrentBook()).path))
        return refuse(u"该账本是当前【正在使用】的账本不可删除!"_s);
    const auto file = FileOf(book);
    const bool there = file.exists || !file.rivals.isEmpty();
    if (there && !AskBookPassword(book, u"请输入选定的账本口令："_s))
        return refuse(u"口令错误,不能完成操作!"_s);
    if (!DeleteToBin(book)) return refuse(u"账本文件没有被删除：\n"_s + file.path);
    DropRecord(index);
    Notices().booksChanged.Emit();
    ShowMsg(u"成功删除【"_s + book.Path + u"】!"_s);
    return true;
}
