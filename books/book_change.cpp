#include "books/book_change.h"

#include "books/book_password.h"
#include "store/book_box.h"
#include "store/book_format.h"
#include "store/errors.h"
#include "store/messages.h"
#include "store/notices.h"
#include "store/paths.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString KeyOf(cConnection& file, const QString& key) {
    return BookKey(file, key).value_or(QString());
}

void WriteChange(const BookRecord& book, const BookForm& form) {
    cConnection file;
    OpenFileOf(book, file, {});
    Transaction all(file);
    SetBookKey(file, u"booknote"_s, form.note);
    SetBookKey(file, u"year"_s, form.year);
    SetBookKey(file, u"pass"_s, form.pass);
    all.Commit();
}

}  // namespace

BookRecord BookAt(const QString& path) {
    const int index = FindBook(path);
    if (index >= 0) return State().gBooks[static_cast<size_t>(index)];
    QString name = path;
    return {path.toLower(),
            FileNameOf(name, kBookExtension).toLower(),
            0,
            {},
            QFileInfo::exists(path) ? path : QString()};
}

BookFacts ReadBookFacts(const BookRecord& book, int waitMs) {
    cConnection file;
    OpenFileOf(book, file, {.waitMs = waitMs});
    BookFacts facts;
    facts.name = book.Name.startsWith(u"->"_s) ? book.Name.mid(2) : book.Name;
    facts.year = KeyOf(file, u"year"_s);
    facts.note = KeyOf(file, u"booknote"_s);
    facts.pass = KeyOf(file, u"pass"_s);
    facts.version = KeyOf(file, u"dbversion"_s);
    facts.created = KeyOf(file, u"CreateDate"_s);
    return facts;
}

BookSaved SaveBookChange(const QString& path, const BookForm& form) {
    const auto refuse = [](const QString& text, BookField focus = BookField::none) {
        ShowMsg(text);
        return BookSaved{false, focus};
    };
    if (const auto wrong = CheckBookForm(form, false)) return refuse(wrong->message, wrong->focus);
    const BookRecord asked = BookAt(path);
    if (!AskBookPassword(asked)) return refuse(u"口令不正确!"_s);
    const int index = FindBook(path);
    if (index < 0) return refuse(u"意外错误!"_s);
    WriteChange(asked, form);
    State().gBooks[static_cast<size_t>(index)].Year = form.year.toInt();
    Notices().booksChanged.Emit();
    ShowMsg(u"修改成功!"_s, u"确定"_s, kMsgInfo);
    return {true, BookField::none, path};
}

qint64 BookFileSize(const BookRecord& book) {
    const auto file = FileOf(book);
    return file.exists ? QFileInfo(file.path).size() : 0;
}

Compression CompressBook(const BookRecord& book, Job& job) {
    PendingError failed;
    const bool done = Succeeds(
        [&] {
            cConnection file;
            OpenFileOf(book, file, {});
            const StatementWatch watch(file, [&] { return job.GoOn(); });
            file.Compact();
        },
        &failed);
    if (done) return Compression::done;
    if (job.Stopped()) return Compression::stopped;
    TellFailure(failed);
    return Compression::failed;
}

qint64 Kilobytes(qint64 bytes) {
    return (bytes + 512) / 1024;
}

QString CompressedText(qint64 before, qint64 after) {
    return u"压缩前: "_s + QString::number(Kilobytes(before)) + u" KB\r\n压缩后: "_s +
           QString::number(Kilobytes(after)) + u" KB"_s;
}
