// A standing book: its facts, its change, compressing, deletion.

#include "books/book_change.h"

#include "books/book_delete.h"
#include "store/book_format.h"
#include "store/errors.h"
#include "store/notices.h"
#include "store/outside.h"
#include "store/picture_index.h"
#include "tests/books/books_fixture.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class BookChange : public BooksFixture {
 protected:
    BookChange() {
        PutBook(u"one"_s);
        PutBook(u"two"_s);
        OpenBook(u"one"_s);
    }
    QString KeyOf(const QString& path, const QString& key) {
        cConnection book;
        book.Open(path);
        return BookKey(book, key).value_or(u"-"_s);
    }
    /// A trash that keeps what it gets.
    void GiveTrash() {
        Outside().trash = [this](const QString& file) {
            trashed_ << QFileInfo(file).fileName();
            return QFile::remove(file);
        };
    }
    QStringList trashed_;
};

}  // namespace

TEST_F(BookChange, TheVeryFileIsChangedAfterItsOldPassword) {
    const QString outside = Path(u"two.jotdb"_s);
    ASSERT_TRUE(QFile::copy(BookPath(u"two"_s), outside));
    AddOutsideBook(outside);
    const auto facts = ReadBookFacts(BookAt(outside));
    EXPECT_EQ(facts.name + u'|' + facts.year + u'|' + facts.version, u"two|2016|10.0"_s);
    auto form = Form(u"ignored.name"_s, u"2003"_s);
    form.note = u"it's"_s;
    form.pass = form.passAgain = u"secret"_s;
    const QByteArray before = BytesOf(BookPath(u"two"_s));
    Type(u"wrong"_s);
    boxes.Expect(u"口令不正确!"_s);
    EXPECT_FALSE(SaveBookChange(outside, form).done);
    Type(QString());
    boxes.Expect(u"口令不正确!"_s);
    EXPECT_FALSE(SaveBookChange(outside, form).done);
    EXPECT_EQ(KeyOf(outside, u"year"_s), u"2016"_s);
    int told = 0;
    const auto heard = Notices().booksChanged.Subscribe([&] { ++told; });
    Type(u""_s);
    boxes.Expect(u"修改成功!"_s);
    EXPECT_TRUE(SaveBookChange(outside, form).done);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(KeyOf(outside, u"year"_s) + KeyOf(outside, u"booknote"_s) + KeyOf(outside, u"pass"_s),
              u"2003it'ssecret"_s);
    EXPECT_EQ(BytesOf(BookPath(u"two"_s)), before);
    EXPECT_EQ(State().gBooks.back().Year, 2003);
    State().gBooks.pop_back();
    Type(u"secret"_s);
    boxes.Expect(u"意外错误!"_s);
    EXPECT_FALSE(SaveBookChange(outside, form).done);
}

TEST_F(BookChange, AChangeThatFailsAtAnyStatementLeavesFileAndRecord) {
    auto form = Form(u"two"_s, u"1999"_s);
    form.pass = form.passAgain = u"x"_s;
    const auto before = DumpBook(BookPath(u"two"_s));
    boxes.AnswerAll(1);
    const auto change = [&] { SaveBookChange(BookPath(u"two"_s), form); };
    const auto check = [&](bool done) {
        if (done) return;
        EXPECT_EQ(DumpBook(BookPath(u"two"_s)), before);
        EXPECT_EQ(State().gBooks[static_cast<size_t>(FindBook(BookPath(u"two"_s)))].Year, 2016);
    };
    EXPECT_GT(FailEachStatement({[] {}, change, check}), 4);
}

TEST_F(BookChange, CompressingKeepsRowsAndTheOpenBookFindsThem) {
    auto& book = State().gDB;
    book.Execute(
        u"begin;"
        u"with n(i) as (select 100 union all select i+1 from n where i<4000) insert into tAccount"
        u" (Id1,Title1,Type1,Value1,nSign,bIsMain,Date1) select i,'t'||i,'0201',1,1,1,'2016-05-05' from n;"
        u"delete from tAccount where Id1 between 200 and 3800; commit"_s);
    book.Execute(
        u"with n(i) as (select 2 union all select i+1 from n where i<40) insert into tPic"
        u" (ID1,bitPic,Note1,sFromTable,lFromId,lFromId1) select i,'b'||i,'n'||i,'tAccount',i,-1 from n;"
        u"delete from tPic where ID1 between 5 and 35"_s);
    const auto picture = [&] {
        return Rows(book, u"select Note1 from tPic"_s + WherePicturesOf(book, u"tAccount"_s, 38, true));
    };
    EXPECT_EQ(picture(), QStringList{u"n38"_s});
    const auto rows = Rows(book, u"select * from tAccount"_s);
    EXPECT_TRUE(book.RowOf(u"tAccount"_s, 3900));
    const auto before = BookFileSize(CurrentBook());
    {
        Job job;
        EXPECT_EQ(CompressBook(CurrentBook(), job), Compression::done);
        boxes.Expect(u"有进程在运行，请等待结束后再试..."_s);
        EXPECT_TRUE(Job().Refused());
    }
    const auto after = BookFileSize(CurrentBook());
    EXPECT_LT(after, before / 2);
    EXPECT_EQ(CompressedText(130560, 4608), u"压缩前: 128 KB\r\n压缩后: 5 KB"_s);
    EXPECT_EQ(Rows(book, u"select * from tAccount"_s), rows);
    EXPECT_EQ(picture(), QStringList{u"n38"_s});
    EXPECT_EQ(Rows(book, u"pragma page_size"_s), QStringList{u"1024"_s});
    const auto row = book.RowOf(u"tAccount"_s, 3900);
    ASSERT_TRUE(row);
    EXPECT_EQ(Rows(book, u"select Id1 from tAccount where rowid="_s + QString::number(*row)),
              QStringList{u"3900"_s});
}

