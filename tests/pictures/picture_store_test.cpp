// Pictures of an owner in the book: read, saved whole, claimed and dropped; files and folders beside them.

#include "pictures/picture_store.h"

#include "ledger/entry_delete.h"
#include "ledger/posting.h"
#include "store/notices.h"
#include "tests/support/entries.h"
#include "tests/support/fault_vfs.h"
#include "tests/support/fixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

const QString kRows =
    u"select ID1,coalesce(hex(bitPic),'-'),Note1,sFromTable,lFromId,lFromId1 from tPic where ID1>1"_s;

class PictureStore : public Fixture {
 protected:
    PictureStore() {
        OpenSample();
        QDir().mkpath(Path(u"temp"_s));
        qputenv("TEMP", Path(u"temp"_s).toLocal8Bit());
    }
    ~PictureStore() override { qunsetenv("TEMP"); }

    QStringList Stored() { return Rows(Book(), kRows); }
    OwnerPicture Picture(const QString& name, const QByteArray& bytes) {
        return NewPicture(PutFile(name, bytes));
    }
    QString CountOf(qint64 id) {
        return Rows(Book(), u"select sPic from tAccount where Id1="_s + QString::number(id)).join(u',');
    }
};

}  // namespace

TEST_F(PictureStore, PicturesOfANewEntryWaitForItsRows) {
    const OwnerRow pending{u"tAccount"_s, -1, true};
    Book().Execute(u"insert into tPic values (50,x'00','n','tNoteBook',-1,-1)"_s);
    EXPECT_EQ(SaveOwnerPictures(Book(), pending, {Picture(u"发票.1.jpg"_s, "a"), Picture(u"b.jpg"_s, "b")}),
              2);
    const QString note = u"50|00|n|tNoteBook|-1|-1"_s;
    EXPECT_EQ(Stored(), (QStringList{note, u"2|61|发票.1|tAccount|-1|-1"_s, u"3|62|b|tAccount|-1|-1"_s}));

    auto kept = LoadOwnerPictures(Book(), pending);
    ASSERT_EQ(kept.size(), 2U);
    kept[1].note = u"O'Neil"_s;
    EXPECT_EQ(SaveOwnerPictures(Book(), pending, {kept[1]}), 1);
    EXPECT_EQ(Stored(), (QStringList{note, u"4|62|O'Neil|tAccount|-1|-1"_s}));

    auto entry = SampleEntry(u"送货"_s, u"12.50"_s);
    SetShape(entry, 1);
    entry.pictures = u"1"_s;
    const auto ids = PostEntry(Book(), entry);
    EXPECT_EQ(Stored(), (QStringList{note, u"4|62|O'Neil|tAccount|%1|%2"_s.arg(ids.main).arg(ids.second)}));
    EXPECT_EQ(CountOf(ids.main) + CountOf(ids.second), u"11"_s);

    // Changed later, it hangs on the main row by both ids, and goes with the entry.
    const OwnerRow owner{u"tAccount"_s, ids.main, false};
    auto list = LoadOwnerPictures(Book(), owner);
    ASSERT_EQ(list.size(), 1U);
    list.push_back(Picture(u"c.jpg"_s, "c"));
    EXPECT_EQ(SaveOwnerPictures(Book(), owner, list), 2);
    const QString both = u"|tAccount|%1|%1"_s.arg(ids.main);
    EXPECT_EQ(Stored(), (QStringList{note, u"5|62|O'Neil"_s + both, u"6|63|c"_s + both}));
    EXPECT_EQ(CountOf(ids.main), u"2"_s);
    EXPECT_TRUE(DeleteEntry(Book(), ids.main));
    EXPECT_EQ(Stored(), QStringList{note});
}

TEST_F(PictureStore, AnEmptyListEmptiesTheOwner) {
    int told = 0;
    const auto token = Notices().entriesChanged.Subscribe([&] { ++told; });
    const OwnerRow owner{u"tAccount"_s, 7, false};
    EXPECT_EQ(LoadOwnerPictures(Book(), owner).size(), 1U);
    EXPECT_EQ(SaveOwnerPictures(Book(), owner, {}), 0);
    EXPECT_EQ(Rows(Book(), u"select count(*) from tPic"_s), QStringList{u"0"_s});
    EXPECT_EQ(CountOf(7), u"0"_s);
    EXPECT_EQ(told, 1);
}

TEST_F(PictureStore, EitherOwnerIsReadAndTheFlagAsksForTheFirstAlone) {
    Book().Execute(
        u"insert into tPic values (2,x'02','a','tAccount',3,4), (3,x'03','b','tAccount',4,9),"
        u" (4,x'04','c','tNoteBook',4,-1), (5,null,'d','tAccount',4,4)"_s);
    const auto notes = [&](bool single) {
        QString text;
        for (const auto& picture : LoadOwnerPictures(Book(), {u"tAccount"_s, 4, single}))
            text += picture.note;
        return text;
    };
    EXPECT_EQ(notes(false), u"abd"_s);
    EXPECT_EQ(notes(true), u"bd"_s);
}

