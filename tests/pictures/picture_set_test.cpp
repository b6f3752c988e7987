// Every kind of file that bears a picture's name: listed, looked at, added, saved and looked at again.

#include "pictures/frm_import.h"
#include "pictures/gdi_image.h"
#include "pictures/picture_box.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_tiles.h"
#include "store/outside.h"
#include "tests/support/ui_fixture.h"

#include <QBuffer>
#include <QDropEvent>
#include <QFileInfo>
#include <QImage>
#include <QImageWriter>
#include <QMimeData>
#include <QUrl>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray Jpeg(const QImage& image, bool progressive = false, bool turned = false) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpg");
    writer.setProgressiveScanWrite(progressive);
    if (turned) writer.setTransformation(QImageIOHandler::TransformationRotate90);
    EXPECT_TRUE(writer.write(image));
    return buffer.data();
}

QImage Filled(int width, int height, QImage::Format format = QImage::Format_RGB32) {
    QImage image(width, height, format);
    image.fill(Qt::darkCyan);
    return image;
}

// A grey picture whose every block is two bits of 0: no difference in brightness, end of block.
QByteArray GreyJpeg(int side) {
    const auto segment = [](char mark, const QByteArray& body) {
        const auto length = body.size() + 2;
        return QByteArray("\xFF") + mark + static_cast<char>(length >> 8) + static_cast<char>(length & 255) +
               body;
    };
    const char high = static_cast<char>(side >> 8), low = static_cast<char>(side & 255);
    const QByteArray oneCode = '\1' + QByteArray(15, '\0') + '\0';
    const qsizetype blocks = static_cast<qsizetype>((side + 7) / 8) * ((side + 7) / 8);
    return QByteArray("\xFF\xD8") + segment('\xDB', '\0' + QByteArray(64, '\1')) +
           segment('\xC0', QByteArray("\x08") + high + low + high + low + QByteArray("\x01\x01\x11\x00", 4)) +
           segment('\xC4', '\x00' + oneCode) + segment('\xC4', '\x10' + oneCode) +
           segment('\xDA', QByteArray("\x01\x01\x00\x00\x3F\x00", 6)) +
           QByteArray((blocks * 2 + 7) / 8, '\0') + QByteArray("\xFF\xD9");
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

class PictureSet : public UiFixture {
 protected:
    PictureSet() {
        OpenSettingsStore();
        OpenSample();
        RegisterAll();
        QDir().mkpath(Path(u"files"_s));
        QDir().mkpath(Path(u"temp"_s));
        qputenv("TEMP", Path(u"temp"_s).toLocal8Bit());
        Outside().places = [this] {
            return std::vector<BrowsePlace>{{u"desktop"_s, u"桌面"_s, u"desktop"_s, Path(u"files"_s)}};
        };
        ResetDlg(kDlgPictures);
        PictureDialog owner;
        owner.table = u"tAccount"_s;
        owner.id = 3;
    }
    ~PictureSet() override { qunsetenv("TEMP"); }

    QString Write(const QString& name, const QByteArray& bytes) {
        QFile file(Path(u"files/"_s + name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
};

/// For as long as it lives the process may not do what only root may.
class WithoutRights {
 public:
    WithoutRights() {
        if (geteuid() == 0) lowered_ = seteuid(65534) == 0;
    }
    ~WithoutRights() {
        if (lowered_) EXPECT_EQ(seteuid(0), 0);
    }
    WithoutRights(const WithoutRights&) = delete;
    WithoutRights& operator=(const WithoutRights&) = delete;

 private:
    bool lowered_ = false;
};

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
        {u"f-turned.jpg"_s, Jpeg(Filled(60, 40), false, true), {40, 60}},
        {u"g-cut.jpg"_s, large.left(large.size() / 2), {3000, 2000}},
        {u"h-png.jpg"_s, png, {20, 10}},
        {u"i-empty.jpg"_s, {}, {}},
        {u"j'%0a .JPG"_s, small, {40, 30}},
        {u"k-flat.jpg"_s, GreyJpeg(96), {96, 96}},
        {u"l-noise.jpg"_s, QByteArray(500, '\xFF'), {}},
    };
    for (const auto& file : set)
        Write(file.name, file.bytes);
    Write(u"m.jpeg"_s, small);
    Write(u"n-over.jpg"_s, over);
    Write(u"o-huge.jpg"_s, GreyJpeg(20000));

    const auto look = [&](const PictureBox& box, const QSize& size) {
        EXPECT_EQ(box.HasPicture(), !size.isEmpty());
        EXPECT_EQ(box.accessibleDescription().isEmpty(), !size.isEmpty());
        if (size.isEmpty()) return;
        EXPECT_NEAR(box.Fit().width / box.Zoom(), size.width(), 1);
        EXPECT_NEAR(box.Fit().height / box.Zoom(), size.height(), 1);
    };
    {
        frmImport window;
        window.show();
        auto* files = Find<KestroList>(&window, "KestroList1");
        auto* box = Find<PictureBox>(&window, "Picture1");
        ASSERT_EQ(files->RowCount(), 14);
        for (int row = 0; row < 12; ++row) {
            SCOPED_TRACE(set[row].name.toStdString());
            files->SetCurrentRow(row);
            QTest::keyClick(files, Qt::Key_Return);
            look(*box, set[row].size);
            box->repaint();
        }
        for (const int row : {12, 13}) {
            files->SetCurrentRow(row);
            boxes.Expect(u"图片不能大于 300 K !"_s);
            QTest::keyClick(files, Qt::Key_Return);
        }
        EXPECT_EQ(box->accessibleDescription(), u"图片尺寸太大，无法显示"_s);
        EXPECT_TRUE(Wait([&] { return Find<KestroListView>(&window, "KestroListView1")->HasPicture(11); }));
        QTest::mouseClick(Find<QWidget>(&window, "btnSave"), Qt::LeftButton);
    }
    QStringList bytes;
    for (const auto& file : set)
        bytes << QString::fromLatin1(file.bytes.toHex().toUpper());
    EXPECT_EQ(Rows(State().gDB, u"select coalesce(hex(bitPic),'') from tPic where lFromId=3"_s), bytes);

    frmImport again;
    again.show();
    auto* added = Find<KestroListView>(&again, "KestroListView1");
    ASSERT_EQ(added->Count(), 12);
    for (int index = 0; index < added->Count(); ++index) {
        SCOPED_TRACE(set[index].name.toStdString());
        added->setCurrentRow(index);
        look(*Find<PictureBox>(&again, "Picture1"), set[index].size);
        EXPECT_EQ(added->Text(index), QFileInfo(set[index].name).completeBaseName());
    }
}

TEST_F(PictureSet, APhotographOfManyPixelsIsShown) {
    cGdiImage image;
    EXPECT_TRUE(image.Load(Write(u"a.jpg"_s, Jpeg(Filled(6000, 5700)))));
    EXPECT_EQ(image.ImageWidth(), 6000);
}

TEST_F(PictureSet, WhatMayNotBeReadSaysSo) {
    const QString closed = Write(u"a.jpg"_s, Jpeg(Filled(4, 4)));
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
    ASSERT_TRUE(QFile::copy(Write(u"a.jpg"_s, Jpeg(Filled(4, 4))), dropped));
    frmImport window;
    window.show();
    auto* files = Find<KestroList>(&window, "KestroList1");
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(dropped), QUrl::fromLocalFile(Path(u"files"_s))});
    int rows = 1;
    for (QWidget* target : {Find<QWidget>(&window, "Picture1"), files->viewport()}) {
        QDragEnterEvent enter({20, 20}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(target, &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop({20, 20}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(target, &drop);
        ++rows;
        EXPECT_TRUE(Wait([&] { return files->RowCount() == rows; }));
        EXPECT_EQ(files->Cell(rows - 1, 1), u"x.jpg"_s);
    }
}

// With TEMP set, two copies of the program write files of the same names.
TEST_F(PictureSet, AnotherCopysTemporaryFilesAreNeverShownOrSaved) {
    const QByteArray ours = Jpeg(Filled(40, 30)), theirs = Jpeg(Filled(10, 10));
    SaveOwnerPictures(State().gDB, {u"tAccount"_s, 3, false}, {{{}, u"p"_s, ours}, {{}, u"q"_s, ours}});
    QDir().mkpath(Path(u"temp/KestroJotPic1.jpg"_s));  // a name that cannot be had
    frmImport window;
    window.show();
    auto* added = Find<KestroListView>(&window, "KestroListView1");
    EXPECT_NE(QFileInfo(added->Key(1)).path(), Path(u"temp"_s));
    const auto overwrite = [&] {
        QFile file(Path(u"temp/KestroJotPic0.jpg"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(theirs);
    };
    overwrite();
    QByteArray opened;
    Outside().open = [&](const QString& path) {
        opened = FileToBytes(path);
        return true;
    };
    QTest::keyClick(Find<QWidget>(&window, "Picture1"), Qt::Key_Return);
    EXPECT_EQ(opened, ours);
    overwrite();
    added->setCurrentRow(1);
    added->setCurrentRow(0);
    EXPECT_EQ(Find<PictureBox>(&window, "Picture1")->Fit().width, 40);
    overwrite();
    QTest::mouseClick(Find<QWidget>(&window, "btnSave"), Qt::LeftButton);
    const QString hex = QString::fromLatin1(ours.toHex().toUpper());
    EXPECT_EQ(Rows(State().gDB, u"select hex(bitPic) from tPic where lFromId=3"_s), (QStringList{hex, hex}));
}