TEST_F(BookChange, CompressingThatIsStoppedOrFailsLeavesTheFile) {
    const QString path = BookPath(u"two"_s);
    const auto before = DumpBook(path);
    const auto two = BookAt(path);
    {
        Job job;
        State().gStop = true;
        cConnection large;
        large.Open(path);
        large.Execute(
            u"create table big(x); with n(i) as (select 1 union all select i+1 from n where i<20000)"
            u" insert into big select randomblob(50) from n"_s);
        large.Close();
        EXPECT_EQ(CompressBook(two, job), Compression::stopped);
        large.Open(path);
        large.Execute(u"drop table big"_s);
    }
    EXPECT_EQ(DumpBook(path), before);
    boxes.AnswerAll(1);
    const auto compress = [&] {
        Job job;
        const auto end = CompressBook(two, job);
        if (end == Compression::done) return;
        EXPECT_EQ(end, Compression::failed);
        FailStatement(u"没有压缩"_s, {});
    };
    const auto check = [&](bool) {
        EXPECT_EQ(CheckBook(path), u"ok"_s);
        EXPECT_EQ(DumpBook(path), before);
    };
    EXPECT_GT(FailEach({.failing = DiskFaults::kWrite, .full = true}, {[] {}, compress, check}), 1);
}

TEST_F(BookChange, ADeletionIsRefusedInItsOrder) {
    boxes.Expect(u"没有【选定】要删除的账本!"_s);
    EXPECT_FALSE(DeleteSelectedBook(-1));
    const int one = FindBook(BookPath(u"one"_s)), two = FindBook(BookPath(u"two"_s));
    boxes.Expect(u"你确定要删除【选定的账本】?"_s, 0);
    EXPECT_FALSE(DeleteSelectedBook(two));
    boxes.Expect(u"你确定要删除【选定的账本】?"_s);
    boxes.Expect(u"该账本是当前【正在使用】的账本不可删除!"_s);
    EXPECT_FALSE(DeleteSelectedBook(one));
    EXPECT_EQ(Asked(), QStringList());
    Type(u"wrong"_s);
    boxes.Expect(u"你确定要删除【选定的账本】?"_s);
    boxes.Expect(u"口令错误,不能完成操作!"_s);
    EXPECT_FALSE(DeleteSelectedBook(two));
    EXPECT_EQ(Asked(), QStringList{u"请输入选定的账本口令："_s});
    EXPECT_EQ(Names().size(), 2);
}

TEST_F(BookChange, ADeletedBookTakesItsLeftoversAndTheOpenOneKeepsItsPlace) {
    PutBook(u"aaa"_s);
    std::ranges::sort(State().gBooks, {}, &BookRecord::Name);
    OpenBook(u"two"_s);
    GiveTrash();
    for (const auto& beside : {u"-journal"_s, u"-wal"_s})
        PutFile(u"box/aaa.jotdb"_s + beside, {});
    State().gCmdBook = State().gCurBook;
    boxes.Expect(u"你确定要删除"_s);
    boxes.Expect(u"成功删除【"_s + BookPath(u"aaa"_s).toLower() + u"】!"_s);
    EXPECT_TRUE(DeleteSelectedBook(FindBook(BookPath(u"aaa"_s))));
    EXPECT_EQ(trashed_.size(), 3);
    EXPECT_EQ(CurrentBook().Name, u"two"_s);
    EXPECT_EQ(State().gBooks[static_cast<size_t>(State().gCmdBook)].Name, u"two"_s);
    EXPECT_EQ(QDir(Box()).entryList(QDir::Files).filter(u"aaa"_s), QStringList());
}

TEST_F(BookChange, TheOpenBookIsNotDeletedByAnotherNameOfIt) {
    ASSERT_TRUE(QFile::link(BookPath(u"one"_s), BookPath(u"alias"_s)));
    KnowBooks();
    for (size_t i = 0; i < State().gBooks.size(); ++i) {
        if (State().gBooks[i].Name == u"two") continue;
        boxes.Expect(u"你确定要删除"_s);
        boxes.Expect(u"该账本是当前【正在使用】的账本不可删除!"_s);
        EXPECT_FALSE(DeleteSelectedBook(static_cast<int>(i)));
    }
}

TEST_F(BookChange, ATrashThatFailsOrPretendsAsksOrSaysSo) {
    const int one = FindBook(BookPath(u"one"_s));
    OpenBook(u"two"_s);
    Outside().trash = [](const QString&) { return false; };
    boxes.Expect(u"你确定要删除"_s);
    boxes.Expect(u"没有可用的回收站"_s, 0);
    boxes.Expect(u"账本文件没有被删除"_s);
    EXPECT_FALSE(DeleteSelectedBook(one));
    Outside().trash = [](const QString&) { return true; };
    boxes.Expect(u"你确定要删除"_s);
    boxes.Expect(u"账本文件没有被删除"_s);
    EXPECT_FALSE(DeleteSelectedBook(one));
    EXPECT_EQ(Names().size(), 2);
    EXPECT_TRUE(QFile::exists(BookPath(u"one"_s)));
    // A file that somebody has taken away needs no password.
    ASSERT_TRUE(QFile::remove(BookPath(u"one"_s)));
    boxes.Expect(u"你确定要删除"_s);
    boxes.Expect(u"成功删除"_s);
    EXPECT_TRUE(DeleteSelectedBook(one));
    EXPECT_EQ(Names(), QStringList{u"two"_s});
}
