// Set.ini: the first run, every code of SaveSetting, the hand-over, and the check of the files.

#include "store/book_box.h"
#include "store/book_images.h"
#include "store/errors.h"
#include "store/outside.h"
#include "store/paths.h"
#include "store/places.h"
#include "store/platform_messages.h"
#include "store/session.h"
#include "store/settings_file.h"
#include "tests/support/fixture.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

class SettingsTest : public Fixture {
 protected:
    SettingsTest() {
        QDir().mkpath(Path(u"program"_s));
        QDir().mkpath(Path(u"box"_s));
        State().gProgramFolder = Path(u"program"_s);
        EXPECT_TRUE(QFile::copy(QStringLiteral(KESTRO_SET_INI), SettingsFile()));
    }

    QString SettingsFile() const { return Path(u"program/Set.ini"_s); }
    QString Sample() const { return Path(u"box/专业版例子.jotdb"_s); }

    // The settings file as another program sees and changes it.
    QStringList Stored(const QString& sql) {
        cConnection settings;
        settings.Open(SettingsFile());
        return Rows(settings, sql);
    }
    void Change(const QString& sql) {
        cConnection settings;
        settings.Open(SettingsFile());
        settings.Execute(sql);
    }
    void Load() {
        State().gSetDB.Close();
        LoadSettings();
    }
    void WriteSample(const QByteArray& bytes) { PutFile(u"box/专业版例子.jotdb"_s, bytes); }
    QByteArray SampleBytes() { return BytesOf(Sample()); }
};

}  // namespace

TEST_F(SettingsTest, AFirstRunRenewsTheSampleThatNobodyChanged) {
    const QByteArray old = "an older sample";
    struct Case {
        const char* what;
        QString marker;       ///< of the first run; empty: the row is gone
        QByteArray standing;  ///< the sample in the box; empty: none
        bool kept;            ///< its hash is the one that was kept
        bool trash;           ///< there is one
        bool journal;
        bool renewed;
    };
    const Case cases[] = {
        {"none", u"1"_s, {}, false, true, false, true},
        {"untouched", u"1"_s, old, true, true, false, true},
        {"untouched, no marker", {}, old, true, true, false, true},
        {"not the first run", u"0"_s, old, true, true, false, false},
        {"another marker", u"2"_s, old, true, true, false, false},
        {"the user's", u"1"_s, "with entries", false, true, false, false},
        {"the user's, no marker", {}, "with entries", false, true, false, false},
        {"changes in a journal", u"1"_s, old, true, true, true, false},
        {"no trash", u"1"_s, old, true, false, false, false},
    };
    const QString journal = Sample() + u"-journal"_s;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        QFile::remove(Sample());
        QFile::remove(journal);
        if (!c.standing.isEmpty()) WriteSample(c.standing);
        if (c.journal) QFile::copy(Sample(), journal);
        Change(u"delete from tSetting2 where Key1 in ('FirstRun','SampleHash')"_s);
        if (!c.marker.isEmpty())
            Change(u"insert into tSetting2 values ('FirstRun',"_s + Quote(c.marker) + u')');
        const auto hash = QCryptographicHash::hash(old, QCryptographicHash::Sha256).toHex();
        if (c.kept)
            Change(u"insert into tSetting2 values ('SampleHash',"_s + Quote(QString::fromLatin1(hash)) +
                   u')');
        Outside().trash = [&](const QString& path) { return c.trash && QFile::remove(path); };
        Load();
        EXPECT_EQ(SampleBytes(), c.renewed ? SampleBookImage() : c.standing);
        EXPECT_EQ(Stored(u"select Value1 from tSetting2 where Key1='FirstRun'"_s),
                  QStringList{c.marker == u"2" ? c.marker : u"0"_s});
    }
    QFile::remove(journal);
    QFile::remove(Sample());
    Change(u"update tSetting2 set Value1='1' where Key1='FirstRun'"_s);
    QDir(State().gDefaultBox).removeRecursively();
    boxes.Expect(u"例子账本写入失败：\n【"_s + Sample());
    Load();
}

