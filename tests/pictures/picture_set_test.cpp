// Every kind of file that bears a picture's name: listed, looked at, added, saved and looked at again.

#include "pictures/gdi_image.h"
#include "tests/pictures/picture_fixture.h"

#include <QBuffer>
#include <QDropEvent>
#include <QFileInfo>
#include <QImageWriter>
#include <QMimeData>
#include <QUrl>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray Jpeg(const QImage& image, bool progressive = false) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpg");
    writer.setProgressiveScanWrite(progressive);
    EXPECT_TRUE(writer.write(image));
    return buffer.data();
}

QImage Filled(int width, int height, QImage::Format format = QImage::Format_RGB32) {
    QImage image(width, height, format);
    image.fill(Qt::darkCyan);
    return image;
}

// Padded by comment segments behind its first mark.
QByteArray PaddedTo(const QByteArray& jpeg, qsizetype bytes) {
    QByteArray comments;
    for (qsizetype left = bytes - jpeg.size(); left > 0;) {
        const qsizetype part = left > 65537 ? std::min<qsizetype>(65537, left - 4) : left;
        comments += QByteArray("\xFF\xFE") + static_cast<char>((part - 2) >> 8) +
                    static_cast<char>((part - 2) & 255) + QByteArray(part - 4, 'x');
        left -= part;
    }
    return jpeg.left(2) + comments + jpeg.mid(2);
}

using PictureSet = PictureStage;

}  // namespace

TEST_F(PictureSet, IsListedAddedShownSavedAndShownAgain) {
    const QByteArray small = Jpeg(Filled(40, 30)), large = Jpeg(Filled(3000, 2000));
    QByteArray png;
    QBuffer buffer(&png);
    ASSERT_TRUE(Filled(20, 10).save(&buffer, "png"));
    const QByteArray most = PaddedTo(small, 307200), over = PaddedTo(small, 307201);
    ASSERT_EQ(std::pair(most.size(), over.size()), std::pair(qsizetype{307200}, qsizetype{307201}));
    const struct {
        QString name;
        QByteArray bytes;
        QSize size;  ///< as displayed; empty where it cannot be drawn
    } set[] = {
        {u"a.jpg"_s, most, {40, 30}},
        {u"b-dot.jpg"_s, Jpeg(Filled(1, 1)), {1, 1}},
        {u"c-large.jpg"_s, large, {3000, 2000}},
        {u"d-grey.jpg"_s, Jpeg(Filled(50, 40, QImage::Format_Grayscale8)), {50, 40}},
        {u"e-progressive.jpg"_s, Jpeg(Filled(60, 40), true), {60, 40}},
        {u"f-turned.jpg"_s, Turned(Jpeg(Filled(60, 40))), {40, 60}},
        {u"g-cut.jpg"_s, large.left(large.size() / 2), {3000, 2000}},
        {u"h-png.jpg"_s, png, {20, 10}},
        {u"i-empty.jpg"_s, {}, {}},
        {u"j'%0a .JPG"_s, small, {40, 30}},
        {u"k-noise.jpg"_s, QByteArray(500, '\xFF'), {}},
    };
    constexpr int kFiles = std::size(set);
    for (const auto& file : set)
        PutPicture(file.name, file.bytes);
    PutPicture(u"l.jpeg"_s, small);
    PutPicture(u"m-over.jpg"_s, over);

    const auto look = [&](const PictureBox& box, const QSize& size) {
        EXPECT_EQ(box.HasPicture(), !size.isEmpty());
        EXPECT_EQ(box.accessibleDescription().isEmpty(), !size.isEmpty());
        if (size.isEmpty()) return;
        EXPECT_NEAR(box.Fit().width / box.Zoom(), size.width(), 1);
        EXPECT_NEAR(box.Fit().height / box.Zoom(), size.height(), 1);
    };
    {
        Opened o;
        ASSERT_EQ(o.files->RowCount(), kFiles + 1);
        for (int row = 0; row < kFiles; ++row) {
            SCOPED_TRACE(set[row].name.toStdString());
            o.Add(row);
            look(*o.box, set[row].size);
            o.box->repaint();
        }
        boxes.Expect(u"图片不能大于 300 K !"_s);
        o.Add(kFiles);
        EXPECT_TRUE(Wait([&] { return o.added->HasPicture(kFiles - 1); }));
        o.Press("btnSave");
    }
    QStringList bytes;
    for (const auto& file : set)
        bytes << QString::fromLatin1(file.bytes.toHex().toUpper());
    EXPECT_EQ(Rows(State().gDB, u"select coalesce(hex(bitPic),'') from tPic where lFromId=3"_s), bytes);

    Opened again;
    ASSERT_EQ(again.added->Count(), kFiles);
    for (int index = 0; index < kFiles; ++index) {
        SCOPED_TRACE(set[index].name.toStdString());
        again.added->setCurrentRow(index);
        look(*again.box, set[index].size);
        EXPECT_EQ(again.added->Text(index), QFileInfo(set[index].name).completeBaseName());
    }
}

