// Path rules of both platforms, and the file system under paths in lower case.

#include "store/paths.h"

#include "tests/support/fixture.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QString kNoRoot = u"待创建路径未包含盘符或盘符格式不正确"_s;
const QString kBadForm = u"待创建路径格式不正确"_s;
const QString kGap = u"路径中包含空字符串"_s;
const QString kUnexpected = u"意外错误, 可能路径中包含了非法字符 或 当前Windows用户无权限"_s;

using PathsTest = Fixture;

}  // namespace

TEST_F(PathsTest, FoldersArePlannedLevelByLevel) {
    struct Case {
        PathStyle style;
        QString path;
        QStringList levels;
        QString error;
    };
    constexpr auto kWin = PathStyle::windows;
    constexpr auto kPosix = PathStyle::posix;
    const Case cases[] = {
        {kWin, u"C:\\a\\b"_s, {u"C:\\a"_s, u"C:\\a\\b"_s}, {}},
        {kWin, u" c:/a / b/ "_s, {u"c:\\a"_s, u"c:\\a\\b"_s}, {}},
        {kWin, u"C:\\墨鹊\\账本\\"_s, {u"C:\\墨鹊"_s, u"C:\\墨鹊\\账本"_s}, {}},
        {kWin, u"  "_s, {}, u"待创建路径为空"_s},
        {kWin, u"a\\b"_s, {}, kNoRoot},
        {kWin, u"a\\C:\\b"_s, {}, kNoRoot},
        {kWin, u"C:"_s, {}, kBadForm},
        {kWin, u"C:\\"_s, {}, kBadForm},
        {kWin, u"X:\\a"_s, {}, u"待创建路径中的盘符无效"_s},
        {kWin, u"C:\\a\\\\b"_s, {}, kGap},
        {kWin, u"C:\\ \\b"_s, {}, kGap},
        {kWin, u"C:\\\\"_s, {}, kGap},
        {kPosix, u"/a/b"_s, {u"/a"_s, u"/a/b"_s}, {}},
        {kPosix, u" /a b/c/ "_s, {u"/a b"_s, u"/a b/c"_s}, {}},
        {kPosix, u"/a\\b"_s, {u"/a\\b"_s}, {}},
        {kPosix, u""_s, {}, u"待创建路径为空"_s},
        {kPosix, u"a/b"_s, {}, kNoRoot},
        {kPosix, u"/"_s, {}, kBadForm},
        {kPosix, u"/a//b"_s, {}, kGap},
    };
    const auto isC = [](const QString& drive) { return drive.toLower() == u"c:"; };
    for (const auto& c : cases) {
        const auto plan =
            PlanFolders(c.path, c.style, c.style == kWin ? isC : std::function<bool(const QString&)>());
        EXPECT_EQ(plan.levels, c.levels) << qPrintable(c.path);
        EXPECT_EQ(plan.error, c.error) << qPrintable(c.path);
    }
}

TEST_F(PathsTest, FoldersAreMadeUnderTheSpellingThatIsThere) {
    QDir().mkpath(Path(u"Box"_s));
    EXPECT_EQ(MakeFolders(Path(u"box/New/深"_s)), QString());
    EXPECT_TRUE(QDir(Path(u"Box/New/深"_s)).exists());
    EXPECT_EQ(MakeFolders(Path(u"box/new/深"_s)), QString());
    EXPECT_EQ(QDir(Path({})).entryList(QDir::Dirs | QDir::NoDotAndDotDot), QStringList{u"Box"_s});
    PutFile(u"Box/file"_s);
    EXPECT_EQ(MakeFolders(Path(u"Box/file/below"_s)), kUnexpected);
    EXPECT_EQ(MakeFolders(Path(u"Box//x"_s)), kGap);
    QDir().mkpath(Path(u"BOX"_s));
    EXPECT_EQ(MakeFolders(Path(u"bOx/x"_s)), kUnexpected);
}

