// The driver's requests on pictures.

#include "tests/support/drive_fixture.h"

using namespace Qt::StringLiterals;

namespace {

QJsonObject Texts(const QString& fn, const QJsonArray& args) {
    return {{u"cmd"_s, u"texts"_s}, {u"fn"_s, fn}, {u"args"_s, args}};
}

QJsonObject Save(qint64 id, const QJsonArray& items) {
    return {{u"cmd"_s, u"picturesSave"_s},
            {u"table"_s, u"tAccount"_s},
            {u"id"_s, id},
            {u"single"_s, id < 0},
            {u"items"_s, items}};
}

}  // namespace

TEST_F(DriveTest, PicturesAreKeptAddedAndCancelled) {
    const QJsonObject a{{u"file"_s, PutFile(u"a.jpg"_s, QByteArray(307200, 'x'))}, {u"note"_s, u"发票"_s}};
    const QJsonObject over{{u"file"_s, PutFile(u"b.jpg"_s, QByteArray(307201, 'x'))}};
    const QJsonObject first{{u"keep"_s, 0}};
    const QJsonObject list{{u"cmd"_s, u"pictures"_s}, {u"table"_s, u"tAccount"_s}, {u"id"_s, 7}};
    const auto run = Drive({Save(7, {first, a}),
                            list,
                            Save(7, {a, over}),
                            Save(7, {a, a}),
                            Save(7, {5}),
                            Save(-1, {a}),
                            {{u"cmd"_s, u"entryCancel"_s}},
                            {{u"cmd"_s, u"folder"_s}, {u"path"_s, Path({})}}});
    EXPECT_EQ(run.answers[0][u"count"], 2);
    const auto items = run.answers[1][u"items"].toArray();
    ASSERT_EQ(items.size(), 2);
    EXPECT_EQ(items[0][u"note"].toString(), u"选果机控制系统.jpg"_s);
    EXPECT_EQ(items[1][u"note"].toString(), u"发票"_s);
    EXPECT_EQ(items[1][u"bytes"], 307200);
    EXPECT_EQ(items[1][u"sha1"].toString().size(), 40);
    EXPECT_EQ(run.answers[2][u"message"].toString(), u"图片不能大于 300 K !"_s);
    EXPECT_EQ(run.answers[3][u"message"].toString(), u"已经添加，不能重复添加!"_s);
    EXPECT_EQ(run.answers[4][u"error"].toString(), u"bad field: items"_s);
    EXPECT_EQ(run.answers[5][u"count"], 1);
    EXPECT_EQ(run.answers[6][u"ok"], true);
    const auto lines = run.answers[7][u"lines"].toArray();
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[0][u"cells"].toArray(), (QJsonArray{u"1"_s, u"a.jpg"_s, u"300"_s}));
    EXPECT_EQ(lines[0][u"over"], false);
    EXPECT_EQ(lines[1][u"over"], true);
    EXPECT_EQ(Stored(u"select Note1,lFromId from tPic"_s),
              (QStringList{u"选果机控制系统.jpg|7"_s, u"发票|7"_s}));
    EXPECT_EQ(Stored(u"select sPic from tAccount where Id1=7"_s), QStringList{u"2"_s});
}

TEST_F(DriveTest, ImagesAreScaledAndTurned) {
    // A bitmap of 200 x 100 pixels and one bit each.
    const QByteArray head = QByteArray::fromHex(
        "424d0000000000000000 3e000000 28000000 c8000000 64000000 0100 0100 00000000"
        "00000000 00000000 00000000 02000000 00000000 000000ff ffffff00");
    PutFile(u"a.jpg"_s, head + QByteArray(28 * 100, '\x55'));
    const auto ask = [this](const QString& file, const QString& op, const QJsonArray& args) {
        return QJsonObject{{u"cmd"_s, u"image"_s},
                           {u"file"_s, Path(file)},
                           {u"op"_s, op},
                           {u"args"_s, args},
                           {u"out"_s, Path(u"out/../out.jpg"_s)}};
    };
    QDir().mkpath(Path(u"out"_s));
    const auto run = Drive(
        {ask(u"a.jpg"_s, u"thumbnail"_s, {120, 90, true}), ask(u"a.jpg"_s, u"resize"_s, {0, 50, false}),
         ask(u"a.jpg"_s, u"rotate"_s, {1}), ask(u"none.jpg"_s, u"rotate"_s, {1}), Texts(u"ZoomIn"_s, {0.9}),
         Texts(u"ZoomOut"_s, {0.2}), Texts(u"FitToBox"_s, {400, 300, 800, 300}),
         Texts(u"FitToBox"_s, {0, 300, 800, 300}), Texts(u"ThumbnailSize"_s, {3000, 2000, 120, 90, true}),
         Texts(u"ReSizeOf"_s, {300, 200, 150, 0, false}), Texts(u"GdiErrorString"_s, {10})});
    const auto size = [&](size_t i) {
        return std::pair(run.answers[i][u"width"].toInt(), run.answers[i][u"height"].toInt());
    };
    EXPECT_EQ(size(0), std::pair(120, 60));
    EXPECT_EQ(size(1), std::pair(100, 50));
    EXPECT_EQ(size(2), std::pair(100, 200));
    EXPECT_TRUE(QFileInfo(Path(u"out.jpg"_s)).size() > 0);
    EXPECT_EQ(run.answers[3][u"status"], 10);
    EXPECT_TRUE(
        run.answers[3][u"message"].toString().startsWith(u"Error : rotate\nError code 10\nFile Not Found"_s));
    EXPECT_EQ(run.answers[4][u"value"], 1.1);
    EXPECT_EQ(run.answers[5][u"value"], 0.1);
    EXPECT_EQ(run.answers[5][u"boxes"][0][u"text"].toString(), u"最多缩小到 10%"_s);
    EXPECT_EQ(run.answers[6][u"value"].toArray(), (QJsonArray{400, 150, 0, 75, 0.5}));
    EXPECT_EQ(run.answers[7][u"value"], false);
    EXPECT_EQ(run.answers[8][u"value"].toArray(), (QJsonArray{120, 80}));
    EXPECT_EQ(run.answers[9][u"value"].toArray(), (QJsonArray{150, 100}));
    EXPECT_EQ(run.answers[10][u"value"].toString(), u"File Not Found"_s);
}