TEST_F(PictureSet, APhotographOfManyPixelsIsShown) {
    cGdiImage image;
    EXPECT_TRUE(image.Load(PutPicture(u"a.jpg"_s, Jpeg(Filled(6000, 5700)))));
    EXPECT_EQ(image.ImageWidth(), 6000);
}

TEST_F(PictureSet, WhatMayNotBeReadSaysSo) {
    const QString closed = PutPicture(u"a.jpg"_s, Jpeg(Filled(4, 4)));
    QDir().mkpath(Path(u"locked"_s));
    for (const auto& [path, mode] :
         {std::pair(Path({}), 0755), {Path(u"files"_s), 0755}, {closed, 0}, {Path(u"locked"_s), 0}})
        ASSERT_EQ(chmod(path.toLocal8Bit().constData(), static_cast<mode_t>(mode)), 0);
    frmImport window;
    PictureBox box;
    {
        const WithoutRights rights;
        EXPECT_EQ(FileToBytes(closed), QByteArray());
        box.ShowFile(closed);
        for (const auto& folder : {Path(u"locked"_s), closed, Path(u"gone"_s)}) {
            window.LoadFileList(folder);
            EXPECT_EQ(Find<KestroList>(&window, "KestroList1")->RowCount(), 0);
        }
    }
    EXPECT_EQ(box.accessibleDescription(), u"没有权限读取该图片"_s);
    chmod(Path(u"locked"_s).toLocal8Bit().constData(), 0700);
}

TEST_F(PictureSet, FilesDroppedOnEitherPartReachTheFileList) {
    const QString dropped = Path(u"x.jpg"_s);
    ASSERT_TRUE(QFile::copy(PutPicture(u"a.jpg"_s, Jpeg(Filled(4, 4))), dropped));
    Opened o;
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(dropped), QUrl::fromLocalFile(Path(u"files"_s))});
    int rows = 1;
    for (QWidget* target : {static_cast<QWidget*>(o.box), o.files->viewport()}) {
        QDragEnterEvent enter({20, 20}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(target, &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop({20, 20}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(target, &drop);
        ++rows;
        EXPECT_TRUE(Wait([&] { return o.files->RowCount() == rows; }));
        EXPECT_EQ(o.files->Cell(rows - 1, 1), u"x.jpg"_s);
    }
}

// With TEMP set, two copies of the program write files of the same names.
TEST_F(PictureSet, AnotherCopysTemporaryFilesAreNeverShownOrSaved) {
    const QByteArray ours = Jpeg(Filled(40, 30)), theirs = Jpeg(Filled(10, 10));
    SaveOwnerPictures(State().gDB, {u"tAccount"_s, 3, false}, {{{}, u"p"_s, ours}, {{}, u"q"_s, ours}});
    QDir().mkpath(Path(u"temp/KestroJotPic1.jpg"_s));  // a name that cannot be had
    Opened o;
    EXPECT_NE(QFileInfo(o.added->Key(1)).path(), Path(u"temp"_s));
    const auto overwrite = [&] { PutFile(u"temp/KestroJotPic0.jpg"_s, theirs); };
    overwrite();
    QByteArray opened;
    Outside().open = [&](const QString& path) {
        opened = FileToBytes(path);
        return true;
    };
    QTest::keyClick(o.box, Qt::Key_Return);
    EXPECT_EQ(opened, ours);
    overwrite();
    o.added->setCurrentRow(1);
    o.added->setCurrentRow(0);
    EXPECT_EQ(o.box->Fit().width, 40);
    overwrite();
    o.Press("btnSave");
    const QString hex = QString::fromLatin1(ours.toHex().toUpper());
    EXPECT_EQ(Rows(State().gDB, u"select hex(bitPic) from tPic where lFromId=3"_s), (QStringList{hex, hex}));
}
