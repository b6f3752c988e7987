// Making a book: the form's checks, the file, and what is carried into it.

#include "books/book_new.h"
#include "books/carry_forward.h"
#include "store/errors.h"
#include "store/money.h"
#include "store/notices.h"
#include "tests/books/books_fixture.h"

#include <QFileInfo>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

class NewBook : public BooksFixture {
 protected:
    NewBook() { State().gBooks.assign(1, {}); }

    /// The lines of a dump that differ from the empty template's.
    QStringList OtherThanTemplate(const QString& path) {
        const auto before = DumpBook(PutFile(u"plain.jotdb"_s, EmptyBookImage()));
        QStringList others;
        for (const auto& line : DumpBook(path))
            if (!before.contains(line)) others << line;
        return others;
    }
    static BookForm Carrying(const QString& name, const QString& reference) {
        auto form = Form(name);
        form.pass = form.passAgain = u"p"_s;
        form.moreOptions = true;
        form.reference = reference;
        form.carry = {true, true, std::vector<bool>(50, true), std::vector<bool>(50, true)};
        return form;
    }
    QStringList RowsOf(const QString& name, const QString& sql) {
        cConnection book;
        book.Open(BookPath(name));
        return Rows(book, sql);
    }
};

}  // namespace

TEST_F(NewBook, TheFormIsCheckedInOrder) {
    State().gBooks = {{BookPath(u"old"_s), u"old"_s, 2016, {}}};
    const QString badName =
        u"账本名称不合法, 不能含有以下符号：\r\n【<】、【>】、【|】、【?】、【.】、【*】、【:】、【/】、【\\】"_s;
    const QString twenty(20, u'长'), password(20, u'p');
    const struct {
        QString name, pass, again;
        QString message;
        BookField focus;
    } cases[] = {
        {u"  "_s, u"a"_s, u"b"_s, u"账本名称不能为【空】!"_s, BookField::name},
        {u"a.b"_s, {}, {}, badName, BookField::name},
        {u"a/b"_s, {}, {}, badName, BookField::name},
        {u"a\\b"_s, {}, {}, badName, BookField::name},
        {u"a|b"_s, {}, {}, badName, BookField::name},
        {twenty + u'x', {}, {}, u"账本名称长度不能大于【20】!"_s, BookField::name},
        {u" OLD "_s, {}, {}, u"【账本名称】已经存在!"_s, BookField::name},
        {u"new"_s, u"a"_s, u"A"_s, u"【两次口令】输入不一致!"_s, BookField::pass},
        {u"new"_s, password + u'x', password + u'x', u"口令长度不能超过【20】!"_s, BookField::pass},
        {twenty, password, password, {}, BookField::none},
        {u"O'Neil 家😀"_s, {}, {}, {}, BookField::none},
    };
    for (const auto& c : cases) {
        auto form = Form(c.name);
        form.pass = c.pass;
        form.passAgain = c.again;
        const auto wrong = CheckBookForm(form, true);
        EXPECT_EQ(wrong ? wrong->message : QString(), c.message) << qPrintable(c.name);
        if (wrong) EXPECT_EQ(wrong->focus, c.focus);
    }
    EXPECT_FALSE(CheckBookForm(Form(u"a.b"_s), false));
}

TEST_F(NewBook, SizesAndYears) {
    const std::pair<qint64, QString> sizes[] = {{0, u"0 K"_s},
                                                {1536, u"1.50 K"_s},
                                                {1000 * 1024, u"1000 K"_s},
                                                {1001 * 1024, u"0.98 M"_s},
                                                {qint64(1100) << 20, u"1.07 G"_s}};
    for (const auto& [bytes, text] : sizes)
        EXPECT_EQ(SizeText(bytes), text);
    const auto years = OfferedYears();
    EXPECT_EQ(years.size(), 20);
    EXPECT_EQ(years.front() + years.back(), u"20062025"_s);
}

