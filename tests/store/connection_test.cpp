// The connection: text functions, recordsets, failures, and what it takes to open a file.

#include "store/connection.h"

#include "store/book_images.h"
#include "store/errors.h"
#include "tests/support/fixture.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

class ConnectionTest : public Fixture {
 protected:
    QString One(const QString& expression) { return Rows(Book(), u"select "_s + expression).value(0); }

    PendingError Failure(const std::function<void()>& body) {
        PendingError error;
        EXPECT_FALSE(Succeeds(body, &error));
        return error;
    }
};

}  // namespace

TEST_F(ConnectionTest, TextFunctionsCountCharacters) {
    OpenEmpty();
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"left$('0102',2)", u"01"},
        {u"Mid$('0102',3)", u"02"},
        {u"Mid$('01',3)", u""},
        {u"Left$('记账本',2)", u"记账"},
        {u"Mid$('记账本',2)", u"账本"},
        {u"left$('a😀b',2)", u"a😀"},
        {u"mid$('a😀b',3)", u"b"},
        {u"LEFT$('ab',9)", u"ab"},
        {u"left$('ab',0)", u""},
        {u"left$('ab',-1)", u""},
        {u"Mid$('ab',1)", u"ab"},
        {u"Mid$('ab',0)", u"ab"},
        {u"left$(12345,2)", u"12"},
        {u"left$(null,2)", u"-"},
        {u"Mid$(null,2)", u"-"},
        {u"left$('',2)", u""},
        {u"left$('2016-09-03',7)", u"2016-09"},
    };
    for (const auto& [call, result] : cases)
        EXPECT_EQ(One(QString::fromUtf16(call)), QString::fromUtf16(result))
            << qPrintable(QString::fromUtf16(call));
}

TEST_F(ConnectionTest, ColumnsReadInAnyCaseAndByTheirDeclaredType) {
    OpenSample();
    Book().Execute(u"update tAccount set Mark1=1, Note1=null where Id1=5"_s);
    auto row = Book().OpenRecordset(u"select * from tAccount where Id1 in (5,7) order by Id1"_s);
    EXPECT_EQ(row.RecordCount(), 2);
    EXPECT_EQ(row.Int(u"ID1"), 5);
    EXPECT_EQ(row.Text(u"typename1"), u"农行"_s);
    EXPECT_EQ(row.Text(u"VALUE1"), u"5000"_s);
    EXPECT_EQ(row.Number(u"value1"), 5000);
    EXPECT_TRUE(row.IsNull(u"Note1"));
    EXPECT_EQ(row.Shown(u"mark1"), u"True"_s);
    EXPECT_EQ(row.Shown(u"nSign"), u"1"_s);
    EXPECT_FALSE(row.Has(u"nonesuch"));
    row.MoveNext();
    EXPECT_EQ(row.Shown(u"Mark1"), u"False"_s);
    row.MoveNext();
    EXPECT_TRUE(row.Eof());
    EXPECT_EQ(row.Text(u"Title1") + row.Shown(u"Title1"), QString());
    EXPECT_EQ(row.Int(u"Id1"), 0);
    row.MoveFirst();
    EXPECT_EQ(row.Int(u"Id1"), 5);
    EXPECT_EQ(Book().OpenRecordset(u"select bitPic from tPic"_s).Blob(u"bitpic").left(2),
              QByteArray("\xff\xd8"));
    EXPECT_EQ(Book().OpenRecordset(u"select count(*) as n from tKind"_s).Int(u"N"), 15);
}