// One user's book, password and messages are none of the next one's business.
TEST_F(SettingsTest, ACopyTakesTheDefaultsAndNoUsersValues) {
    Change(
        u"update tSetting set nGroup=4,sWebName='root',sWebPass='secret',sDBPath='/root/box',"
        u"sPreOpenDBFile='/root/box/a.jotdb',lHandle='77';"
        u"insert into tAd (Title1,bWakeOk) values ('for root',0);"
        u"update tSetting2 set Value1='0' where Key1='FirstRun';"
        u"insert into tSetting2 values ('Window','1,2,3'); update tSetting2 set Value1='month' where Key1='LoadDate'"_s);
    const QString all =
        u"select nGroup,sWebName||sWebPass||sDBPath||sPreOpenDBFile,lHandle,(select count(*) from tAd),"
        u"(select group_concat(Key1) from tSetting2) from tSetting"_s;
    const QString copy = Path(u"data/Set.ini"_s);
    QDir().mkpath(Path(u"data"_s));
    const auto load = [&] {
        State().gSettingsPath = copy;
        Load();
    };
    load();
    EXPECT_EQ(Rows(State().gSetDB, all), QStringList{u"4||0|0|LoadDate,Version,FirstRun,SampleHash"_s});
    EXPECT_EQ(State().settings.nGroup, 4);
    EXPECT_EQ(State().settings.LoadDate, u"month"_s);
    EXPECT_EQ(QFile::permissions(copy) & (QFile::ReadGroup | QFile::ReadOther), 0);

    // The user's own values and sample outlive a packaged file that was touched, and a new version.
    SaveSetting(u"/home/a.jotdb"_s, kSaveLastBook);
    QFile::remove(Sample());
    WriteSample("with entries");
    Change(u"update tSetting set nGroup=3"_s);
    const QStringList marker{u"0"_s};
    for (const auto& version : {QStringLiteral(KESTRO_VERSION), u"1999.1"_s}) {
        State().gSetDB.Execute(u"update tSetting2 set Value1="_s + Quote(version) +
                               u" where Key1='Version'"_s);
        load();
        EXPECT_EQ(State().settings.sPreOpenDBFile, u"/home/a.jotdb"_s);
        EXPECT_EQ(State().settings.nGroup, 4);
        EXPECT_EQ(SampleBytes(), QByteArray("with entries"));
        EXPECT_EQ(Rows(State().gSetDB, u"select Value1 from tSetting2 where Key1='FirstRun'"_s), marker);
    }

    State().settings = {};
    State().gSettingsPath = Path(u"no such folder/Set.ini"_s);
    Load();
    EXPECT_EQ(State().settings.nGroup, 3);
    EXPECT_EQ(State().settings.sWebPass, QString());
    EXPECT_FALSE(Succeeds([] { SaveSetting({}, kSaveAll); }));
}

TEST_F(SettingsTest, AnOlderFileGetsWhatItLacksAndKeepsItsRows) {
    Change(
        u"drop table tSetting; create table tSetting (nGroup integer, sWebName text); insert into tSetting "
        u"values"
        u" (4,'n'); drop table tAd; create table tAd (Id1 integer, Title1 text, bWakeOk integer);"
        u"insert into tAd values (null,'a',0), (7,'b',0), (3,'c',1), (7,'d',0), (8,'e',1)"_s);
    Load();
    EXPECT_EQ(State().settings.nGroup, 4);
    EXPECT_EQ(State().settings.nHtmPageSize, 50);
    EXPECT_EQ(State().settings.nShowAgentIco, 1);
    EXPECT_EQ(Stored(u"select sWebName,lHandle,bWebOk from tSetting"_s), QStringList{u"n|0|0"_s});
    EXPECT_EQ(Stored(u"select Id1,Title1,bWakeOk from tAd order by Id1"_s),
              (QStringList{u"3|c|1"_s, u"7|b|0"_s, u"8|e|1"_s, u"9|a|0"_s, u"10|d|0"_s}));
    State().gSetDB.Execute(u"insert into tAd (Title1,Note1) values ('f','x')"_s);
    EXPECT_EQ(Stored(u"select Id1 from tAd where Title1='f'"_s), QStringList{u"11"_s});
}