TEST_F(NewBook, WithoutMoreOptionsItIsTheTemplateWithFourValues) {
    int told = 0;
    const auto heard = Notices().booksChanged.Subscribe([&] { ++told; });
    auto form = Form(u" 我的O'Book "_s, u"2003"_s);
    form.note = u"说'明\n二"_s;
    form.pass = form.passAgain = u"p'w"_s;
    boxes.Expect(u"创建成功!"_s);
    const auto made = CreateBook(form);
    EXPECT_TRUE(made.done);
    const QString path = BookPath(u"我的o'book"_s);
    EXPECT_EQ(made.path, path.toLower());
    EXPECT_EQ(OtherThanTemplate(path).size(), 4);
    EXPECT_EQ(
        RowsOf(u"我的o'book"_s,
               u"select Key1,Note1 from tSet where Key1 in ('pass','year','booknote',"
               u"'CreateDate') order by Key1"_s),
        (QStringList{u"CreateDate|2016-09-03"_s, u"booknote|说'明\n二"_s, u"pass|p'w"_s, u"year|2003"_s}));
    ASSERT_EQ(State().gBooks.size(), 1U);
    const auto& record = State().gBooks.front();
    EXPECT_EQ(record.Name + u'|' + record.Version + u'|' + QString::number(record.Year),
              u"我的o'book|10.0|2003"_s);
    EXPECT_EQ(told, 1);
    boxes.Expect(u"创建成功!"_s);
    EXPECT_TRUE(CreateBook(Form(u"second"_s)).done);
    EXPECT_EQ(Names(), (QStringList{u"我的o'book"_s, u"second"_s}));
}

TEST_F(NewBook, AFileOfTheNameAndAMissingReferenceRefuseInTheirOrder) {
    auto form = Form(u"next"_s);
    form.moreOptions = true;
    boxes.Expect(u"选中了【更多选项】,您必须选择【一个账本】!"_s);
    EXPECT_FALSE(CreateBook(form).done);
    EXPECT_EQ(BytesOf(BookPath(u"next"_s)), EmptyBookImage());
    boxes.Expect(u"该账本文件已【存在】!"_s);
    EXPECT_FALSE(CreateBook(form).done);
    // In another spelling too.
    ASSERT_TRUE(QFile::rename(BookPath(u"next"_s), Box() + u"/NEXT.JotDB"_s));
    boxes.Expect(u"该账本文件已【存在】!"_s);
    EXPECT_FALSE(CreateBook(form).done);
    PutFile(u"box/Next.jotdb"_s);  // now two of them
    boxes.Expect(u"该账本文件已【存在】!"_s);
    EXPECT_FALSE(CreateBook(form).done);
    EXPECT_EQ(Names(), QStringList{QString()});
}

TEST_F(NewBook, ABoxThatCannotTakeItIsAFailureWithoutTraces) {
    for (const QString& box : {Path(u"missing"_s), PutFile(u"file"_s)}) {
        State().settings.sDBPath = box;
        EXPECT_FALSE(Succeeds([] { CreateBook(Form(u"x"_s)); }));
        EXPECT_EQ(Names(), QStringList{QString()});
    }
    EXPECT_FALSE(QFileInfo::exists(Path(u"missing"_s)));
    // A disk that is full in the middle of the template.
    State().settings.sDBPath = Box();
    {
        const FullDisk disk(EmptyBookImage().size() / 2);
        EXPECT_FALSE(Succeeds([] { CreateBook(Form(u"x"_s)); }));
    }
    EXPECT_EQ(QDir(Box()).entryList(QDir::Files | QDir::Hidden), QStringList());
    EXPECT_EQ(Names(), QStringList{QString()});
}

TEST_F(NewBook, TheDefaultBoxIsItsUsersAloneAndAnOldJournalIsNotPlayedIn) {
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    const QString left = PutFile(u"box/own.jotdb-journal"_s, "left behind");
    boxes.AnswerAll(1);
    CreateBook(Form(u"own"_s));
    EXPECT_EQ(QFileInfo(BookPath(u"own"_s)).permissions() & others, 0);
    EXPECT_FALSE(QFile::exists(left));
    State().gDefaultBox = Path(u"elsewhere"_s);
    CreateBook(Form(u"shared"_s));
    EXPECT_TRUE(QFileInfo(BookPath(u"shared"_s)).permissions() & QFile::ReadOther);
}

