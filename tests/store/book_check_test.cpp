// Whether a book may be opened: files that differ by case, links, locked, vanished and foreign files.

#include "store/book_check.h"

#include "store/book_format.h"
#include "store/book_images.h"
#include "store/errors.h"
#include "store/session.h"
#include "tests/support/fixture.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

// In a folder whose path is in lower case: there a wrong spelling would be found exactly.
class BookCheckTest : public Fixture {
 protected:
    BookCheckTest() { QDir().mkpath(lower_); }
    ~BookCheckTest() override { QDir(lower_).removeRecursively(); }

    QString Path(const QString& name) const { return lower_ + u'/' + name; }
    QString Put(const QString& name, const QString& change = u"select 1"_s) {
        const QString path = Path(name);
        QDir().mkpath(ParentPath(path));
        EXPECT_TRUE(WriteBookFile(path, EmptyBookImage(), false));
        cConnection book;
        book.Open(path, {.exact = true});
        book.Execute(change);
        return path;
    }
    void Scan(const QString& folder) {
        State().gBooks.assign(1, {});
        ScanFolder(Path(folder));
        ReadBookInfo();
    }
    int IndexOfFile(const QString& name) {
        for (size_t i = 0; i < State().gBooks.size(); ++i)
            if (State().gBooks[i].File == Path(name)) return static_cast<int>(i);
        return -1;
    }

 private:
    const QString lower_ =
        QDir::tempPath() + u"/kestro-check-"_s + QString::number(QCoreApplication::applicationPid());
};

const QString kRivals = u"有只差大小写的同名文件，无法打开：\n"_s;

}  // namespace

TEST_F(BookCheckTest, TheChosenBookIsTheOneThatOpensOrNone) {
    const QString other = u"update tSet set Note1='1999' where Key1='year'"_s;
    Put(u"box/a.jotdb"_s, other);
    Put(u"box/A.jotdb"_s);
    Put(u"Books/x.jotdb"_s);
    Put(u"books/x.jotdb"_s, other);
    Put(u"Books/own.jotdb"_s);

    Scan(u"box"_s);
    const int small = IndexOfFile(u"box/a.jotdb"_s);
    const int big = IndexOfFile(u"box/A.jotdb"_s);
    ASSERT_TRUE(small >= 0 && big >= 0);
    EXPECT_EQ(State().gBooks[static_cast<size_t>(big)].Version, QString());
    EXPECT_EQ(FindBook(Path(u"box/a.jotdb"_s)), small);
    State().gCurBook = -1;
    boxes.Expect(kRivals + Path(u"box/A.jotdb"_s) + u'\n' + Path(u"box/a.jotdb"_s));
    EXPECT_FALSE(CheckBook(big));
    EXPECT_TRUE(CheckBook(small));
    boxes.Expect(kRivals);
    EXPECT_EQ(TakeBookFile(Path(u"box/A.jotdb"_s)).door, BookDoor::refused);
    EXPECT_EQ(TakeBookFile(Path(u"box/a.jotdb"_s)).index, small);

    Scan(u"Books"_s);  // the other folder is the one that lower case leads to
    boxes.Expect(kRivals);
    EXPECT_FALSE(CheckBook(IndexOfFile(u"Books/x.jotdb"_s)));
    EXPECT_TRUE(CheckBook(IndexOfFile(u"Books/own.jotdb"_s)));

    State().gCurBook = IndexOfFile(u"Books/own.jotdb"_s);
    ReopenDB();
    QFile::rename(Path(u"Books/own.jotdb"_s), Path(u"Books/Own.jotdb"_s));
    boxes.Expect(u"意外错误，错误信息："_s);
    EXPECT_FALSE(CheckBook(-1));
    EXPECT_TRUE(boxes.Last().text.endsWith(u"账本文件已被移动或删除"_s));
}

TEST_F(BookCheckTest, ABookReachedByALinkIsTheSameBook) {
    Put(u"Box/Mine.jotdb"_s);
    QFile::link(Path(u"Box"_s), Path(u"Linked"_s));
    Scan(u"Box"_s);
    State().gCurBook = 0;
    State().gDB.Open(Path(u"Box/Mine.jotdb"_s));
    EXPECT_EQ(TakeBookFile(Path(u"Linked/Mine.jotdb"_s)).door, BookDoor::isOpen);
    State().gCurBook = -1;
    EXPECT_EQ(TakeBookFile(Path(u"Linked/mine.jotdb"_s)).door, BookDoor::known);
    EXPECT_EQ(State().gBooks.size(), 1U);
}