TEST_F(SettingsTest, AFileThatCannotBeWrittenIsReadAllTheSame) {
    Change(u"update tSetting set nGroup=4; alter table tSetting drop column bWebOk"_s);
    cConnection::Seams().beforeStatement = [](const QString& sql) {
        const QString words = sql.trimmed();
        if (!words.startsWith(u"select"_s) && !words.startsWith(u"pragma"_s))
            FailStatement(u"磁盘已满"_s, sql);
    };
    Load();
    EXPECT_EQ(State().settings.nGroup, 4);
    EXPECT_EQ(UnreadMessageCount(), 0);
}

TEST_F(SettingsTest, EveryValueIsReadAndAMissingRowLeavesTheDefaults) {
    Change(
        u"update tSetting set nGroup=4,nHtmPageSize=20,sWebName='n',sWebPass='p',sWebBook='b',sDBPath='',"
        u"nShowAgentIco=0,sLogDateTime='2016-01-02 03:04:05',sPreOpenDBFile='/x.jotdb';"
        u"update tSetting2 set Value1='month' where Key1='LoadDate'"_s);
    Load();
    const auto& s = State().settings;
    EXPECT_EQ(s.nGroup * 1000 + s.nHtmPageSize * 10 + s.nShowAgentIco, 4200);
    EXPECT_EQ((QStringList{s.sWebName, s.sWebPass, s.sWebBook, s.sLogDateTime, s.sPreOpenDBFile, s.LoadDate}),
              (QStringList{u"n"_s, u"p"_s, u"b"_s, u"2016-01-02 03:04:05"_s, u"/x.jotdb"_s, u"month"_s}));
    EXPECT_EQ(s.sDBPath, State().gDefaultBox);
    EXPECT_EQ(Stored(u"select sDBPath from tSetting"_s), QStringList{QString()});
    Change(u"delete from tSetting"_s);
    State().settings.nGroup = 3;
    Load();
    EXPECT_EQ(State().settings.nGroup, 3);
    PutFile(u"program/Set.ini"_s, "[Settings] nGroup=3");
    EXPECT_FALSE(Succeeds([this] { Load(); }));
}

TEST_F(SettingsTest, EachCodeWritesItsOwnColumns) {
    Load();
    auto& s = State().settings;
    s.sWebBook = u"书'1"_s;
    s.sWebName = u"O'Neil"_s;
    s.sWebPass = u"'"_s;
    s.sDBPath = u"/box's"_s;
    struct Case {
        int code;
        QString value, column, stored;
    };
    const Case cases[] = {
        {kSaveLastBook, u"/a'b.jotdb"_s, u"sPreOpenDBFile"_s, u"/a'b.jotdb"_s},
        {kSaveHandle, u"12345"_s, u"lHandle"_s, u"12345"_s},
        {kSaveLogTime, u"unused"_s, u"sLogDateTime"_s, u"2016-09-03 14:16:20"_s},
        {kSaveWebAccount, {}, u"sWebBook||sWebName||sWebPass"_s, u"书'1O'Neil'"_s},
        {kSaveBookBox, {}, u"sDBPath"_s, u"/box's"_s},
    };
    for (const auto& c : cases) {
        SaveSetting(c.value, c.code);
        EXPECT_EQ(Stored(u"select "_s + c.column + u" from tSetting"_s), QStringList{c.stored}) << c.code;
    }
    const auto all = Stored(u"select * from tSetting"_s) + Stored(u"select * from tSetting2"_s);
    for (const int unknown : {0, 6, 9, -2})
        SaveSetting(u"x"_s, unknown);
    EXPECT_EQ(Stored(u"select * from tSetting"_s) + Stored(u"select * from tSetting2"_s), all);
}

TEST_F(SettingsTest, ABookBoxThatIsGoneGivesWayToTheDefaultOne) {
    QDir().mkpath(Path(u"Mine"_s));
    const QString box = State().gDefaultBox;
    EXPECT_EQ(FixBookPath({}), box);
    EXPECT_EQ(FixBookPath(Path(u"gone"_s)), box);
    EXPECT_EQ(FixBookPath(Path(u"Mine/"_s)), Path(u"Mine"_s));
    EXPECT_EQ(FixBookPath(Path(u"mine"_s)), Path(u"mine"_s));
    EXPECT_EQ(FixBookPath(u"/"_s), u"/"_s);
}