TEST_F(NewBook, TheSampleCarriesRowForRow) {
    PutBook(u"2016家用"_s);
    OpenBook(u"2016家用"_s);
    State().gDB.Execute(
        u"update tKind set Money=-30,nAdd=0,nReduce=30 where Sort1='0401';"
        u"update tSubAcc set Money=0.1+0.2 where Sort1='01'"_s);
    auto form = Carrying(u"2017家用"_s, u"2016家用"_s);
    const auto lists = ReadCarryLists(*BookOfBox(u"2016家用"_s));
    ASSERT_EQ(lists.kinds.size(), 15U);
    EXPECT_EQ(lists.kinds[11].name + lists.kinds[11].money, u"信用卡-30"_s);
    EXPECT_EQ(lists.accounts[0].money, u"0.30"_s);
    form.carry.kindMarks.assign(15, false);
    form.carry.accountMarks.assign(4, false);
    for (const size_t row : {2U, 3U, 11U})
        form.carry.kindMarks[row] = true;
    form.carry.accountMarks[0] = true;
    boxes.Expect(u"创建成功!"_s);
    EXPECT_TRUE(CreateBook(form).done);
    EXPECT_TRUE(State().gDB.IsOpen());
    EXPECT_EQ(RowsOf(u"2017家用"_s,
                     u"select Id1,Sort1,Money,nAdd,nReduce from tKind where Sort1 in"
                     u" ('00','0101','0102','0201','0401')"_s),
              (QStringList{u"9999|00|0|0|0"_s, u"9999|00|0|0|0"_s, u"2|0101|5000|5000|0"_s, u"3|0102|0|0|0"_s,
                           u"5|0201|0|0|0"_s, u"11|0401|-30|0|-30"_s}));
    EXPECT_EQ(
        RowsOf(u"2017家用"_s,
               u"select Id1,Title1,Type1,TypeName1,Value1,Mark1,Note1,Date1,Time1,nSign,bIsMain,IID,IIID,"
               u"sPic from tAccount"_s),
        (QStringList{
            u"1|新建账本结转余额|0101|产品收入|5000|1|参考账本:【2016家用】|2017-01-01|01:01|1|0|-1|-1|0"_s,
            u"2|新建账本结转余额|0102|项目收入|0|1|参考账本:【2016家用】|2017-01-01|01:01|1|0|-1|-1|0"_s,
            u"3|新建账本结转余额|0401|信用卡|30|1|参考账本:【2016家用】|2017-01-01|01:01|-1|0|-1|-1|0"_s}));
    EXPECT_EQ(RowsOf(u"2017家用"_s, u"select Id1,Sort1,Money,nAdd,nReduce,Note1 from tSubAcc"_s),
              (QStringList{u"4|01|0.3|0.3|0|新建账本转余额：0.30"_s, u"5|02|0|0|0|"_s, u"6|03|0|0|0|"_s,
                           u"7|0301|0|0|0|"_s}));
    EXPECT_EQ(RowsOf(u"2017家用"_s, u"select Table1,Max1,Mark1 from tNum order by 1"_s),
              (QStringList{u"taccount|4|0"_s, u"tkind|17|0"_s, u"tnotebook|1|0"_s, u"tpic|1|0"_s,
                           u"tsubacc|8|0"_s, u"tsubaccitem|1|0"_s}));
    // The entry that is written next gets the next number, and the balances hold.
    EXPECT_EQ(
        RowsOf(u"2017家用"_s, u"select count(*) from tSubAccItem union all select count(*) from tNotebook"_s),
        (QStringList{u"0"_s, u"0"_s}));
}

