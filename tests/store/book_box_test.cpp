// The list of known books: the box, the book of the command line, and what is no book at all.

#include "store/book_box.h"

#include "store/book_check.h"
#include "store/book_format.h"
#include "store/book_images.h"
#include "store/errors.h"
#include "store/session.h"
#include "tests/support/fixture.h"

#include <QDir>
#include <QElapsedTimer>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

class BookBoxTest : public Fixture {
 protected:
    BookBoxTest() { QDir().mkpath(Path(u"Box"_s)); }

    // "name year version" of every record, the box's books in order of their names.
    QStringList Books() {
        QStringList lines;
        for (const auto& book : State().gBooks) {
            EXPECT_EQ(book.Path, book.Path.toLower());
            lines << u"%1 %2 %3"_s.arg(book.Name).arg(book.Year).arg(book.Version).trimmed();
        }
        std::sort(lines.begin(), lines.end());
        return lines;
    }
    void Scan(const QString& commandLine = {}) {
        State().gBooks.assign(1, {});
        State().gCmdBook = -1;
        State().gCurBook = 0;
        State().gCommandLine = commandLine;
        ScanBookBox(Path(u"Box"_s));
        ReadBookInfo();
        ChooseBook();
    }
};

}  // namespace

TEST_F(BookBoxTest, OnlyBooksAreListedAndDamagedOnesStopNothing) {
    PutFile(u"Box/Mine.JotDB"_s, SampleBookImage());
    PutFile(u"Box/.hidden.jotdb"_s, EmptyBookImage());
    PutFile(u"Box/cut.jotdb"_s, SampleBookImage().left(5000));
    PutFile(u"Box/foreign.jotdb"_s, "not a book");
    PutFile(u"Box/empty.jotdb"_s, {});
    PutFile(u"Box/book.jotdb.bak"_s, SampleBookImage());
    PutFile(u"Box/jotdb"_s, SampleBookImage());
    QDir().mkpath(Path(u"Box/folder.jotdb"_s));
    Scan();
    EXPECT_EQ(Books(), (QStringList{u".hidden 2016 10.0"_s, u"cut 0"_s, u"empty 0"_s, u"foreign 0"_s,
                                    u"mine 2016 10.0"_s}));
    EXPECT_EQ(FindBook(Path(u"Box/Mine.JotDB"_s).toLower()) >= 0, true);
    EXPECT_EQ(FindBook(Path(u"Box/Mine.JotDB"_s)), FindBook(Path(u"box/mine.jotdb"_s)));
    EXPECT_EQ(FindBook(Path(u"Box/none.jotdb"_s)), -1);
}

TEST_F(BookBoxTest, ALockedBookDoesNotDelayTheStart) {
    PutFile(u"Box/a.jotdb"_s, SampleBookImage());
    cConnection other;
    other.Open(Path(u"Box/a.jotdb"_s));
    other.Execute(u"begin exclusive"_s);
    Scan();
    EXPECT_EQ(Books(), QStringList{u"a 0"_s});
}

// Listing the folder anew for each book took two and a half seconds here.
TEST_F(BookBoxTest, ABoxOfVeryManyBooksIsListedOnceAndRivalsStayShut) {
    for (int i = 0; i < 1000; ++i)
        PutFile(u"Box/Filler%1.jotdb"_s.arg(i), {});
    for (const auto& name : {u"Box/Twin.jotdb"_s, u"Box/twin.jotdb"_s, u"Box/Mine.jotdb"_s})
        PutFile(name, EmptyBookImage());
    QElapsedTimer watch;
    watch.start();
    Scan();
    EXPECT_LT(watch.elapsed(), 1000);
    EXPECT_EQ(Books().filter(QRegularExpression(u"^(mine|twin)"_s)),
              (QStringList{u"mine 2016 10.0"_s, u"twin 0"_s, u"twin 0"_s}));
    // What comes later is seen again.
    const auto mine = State().gBooks.at(static_cast<size_t>(FindBook(Path(u"Box/Mine.jotdb"_s))));
    EXPECT_TRUE(FileOf(mine).exists);
    PutFile(u"Box/MINE.jotdb"_s, EmptyBookImage());
    EXPECT_EQ(FileOf(mine).rivals.size(), 2);
}

