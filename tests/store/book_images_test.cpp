// The two stored books, as the format promises them: tables, columns, seeded rows, bytes.

#include "store/book_images.h"

#include "store/book_box.h"
#include "store/book_format.h"
#include "tests/support/fixture.h"

#include <QDir>
#include <QMap>
#include <QtEndian>

using namespace Qt::StringLiterals;

namespace {

// name:type, a default behind "=", "*" for a primary key that counts by itself.
using Schema = QMap<QString, QString>;

const QString kWebColumns =
    u"ID1:integer* Title1:char(50) Type1:integer TypeName1:char(50) Value1:float Date1:char(10) Time1:char(8)"
    u" nSign1:integer Type2:integer TypeName2:char(50) nSign2:integer Note1:text bPassIdChk:bit=0 "
    u"AccId:integer"
    u" AccName:char(20) AccValue:float AccSign:integer AccNote:char(50)"_s;

const QString kStatistics =
    u" Name1:char(50) Sort1:char(18) nAdd:float nReduce:float Money:float nHasData:bit"_s;

Schema EmptySchema() {
    return {
        {u"tNum"_s, u"Id1:integer* Table1:char(20) Max1:integer Mark1:bit"_s},
        {u"tSet"_s, u"Key1:char(20) Note1:char(50)"_s},
        {u"tKind"_s,
         u"ID1:integer Name1:char(50) Sort1:char(18) Note1:varchar(10) Money:float=0 nAdd:float=0"
         u" nReduce:float=0 Note2:varchar(50) nHide:integer=0 IID:integer=0"_s},
        {u"tSubAcc"_s,
         u"Id1:integer Name1:char(20) Sort1:char(18) Date1:char(10) Money:float nAdd:float nReduce:float"
         u" Note1:varchar(50) nHide:integer IID:integer"_s},
        {u"tAccount"_s,
         u"Id1:integer IIID:integer=-1 IIID1:integer=-1 Title1:char(50) Type1:char(18)"
         u" TypeName1:char(50) Value1:float Mark1:bit=0 Note1:text Date1:char(10) Time1:char(8)"
         u" Date2:char(10)='' Time2:char(8)='' nSign:integer=1 IID:integer=-1 bIsMain:bit=0"
         u" sMe:char(4)='记账' sPic:char(8)='0'"_s},
        {u"tSubAccItem"_s,
         u"Id1:integer AccId:integer Title1:char(50) SubAccKey:char(18) SubAccName1:char(50)"
         u" TypeName1:char(50) Value1:float nSign:integer Date1:char(10) Time1:char(8)"_s},
        {u"tNotebook"_s,
         u"ID1:integer Title1:char(50) Mark1:bit Date1:char(10) Time1:char(8) Note1:varchar(100)"
         u" bWake:bit WakeDate:char(10) bWakeOk:bit sMe:char(4)='记事' sPic:char(8) bIsMain:bit=1"_s},
        {u"tPic"_s,
         u"ID1:integer bitPic:blob Note1:char(50) sFromTable:char(10) lFromId:integer lFromId1:integer"_s},
        {u"tAccountTemplate"_s, u"ID1:integer* Title1:char(50)"_s},
        {u"tAccountWeb"_s, kWebColumns},
        {u"tAccountWebDel"_s, kWebColumns + u" sDelDate:char(19)"_s},
        {u"tTjDate"_s, u"Id1:integer Date1:char(10) Value1:float Value2:float ValueC:float"_s},
        {u"tTjKind"_s, u"ID1:integer*"_s + kStatistics},
        {u"tPrint"_s,
         u"ID1:integer* sKey:char(20) sDef:char(20) sTable:char(20) sMark:char(10) bListPrint:integer"
         u" nListPrintW:integer nSort:integer nDist:integer sReplace:char(50) sType:char(10)"_s},
    };
}

Schema SampleSchema() {
    auto schema = EmptySchema();
    schema[u"tSubAcc"_s] += u"=0"_s;
    schema[u"tPic"_s] += u"=-1"_s;
    schema[u"tTjKind"_s] = u"ID1:integer"_s + kStatistics;
    schema[u"tSubAccItem"_s].replace(u" TypeName1"_s, u" Type1:char(18) TypeName1"_s);
    return schema;
}

Schema SchemaOf(cConnection& book) {
    Schema schema;
    const auto tables = Rows(book,
                             u"select name, sql like '%autoincrement%' from sqlite_master where type='table'"
                             u" and name not like 'sqlite_%'"_s);
    for (const auto& table : tables) {
        const auto name = table.section(u'|', 0, 0);
        schema[name] = Rows(book,
                            u"select name||':'||lower(type)||case when pk then '*' else '' end||"
                            u"coalesce('='||dflt_value,'') from pragma_table_info('"_s +
                                name + u"')"_s)
                           .join(u' ');
        EXPECT_EQ(schema[name].contains(u'*'), table.endsWith(u'1')) << qPrintable(name);
    }
    return schema;
}

class BookImagesTest : public Fixture {
 protected:
    QStringList Read(const QString& sql) { return Rows(Book(), sql); }
};

}  // namespace