// A chosen box is kept in lower case, which leads nowhere below a folder that cannot be listed.
TEST_F(SettingsTest, AChosenBookBoxIsFoundAgainWhereAFolderAboveCannotBeListed) {
    const QString shared = Path(u"shared"_s);
    const QString chosen = shared + u"/Books"_s;
    QDir().mkpath(chosen);
    Load();
    KnowFolder(chosen);
    State().settings.sDBPath = chosen.toLower();
    SaveSetting({}, kSaveBookBox);
    ForgetFolders();
    const auto own = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    const auto through = QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    QFile::setPermissions(Path({}), own | through);
    QFile::setPermissions(shared, through);
    {
        const WithoutRights rights;
        Load();
    }
    QFile::setPermissions(shared, own);
    EXPECT_EQ(State().settings.sDBPath, chosen.toLower());
}

TEST_F(SettingsTest, WhatCannotBeKeptForTheNextStartIsToldOnce) {
    Load();
    cConnection::Seams().beforeStatement = [](const QString& sql) { FailStatement(u"磁盘已满"_s, sql); };
    boxes.Expect(u"意外错误"_s);
    for (const int code : {kSaveLastBook, kSaveHandle, kSaveLastBook})
        SaveForNextStart([code] { SaveSetting(u"1"_s, code); });
}

TEST_F(SettingsTest, ASecondCopyLeavesItsPathAndLearnsTheHandle) {
    Load();
    EXPECT_EQ(HandOverToRunning(u"/A'b/账本.JOTDB"_s), 0);
    SaveSetting(u"2147483647"_s, kSaveHandle);
    EXPECT_EQ(HandOverToRunning(u"/A'b/账本.JOTDB"_s), 2147483647);
    EXPECT_EQ(HandedOverPath(), u"/a'b/账本.jotdb"_s);
    Change(u"delete from tSetting"_s);
    EXPECT_EQ(HandOverToRunning(u"/c.jotdb"_s), 0);
    EXPECT_EQ(HandedOverPath(), QString());
}

TEST_F(SettingsTest, MissingFilesAreReportedInOneBox) {
    QDir(State().gDefaultBox).removeRecursively();
    const auto lack = [&](const QString& name) {
        return u"\n    缺少【"_s + BesideProgram(name) + u"】文件!"_s;
    };
    boxes.Expect(lack(u"JotAgent"_s) + lack(u"Ico.ico"_s) + lack(u"Jot.ico"_s) + lack(u"HeadIco.ico"_s) +
                 lack(u"JotIco"_s));
    EXPECT_FALSE(CheckFiles());
    EXPECT_EQ(boxes.Last().height, 5 * 25 + 100);
    EXPECT_EQ(boxes.Last().width, 500);
    EXPECT_EQ(boxes.Last().icon, 2);
    EXPECT_EQ(boxes.Last().title, u"严重错误!"_s);
    EXPECT_EQ(boxes.Last().buttons, u"确定"_s);
    EXPECT_EQ(SampleBytes(), SampleBookImage());

    WriteSample("edited");
    for (const auto& name : {u"JotAgent"_s, u"Ico.ico"_s, u"Jot.ico"_s, u"HeadIco.ico"_s, u"JotIco"_s})
        PutFile(u"program/"_s + name);
    EXPECT_TRUE(CheckFiles());
    EXPECT_EQ(SampleBytes(), QByteArray("edited"));  // only a box that was just made gets the sample

    QFile::remove(BesideProgram(u"JotIco"_s));
    State().gDefaultBox = SettingsFile() + u"/box"_s;
    boxes.Expect(u"意外错误, 可能路径中包含了非法字符 或 当前Windows用户无权限"_s + lack(u"JotIco"_s));
    EXPECT_FALSE(CheckFiles());
    EXPECT_EQ(boxes.Last().height, 2 * 25 + 100);
}