TEST_F(PathsTest, NewFoldersAreTheirUsersOwnAndAStandingBlankStays) {
    ASSERT_TRUE(QDir().mkdir(Path(u"home "_s)));
    EXPECT_EQ(MakeFolders(Path(u"home /New/墨 /x"_s)), QString());
    EXPECT_TRUE(QDir(Path(u"home /New/墨/x"_s)).exists());
    EXPECT_EQ(MakeFolders(Path(u"home "_s)), QString());
    EXPECT_EQ(QDir(Path({})).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList{u"home "_s});
    const auto others = QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
    EXPECT_EQ(QFile::permissions(Path(u"home /New"_s)) & others, 0);
}

TEST_F(PathsTest, NamesAndParentsAreCutFromPaths) {
    struct Case {
        PathStyle style;
        QString path;
        int cut;
        QString name, kept;
    };
    const Case cases[] = {
        {PathStyle::windows, u" C:/box/My.jotdb "_s, 6, u"My"_s, u"C:\\box\\My.jotdb"_s},
        {PathStyle::windows, u"C:\\box\\a.b"_s, 0, u"a.b"_s, u"C:\\box\\a.b"_s},
        {PathStyle::windows, u"name"_s, 4, u"name"_s, u"name"_s},
        {PathStyle::windows, u"C:\\box\\"_s, 2, u""_s, u"C:\\box\\"_s},
        {PathStyle::windows, u"  "_s, 2, u""_s, u""_s},
        {PathStyle::posix, u" /box/账本.jotdb "_s, 6, u"账本"_s, u"/box/账本.jotdb"_s},
        {PathStyle::posix, u"/box/a\\b"_s, -1, u"a\\b"_s, u"/box/a\\b"_s},
        {PathStyle::posix, u"/box/.jotdb"_s, 6, u".jotdb"_s, u"/box/.jotdb"_s},
    };
    for (const auto& c : cases) {
        QString path = c.path;
        EXPECT_EQ(FileNameOf(path, c.cut, c.style), c.name) << qPrintable(c.path);
        EXPECT_EQ(path, c.kept) << qPrintable(c.path);
    }
    EXPECT_EQ(ParentPath(u"/a/b/c.jotdb"_s), u"/a/b"_s);
    EXPECT_EQ(ParentPath(u"C:\\a\\b"_s), u"C:\\a"_s);
    EXPECT_EQ(ParentPath(u"C:\\a/b\\c"_s), u"C:\\a"_s);
    EXPECT_EQ(ParentPath(u"/a"_s) + ParentPath(u"a"_s) + ParentPath({}), QString());
}

TEST_F(PathsTest, SystemFoldersAreNoBookBoxes) {
    struct Case {
        PathStyle style;
        QString path;
        bool forbidden;
    };
    constexpr auto kWin = PathStyle::windows;
    constexpr auto kPosix = PathStyle::posix;
    const Case cases[] = {
        {kWin, u"c:\\windows\\box"_s, true},
        {kWin, u"c:\\program files (x86)\\a"_s, true},
        {kWin, u"c:\\users\\me"_s, true},
        {kWin, u"c:\\用户\\me"_s, true},
        {kWin, u"d:\\windows"_s, false},
        {kWin, u"c:\\kestrodata"_s, false},
        {kPosix, u"/usr"_s, true},
        {kPosix, u"/usr/local/box"_s, true},
        {kPosix, u"/usrbox"_s, false},
        {kPosix, u"/home/usr"_s, false},
        {kPosix, u"/etc/x"_s, true},
        {kPosix, u"/opt/kestrojot"_s, true},
        {kPosix, u"/opt/kestrojot/box"_s, true},
        {kPosix, u"/opt/kestrojot-books"_s, false},
        {kPosix, u"/Dev/x"_s, true},
        {kPosix, u"/opt"_s, false},
    };
    for (const auto& c : cases)
        EXPECT_EQ(IsForbiddenBox(c.path, c.style, u"C:"_s, u"/opt/KestroJot"_s), c.forbidden)
            << qPrintable(c.path);
}