TEST_F(NewBook, AReferenceThatIsGoneOrHasChangedIsTakenAsItIs) {
    PutBook(u"ref"_s);
    PutBook(u"open"_s, EmptyBookImage());
    OpenBook(u"open"_s);
    boxes.AnswerAll(1);
    auto form = Carrying(u"a"_s, u"ref"_s);
    form.carry.kindMarks.assign(15, true);
    {
        cConnection book;
        book.Open(BookPath(u"ref"_s));
        book.Execute(
            u"update tKind set Money=77 where Sort1='0101';"
            u"insert into tKind (ID1,Name1,Sort1,Money,nHide) values (20,'新','05',9,0)"_s);
    }
    EXPECT_TRUE(CreateBook(form).done);
    // Beyond the marks nothing is carried.
    EXPECT_EQ(RowsOf(u"a"_s, u"select Money from tKind where Sort1 in ('0101','05')"_s),
              (QStringList{u"77"_s, u"0"_s}));
    form.name = u"b"_s;
    form.carry.kinds = form.carry.accounts = false;
    EXPECT_TRUE(CreateBook(form).done);
    EXPECT_EQ(RowsOf(u"b"_s, u"select total(Money),(select count(*) from tAccount) from tKind"_s),
              QStringList{u"0|0"_s});
    EXPECT_EQ(RowsOf(u"b"_s, u"select Note1 from tSubAcc limit 1"_s), QStringList{QString()});
    ASSERT_TRUE(QFile::remove(BookPath(u"ref"_s)));
    form.name = u"c"_s;
    EXPECT_TRUE(CreateBook(form).done);
    EXPECT_EQ(OtherThanTemplate(BookPath(u"c"_s)).size(), 4);
}

namespace {

// What the rules make of a reference, written down once more.
QStringList Expected(cConnection& reference, const BookForm& form, bool kinds) {
    const auto& marks = kinds ? form.carry.kindMarks : form.carry.accountMarks;
    const bool carries = kinds ? form.carry.kinds : form.carry.accounts;
    QStringList rows;
    auto row = reference.OpenRecordset(kinds ? u"select * from tKind"_s : u"select * from tSubAcc"_s);
    for (size_t i = 0; !row.Eof(); row.MoveNext(), ++i) {
        const double money = carries && i < marks.size() && marks[i] ? row.Number(u"Money") : 0;
        const bool marked = carries && i < marks.size() && marks[i];
        QStringList cells{row.Text(u"Id1"), row.Text(u"Name1"), row.Text(u"Sort1"), row.Text(u"nHide")};
        if (kinds)
            cells << row.Text(u"Note1") << row.Text(u"Note2");
        else
            cells << row.Text(u"Date1")
                  << (marked ? u"新建账本转余额："_s + MoneyText(row.Number(u"Money")) : row.Text(u"Note1"));
        const QString text = MoneyText(money);
        cells << text << (money > 0 ? text : u"0"_s) << (money < 0 ? text : u"0"_s);
        rows << cells.join(u'|');
    }
    return rows;
}

QStringList Found(cConnection& book, bool kinds) {
    QStringList rows;
    auto row =
        book.OpenRecordset(kinds ? u"select * from tKind where rowid>1"_s : u"select * from tSubAcc"_s);
    for (; !row.Eof(); row.MoveNext()) {
        QStringList cells{row.Text(u"Id1"), row.Text(u"Name1"), row.Text(u"Sort1"), row.Text(u"nHide")};
        cells << row.Text(kinds ? u"Note1" : u"Date1") << row.Text(kinds ? u"Note2" : u"Note1");
        for (const auto& column : {u"Money"_s, u"nAdd"_s, u"nReduce"_s})
            cells << MoneyText(row.Number(column));
        rows << cells.join(u'|');
    }
    return rows;
}

QString RandomSql(QRandomGenerator& random) {
    QString sql;
    for (int i = 0; i < 150; ++i) {
        const QString code = QString::number(10 + i / 10) + QString::number(10 + i % 10);
        const QString money = random.bounded(4) == 0
                                  ? u"0"_s
                                  : QString::number((random.bounded(2000000) - 1000000) / 100.0, 'f', 2);
        sql +=
            u"insert into tKind (ID1,Name1,Sort1,Note1,Note2,nHide,Money) values (%1,'类''%1','%2','2016-01-01',%4,%5,%3);"_s
                .arg(100 + i)
                .arg(code, money, i % 3 == 0 ? u"null"_s : u"'注'"_s)
                .arg(i % 2);
        sql +=
            u"insert into tSubAcc (Id1,Name1,Sort1,Date1,Note1,nHide,Money) values (%1,'户%1','%2','2016-02-02','说明',0,%3);"_s
                .arg(100 + i)
                .arg(code, money);
    }
    return sql;
}

}  // namespace