TEST_F(BookImagesTest, TablesColumnsTypesAndDefaultsAreThoseOfTheFormat) {
    OpenEmpty(u"e.jotdb"_s);
    EXPECT_EQ(SchemaOf(Book()), EmptySchema());
    OpenSample(u"s.jotdb"_s);
    EXPECT_EQ(SchemaOf(Book()), SampleSchema());
}

TEST_F(BookImagesTest, FilesAreOfTheOldShape) {
    for (const auto& image : {SampleBookImage(), EmptyBookImage()}) {
        EXPECT_EQ(image.left(16), QByteArray("SQLite format 3\0", 16));
        EXPECT_EQ(qFromBigEndian<quint16>(image.constData() + 16), 1024);
        EXPECT_EQ(image.size(), 1024 * qFromBigEndian<qint32>(image.constData() + 28));
        EXPECT_EQ(image.mid(18, 2), QByteArray("\1\1"));  // a rollback journal, no WAL
    }
    for (const bool sample : {true, false}) {
        sample ? OpenSample(u"s.jotdb"_s) : OpenEmpty(u"e.jotdb"_s);
        EXPECT_EQ(
            Read(u"pragma user_version"_s) + Read(u"pragma encoding"_s) + Read(u"pragma integrity_check"_s),
            (QStringList{u"0"_s, u"UTF-8"_s, u"ok"_s}));
        EXPECT_EQ(Read(u"select name from sqlite_master where type<>'table'"_s), QStringList());
        EXPECT_EQ(Read(u"pragma freelist_count"_s), QStringList{u"0"_s});
    }
}

TEST_F(BookImagesTest, SeededRowsOfTheEmptyBook) {
    OpenEmpty();
    EXPECT_EQ(Read(u"select * from tNum"_s),
              (QStringList{u"1|taccount|1|0"_s, u"2|tkind|2|0"_s, u"3|tnotebook|1|0"_s, u"5|tpic|1|0"_s,
                           u"6|tsubacc|1|0"_s, u"7|tsubaccitem|1|0"_s}));
    EXPECT_EQ(Read(u"select * from tSet order by Key1"_s),
              (QStringList{u"CreateDate|2016-08-10"_s, u"booknote|这是一个空账本!"_s, u"dbversion|10.0"_s,
                           u"dbversionok|1"_s, u"pass|"_s, u"year|2016"_s}));
    EXPECT_EQ(Read(u"select * from tKind"_s),
              QStringList{u"9999|↑↓余额调整|00|2016-01-01|0|0|0|分类及账户期初、中、末余额调整|0|0"_s});
    EXPECT_EQ(Read(u"select * from sqlite_sequence order by name"_s),
              (QStringList{u"tAccountTemplate|0"_s, u"tAccountWeb|0"_s, u"tAccountWebDel|0"_s, u"tNum|9"_s,
                           u"tPrint|47"_s, u"tTjKind|48"_s}));
    for (const auto& table : {u"tAccount"_s, u"tSubAcc"_s, u"tSubAccItem"_s, u"tNotebook"_s, u"tPic"_s,
                              u"tTjDate"_s, u"tTjKind"_s, u"tAccountWeb"_s, u"tAccountTemplate"_s})
        EXPECT_EQ(Read(u"select count(*) from "_s + table), QStringList{u"0"_s}) << qPrintable(table);
}

