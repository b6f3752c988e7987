// Deleting files and laying out the export folder.

#include "store/file_actions.h"

#include "store/outside.h"
#include "tests/support/fixture.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

using FileActions = Fixture;

TEST_F(FileActions, DeletingAsksOnlyWhereThereIsNoTrash) {
    const QString book = PutFile(u"Buch.jotdb"_s);
    const QString journal = PutFile(u"Buch.jotdb-journal"_s);
    QStringList trashed;
    Outside().trash = [&trashed](const QString& path) { return trashed << path, QFile::remove(path); };
    EXPECT_TRUE(DeleteToBin(book.toLower()));
    EXPECT_EQ(trashed, (QStringList{book, journal}));
    Outside().trash = [](const QString&) { return false; };
    PutFile(u"Buch.jotdb"_s);
    PutFile(u"Buch.jotdb-journal"_s);
    boxes.Expect(u"没有可用的回收站"_s, 0);
    EXPECT_FALSE(DeleteToBin(book));
    EXPECT_TRUE(QFile::exists(book));
    boxes.Expect(u"没有可用的回收站"_s);
    EXPECT_TRUE(DeleteToBin(book));
    EXPECT_FALSE(QFile::exists(book) || QFile::exists(journal));
    // A file that stays in spite of it is not told as deleted.
    const QString kept = PutFile(u"kept/Buch.jotdb"_s);
    QFile::setPermissions(Path(u"kept"_s), QFile::ReadOwner | QFile::ExeOwner);
    const WithoutRights rights;
    boxes.Expect(u"没有可用的回收站"_s);
    EXPECT_FALSE(DeleteToBin(kept));
}

TEST_F(FileActions, OnlyABooksOwnFileGoes) {
    Outside().trash = [](const QString& path) { return QFile::remove(path); };
    const QString gone = Path(u"BOOK.jotdb"_s);
    const QString other = PutFile(u"book.jotdb"_s);
    EXPECT_TRUE(DeleteToBin(BookRecord{gone.toLower(), u"book"_s, 0, {}, gone}));
    EXPECT_TRUE(QFile::exists(other));
    EXPECT_TRUE(DeleteToBin(BookRecord{gone.toLower(), u"book"_s, 0, {}, other}));
    EXPECT_FALSE(QFile::exists(other));
}

TEST_F(FileActions, TheExportFolderTakesThePagesFilesAnew) {
    State().gProgramFolder = Path(u"program"_s);
    PutFile(u"program/Skin/Html/page.css"_s, "new");
    PutFile(u"data/Export/Html/page.css"_s, "old");
    EXPECT_TRUE(PrepareExportFolder());
    EXPECT_EQ(BytesOf(Path(u"data/Export/Html/page.css"_s)), QByteArray("new"));
    PutFile(u"program/Skin/Html/z.css"_s);
    QDir().mkpath(Path(u"data/Export/Html/z.css"_s));
    boxes.Expect(u"创建临时文件夹错误!"_s);
    EXPECT_FALSE(PrepareExportFolder());
    State().gDataDir = PutFile(u"a file"_s);
    boxes.Expect(u"创建临时文件夹错误!"_s);
    EXPECT_FALSE(PrepareExportFolder());
}
