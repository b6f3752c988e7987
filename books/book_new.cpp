#include "books/book_new.h"

#include "books/carry_forward.h"
#include "store/book_box.h"
#include "store/book_format.h"
#include "store/book_images.h"
#include "store/messages.h"
#include "store/notices.h"
#include "store/paths.h"

using namespace Qt::StringLiterals;

namespace {

// A new record stands whatever comes after, and so is told however its maker ends.
class TellsBooks {
 public:
    TellsBooks() = default;
    ~TellsBooks() { Notices().booksChanged.Emit(); }
    TellsBooks(const TellsBooks&) = delete;
    TellsBooks& operator=(const TellsBooks&) = delete;
};

int AddRecord(const BookForm& form, const QString& path) {
    auto& books = State().gBooks;
    if (books.size() == 1 && books.front().Name.isEmpty()) books.clear();
    books.push_back({path.toLower(), BookNameOf(form.name), form.year.toInt(), {}, RealPath(path).path});
    return static_cast<int>(books.size()) - 1;
}

void ReadVersion(BookRecord& record) {
    cConnection book;
    OpenFileOf(record, book, {});
    record.Version = BookKey(book, u"dbversion"_s).value_or(QString());
}

QString FillRecord(const BookForm& form, const QString& path) {
    const auto index = static_cast<size_t>(AddRecord(form, path));
    const TellsBooks tells;
    auto& record = State().gBooks[index];
    ReadVersion(record);
    FillNewBook(record, form);
    return record.Path;
}

}  // namespace

bool WriteEmptyBook(const QString& name) {
    const QString path = BoxPath(name + u".jotdb"_s);
    const auto found = RealPath(path);
    if (found.exists || !found.rivals.isEmpty()) return false;
    const bool own = IsSameFile(RealPath(State().settings.sDBPath).path, State().gDefaultBox);
    if (!WriteBookFile(found.path, EmptyBookImage(), own))
        FailStatement(u"无法写入账本文件【"_s + path + u"】"_s, {}, u"账本盒不存在、不可写入或磁盘已满"_s);
    return true;
}

BookSaved CreateBook(const BookForm& form) {
    if (const auto wrong = CheckBookForm(form, true)) {
        ShowMsg(wrong->message);
        return {false, wrong->focus};
    }
    const QString name = BookNameOf(form.name);
    if (!WriteEmptyBook(name)) {
        ShowMsg(u"该账本文件已【存在】!"_s);
        return {};
    }
    if (form.moreOptions && form.reference.isEmpty()) {
        ShowMsg(u"选中了【更多选项】,您必须选择【一个账本】!"_s);
        return {};
    }
    const auto made = FillRecord(form, BoxPath(name + u".jotdb"_s));
    ShowMsg(u"创建成功!"_s, u"确定"_s, kMsgInfo);
    return {true, BookField::none, made};
}