TEST_F(BookImagesTest, PrintColumnsAreSeededAndDifferInSixRows) {
    const QString print =
        u"select ID1,sKey,sDef,sTable,sMark,bListPrint,nListPrintW,nSort,nDist,sReplace,sType from tPrint"_s;
    OpenEmpty(u"e.jotdb"_s);
    const auto empty = Read(print);
    const QStringList told{u"1|Title1|事情|tAccount|-|1|30|1|0|-|-"_s,
                           u"3|nSign|符号|tAccount|-|1|8|4|2|-1/1,－/|-"_s,
                           u"4|Value1|￥金额|tAccount|-|1|16|5|1|-|money"_s,
                           u"14|bWakeOk|提醒完成?|tNoteBook|-|1|16|6|0|True/False,已完成/|-"_s,
                           u"16|Date1|期间|tTjDate|-|1|40|1|2|-|-"_s,
                           u"21|Sort1|编号|tTjKind|-|1|15|1|0|-|-"_s,
                           u"31|Title1|事情|tSubAccItem|-|1|45|5|0|-|-"_s,
                           u"43|Mark1|重要|tNoteBook||0|0|2|0|True/False,√/|-"_s,
                           u"47|Type1|类号|tAccount|-|1|20|2|1|-|-"_s};
    for (const auto& row : told)
        EXPECT_TRUE(empty.contains(row)) << qPrintable(row);
    QStringList ids;
    for (const auto& row : empty)
        ids << row.section(u'|', 0, 0);
    EXPECT_EQ(ids.join(u' '),
              u"1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 18 19 20 21 22 23 24 25 26 27 28 29 31 32 33"
              u" 42 43 44 45 46 47"_s);
    OpenSample(u"s.jotdb"_s);
    QStringList changed;
    for (const auto& row : Read(print))
        if (!empty.contains(row)) changed << row;
    EXPECT_EQ(changed, (QStringList{u"21|Sort1|编号|tTjKind|-|1|30|1|1|-|-"_s,
                                    u"23|nAdd|￥增加额|tTjKind|-|1|25|3|1|-|money"_s,
                                    u"24|nReduce|￥减少额|tTjKind|-|1|25|4|1|-|money"_s,
                                    u"25|Money|￥余额|tTjKind|-|1|25|5|1|-|money"_s,
                                    u"26|Value1|￥金额|tSubAccItem|-|1|20|4|1|-|money"_s,
                                    u"32|SubAccName1|账户名称|tSubAccItem|-|1|40|7|0|-|-"_s,
                                    u"33|SubAccKey|账户编号|tSubAccItem|-|1|25|6|0|-|-"_s}));
}

