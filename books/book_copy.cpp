#include "books/book_copy.h"

#include "store/book_box.h"
#include "store/book_images.h"
#include "store/disk.h"
#include "store/errors.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kSlice = 1 << 20;
constexpr int kTryMs = 50, kTries = 40;  // for another program's lock, the window answering meanwhile
constexpr qint64 kFlushed = 8 << 20;     // more at once would hold the window up

const QString kUnreadable = u"不能读取账本文件"_s;

using GoOn = std::function<bool(qint64 done)>;

BookCopy Failed(const QString& reason) {
    return {BookCopy::failed, reason};
}

BookCopy CannotWrite(const QFile& target) {
    return Failed(target.error() == QFile::ResourceError ? u"磁盘已满"_s : u"不能写入备份文件"_s);
}

BookCopy CopyBytes(QFile& from, const QString& to, const GoOn& step) {
    QFile target(to);
    if (!target.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return CannotWrite(target);
    target.setPermissions(from.permissions());
    const qint64 size = from.size();
    qint64 done = 0, flushed = 0;
    while (done < size) {
        const QByteArray bytes = from.read(kSlice);
        if (bytes.isEmpty()) return Failed(kUnreadable);
        if (target.write(bytes) != bytes.size()) return CannotWrite(target);
        done += bytes.size();
        if (done - flushed >= kFlushed) {
            if (!FlushToDisk(target)) return CannotWrite(target);
            flushed = done;
        }
        if (!step(done)) return {BookCopy::stopped, {}};
    }
    if (!FlushToDisk(target)) return CannotWrite(target);
    return {BookCopy::done, {}};
}

QString ReasonOf(const PendingError& failed) {
    if (!failed.hint.isEmpty()) return failed.hint;
    if (FaultOf(failed.number) == DbFault::noBook) return u"账本文件已损坏，或不是账本文件"_s;
    const QString reason = LikelyReason(failed);
    return reason.isEmpty() ? failed.description : reason;
}

// Another program may have left the book with changes beside its file. They come into it first, and nobody
// writes more of them meanwhile.
void TakeInWhatStandsBeside(const BookRecord& book, cConnection& lock) {
    lock.Execute(u"pragma wal_checkpoint(truncate); begin immediate; select count(*) from sqlite_master"_s);
    if (QFileInfo(FileOf(book).path + u"-wal"_s).size() > 0)
        FailStatement(u"账本旁边还有没有写入的改动"_s, {}, u"账本正被别的程序使用"_s);
}

bool Lock(const BookRecord& book, cConnection& lock, PendingError& failed) {
    return Succeeds(
        [&] {
            OpenFileOf(book, lock, {.waitMs = kTryMs});
            if (lock.OpenRecordset(u"pragma journal_mode"_s).Text(u"journal_mode") == u"wal")
                TakeInWhatStandsBeside(book, lock);
            else
                lock.Execute(u"begin; select count(*) from sqlite_master"_s);
        },
        &failed);
}

// The reader goes last: closing any descriptor on the file drops the lock that the connection holds.
BookCopy CopyLocked(const BookRecord& book, const QString& to, const GoOn& step) {
    QFile from(FileOf(book).path);
    cConnection lock;
    PendingError failed;
    for (int tries = 1; !Lock(book, lock, failed); ++tries) {
        lock.Close();
        if (!step(0)) return {BookCopy::stopped, {}};
        if (tries < kTries && FaultOf(failed.number) == DbFault::busy) continue;
        return Failed(ReasonOf(failed));
    }
    if (!from.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return Failed(kUnreadable);
    auto copy = CopyBytes(from, to, step);
    lock.Close();
    return copy;
}

BookCopy CheckCopy(const QString& file, qint64 size, const GoOn& step) {
    bool stopped = false;
    QString found;
    PendingError failed;
    const bool read = Succeeds(
        [&] {
            cConnection copy;
            copy.Open(file, {.readOnly = true, .exact = true});
            const StatementWatch watch(copy, [&] { return !(stopped = !step(size)); });
            auto answer = copy.Read(u"pragma quick_check(1)"_s);
            if (answer.Next()) found = answer.Text(0);
        },
        &failed);
    if (stopped) return {BookCopy::stopped, {}};
    if (!read) return Failed(ReasonOf(failed));
    return found == u"ok" ? BookCopy{BookCopy::done, {}} : Failed(u"账本文件已损坏："_s + found);
}

BookCopy CopyWhole(const BookRecord& book, const QString& part, const QString& target, const GoOn& step) {
    auto copy = CopyLocked(book, part, step);
    if (copy.result == BookCopy::done) copy = CheckCopy(part, QFileInfo(part).size(), step);
    if (copy.result != BookCopy::done) return copy;
    if (!QFile::rename(part, target)) return Failed(u"不能写入："_s + target);
    FlushFolder(QFileInfo(target).path());  // some volumes cannot; the copy is whole all the same
    return copy;
}

}  // namespace

BookCopy CopyBook(const BookRecord& book, const QString& folder, const QString& name,
                  const std::function<bool(qint64 done)>& step) {
    const auto file = FileOf(book);
    if (!file.rivals.isEmpty()) return Failed(RivalsText(file.rivals));
    if (!file.exists) return {BookCopy::gone, {}};
    const QString target = folder + u'/' + name, part = target + u".part"_s;
    auto copy = CopyWhole(book, part, target, step);
    if (copy.result != BookCopy::done) QFile::remove(part);
    for (const auto& left : FilesBeside(part))
        QFile::remove(left);
    return copy;
}
