// Set.ini: the first run, every code of SaveSetting, the hand-over, and the check of the files.

#include "store/book_box.h"
#include "store/book_images.h"
#include "store/errors.h"
#include "store/places.h"
#include "store/session.h"
#include "store/settings_file.h"
#include "tests/support/fixture.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

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
    void WriteSample(const QByteArray& bytes) {
        QFile file(Sample());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QByteArray SampleBytes() {
        QFile file(Sample());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

const QString kGeneral =
    u"select nGroup,nHtmPageSize,sWebName,sWebPass,sDBPath,nShowAgentIco,"
    u"(select Value1 from tSetting2 where Key1='LoadDate') from tSetting"_s;

}  // namespace

TEST_F(SettingsTest, TheSampleIsRenewedOnAFirstRunOnly) {
    struct Case {
        QString change;  ///< done to the settings before the start
        bool first;
        QString marker;
    };
    const Case cases[] = {
        {u"select 1"_s, true, u"0"_s},  // as it ships
        {u"select 1"_s, false, u"0"_s},
        {u"update tSetting2 set Value1='1' where Key1='FirstRun'"_s, true, u"0"_s},
        {u"update tSetting2 set Value1='2' where Key1='FirstRun'"_s, false, u"2"_s},
        {u"delete from tSetting2 where Key1='FirstRun'"_s, true, u"0"_s},
        {u"select 1"_s, false, u"0"_s},
    };
    for (const auto& c : cases) {
        Change(c.change);
        WriteSample("edited");
        Load();
        EXPECT_EQ(SampleBytes(), c.first ? SampleBookImage() : QByteArray("edited")) << qPrintable(c.change);
        EXPECT_EQ(Stored(u"select Value1 from tSetting2 where Key1='FirstRun'"_s), QStringList{c.marker});
    }
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
    QFile broken(SettingsFile());
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("[Settings] nGroup=3");
    broken.close();
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

TEST_F(SettingsTest, TheGeneralSettingsAreSavedTogetherOrNotAtAll) {
    Load();
    const auto before = Stored(kGeneral);
    auto& s = State().settings;
    s.nGroup = 4;
    s.nHtmPageSize = 99;
    s.sWebName = u"it's"_s;
    s.sWebPass = u"p"_s;
    s.sDBPath = u"/b"_s;
    s.nShowAgentIco = 0;
    s.LoadDate = u"premonth"_s;
    int n = 1;
    for (;; ++n) {
        int seen = 0;
        cConnection::Seams().beforeStatement = [&](const QString& sql) {
            if (++seen == n) FailStatement(u"刺探"_s, sql);
        };
        const bool saved = Succeeds([] { SaveSetting({}, kSaveAll); });
        cConnection::Seams().beforeStatement = {};
        if (saved) break;
        EXPECT_EQ(Stored(kGeneral), before) << n;
    }
    EXPECT_GT(n, 1);
    EXPECT_EQ(Stored(kGeneral), QStringList{u"4|99|it's|p|/b|0|premonth"_s});
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
    const QStringList names{u"JotAgent"_s, u"Set.ini"_s,     u"Ico.ico"_s,
                            u"Jot.ico"_s,  u"HeadIco.ico"_s, u"JotIco"_s};
    const auto touch = [&](const QString& name) {
        QFile file(BesideProgram(name));
        EXPECT_TRUE(file.open(QIODevice::Append));
    };
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
    for (const auto& name : names)
        touch(name);
    EXPECT_TRUE(CheckFiles());
    EXPECT_EQ(SampleBytes(), QByteArray("edited"));  // only a box that was just made gets the sample

    QFile::remove(BesideProgram(u"JotIco"_s));
    State().gDefaultBox = SettingsFile() + u"/box"_s;
    boxes.Expect(u"意外错误, 可能路径中包含了非法字符 或 当前Windows用户无权限"_s + lack(u"JotIco"_s));
    EXPECT_FALSE(CheckFiles());
    EXPECT_EQ(boxes.Last().height, 2 * 25 + 100);
}

TEST_F(SettingsTest, TheCountOnTheLogoHoldsDueNotesAndOpenMessages) {
    Load();
    OpenSample();
    EXPECT_EQ(DueCount(), 0);
    State().gDB.Execute(
        u"insert into tNotebook (ID1,bWake,bWakeOk,WakeDate) values (2,1,0,'2016-09-03'), "
        u"(3,1,0,'2016-09-04'),"
        u" (4,1,1,'2016-09-01'), (5,0,0,'2016-09-01'), (6,1,0,'2015-12-31')"_s);
    State().gSetDB.Execute(u"insert into tAd (Id1,bWakeOk) values (1,0), (2,1)"_s);
    EXPECT_EQ(DueCount(), 3);
}
