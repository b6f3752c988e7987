#include "store/book_box.h"

#include "store/book_format.h"
#include "store/errors.h"
#include "store/paths.h"
#include "store/state.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kWaitMs = 2000;

void ReadInfo(BookRecord& book, int waitMs) {
    cConnection probe;
    OpenFileOf(book, probe, {.readOnly = false, .waitMs = waitMs});
    const auto year = BookKey(probe, u"year"_s);
    const auto version = BookKey(probe, u"dbversion"_s);
    book.Year = year ? year->toInt() : 0;
    book.Version = version.value_or(QString());
}

BookRecord OutsideBook(const QString& path) {
    QString name = path;
    const auto real = RealPath(path);
    return {path.toLower(),
            u"->"_s + FileNameOf(name, kBookExtension).toLower(),
            0,
            {},
            real.exists ? real.path : QString()};
}

}  // namespace

QString FixBookPath(const QString& path) {
    if (path.isEmpty() || !RealPath(path).exists) return State().gDefaultBox;
    QString fixed = path;
    if (NativeStyle() == PathStyle::windows) fixed.replace(u'/', u'\\');
    const QChar separator = NativeStyle() == PathStyle::windows ? u'\\' : u'/';
    if (fixed.size() > 1 && fixed.endsWith(separator)) fixed.chop(1);
    return fixed;
}

void ScanFolder(const QString& folder) {
    auto& books = State().gBooks;
    const QString base = folder.endsWith(u'/') ? folder : folder + u'/';
    const QString real = RealPath(QDir::cleanPath(folder)).path;
    KnowFolder(real);
    const auto names = QDir(real).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Unsorted);
    size_t index = 0;
    for (const auto& name : names) {
        const QString lower = name.toLower();
        if (!lower.endsWith(u".jotdb"_s)) continue;
        if (index >= books.size()) books.emplace_back();
        books[index++] = {(base + name).toLower(), lower.chopped(kBookExtension), 0, {}, real + u'/' + name};
    }
}

void ScanBookBox(const QString& folder) {
    ScanFolder(folder);
    auto& state = State();
    if (state.gCommandLine.isEmpty() || !FileExists(state.gCommandLine)) return;
    state.gCmdBook = FindBook(state.gCommandLine);
    if (state.gCmdBook >= 0) return;
    state.gBooks.push_back(OutsideBook(state.gCommandLine));
    state.gCmdBook = static_cast<int>(state.gBooks.size()) - 1;
}

void ReadBookInfo() {
    const ListingScope once;
    for (auto& book : State().gBooks)
        Succeeds([&] { ReadInfo(book, 0); });
}

void ReadBookInfo(BookRecord& book) {
    ReadInfo(book, kWaitMs);
}

void ChooseBook() {
    auto& state = State();
    if (state.gCmdBook != -1) {
        state.gCurBook = state.gCmdBook;
        return;
    }
    const int last = FindBook(state.settings.sPreOpenDBFile);
    if (last >= 0) state.gCurBook = last;
}

int FindBook(const QString& path) {
    const auto& books = State().gBooks;
    const auto real = RealPath(path);
    const auto find = [&](const auto& fits) {
        const auto found = std::find_if(books.begin(), books.end(), fits);
        return found == books.end() ? -1 : static_cast<int>(found - books.begin());
    };
    // Whether a spelling has rivals is asked where the book opens, not of each book here.
    const auto file = [](const auto& book) { return book.File.isEmpty() ? FileOf(book).path : book.File; };
    if (real.exists) return find([&](const auto& book) { return IsSameFile(file(book), real.path); });
    return find([&](const auto& book) { return book.Path == path.toLower(); });
}

int AddOutsideBook(const QString& path) {
    auto book = OutsideBook(path);
    Succeeds([&] { ReadInfo(book, kWaitMs); });
    State().gBooks.push_back(book);
    return static_cast<int>(State().gBooks.size()) - 1;
}

FoundPath FileOf(const BookRecord& book) {
    if (book.File.isEmpty()) return SpelledPath(book.Path);
    // Once it is gone, another file that differs by case is not the book.
    return QFileInfo::exists(book.File) ? SpelledPath(book.File) : FoundPath{book.File, false, {}};
}

void OpenFileOf(const BookRecord& book, cConnection& connection, cConnection::Options options) {
    const auto file = FileOf(book);
    if (!file.rivals.isEmpty()) FailStatement(RivalsText(file.rivals), u"open "_s + book.Path);
    options.exact = true;
    connection.Open(file.path, options);
}

QString RivalsText(const QStringList& rivals) {
    return u"有只差大小写的同名文件，无法打开：\n"_s + rivals.join(u'\n');
}

QString RivalBoxText(const QStringList& rivals) {
    return u"有只差大小写的同名文件夹，无法指定为账本盒：\n"_s + rivals.join(u'\n');
}