TEST_F(PathsTest, TheExactSpellingComesFirstAndRivalsAreToldApart) {
    QDir().mkpath(Path(u"box2"_s));
    PutFile(u"Box/One.jotdb"_s);
    PutFile(u"Box/two.jotdb"_s);
    PutFile(u"Box/TWO.jotdb"_s);
    PutFile(u"BOX2/only.jotdb"_s);
    const auto real = [this](const QString& name) { return RealPath(Path(name)); };
    EXPECT_EQ(real(u"box/ONE.JOTDB"_s).path, Path(u"Box/One.jotdb"_s));
    EXPECT_EQ(real(u"Box/two.jotdb"_s).path, Path(u"Box/two.jotdb"_s));
    EXPECT_TRUE(real(u"Box/two.jotdb"_s).rivals.isEmpty());
    EXPECT_FALSE(real(u"box/Two.jotdb"_s).exists);
    EXPECT_EQ(real(u"box/Two.jotdb"_s).rivals.size(), 2);
    EXPECT_EQ(real(u"Box2/only.jotdb"_s).path, Path(u"BOX2/only.jotdb"_s));  // the other folder has none
    EXPECT_EQ(real(u"box/new.jotdb"_s).path, Path(u"Box/new.jotdb"_s));
    EXPECT_FALSE(real(u"box/new.jotdb"_s).exists);
    EXPECT_EQ(real(u"bOX2/new.jotdb"_s).rivals.size(), 2);
    EXPECT_TRUE(FileExists(Path(u"box/one.jotdb"_s)));
    EXPECT_TRUE(FileExists(Path(u"box/Two.jotdb"_s)));  // so that nothing is written over either
    EXPECT_FALSE(FileExists(Path(u"box"_s)));
    EXPECT_TRUE(FolderExists(Path(u"BOX"_s)));
    EXPECT_FALSE(FolderExists(Path(u"box/one.jotdb"_s)));
}

// Paths arrive in lower case. An exact child is asked for by its name; below it a known folder leads on.
TEST_F(PathsTest, BelowAFolderThatCannotBeListed) {
    const QString shut = Path(u"shut"_s);
    for (const auto& name : {u"exact/One"_s, u"Known/Two"_s, u"Other/Three"_s})
        PutFile(u"shut/"_s + name + u".jotdb"_s);
    KnowFolder(shut + u"/Known"_s);
    const auto own = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    const auto through = QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    QFile::setPermissions(Path({}), own | through);
    for (const auto& folder : {u"/exact"_s, u"/Known"_s, u"/Other"_s})
        QFile::setPermissions(shut + folder, own | through | QFile::ReadGroup | QFile::ReadOther);
    QFile::setPermissions(shut, through);
    FoundPath exact, known, other;
    {
        const WithoutRights rights;
        const auto real = [&](const QString& name) { return RealPath((shut + name).toLower()); };
        exact = real(u"/exact/one.jotdb"_s);
        known = real(u"/known/two.jotdb"_s);
        other = real(u"/other/three.jotdb"_s);
    }
    QFile::setPermissions(shut, own);
    EXPECT_EQ(exact.path, shut + u"/exact/One.jotdb"_s);
    EXPECT_EQ(known.path, shut + u"/Known/Two.jotdb"_s);
    EXPECT_FALSE(other.exists);
}

TEST_F(PathsTest, ASpellingThatLowerCaseLeadsElsewhereIsToldWithItsRival) {
    PutFile(u"Books/one.jotdb"_s);
    PutFile(u"books/one.jotdb"_s);
    PutFile(u"Books/Two.jotdb"_s);
    PutFile(u"books/a.jotdb"_s);
    PutFile(u"books/A.jotdb"_s);
    const auto rivals = [this](const QString& name) { return SpelledPath(Path(name)).rivals.size(); };
    EXPECT_EQ(rivals(u"Books/Two.jotdb"_s), 0);
    EXPECT_EQ(rivals(u"Books/TWO.jotdb"_s), 0);  // typed; only one is there
    EXPECT_EQ(rivals(u"Books/one.jotdb"_s), 2);
    EXPECT_EQ(rivals(u"books/A.jotdb"_s), 2);
    EXPECT_EQ(rivals(u"Books"_s), 2);
    QFile::link(Path(u"Books"_s), Path(u"Linked"_s));
    EXPECT_TRUE(IsSameFile(Path(u"Linked/Two.jotdb"_s), Path(u"Books/Two.jotdb"_s)));
    EXPECT_FALSE(IsSameFile(Path(u"Books/one.jotdb"_s), Path(u"books/one.jotdb"_s)));
    EXPECT_FALSE(IsSameFile(Path(u"none"_s), Path(u"none"_s)));
}
