// The driver's requests on books and settings.

#include "tests/support/drive_fixture.h"

#include <QDir>

using namespace Qt::StringLiterals;

TEST_F(DriveTest, BooksAreMadeChangedCopiedAndDeletedInABox) {
    const QString box = Path(u"box"_s), settings = Path(u"Set.ini"_s), book = box + u"/2016家用.jotdb"_s;
    ASSERT_TRUE(QDir().mkpath(box));
    ASSERT_TRUE(QDir().mkpath(Path(u"to"_s)));
    ASSERT_TRUE(QFile::rename(path_, book));
    ASSERT_TRUE(QFile::copy(book, path_));
    ASSERT_TRUE(QFile::copy(QString::fromUtf8(KESTRO_SET_INI), settings));
    QFile::setPermissions(settings, QFile::ReadOwner | QFile::WriteOwner);
    const QByteArray made = (box + u"/2017家用.jotdb"_s).toUtf8(), to = Path(u"to"_s).toUtf8();
    const QByteArray requests =
        R"({"cmd":"books"}
{"cmd":"reference","name":"2016家用","pass":""}
{"cmd":"reference","name":"2016家用","pass":"x"}
{"cmd":"bookNew","name":"a.b","year":"2017"}
{"cmd":"bookNew","name":"2017家用","year":"2017","note":"","pass":"","pass2":"","reference":"2016家用","referencePass":"","kinds":true,"accounts":true,"kindRows":"all","accountRows":[0,2]}
{"cmd":"bookNew","name":"x","reference":"2016家用","referencePass":"","accountRows":[9]}
{"cmd":"bookNew","name":"y","reference":""}
{"cmd":"bookChange","path":")" +
        made + R"(","year":"2018","note":"新","pass":"p","pass2":"p","oldPass":""}
{"cmd":"bookZip","path":")" +
        made + R"("}
{"cmd":"settings","split":2,"htmItems":30,"load":"premonth","agent":false,"webName":"w","webPass":""}
{"cmd":"backup","path":"","to":")" +
        to + R"(","now":"2026-11-15 10:00:00"}
{"cmd":"bookDelete","path":")" +
        made + R"(","pass":"wrong"}
{"cmd":"bookDelete","path":")" +
        made + R"(","pass":"p"}
{"cmd":"books"}
{"cmd":"texts","fn":"SizeText","args":[1572864]}
{"cmd":"texts","fn":"BackupFolder","args":["D:"],"style":"windows","now":"2026-11-15 10:00:00"}
{"cmd":"texts","fn":"ForbiddenBox","args":["c:\\windows\\x","C:"],"style":"windows"}
{"cmd":"list"}
)";
    QProcess process;
    process.start(QString::fromUtf8(KESTRO_DRIVE),
                  {u"--settings"_s, settings, u"--box"_s, box, u"--default-box"_s, Path(u"usual"_s), book});
    process.write(requests);
    process.closeWriteChannel();
    ASSERT_TRUE(process.waitForFinished(20000));
    std::vector<QJsonObject> a;
    for (const auto& line : process.readAllStandardOutput().split('\n'))
        if (!line.isEmpty()) a.push_back(QJsonDocument::fromJson(line).object());
    ASSERT_EQ(a.size(), 18U);
    EXPECT_EQ(a[0][u"lines"][0][u"cells"].toArray(),
              (QJsonArray{u"1"_s, u"2016"_s, u"2016家用"_s, u"10.0"_s}));
    EXPECT_EQ(a[1][u"kinds"][2][u"cells"].toArray(), (QJsonArray{u"3"_s, u"产品收入"_s, u"5000"_s}));
    EXPECT_EQ(a[2][u"message"], u"口令不正确!"_s);
    EXPECT_EQ(a[3][u"focus"], u"name"_s);
    EXPECT_EQ(a[4][u"path"].toString().toUtf8(), made.toLower());
    EXPECT_EQ(a[5][u"error"], u"bad field: kindRows or accountRows"_s);
    EXPECT_EQ(a[6][u"message"], u"选中了【更多选项】,您必须选择【一个账本】!"_s);
    EXPECT_TRUE(a[7][u"ok"].toBool());
    EXPECT_TRUE(a[8][u"boxes"][0][u"text"].toString().startsWith(u"压缩前: "_s));
    EXPECT_EQ(a[9][u"restart"], false);
    EXPECT_EQ(a[10][u"folder"], Path(u"to/墨鹊账本备份20261115"_s));
    EXPECT_EQ(a[10][u"count"], 2);
    EXPECT_EQ(a[11][u"message"], u"口令错误,不能完成操作!"_s);
    EXPECT_EQ(a[12][u"boxes"][1][u"text"].toString(),
              u"没有可用的回收站，要【永久删除】文件【"_s + QString::fromUtf8(made) + u"】吗?"_s);
    EXPECT_EQ(a[13][u"lines"].toArray().size(), 1);
    EXPECT_EQ(a[13][u"current"], 0);
    EXPECT_EQ(a[14][u"value"], u"1.50 M"_s);
    EXPECT_EQ(a[15][u"value"], u"D:\\墨鹊账本备份20261115"_s);
    EXPECT_EQ(a[16][u"value"], true);
    EXPECT_TRUE(a[17][u"ok"].toBool());
    cConnection copy;
    copy.Open(Path(u"to/墨鹊账本备份20261115/2017家用.jotdb"_s));
    EXPECT_EQ(
        Rows(
            copy,
            u"select count(*),(select count(*) from tAccount),(select Note1 from tSubAcc where Sort1='02') from tKind"_s),
        QStringList{u"16|15|"_s});
    cConnection stored;
    stored.Open(settings);
    EXPECT_EQ(Rows(stored, u"select nGroup,nHtmPageSize,nShowAgentIco,sWebName from tSetting"_s),
              QStringList{u"0|30|0|w"_s});
}
