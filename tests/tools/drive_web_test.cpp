// The driver's requests on the web ledger, without a network.

#include "tests/support/drive_fixture.h"
#include "tests/support/web_fixture.h"
#include "tests/support/web_service.h"

#include <QEventLoop>
#include <QProcess>

using namespace Qt::StringLiterals;

TEST_F(DriveTest, WebEntriesAreReadStoredPostedAndDeleted) {
    const QString lines =
        SiteLine(u"a"_s) + u"\r\n"_s + SiteLine(u"b"_s, {{2, u"99"_s}}) + u"\r\n"_s + SiteLine(u"c"_s);
    const auto fields = [&](const QString& data) {
        return QJsonObject{{u"cmd"_s, u"webFields"_s},
                           {u"fields"_s, QJsonArray{QJsonArray{u"txtRet"_s, u"2"_s},
                                                    QJsonArray{u"txtDataRet"_s, u"->DRIVE"_s},
                                                    QJsonArray{u"txtData"_s, data}}}};
    };
    const auto cmd = [](const QString& name, const QJsonObject& more = {}) {
        QJsonObject request = more;
        request.insert(u"cmd"_s, name);
        return request;
    };
    const auto run = Drive({
        cmd(u"webPage"_s,
            {{u"html"_s,
              u"<table><input name=a value='1\n2'><TEXTAREA name=b>&#8756;</textarea></table>"_s}}),
        fields(lines),
        cmd(u"webList"_s, {{u"history"_s, false}}),
        cmd(u"webDelete"_s, {{u"history"_s, false}, {u"ids"_s, QJsonArray{3}}}),
        cmd(u"webLoad"_s),
        cmd(u"webPost"_s),
        cmd(u"webList"_s, {{u"history"_s, true}}),
        cmd(u"webPost"_s),
        cmd(u"webFields"_s, {{u"fields"_s, u"no list"_s}}),
        cmd(u"webDelete"_s,
            {{u"history"_s, true}, {u"ids"_s, QJsonArray{1, 2, 3}}, {u"answer"_s, u"取消"_s}}),
    });
    const auto& a = run.answers;
    const auto element = [&](int i) { return a[0][u"elements"].toArray()[i].toObject(); };
    EXPECT_EQ(element(0)[u"value"].toString(), u"1\r\n2"_s);
    EXPECT_EQ(element(1)[u"tag"].toString() + element(1)[u"value"].toString(), u"TEXTAREA∴"_s);
    EXPECT_EQ(a[1][u"requests"].toArray(), QJsonArray{u"getListDel.asp"_s});
    EXPECT_EQ(a[1][u"webOk"].toInt(), 1);
    EXPECT_EQ(a[1][u"webBook"].toString(), u"->DRIVE"_s);
    EXPECT_EQ(a[1][u"count"].toString(), u"0"_s);
    EXPECT_EQ(a[1][u"boxes"].toArray()[0][u"text"].toString(), u"收到【3】条新的记账!"_s);
    EXPECT_EQ(a[2][u"lines"].toArray().size(), 3);
    EXPECT_EQ(a[2][u"lines"].toArray()[1][u"key"].toString(), u"2"_s);
    EXPECT_TRUE(a[3][u"ok"].toBool());
    EXPECT_EQ(a[5][u"posted"].toInt() * 10 + a[5][u"notPosted"].toInt(), 11);
    QStringList fates;
    for (const auto& line : a[6][u"lines"].toArray())
        fates << line[u"key"].toString() + line[u"cells"].toArray().last().toString();
    EXPECT_EQ(fates, (QStringList{u"1已入账"_s, u"2未入账"_s, u"3未入账"_s}));
    EXPECT_EQ(a[7][u"message"].toString(), u"【没有】需要入账的记录!"_s);
    EXPECT_EQ(a[8][u"error"].toString(), u"bad field: fields"_s);
    EXPECT_FALSE(a[9][u"ok"].toBool());
    EXPECT_EQ(Stored(u"select count(*) from tAccountWebDel"_s), QStringList{u"3"_s});
}

TEST_F(DriveTest, AWebConversationIsPlayedToItsEnd) {
    WebService service;
    service.book = u"->drive"_s;
    service.entries = {SiteLine(u"a"_s)};
    service.moods = {{u"upKindAcc.asp"_s, Mood::reset}};
    QProcess process;
    auto world = QProcessEnvironment::systemEnvironment();
    world.insert(u"JOT_WEB_BASE"_s, service.Base());
    process.setProcessEnvironment(world);
    process.start(QString::fromUtf8(KESTRO_DRIVE), {u"--data"_s, Path(u"data"_s), path_});
    process.write(
        R"({"cmd":"web","op":"validate","user":"lin","pass":"geheim"}
{"cmd":"web","op":"count"}
{"cmd":"web","op":"fetch"}
{"cmd":"web","op":"upload"}
{"cmd":"web","op":"upload","answer":"取消"}
{"cmd":"web","op":"unheard"}
)");
    process.closeWriteChannel();
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    loop.exec();
    std::vector<QJsonObject> a;
    for (const auto& line : process.readAllStandardOutput().split('\n'))
        if (!line.isEmpty()) a.push_back(QJsonDocument::fromJson(line).object());
    ASSERT_EQ(a.size(), 6U);
    const auto box = [&](size_t i, int n = 0) { return a[i][u"boxes"].toArray()[n][u"text"].toString(); };
    EXPECT_EQ(a[0][u"requests"].toArray(), QJsonArray{u"getRegInfo.asp"_s});
    EXPECT_EQ(box(0), u"验证成功!"_s);
    EXPECT_EQ(a[1][u"count"].toString() + a[1][u"webBook"].toString(), u"1->drive"_s);
    EXPECT_EQ(a[2][u"requests"].toArray(), (QJsonArray{u"getListData.asp"_s, u"getListDel.asp"_s}));
    EXPECT_EQ(box(2), u"收到【1】条新的记账!"_s);
    EXPECT_EQ(a[3][u"requests"].toArray(), QJsonArray{u"upKindAcc.asp"_s});
    EXPECT_EQ(box(3, 1), u"上传失败：网站没有回答就断开了"_s);
    EXPECT_EQ(a[4][u"requests"].toArray(), QJsonArray());
    EXPECT_EQ(a[5][u"error"].toString(), u"bad field: op"_s);
}