TEST_F(PictureStore, StoredBytesOutliveTheirTemporaryFiles) {
    const OwnerRow owner{u"tAccount"_s, 7, false};
    const auto before = Rows(Book(), u"select hex(bitPic),Note1 from tPic"_s);
    const auto list = LoadOwnerPictures(Book(), owner);
    ASSERT_EQ(list.size(), 1U);
    EXPECT_EQ(list[0].path, Path(u"temp/KestroJotPic0.jpg"_s));
    PutFile(u"temp/KestroJotPic0.jpg"_s, "of another copy");
    RefreshTempFile(list[0]);
    EXPECT_EQ(FileToBytes(list[0].path), *list[0].held);
    EXPECT_TRUE(QFile::remove(list[0].path));
    RefreshTempFile(list[0]);
    EXPECT_FALSE(QFile::exists(list[0].path));
    SaveOwnerPictures(Book(), owner, list);
    EXPECT_EQ(Rows(Book(), u"select hex(bitPic),Note1 from tPic"_s), before);
}

TEST_F(PictureStore, WithoutTempTheFolderIsTheUsersAlone) {
    qunsetenv("TEMP");
    EXPECT_EQ(
        QFile::permissions(TempPictureFolder()) &
            (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther),
        QFile::Permissions());
    EXPECT_TRUE(QFileInfo(TempPictureFolder()).isDir());
    const QString own = TempPictureFolder();
    qputenv("TEMP", Path(u"nowhere"_s).toLocal8Bit());
    EXPECT_EQ(TempPictureFolder(), own);
}

TEST_F(PictureStore, OnlyTheLengthDecides) {
    const QString good = PutFile(u"good.jpg"_s, QByteArray(307200, 'x'));
    const QString over = PutFile(u"over.jpg"_s, QByteArray(307201, 'x'));
    EXPECT_EQ(FileToBytes(good).size(), 307200);
    EXPECT_EQ(FileToBytes(over).size(), 0);
    EXPECT_EQ(ComplaintOfAdding({}, good), QString());
    EXPECT_EQ(ComplaintOfAdding({}, over), u"图片不能大于 300 K !"_s);
    EXPECT_EQ(ComplaintOfAdding({u"x"_s, over}, over), u"已经添加，不能重复添加!"_s);
    EXPECT_FALSE(PictureFileAt(good)->over);
    EXPECT_EQ(PictureFileAt(good)->size, u"300"_s);
    EXPECT_TRUE(PictureFileAt(over)->over);
    // What has grown, gone or is no file by the time of the save leaves a row without bytes.
    QDir().mkpath(Path(u"folder.jpg"_s));
    const auto list =
        std::vector{NewPicture(over), NewPicture(Path(u"gone.jpg"_s)), NewPicture(Path(u"folder.jpg"_s))};
    EXPECT_EQ(SaveOwnerPictures(Book(), {u"tAccount"_s, 3, false}, list), 3);
    EXPECT_EQ(Rows(Book(), u"select Note1,bitPic is null from tPic where lFromId=3"_s),
              (QStringList{u"over|1"_s, u"gone|1"_s, u"folder|1"_s}));
}

TEST_F(PictureStore, AFolderListsItsJpgFiles) {
    PutFile(u"PHOTO.JPG"_s, QByteArray(1536, 'x'));
    PutFile(u"b.jpg"_s, {});
    for (const auto& name : {u"a.jpeg"_s, u"c.png"_s, u"jpg"_s})
        PutFile(name, "x");
    QDir().mkpath(Path(u"folder.jpg"_s));
    EXPECT_EQ(mkfifo(Path(u"pipe.jpg"_s).toLocal8Bit().constData(), 0600), 0);
    EXPECT_TRUE(QFile::link(Path(u"nowhere"_s), Path(u"dangling.jpg"_s)));
    EXPECT_TRUE(QFile::link(Path(u"PHOTO.JPG"_s), Path(u"link.jpg"_s)));
    QStringList lines;
    for (const auto& file : PictureFilesIn(Path({})))
        lines << file.name + u'|' + file.size;
    EXPECT_EQ(lines, (QStringList{u"PHOTO.JPG|1.50"_s, u"b.jpg|0"_s, u"link.jpg|1.50"_s}));
    for (const auto& name : {u"folder.jpg"_s, u"pipe.jpg"_s, u"dangling.jpg"_s, u"c.png"_s})
        EXPECT_FALSE(PictureFileAt(Path(name))) << qPrintable(name);
    EXPECT_TRUE(PictureFilesIn(Path(u"gone"_s)).empty());
    EXPECT_EQ(FileToBytes(Path(u"pipe.jpg"_s)), QByteArray());
}

TEST_F(PictureStore, AnyFailingWriteOrStatementLeavesTheOldPictures) {
    const auto list = std::vector{Picture(u"a.jpg"_s, QByteArray(30000, 'a')), Picture(u"b.jpg"_s, "b")};
    const OwnerRow owner{u"tAccount"_s, 7, false};
    QString path;
    QStringList before;
    std::vector<OwnerPicture> pictures;
    const auto prepare = [&] {
        path = OpenSample();
        before = DumpBook(path);
        MoveToTestDisk();
        pictures = LoadOwnerPictures(Book(), owner);
        pictures.insert(pictures.end(), list.begin(), list.end());
    };
    const auto save = [&] { return SaveOwnerPictures(Book(), owner, pictures); };
    const auto check = [&](bool done) {
        if (!done) EXPECT_EQ(DumpBook(path), before);
        if (!done) EXPECT_EQ(save(), 3);  // and nothing remembered of the failed one stands in the way
        EXPECT_EQ(Rows(Book(), u"select count(*),count(distinct ID1) from tPic"_s), QStringList{u"3|3"_s});
        EXPECT_EQ(CheckBook(path), u"ok"_s);
    };
    const FaultStory story{prepare, save, check};
    EXPECT_GT(FailEach({.failing = DiskFaults::kWrite}, story), 5);
    EXPECT_GT(FailEachStatement(story), 5);
}
