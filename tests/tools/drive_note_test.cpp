// The driver's requests on notes.

#include "tests/support/drive_fixture.h"

using namespace Qt::StringLiterals;

TEST_F(DriveTest, NotesAreSavedListedFinishedAndDeleted) {
    const QString settings = Path(u"Set.ini"_s);
    ASSERT_TRUE(QFile::copy(QString::fromUtf8(KESTRO_SET_INI), settings));
    QFile::setPermissions(settings, QFile::ReadOwner | QFile::WriteOwner);
    {
        cConnection file;
        file.Open(settings);
        file.Execute(
            u"insert into tAd (Id1,Title1,Date1,Time1,bWakeOk) values"
            u" (1,'消息','2016-09-01','08:00:00',0)"_s);
    }
    const QByteArray now = R"(,"now":"2016-09-05 08:00:00"})";
    const QByteArray requests =
        R"({"cmd":"noteSave","id":-1,"mode":"wake","title":"交房租","note":"","wake":true,"wakeDate":"2016/9/5","flag":false,"done":false,"pic":"0")" +
        now + R"(
{"cmd":"noteSave","id":-1,"mode":"note","title":""}
{"cmd":"due")" +
        now + R"(
{"cmd":"notes","list":"wake"}
{"cmd":"noteSave","id":2,"flag":true}
{"cmd":"notes","list":"note","text":"租","flag":true,"wake":true}
{"cmd":"noteOpen","id":1,"tag":"web"}
{"cmd":"noteOpen","id":-1,"mode":"note"}
{"cmd":"noteCancel"}
{"cmd":"noteFinish","list":"wake","id":2,"tag":"wake"}
{"cmd":"noteFinishChecked","list":"wake","keys":[{"id":1,"tag":"web"}]}
{"cmd":"noteDelete","list":"note","id":1,"tag":"web"}
{"cmd":"noteDeleteChecked","list":"note","keys":[{"id":2,"tag":"note"}]}
{"cmd":"due")" +
        now + "\n";
    const auto run = Drive(requests, {u"--settings"_s, settings});
    ASSERT_EQ(run.answers.size(), 14U);
    const auto& a = run.answers;
    EXPECT_EQ(a[0][u"id"].toInt(), 2);
    EXPECT_EQ(a[1][u"message"].toString(), u"【标题】不能为空!"_s);
    EXPECT_EQ(a[1][u"focus"].toString(), u"txtTitle"_s);
    EXPECT_EQ(a[2][u"count"].toInt(), 2);
    EXPECT_EQ(a[2][u"lines"][1][u"cells"].toVariant().toStringList(), (QStringList{u"平台"_s, u"消息"_s}));
    EXPECT_EQ(a[3][u"lines"][0][u"cells"].toVariant().toStringList(),
              (QStringList{u"1"_s, u"2016-09-05 08:00:00"_s, u"2016-09-05"_s, u"交房租"_s, QString()}));
    EXPECT_EQ(a[3][u"lines"][1][u"tag"].toString(), u"web"_s);
    EXPECT_EQ(a[4][u"id"].toInt(), 2);
    EXPECT_EQ(a[5][u"lines"].toArray().size(), 1);
    EXPECT_EQ(a[5][u"lines"][0][u"key"].toString(), u"2"_s);
    EXPECT_EQ(a[6][u"caption"].toString(), u"平台信息查看"_s);
    EXPECT_EQ(a[7][u"caption"].toString(), u"新记事"_s);
    EXPECT_TRUE(a[9][u"ok"].toBool());
    EXPECT_EQ(a[10][u"message"].toString(), u"【平台信息】不可处理，必须双击阅读!"_s);
    EXPECT_TRUE(a[11][u"ok"].toBool());
    EXPECT_EQ(a[12][u"boxes"][1][u"text"].toString(), u"成功删除记录【1】条!"_s);
    EXPECT_EQ(a[13][u"count"].toInt(), 0);
    EXPECT_EQ(Stored(u"select ID1 from tNotebook"_s), QStringList{u"1"_s});
}
