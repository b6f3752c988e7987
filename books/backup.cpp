#include "books/backup.h"

#include "books/book_change.h"
#include "books/book_copy.h"
#include "store/dates.h"
#include "store/paths.h"
#include "store/session.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

bool IsOutside(const BookRecord& book) {
    return book.Name.isEmpty() || book.Name.startsWith(u"->"_s);
}

// What a backup copies; a book from outside the box only when it was asked for by its path.
std::vector<BookRecord> BooksOf(const QString& path) {
    if (!path.isEmpty()) return {BookAt(path)};
    std::vector<BookRecord> books;
    std::ranges::remove_copy_if(State().gBooks, std::back_inserter(books), IsOutside);
    return books;
}

QString FileNameIn(const BookRecord& book) {
    return (book.Name.startsWith(u"->"_s) ? book.Name.mid(2) : book.Name) + u".jotdb"_s;
}

// Only an empty folder goes.
void RemoveIfEmpty(const QString& folder) {
    std::error_code ignored;
    std::filesystem::remove(QFile::encodeName(folder).toStdString(), ignored);
}

void CopyOne(const BookRecord& book, size_t index, const QString& folder, Job& job, BackupResult& result) {
    const QString name = FileNameIn(book);
    const int before = static_cast<int>(index) * kBackupSteps;
    const qint64 size = std::max<qint64>(1, BookFileSize(book));
    const auto copy = CopyBook(book, folder, name, [&](qint64 done) {
        job.Step(static_cast<int>(index), before + static_cast<int>(done * kBackupSteps / size));
        return !job.Stopped();
    });
    if (copy.result == BookCopy::done) ++result.count;
    if (copy.result == BookCopy::failed) result.failed << name + u"："_s + copy.reason;
    if (copy.result == BookCopy::stopped) result.failed << name + u"：已停止"_s;
}

}  // namespace

std::vector<BrowsePlace> BackupPlaces() {
    std::vector<BrowsePlace> places;
    std::ranges::copy_if(Outside().places(), std::back_inserter(places), [](const auto& place) {
        return !place.path.isEmpty() && QFileInfo(place.path).isDir() && QFileInfo(place.path).isWritable();
    });
    return places;
}

QString BackupFolder(const QString& place, PathStyle style) {
    const QChar separator = style == PathStyle::windows ? u'\\' : u'/';
    const QString below = place.endsWith(separator) ? place : place + separator;
    return below + u"墨鹊账本备份"_s + TodayText({});
}

QStringList BackupNames(const QString& path) {
    QStringList names;
    for (const auto& book : BooksOf(path))
        names << FileNameIn(book);
    return names;
}

BackupResult RunBackup(const QString& folder, const QString& path, Job& job) {
    BackupResult result;
    if (QFileInfo::exists(folder)) return {0, {}, folder + u"该文件夹已存在"_s};
    // A volume that was pulled out would be made anew as a folder.
    const QString place = ParentPath(folder);
    if (!place.isEmpty() && !QFileInfo(place).isDir()) return {0, {}, u"备份位置不存在：\n"_s + place};
    if (const QString refused = MakeFolders(folder); !refused.isEmpty()) return {0, {}, refused};
    const auto books = BooksOf(path);
    job.Start(static_cast<int>(books.size()) * kBackupSteps);
    {
        const ClosedBook closed;
        for (size_t i = 0; i < books.size(); ++i) {
            if (job.Stopped())
                result.failed << FileNameIn(books[i]) + u"：已停止"_s;
            else
                CopyOne(books[i], i, folder, job, result);
        }
    }
    if (result.count == 0) RemoveIfEmpty(folder);
    return result;
}

QString BackupText(const BackupResult& result) {
    QString text = u"备份成功【"_s + QString::number(result.count) + u"】本!"_s;
    if (!result.failed.isEmpty()) text += u"\n没有备份的账本：\n"_s + result.failed.join(u'\n');
    return text;
}