TEST_F(BookImagesTest, TheSampleShowsAWholeSmallBook) {
    OpenSample();
    EXPECT_EQ(Read(u"select Sort1,Name1 from tKind order by ID1"_s).join(u' '),
              u"01|收入 0101|产品收入 0102|项目收入 02|成本 0201|办公费用 0202|生产成本 03|资产 0301|现金"
              u" 0302|银行存款 04|负债 0401|信用卡 030201|农行 030202|工行 0303|应收款 00|↑↓余额调整"_s);
    EXPECT_EQ(Read(u"select distinct nHide from tKind"_s), QStringList{u"0"_s});
    EXPECT_EQ(
        Read(u"select * from tSubAcc order by Id1"_s),
        (QStringList{u"4|东华公司|01|2016-08-27|5000|5000|0||0|0"_s,
                     u"5|大宇公司|02|2016-08-27|8500|8500|0||0|0"_s, u"6|开发项目|03|2016-08-27|0|0|0||0|0"_s,
                     u"7|软件开发|0301|2016-08-27|0|0|0||0|0"_s}));
    EXPECT_EQ(Read(u"select Table1,Max1 from tNum"_s).join(u' '),
              u"taccount|8 tkind|17 tnotebook|2 tpic|2 tsubacc|8 tsubaccitem|5"_s);
    EXPECT_EQ(Read(u"select name,seq from sqlite_sequence order by name"_s).join(u' '),
              u"tAccountTemplate|1 tAccountWeb|0 tAccountWebDel|0 tNum|9 tPrint|47"_s);
    EXPECT_EQ(Read(u"select hex(substr(bitPic,1,3)),lFromId,lFromId1,sFromTable from tPic"_s),
              QStringList{u"FFD8FF|7|-1|tAccount"_s});
    EXPECT_EQ(Read(u"select Date1,Time1,sMe,bIsMain from tNotebook"_s),
              QStringList{u"2016-09-03|14:16:20|记事|1"_s});
    EXPECT_EQ(Read(u"select (select count(*) from tTjDate),(select count(*) from tTjKind)"_s),
              QStringList{u"2|15"_s});
    EXPECT_EQ(BalanceBreaks(Book()) + TieBreaks(Book()), QStringList());
}

TEST_F(BookImagesTest, WritingTheSampleCopiesItsBytesAndSparesAFile) {
    const QString path = Path(u"sample.jotdb"_s);
    EXPECT_TRUE(WriteSampleBook(path));
    EXPECT_EQ(BytesOf(path), SampleBookImage());
    {
        cConnection book;
        book.Open(path);
        book.Execute(u"update tSet set Note1='mine' where Key1='booknote'"_s);
    }
    const auto edited = BytesOf(path);
    ASSERT_NE(edited, SampleBookImage());
    EXPECT_FALSE(WriteSampleBook(path));
    EXPECT_FALSE(WriteSampleBook(Path(u"SAMPLE.jotdb"_s)));
    EXPECT_EQ(BytesOf(path), edited);
    EXPECT_FALSE(WriteSampleBook(Path(u"no/such/folder.jotdb"_s)));
}

TEST_F(BookImagesTest, ABookThatWasOnlyReadKeepsItsBytes) {
    const QString path = OpenSample();
    Book().RowOf(u"tAccount"_s, 5);
    Read(u"select * from tAccount order by Date1"_s);
    CheckPass(Book(), u"x"_s);
    ReadBookInfo();
    { Transaction abandoned(Book()); }
    Book().Close();
    EXPECT_EQ(BytesOf(path), SampleBookImage());
    EXPECT_EQ(QDir(Path({})).entryList(QDir::Files), QStringList{u"book.jotdb"_s});
}

TEST_F(BookImagesTest, IdsCountUpAndNamesAreCaseSensitive) {
    OpenEmpty();
    EXPECT_EQ(NextId(Book(), u"tkind"_s), 2);
    EXPECT_EQ(NextId(Book(), u"tkind"_s), 3);
    EXPECT_EQ(NextId(Book(), u"taccount"_s), 1);
    const auto counters = Read(u"select * from tNum"_s);
    for (const auto& wrong : {u"tKind"_s, u"tKIND"_s, u"tset"_s, u""_s, u"tkind' or '1'='1"_s})
        EXPECT_EQ(NextId(Book(), wrong), -1) << qPrintable(wrong);
    EXPECT_EQ(Read(u"select * from tNum"_s), counters);
    EXPECT_EQ(counters[1], u"2|tkind|4|0"_s);
    Book().Execute(u"delete from tNum where Table1='tpic'"_s);
    EXPECT_EQ(NextId(Book(), u"tpic"_s), -1);
}