TEST_F(ConnectionTest, AnEmptyResultTakesRowsThatCanBeSetAndUpdatedAgain) {
    OpenEmpty();
    auto rows = Book().OpenRecordset(u"select * from tAccount where 0"_s);
    EXPECT_TRUE(rows.Eof());
    rows.AddRow();
    rows.Set(u"id1", 1);
    rows.Set(u"ID1", 2);
    rows.Set(u"title1", u"O'Neil \"x\" -- ; 😀"_s);
    rows.Set(u"Value1", u"12.50"_s);
    rows.Update();
    rows.Set(u"iid", 9);
    rows.Update();
    rows.AddRow();
    rows.Set(u"Id1", 3);
    rows.Update();
    EXPECT_EQ(rows.RecordCount(), 2);
    EXPECT_EQ(Rows(Book(),
                   u"select Id1,IIID,IIID1,Title1,Value1,Mark1,Note1,Date2,nSign,IID,bIsMain,sMe,sPic"
                   u" from tAccount"_s),
              (QStringList{u"2|-1|-1|O'Neil \"x\" -- ; 😀|12.5|0|-||1|9|0|记账|0"_s,
                           u"3|-1|-1|-|-|0|-||1|-1|0|记账|0"_s}));

    auto one = Book().OpenRecordset(u"select Title1,Id1 from tAccount where Id1=3"_s);
    one.Set(u"TITLE1", u"改"_s);
    one.Update();
    EXPECT_EQ(Rows(Book(), u"select Title1 from tAccount order by Id1"_s).last(), u"改"_s);
    EXPECT_NE(Failure([&] { one.Set(u"nonesuch", 1); }).number, 0);
    auto none = Book().OpenRecordset(u"select * from tAccount where Id1=99"_s);
    EXPECT_NE(Failure([&] {
                  none.Set(u"Id1", 1);
                  none.Update();
              }).number,
              0);
}

TEST_F(ConnectionTest, AFailingStatementTellsItselfAndKeepsWhatCameBefore) {
    OpenEmpty();
    const auto error = Failure([&] {
        Book().Execute(u"delete from tSet where Key1='year'; update tNone set a=1; delete from tSet"_s);
    });
    EXPECT_EQ(error.statement.trimmed(), u"update tNone set a=1; delete from tSet"_s);
    EXPECT_EQ(error.description, u"no such table: tNone"_s);
    EXPECT_EQ(error.source, u"book.jotdb"_s);
    EXPECT_EQ(error.number, 1);
    EXPECT_EQ(Rows(Book(), u"select count(*) from tSet"_s), QStringList{u"5"_s});
    Book().Execute(
        u";; -- nothing\n; insert into tSet values ('a''b;', 'c');\n\n update tSet set Note1='d;e' where Key1="_s +
        Quote(u"a'b;"_s) + u" ;"_s);
    EXPECT_EQ(Rows(Book(), u"select Note1 from tSet where Key1="_s + Quote(u"a'b;"_s)),
              QStringList{u"d;e"_s});
    EXPECT_EQ(Quote(u"a\u0000'b"_s), u"'a''b'"_s);
    EXPECT_NE(Failure([&] { Book().OpenRecordset(u"select * frm tSet"_s); }).number, 0);
    EXPECT_NE(Failure([] { cConnection().Execute(u"select 1"_s); }).number, 0);
    EXPECT_NE(Failure([] { SqlNumber(1e308 * 10); }).number, 0);
}

TEST_F(ConnectionTest, ATransactionThatIsNotCommittedLeavesNothing) {
    OpenEmpty();
    {
        Transaction action(Book());
        Book().Execute(u"delete from tSet"_s);
        Book().Execute(u"rollback"_s);  // as SQLite does by itself on a full disk
    }
    {
        Transaction action(Book());
        Book().Execute(u"delete from tSet"_s);
    }
    EXPECT_EQ(Rows(Book(), u"select count(*) from tSet"_s), QStringList{u"6"_s});
    EXPECT_FALSE(Book().InTransaction());
}

