#include "books/book_password.h"

#include "store/book_box.h"
#include "store/book_format.h"
#include "store/dialogs.h"

using namespace Qt::StringLiterals;

bool AskBookPassword(const BookRecord& book, const QString& prompt) {
    ResetDlg(kDlgInput);
    InputDialog input;
    input.prompt = prompt;
    input.text = u"账本口令设置"_s;
    input.mode = 0;
    if (!OpenModal(kDlgInput) || !input.done) return false;
    cConnection file;
    OpenFileOf(book, file, {});
    return CheckPass(file, input.text) == PassCheck::right;
}
