#include "store/book_box.h"

#include "store/book_format.h"
#include "store/errors.h"
#include "store/paths.h"
#include "store/state.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr int kWaitMs = 2000;

void ReadInfo(BookRecord& book, int waitMs) {
    if (!FileExists(book.Path)) return;
    Succeeds([&] {
        cConnection probe;
        probe.Open(book.Path, {.readOnly = false, .waitMs = waitMs});
        if (const auto year = BookKey(probe, u"year"_s)) book.Year = year->toInt();
        if (const auto version = BookKey(probe, u"dbversion"_s)) book.Version = *version;
    });
}

QString OutsideName(QString path) {
    return u"->"_s + FileNameOf(path, kBookExtension).toLower();
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
    const auto names = QDir(RealPath(QDir::cleanPath(folder)).path)
                           .entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Unsorted);
    size_t index = 0;
    for (const auto& name : names) {
        const QString lower = name.toLower();
        if (!lower.endsWith(u".jotdb"_s)) continue;
        if (index >= books.size()) books.emplace_back();
        books[index++] = {(base + name).toLower(), lower.chopped(kBookExtension), 0, {}};
    }
}

void ScanBookBox(const QString& folder) {
    ScanFolder(folder);
    auto& state = State();
    if (state.gCommandLine.isEmpty() || !FileExists(state.gCommandLine)) return;
    const QString path = state.gCommandLine.trimmed().toLower();
    state.gCmdBook = FindBook(path);
    if (state.gCmdBook >= 0) return;
    state.gBooks.push_back({path, OutsideName(path), 0, {}});
    state.gCmdBook = static_cast<int>(state.gBooks.size()) - 1;
}

void ReadBookInfo() {
    for (auto& book : State().gBooks)
        ReadInfo(book, 0);
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

void EnsureBookInfo(int index) {
    auto& books = State().gBooks;
    if (index < 0 || index >= static_cast<int>(books.size())) return;
    auto& book = books[static_cast<size_t>(index)];
    if (book.Version.isEmpty()) ReadInfo(book, kWaitMs);
}

int FindBook(const QString& path) {
    const auto& books = State().gBooks;
    for (size_t i = 0; i < books.size(); ++i)
        if (books[i].Path == path) return static_cast<int>(i);
    return -1;
}

int AddOutsideBook(const QString& path) {
    BookRecord book{path, OutsideName(path), 0, {}};
    ReadInfo(book, kWaitMs);
    State().gBooks.push_back(book);
    return static_cast<int>(State().gBooks.size()) - 1;
}