TEST_F(ConnectionTest, OnlyAWholeBookIsOpenedAndNoFileIsMade) {
    const QByteArray image = SampleBookImage();
    PutFile(u"text.jotdb"_s, "this is no data base, whatever its name may say of it");
    PutFile(u"cut.jotdb"_s, image.left(image.size() / 2));
    PutFile(u"Twin.jotdb"_s, image);
    PutFile(u"tWin.jotdb"_s, image);
    QDir().mkpath(Path(u"folder.jotdb"_s));
    struct Case {
        QString path;
        int number;  ///< primary result code
    };
    const Case cases[] = {{Path(u"missing.jotdb"_s), 14},
                          {QString(), 14},
                          {u":memory:"_s, 14},
                          {Path(u"folder.jotdb"_s), 14},
                          {Path(u"text.jotdb"_s), 26},
                          {Path(u"cut.jotdb"_s), 11},
                          {Path(u"twin.jotdb"_s), 255}};
    const auto before = QDir(Path({})).entryList(QDir::Files, QDir::Name);
    for (const auto& c : cases) {
        cConnection book;
        EXPECT_EQ(Failure([&] { book.Open(c.path); }).number & 0xff, c.number) << qPrintable(c.path);
        EXPECT_FALSE(book.IsOpen()) << qPrintable(c.path);
    }
    EXPECT_EQ(QDir(Path({})).entryList(QDir::Files, QDir::Name), before);
    cConnection exact;
    exact.Open(Path(u"tWin.jotdb"_s));
    EXPECT_EQ(BytesOf(Path(u"Twin.jotdb"_s)), image);
}

TEST_F(ConnectionTest, ALowerCasePathOpensTheFileUnderItsOwnSpelling) {
    const QString lower = PutFile(u"Box/记账/MyBook.JotDB"_s, SampleBookImage()).toLower();
    cConnection book;
    book.Open(lower);
    EXPECT_EQ(book.Path(), lower);
    EXPECT_EQ(Rows(book, u"select count(*) from tAccount"_s), QStringList{u"5"_s});
    EXPECT_EQ(QDir(Path(u"Box/记账"_s)).entryList(QDir::Files), QStringList{u"MyBook.JotDB"_s});
}

TEST_F(ConnectionTest, AnothersLockIsWaitedForAndThenRefused) {
    const QString path = OpenSample();
    cConnection other;
    other.Open(path);
    other.Begin();
    Book().Close();
    Book().Open(path, {.readOnly = false, .waitMs = 60});
    EXPECT_EQ(Rows(Book(), u"select count(*) from tAccount"_s), QStringList{u"5"_s});
    QElapsedTimer clock;
    clock.start();
    const auto refused = Failure([&] { Book().Begin(); });
    EXPECT_GE(clock.elapsed(), 40);
    EXPECT_EQ(FaultOf(refused.number), DbFault::busy);
    EXPECT_EQ(refused.statement, u"begin immediate"_s);
    EXPECT_TRUE(ErrorText(refused, {}).endsWith(u"账本正被别的程序使用"_s));
    other.Rollback();
    other.Execute(u"begin exclusive"_s);
    cConnection late;
    EXPECT_EQ(FaultOf(Failure([&] { late.Open(path, {.readOnly = false, .waitMs = 0}); }).number),
              DbFault::busy);
    other.Rollback();
    Book().Begin();
    Book().Rollback();
}

TEST_F(ConnectionTest, AReadOnlyBookIsReadAndRefusesWrites) {
    const QString path = OpenSample();
    Book().Close();
    Book().Open(path, {.readOnly = true, .waitMs = 0});
    EXPECT_EQ(Rows(Book(), u"select count(*) from tAccount"_s), QStringList{u"5"_s});
    const auto refused = Failure([&] { Book().Execute(u"delete from tSet"_s); });
    EXPECT_EQ(FaultOf(refused.number), DbFault::readOnly);
    EXPECT_TRUE(ErrorText(refused, {}).endsWith(u"账本文件是只读的"_s));
}