TEST_F(BookBoxTest, TheBookOfTheCommandLineIsChosen) {
    PutFile(u"Box/a.jotdb"_s, SampleBookImage());
    PutFile(u"Box/b.jotdb"_s, SampleBookImage());
    PutFile(u"Out.jotdb"_s, SampleBookImage());
    PutFile(u"readme.txt"_s, "words");
    State().settings.sPreOpenDBFile = Path(u"Box/b.jotdb"_s).toLower();
    struct Case {
        QString commandLine;  ///< in the temporary folder, empty for none
        size_t books;
        QString chosen;
        bool named;
    };
    const Case cases[] = {
        {{}, 2, u"b"_s, false},
        {u"Box/a.jotdb"_s, 2, u"a"_s, true},
        {u"Box/A.JOTDB"_s, 2, u"a"_s, true},
        {u"Out.jotdb"_s, 3, u"->out"_s, true},
        {u"readme.txt"_s, 3, u"->read"_s, true},  // whatever it is, its last six characters go
        {u"gone.jotdb"_s, 2, u"b"_s, false},
    };
    for (const auto& c : cases) {
        Scan(c.commandLine.isEmpty() ? QString() : Path(c.commandLine));
        EXPECT_EQ(State().gBooks.size(), c.books) << qPrintable(c.commandLine);
        EXPECT_EQ(CurrentBook().Name, c.chosen) << qPrintable(c.commandLine);
        EXPECT_EQ(State().gCmdBook != -1, c.named) << qPrintable(c.commandLine);
    }
    State().settings.sPreOpenDBFile = u"/nowhere.jotdb"_s;
    Scan();
    EXPECT_EQ(State().gCurBook, 0);
}

TEST_F(BookBoxTest, AnEmptyBoxKeepsOneEmptyRecord) {
    PutFile(u"Out.jotdb"_s, EmptyBookImage());
    Scan();
    EXPECT_EQ(Books(), QStringList{u"0"_s});
    Scan(Path(u"Out.jotdb"_s));
    ASSERT_EQ(State().gBooks.size(), 2U);
    EXPECT_EQ(State().gCmdBook, 1);
    EXPECT_EQ(State().gBooks[1].Version, u"10.0"_s);
    State().gCurBook = 0;
    EXPECT_FALSE(Succeeds([] { ReopenDB(); }));
    EXPECT_EQ(AddOutsideBook(Path(u"out.jotdb"_s)), 2);
    EXPECT_EQ(State().gBooks[2].Name, u"->out"_s);
    EXPECT_EQ(State().gBooks[2].Year, 2016);
}

TEST_F(BookBoxTest, OnlyTheExactVersionPasses) {
    State().gBooks = {
        {u"/a"_s, u"a"_s, 2016, u"10.0"_s}, {u"/b"_s, u"b"_s, 2016, u"10.0 "_s}, {u"/c"_s, u"c"_s, 0, {}}};
    EXPECT_TRUE(CheckBookVersion(-1));
    EXPECT_TRUE(CheckBookVersion(0));
    const auto told = [](const QString& version) {
        return u"程序要求账本版本是：【10.0】\n当前账本版本是：【"_s + version +
               u"】\n账本版本不符不能打开! 请与开发商联系!"_s;
    };
    const std::pair<int, QString> refused[] = {{1, told(u"10.0 "_s)},
                                               {2, told({})},
                                               {3, u"未指定账本 或 指定的【账本文件】不存在!"_s},
                                               {-2, u"未指定账本 或 指定的【账本文件】不存在!"_s}};
    for (const auto& [index, text] : refused) {
        boxes.Expect(text);
        EXPECT_FALSE(CheckBookVersion(index)) << index;
        EXPECT_EQ(boxes.Last().text, text);
        EXPECT_EQ(boxes.Last().title + boxes.Last().buttons, u"提示确定"_s);
    }
}

TEST_F(BookBoxTest, PasswordsAreComparedAsTheyStand) {
    OpenEmpty();
    EXPECT_EQ(CheckPass(State().gDB, {}), PassCheck::right);
    EXPECT_EQ(CheckPass(State().gDB, u" "_s), PassCheck::wrong);
    State().gDB.Execute(u"update tSet set Note1='A''密 ' where Key1='pass'"_s);
    EXPECT_EQ(CheckPass(State().gDB, u"A'密 "_s), PassCheck::right);
    for (const auto& wrong : {u"a'密 "_s, u"A'密"_s, u""_s})
        EXPECT_EQ(CheckPass(State().gDB, wrong), PassCheck::wrong) << qPrintable(wrong);
    State().gDB.Execute(u"delete from tSet where Key1='pass'"_s);
    EXPECT_EQ(CheckPass(State().gDB, {}), PassCheck::missing);
}
