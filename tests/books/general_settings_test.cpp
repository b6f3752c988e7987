// Saving the general settings: the four ways of the book box, and a write that fails.

#include "books/general_settings.h"

#include "store/notices.h"
#include "store/settings_file.h"
#include "tests/books/books_fixture.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

class GeneralSettings : public BooksFixture {
 protected:
    GeneralSettings() {
        const QString path = Path(u"Set.ini"_s);
        EXPECT_TRUE(QFile::copy(QString::fromUtf8(KESTRO_SET_INI), path));
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther);
        OpenSettings(path);
        State().settings.sDBPath = Box();
    }
    GeneralForm Same() const {
        const auto& s = State().settings;
        return {s.nGroup, s.sDBPath, s.sWebName, s.sWebPass};
    }
    QStringList Stored() {
        return Rows(State().gSetDB,
                    u"select nGroup,nHtmPageSize,sDBPath,sWebName,sWebPass,nShowAgentIco,"
                    u"(select Value1 from tSetting2 where Key1='LoadDate') from tSetting"_s);
    }
};

}  // namespace

TEST_F(GeneralSettings, TheFourWaysOfTheBookBox) {
    const QString box = Box(), other = Path(u"Other"_s);
    QDir().mkpath(other);
    QDir().mkpath(State().gDefaultBox);
    auto form = Same();
    // Whatever leads to the same folder leaves it as it is.
    for (const QString& same : {box, u"  "_s + box.toUpper() + u' ', box + u'/'}) {
        form.path = same;
        const auto saved = SaveGeneralSettings(form);
        EXPECT_EQ(saved.message, u"保存成功！"_s) << qPrintable(same);
        EXPECT_EQ(saved.icon, kMsgInfo);
        EXPECT_EQ(saved.restart, QString());
        EXPECT_EQ(State().settings.sDBPath, box);
    }
    for (const QString& missing : {Path(u"missing"_s), u"box"_s, Path(u"Set.ini"_s)}) {
        form.path = missing;
        form.webName = missing;
        const auto saved = SaveGeneralSettings(form);
        EXPECT_EQ(saved.message, u"指定的账本盒【存储路径】不存在!\r\n其它设置保存成功!"_s);
        EXPECT_EQ(State().settings.sDBPath, box);
        EXPECT_EQ(State().settings.sWebName, missing);
    }
    QDir().mkpath(Path(u"rival"_s));
    QDir().mkpath(Path(u"Rival"_s));
    form.path = Path(u"Rival"_s);
    EXPECT_TRUE(SaveGeneralSettings(form).message.startsWith(u"有只差大小写的同名文件夹"_s));
    EXPECT_EQ(State().settings.sDBPath, box);
    form.path = other;
    auto saved = SaveGeneralSettings(form);
    EXPECT_EQ(saved.message, QString());
    EXPECT_EQ(saved.restart,
              u"账本盒存储位置有改变, 因此需要【关闭、重启】程序!\n"
              u"建议把【原路径】下的账本盒中的账本『移动』到【新路径】下!\n原路径\n"_s +
                  box + u"\n新路径\n"_s + other.toLower());
    EXPECT_EQ(State().settings.sDBPath, other.toLower());
    EXPECT_EQ(Rows(State().gSetDB, u"select Value1 from tSetting2 where Key1='BoxFolder'"_s),
              QStringList{other});
    form.path = u"  "_s;
    saved = SaveGeneralSettings(form);
    EXPECT_EQ(saved.message, u"设置保存成功!\r\n由于账本盒【存储路径】为【空】, 将使用【默认路径】：\r\n"_s +
                                 State().gDefaultBox);
    EXPECT_EQ(saved.box, State().gDefaultBox);
    EXPECT_FALSE(saved.restart.isEmpty());
}

TEST_F(GeneralSettings, EverythingIsWrittenAndGroupingIsTold) {
    int told = 0;
    const auto heard = Notices().groupingChanged.Subscribe([&] { ++told; });
    auto& settings = State().settings;
    settings.nHtmPageSize = 70;
    settings.LoadDate = u"rcently"_s;
    settings.nShowAgentIco = 0;
    SaveGeneralSettings({0, Box(), u"na'me"_s, u"pa'ss"_s});
    EXPECT_EQ(Stored(), QStringList{u"0|70|"_s + Box() + u"|na'me|pa'ss|0|rcently"_s});
    EXPECT_EQ(told, 1);
    SaveGeneralSettings(Same());
    EXPECT_EQ(told, 1);
    const auto others = QFile::ReadGroup | QFile::ReadOther;
    EXPECT_EQ(QFileInfo(Path(u"Set.ini"_s)).permissions() & others, 0);
}

TEST_F(GeneralSettings, AWriteThatFailsAtAnyPlaceRestoresWhatStandsInMemory) {
    QDir().mkpath(Path(u"other"_s));
    int told = 0;
    const auto heard = Notices().groupingChanged.Subscribe([&] { ++told; });
    const GeneralForm form = Same();
    QStringList before;
    Settings memory;
    const auto prepare = [&] {
        State().gSetDB.Open(Path(u"Set.ini"_s));
        State().settings.LoadDate = u"all"_s;
        SaveGeneralSettings(form);
        before = Stored();
        cConnection::Seams().vfs = TestDisk();
        Disk() = {};
        State().gSetDB.Open(Path(u"Set.ini"_s));
        State().settings.LoadDate = u"month"_s;  // stands in another table
        memory = State().settings;
        told = 0;
    };
    const auto save = [&] { SaveGeneralSettings({4, Path(u"other"_s), u"n"_s, u"p"_s}); };
    const auto check = [&](bool done) {
        EXPECT_EQ(told, done ? 1 : 0);
        if (done) return;
        const auto& now = State().settings;
        EXPECT_EQ(now.nGroup, memory.nGroup);
        EXPECT_EQ(now.sDBPath, memory.sDBPath);
        EXPECT_EQ(now.sWebName + now.sWebPass, memory.sWebName + memory.sWebPass);
        EXPECT_EQ(Stored(), before);
    };
    for (const auto operation : {DiskFaults::kWrite, DiskFaults::kSync, DiskFaults::kOpen})
        EXPECT_GT(FailEach({.failing = operation}, {prepare, save, check}), 0) << operation;
}