TEST_F(ConnectionTest, ABookThatWasMovedAwaySaysSo) {
    const QString path = OpenSample();
    ASSERT_TRUE(QFile::rename(path, Path(u"elsewhere.jotdb"_s)));
    const auto refused = Failure([&] { Book().Execute(u"delete from tSet"_s); });
    EXPECT_EQ(FaultOf(refused.number), DbFault::moved);
    EXPECT_TRUE(ErrorText(refused, {}).endsWith(u"账本文件已被移动或删除"_s));
    EXPECT_EQ(BytesOf(Path(u"elsewhere.jotdb"_s)), SampleBookImage());
}

TEST_F(ConnectionTest, RowsAreFoundByIdWhateverTheIdsAreLike) {
    const QString path = OpenEmpty();
    const auto fill = [&](const QString& ids) {
        Book().Execute(u"delete from tSubAccItem"_s);
        for (const auto& id : ids.split(u' '))
            Book().Execute(u"insert into tSubAccItem (Id1) values ( "_s + id + u')');
    };
    const auto expectAll = [&](const QString& ids) {
        for (const auto& id : ids.split(u' ')) {
            const auto told = Rows(Book(), u"select rowid from tSubAccItem where Id1="_s + id);
            const auto row = Book().RowOf(u"tSubAccItem"_s, id.toInt());
            ASSERT_TRUE(row.has_value()) << qPrintable(id);
            EXPECT_EQ(QString::number(*row), told.value(0)) << qPrintable(id);
        }
        for (const qint64 missing : {-1, 0, 6, 10000})
            EXPECT_FALSE(Book().RowOf(u"tsubaccitem"_s, missing).has_value()) << missing;
    };
    EXPECT_FALSE(Book().RowOf(u"tSubAccItem"_s, 1).has_value());
    fill(u"1 2 3 4 5 7 11 12 500 9999"_s);
    Book().Execute(u"delete from tSubAccItem where Id1 in (2,11)"_s);
    expectAll(u"1 3 4 5 7 12 500 9999"_s);

    // Another program writes ids that fall: the proof of the order no longer holds.
    cConnection other;
    other.Open(path);
    other.Execute(u"insert into tSubAccItem (Id1) values (40), (2), (41)"_s);
    expectAll(u"1 3 4 5 7 12 500 9999 40 2 41"_s);
    EXPECT_EQ(Book().WhereIds(u"tSubAccItem"_s, {1, -1, 6}), u"rowid in (1)"_s);
    EXPECT_EQ(Book().WhereIds(u"tSubAccItem"_s, {-1, 6}), u"rowid in ()"_s);
}

TEST_F(ConnectionTest, OwnRowsWithFallingIdsAreFoundToo) {
    OpenEmpty();
    const auto add = [&](int id) {
        Transaction action(Book());
        auto rows = Book().OpenRecordset(u"select * from tSubAccItem where 0"_s);
        rows.AddRow();
        rows.Set(u"Id1", id);
        rows.Update();
        EXPECT_TRUE(Book().RowOf(u"tSubAccItem"_s, id).has_value());
        action.Commit();
    };
    for (const int id : {10, 20, 30})
        add(id);
    EXPECT_TRUE(Book().RowOf(u"tSubAccItem"_s, 20).has_value());
    for (const int id : {5, 15, 25})  // tNum of a damaged book may hand out old ids
        add(id);
    for (const int id : {5, 10, 15, 20, 25, 30})
        EXPECT_TRUE(Book().RowOf(u"tSubAccItem"_s, id).has_value()) << id;
}

TEST_F(ConnectionTest, CompactingKeepsRowsFindable) {
    OpenSample();
    Book().Execute(u"delete from tAccount where Id1<6"_s);
    EXPECT_TRUE(Book().RowOf(u"tAccount"_s, 7).has_value());
    Book().Compact();
    ASSERT_TRUE(Book().RowOf(u"tAccount"_s, 7).has_value());
    EXPECT_EQ(Rows(Book(), u"select Id1 from tAccount where "_s + Book().WhereIds(u"tAccount"_s, {7, 3})),
              QStringList{u"7"_s});
}
