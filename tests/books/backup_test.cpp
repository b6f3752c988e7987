// The backup: which books, whole copies, what is said of the others.

#include "books/backup.h"

#include "books/book_copy.h"
#include "store/errors.h"
#include "tests/books/books_fixture.h"

#include <QFileInfo>

#include <csignal>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

class Backup : public BooksFixture {
 protected:
    Backup() {
        PutBook(u"one"_s);
        PutBook(u"two"_s);
        OpenBook(u"one"_s);
    }
    QString Folder() const { return BackupFolder(Path(u"place"_s)); }
    BackupResult Run(const QString& path = {}) {
        QDir().mkpath(Path(u"place"_s));
        Job job;
        return RunBackup(Folder(), path, job);
    }
    QStringList Copies() const { return QDir(Folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
};

/// Another program that is killed after these statements.
void WriteAndDie(const QString& path, const char* sql) {
    const pid_t child = fork();
    if (child == 0) {
        sqlite3* db = nullptr;
        sqlite3_open(path.toUtf8().constData(), &db);
        sqlite3_exec(db, sql, nullptr, nullptr, nullptr);
        kill(getpid(), SIGKILL);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
}

}  // namespace

TEST_F(Backup, FoldersAndPlaces) {
    EXPECT_EQ(BackupFolder(u"D:"_s, PathStyle::windows), u"D:\\墨鹊账本备份20160903"_s);
    EXPECT_EQ(BackupFolder(u"/media/a"_s, PathStyle::posix), u"/media/a/墨鹊账本备份20160903"_s);
    EXPECT_EQ(BackupFolder(u"/"_s, PathStyle::posix), u"/墨鹊账本备份20160903"_s);
    QDir().mkpath(Path(u"home"_s));
    Outside().places = [this] {
        return std::vector<BrowsePlace>{{u"desktop"_s, u"桌面"_s, u"desktop"_s, Path(u"missing"_s)},
                                        {u"doc"_s, u"我的文档"_s, u"doc"_s, {}},
                                        {u"home"_s, u"主目录"_s, u"home"_s, Path(u"home"_s)},
                                        {u"/proc"_s, u"proc 盘"_s, u"disc"_s, u"/proc/self/fd"_s}};
    };
    const auto places = BackupPlaces();
    ASSERT_FALSE(places.empty());
    EXPECT_EQ(places.front().key, u"home"_s);
}

TEST_F(Backup, EveryBookOfTheBoxIsCopiedWhole) {
    const QString outside = Path(u"outside.jotdb"_s);
    ASSERT_TRUE(QFile::copy(BookPath(u"two"_s), outside));
    AddOutsideBook(outside);
    PutBook(u"gone"_s);
    AddOutsideBook(outside);
    ASSERT_TRUE(QFile::remove(BookPath(u"gone"_s)));
    QFile::setPermissions(BookPath(u"two"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup);
    EXPECT_EQ(BackupNames({}).size(), 3);
    const auto result = Run();
    EXPECT_EQ(result.count, 2);
    EXPECT_EQ(BackupText(result), u"备份成功【2】本!"_s);
    EXPECT_EQ(Copies(), (QStringList{u"one.jotdb"_s, u"two.jotdb"_s}));
    for (const auto& name : {u"one"_s, u"two"_s})
        EXPECT_EQ(BytesOf(Folder() + u'/' + name + u".jotdb"_s), BytesOf(BookPath(name)));
    EXPECT_EQ(QFileInfo(Folder() + u"/two.jotdb"_s).permissions() & QFile::ReadGroup, QFile::ReadGroup);
    EXPECT_TRUE(State().gDB.IsOpen());
    EXPECT_FALSE(State().gBusy);
    // One backup a day and place; what is there stays.
    EXPECT_EQ(Run().refused, Folder() + u"该文件夹已存在"_s);
    EXPECT_EQ(Copies().size(), 2);
}

TEST_F(Backup, OneBookByItsPath) {
    EXPECT_EQ(BackupNames(BookPath(u"two"_s)), QStringList{u"two.jotdb"_s});
    EXPECT_EQ(Run(BookPath(u"two"_s)).count, 1);
    EXPECT_EQ(Copies(), QStringList{u"two.jotdb"_s});
}

TEST_F(Backup, BooksThatAreNotCopiedAreNamedWithTheReason) {
    PutBook(u"damaged"_s, SampleBookImage().left(20000));
    PutBook(u"no"_s, QByteArray(4096, 'x'));
    ASSERT_TRUE(QFile::copy(BookPath(u"two"_s), Box() + u"/TWO.jotdb"_s));
    KnowBooks();
    const auto result = Run();
    EXPECT_EQ(result.count, 1);
    ASSERT_EQ(result.failed.size(), 4) << qPrintable(result.failed.join(u'\n'));
    const QString text = BackupText(result);
    for (const auto& part : {u"备份成功【1】本!\n没有备份的账本：\n"_s, u"damaged.jotdb："_s, u"no.jotdb："_s,
                             u"two.jotdb：有只差大小写的同名文件"_s})
        EXPECT_TRUE(text.contains(part)) << qPrintable(text);
    EXPECT_EQ(Copies(), QStringList{u"one.jotdb"_s});
}

TEST_F(Backup, AWriterThatWasKilledInTheMiddleIsRolledBackFirst) {
    // It leaves a hot journal and half a change behind.
    const QString path = BookPath(u"two"_s);
    const auto before = DumpBook(path);
    WriteAndDie(path,
                "pragma cache_size=5; begin immediate; update tKind set Money=-1;"
                "with n(i) as (select 1 union all select i+1 from n where i<5000) insert into tAccount"
                " (Id1,Title1,Note1) select i+100,'half',hex(randomblob(100)) from n");
    ASSERT_TRUE(QFile::exists(path + u"-journal"_s));
    EXPECT_EQ(Run().count, 2);
    EXPECT_EQ(CheckBook(Folder() + u"/two.jotdb"_s), u"ok"_s);
    EXPECT_EQ(DumpBook(Folder() + u"/two.jotdb"_s), before);
    EXPECT_EQ(Copies(), (QStringList{u"one.jotdb"_s, u"two.jotdb"_s}));
}

TEST_F(Backup, WhatAnotherProgramHasLeftBesideABookComesAlong) {
    const QString path = BookPath(u"two"_s);
    WriteAndDie(path, "pragma journal_mode=wal; update tKind set Money=77 where Sort1='0101'");
    ASSERT_GT(QFileInfo(path + u"-wal"_s).size(), 0);
    EXPECT_EQ(Run().count, 2);
    EXPECT_EQ(Copies(), (QStringList{u"one.jotdb"_s, u"two.jotdb"_s}));
    cConnection copy;
    copy.Open(Folder() + u"/two.jotdb"_s);
    EXPECT_EQ(Rows(copy, u"select Money from tKind where Sort1='0101'"_s), QStringList{u"77"_s});
}

TEST_F(Backup, ABookThatIsGivenByItsPathIsThatVeryFile) {
    QDir().mkpath(Path(u"out"_s));
    for (const auto& [name, money] : {std::pair(u"out/foo.jotdb"_s, 1), std::pair(u"out/Foo.jotdb"_s, 2)}) {
        ASSERT_TRUE(QFile::copy(BookPath(u"two"_s), Path(name)));
        cConnection book;
        book.Open(Path(name), {.exact = true});
        book.Execute(u"update tKind set Money="_s + QString::number(money));
    }
    const auto result = Run(Path(u"out/Foo.jotdb"_s));
    EXPECT_EQ(result.count, 0);
    ASSERT_EQ(result.failed.size(), 1);
    EXPECT_TRUE(result.failed.front().contains(u"只差大小写"_s)) << qPrintable(result.failed.front());
}

TEST_F(Backup, NobodyWritesWhileABookIsCopied) {
    QDir().mkpath(Folder());
    cConnection other;
    other.Open(BookPath(u"two"_s), {.waitMs = 0});
    bool tried = false;
    const auto copy =
        CopyBook(State().gBooks[static_cast<size_t>(FindBook(BookPath(u"two"_s)))], Folder(), u"two.jotdb"_s,
                 [&](qint64) {
                     if (!tried)
                         EXPECT_FALSE(Succeeds([&] { other.Execute(u"update tKind set Money=5"_s); }));
                     tried = true;
                     return true;
                 });
    EXPECT_EQ(copy.result, BookCopy::done);
    EXPECT_TRUE(tried);
    other.Execute(u"update tKind set Money=5"_s);
}

TEST_F(Backup, AStopLeavesWholeCopiesAloneAndNoEmptyFolder) {
    // The first stop comes within the first book, the second within the second one.
    for (const int after : {0, 1}) {
        QDir().mkpath(Path(u"place"_s));
        BackupResult result;
        {
            Job job;
            Job::StopAfter(after);
            Outside().yield = [] {};
            result = RunBackup(Folder(), {}, job);
            Job::StopAfter(-1);
        }
        EXPECT_EQ(result.count, after);
        EXPECT_EQ(result.failed.size(), 2 - after);
        EXPECT_EQ(QFileInfo::exists(Folder()), after > 0);
        if (after > 0) EXPECT_EQ(Copies().size(), 1);
        EXPECT_TRUE(State().gDB.IsOpen());
    }
}

TEST_F(Backup, AFullDiskLeavesNoHalfCopy) {
    const qint64 size = QFileInfo(BookPath(u"two"_s)).size();
    for (const qint64 room : {qint64(0), size / 2, size - 1}) {
        const FullDisk disk(room);
        const auto result = Run();
        EXPECT_EQ(result.count, 0);
        EXPECT_EQ(result.failed.size(), 2);
        EXPECT_FALSE(QFileInfo::exists(Folder()));
    }
    EXPECT_EQ(Run().count, 2);
}

TEST_F(Backup, AFolderThatCannotBeMadeOrVanishesIsTold) {
    Job job;
    EXPECT_FALSE(RunBackup(PutFile(u"file"_s) + u"/below"_s, {}, job).refused.isEmpty());
    // A stick that is gone is not made anew as a folder.
    EXPECT_TRUE(RunBackup(BackupFolder(Path(u"gone"_s)), {}, job).refused.startsWith(u"备份位置不存在"_s));
    EXPECT_FALSE(QFileInfo::exists(Path(u"gone"_s)));
    QDir().mkpath(Path(u"place"_s));
    // The volume is pulled out while the first book is copied.
    const auto copy = CopyBook(State().gBooks[0], Folder(), u"x.jotdb"_s, [](qint64) { return true; });
    EXPECT_EQ(copy.result, BookCopy::failed);
    EXPECT_FALSE(copy.reason.isEmpty());
}