TEST_F(NewBook, ARandomBookEqualsTheRulesInEveryRow) {
    const quint32 seed = QRandomGenerator::global()->generate();
    SCOPED_TRACE(seed);
    QRandomGenerator random(seed);
    PutBook(u"ref"_s);
    OpenBook(u"ref"_s);
    State().gDB.Execute(u"begin;"_s + RandomSql(random) + u"commit"_s);
    auto form = Carrying(u"next"_s, u"ref"_s);
    for (auto* marks : {&form.carry.kindMarks, &form.carry.accountMarks}) {
        marks->assign(165, false);
        for (size_t i = 0; i < marks->size(); ++i)
            (*marks)[i] = random.bounded(3) > 0;
    }
    boxes.Expect(u"创建成功!"_s);
    CreateBook(form);
    cConnection made;
    made.Open(BookPath(u"next"_s));
    for (const bool kinds : {true, false})
        EXPECT_EQ(Found(made, kinds), Expected(State().gDB, form, kinds));
    // Entries stand for the carried kinds. What differs: a negative balance, whose nReduce is negative, and
    // balances of accounts, which have no records.
    for (const auto& [row, gap] : BalanceGaps(made)) {
        if (row.startsWith(u"tSubAcc"_s)) continue;
        const auto money = Rows(made, u"select Money,nReduce from tKind where Sort1="_s + Quote(row.mid(6)));
        EXPECT_TRUE(money.front().section(u'|', 0, 0).startsWith(u'-')) << qPrintable(row);
        EXPECT_EQ(gap.balance, 0) << qPrintable(row);
    }
    EXPECT_EQ(TieBreaks(made), QStringList());
}

TEST_F(NewBook, AFillThatFailsAtAnyWriteLeavesTheTemplateAndTheOpenBook) {
    boxes.AnswerAll(1);
    const QByteArray sample = SampleBookImage();
    int told = 0;
    const auto heard = Notices().booksChanged.Subscribe([&] { ++told; });
    const auto prepare = [&] {
        State().gDB.Close();
        QDir(Box()).removeRecursively();
        PutBook(u"ref"_s, sample);
        OpenBook(u"ref"_s);
        told = 0;
    };
    const auto create = [] { CreateBook(Carrying(u"next"_s, u"ref"_s)); };
    const auto check = [&](bool done) {
        EXPECT_TRUE(State().gDB.IsOpen());
        EXPECT_FALSE(State().gBusy);
        EXPECT_EQ(told, 1);
        EXPECT_EQ(Names(), (QStringList{u"ref"_s, u"next"_s}));
        EXPECT_EQ(CheckBook(BookPath(u"next"_s)), u"ok"_s);
        EXPECT_EQ(BytesOf(BookPath(u"ref"_s)), sample);
        if (done) return;
        const auto others = OtherThanTemplate(BookPath(u"next"_s));
        EXPECT_TRUE(others.isEmpty() || others.size() == 4) << others.size();
    };
    const FaultStory story{prepare, create, check};
    EXPECT_GT(FailEach({.failing = DiskFaults::kWrite}, story), 2);
    EXPECT_GT(FailEach({.failing = DiskFaults::kOpen}, story), 2);
    const int syncs = FailEach({.failing = DiskFaults::kSync}, story);
    EXPECT_TRUE(syncs > 2 && syncs <= 8) << syncs;
}

TEST_F(NewBook, AReferenceThatIsNoBookFailsAndTheNewOneStays) {
    PutBook(u"ref"_s, QByteArray(4096, 'x'));
    EXPECT_FALSE(Succeeds([] { CreateBook(Carrying(u"next"_s, u"ref"_s)); }));
    EXPECT_EQ(Names(), (QStringList{u"ref"_s, u"next"_s}));
    EXPECT_EQ(OtherThanTemplate(BookPath(u"next"_s)).size(), 4);
}