TEST_F(BookCheckTest, WhatKeepsABookShutIsTold) {
    Put(u"box/a.jotdb"_s);
    Put(u"b.jotdb"_s);
    Scan(u"box"_s);
    State().gCurBook = -1;
    cConnection other;
    const auto lock = [&](const QString& name) {
        other.Open(Path(name));
        other.Execute(u"begin exclusive"_s);
    };
    lock(u"box/a.jotdb"_s);
    boxes.Expect(u"意外错误"_s);
    EXPECT_FALSE(CheckBook(0));
    EXPECT_TRUE(boxes.Last().text.endsWith(u"账本正被别的程序使用"_s));
    lock(u"b.jotdb"_s);
    const QString text =
        u"打开账本文件【"_s + Path(u"b.jotdb"_s).toLower() + u"】错误！\n账本正被别的程序使用"_s;
    boxes.Expect(text);
    EXPECT_EQ(TakeBookFile(Path(u"b.jotdb"_s)).door, BookDoor::refused);
    other.Close();
    EXPECT_TRUE(CheckBook(0));
    QFile::remove(Path(u"box/a.jotdb"_s));
    boxes.Expect(u"意外错误"_s);
    EXPECT_FALSE(CheckBook(0));
    EXPECT_TRUE(boxes.Last().text.endsWith(u"账本文件已被移动或删除"_s));

    const auto version = u"程序要求账本版本是：【10.0】\n当前账本版本是：【"_s;
    Put(u"box/a.jotdb"_s, u"update tSet set Note1='11' where Key1='dbversion'"_s);
    boxes.Expect(version + u"11】"_s);
    EXPECT_FALSE(CheckBook(0));
    QFile::remove(Path(u"box/a.jotdb"_s));
    ASSERT_TRUE(WriteBookFile(Path(u"box/a.jotdb"_s), QByteArray(4096, 'x'), false));
    boxes.Expect(version + u'】');
    EXPECT_FALSE(CheckBook(0));

    QFile::rename(Put(u"Other.ini"_s), Path(u"Set.ini"_s));
    cConnection settings;
    settings.Open(Path(u"Set.ini"_s));
    settings.Execute(u"begin exclusive"_s);
    PendingError failed;
    EXPECT_FALSE(Succeeds([this] { cConnection().Open(Path(u"Set.ini"_s), {.waitMs = 0}); }, &failed));
    EXPECT_EQ(LikelyReason(failed), u"设置文件正被别的程序使用"_s);
}

TEST_F(BookCheckTest, AFilesOwnViewsAndTriggersStandStill) {
    Put(u"view.jotdb"_s,
        u"drop table tSet; create view tSet as with recursive n(i) as (select 1 union all select i+1 from n)"
        u" select i as Key1, i as Note1 from n"_s);
    Put(u"trigger.jotdb"_s,
        u"create trigger t after insert on tAccount begin delete from tAccount; end;"
        u"create trigger n after update on tNum begin delete from tKind; end"_s);
    cConnection book;
    book.Open(Path(u"view.jotdb"_s));
    EXPECT_FALSE(Succeeds([&] { BookKey(book, u"year"_s); }));
    book.Open(Path(u"trigger.jotdb"_s));
    const auto kinds = Rows(book, u"select count(*) from tKind"_s);
    book.Execute(u"insert into tAccount (Id1) values ("_s + QString::number(NewId(book, u"taccount"_s)) +
                 u')');
    EXPECT_EQ(Rows(book, u"select count(*) from tAccount"_s), QStringList{u"1"_s});
    EXPECT_EQ(Rows(book, u"select count(*) from tKind"_s), kinds);
    EXPECT_EQ(Rows(book, u"pragma synchronous"_s), QStringList{u"3"_s});
}

TEST_F(BookCheckTest, ExtremeIdsAndRowNumbersAreFoundOrRefused) {
    constexpr auto kMax = std::numeric_limits<qint64>::max();
    constexpr auto kMin = std::numeric_limits<qint64>::min();
    OpenEmpty();
    auto& book = State().gDB;
    book.Execute(u"update tNum set Max1=9223372036854775807 where Table1='taccount'"_s);
    EXPECT_FALSE(Succeeds([&] { NewId(book, u"taccount"_s); }));
    book.Execute(
        u"insert into tAccount (rowid, Id1) values (-9223372036854775808, 0), (-5, 7),"
        u" (9223372036854775806, 9), (9223372036854775807, 9223372036854775807)"_s);
    const std::pair<qint64, std::optional<qint64>> cases[] = {
        {0, kMin}, {9, kMax - 1}, {kMax, kMax}, {7, -5}, {1, {}}, {8, {}}, {10, {}}, {kMax - 1, {}}};
    for (const auto& [id, row] : cases)
        EXPECT_EQ(book.RowOf(u"tAccount"_s, id), row) << id;
}
