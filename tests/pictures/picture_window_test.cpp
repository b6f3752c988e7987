// The picture window, the picture box and the image helper.

#include "ledger/frm_account.h"
#include "ledger/frm_account_new.h"
#include "pictures/gdi_image.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_combox.h"
#include "shell/skin.h"
#include "tests/pictures/picture_fixture.h"

#include <QPainter>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

// Red and green above, blue and white below.
QImage FourCorners(int width, int height) {
    QImage four(2, 2, QImage::Format_RGB32);
    four.setPixel(0, 0, 0xFFFF0000);
    four.setPixel(1, 0, 0xFF00FF00);
    four.setPixel(0, 1, 0xFF0000FF);
    four.setPixel(1, 1, 0xFFFFFFFF);
    return four.scaled(width, height);
}

// The pure colour that a pixel is nearest to, as a letter.
QChar Letter(QRgb pixel) {
    const bool r = qRed(pixel) > 127, g = qGreen(pixel) > 127, b = qBlue(pixel) > 127;
    return r && g && b ? u'w' : r && !g && !b ? u'r' : g && !r && !b ? u'g' : b && !r && !g ? u'b' : u'?';
}

// The corners of a rectangle from the upper left on, clockwise.
QString Corners(const QImage& image, const QRect& r, int inset = 4) {
    const QRect in = r.adjusted(inset, inset, -inset, -inset);
    QString letters;
    for (const QPoint at : {in.topLeft(), in.topRight(), in.bottomRight(), in.bottomLeft()})
        letters += Letter(image.pixel(at));
    return letters;
}

class PictureWindow : public PictureStage {
 protected:
    static QStringList Notes() { return Rows(State().gDB, u"select Note1 from tPic order by rowid"_s); }
};

void DoubleClick(const Opened& o, int row) {
    const auto at = o.files->visualRect(o.files->model()->index(row, 1)).center();
    QTest::mouseClick(o.files->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(o.files->viewport(), Qt::LeftButton, {}, at);
}

}  // namespace

TEST_F(PictureWindow, FilesAreAddedDescribedRemovedAndSaved) {
    const QString first = PutPicture(u"a.jpg"_s, FourCorners(80, 60));
    PutPicture(u"b.jpg"_s, FourCorners(80, 60));
    SetOwner(7);
    Opened o;
    ASSERT_EQ(o.added->Count(), 1);
    EXPECT_EQ(o.arrow->Text(), u"<="_s);  // the first stored picture shows
    EXPECT_TRUE(o.box->HasPicture());

    DoubleClick(o, 0);
    EXPECT_EQ(o.window.windowTitle(), u"图片管理："_s + first);
    EXPECT_EQ(o.arrow->Text(), u"=>"_s);
    ASSERT_EQ(o.added->Count(), 2);
    EXPECT_EQ(o.added->Text(1), u"a"_s);
    EXPECT_EQ(o.added->Selected(), std::vector{1});
    boxes.Expect(u"已经添加，不能重复添加!"_s);
    DoubleClick(o, 0);
    o.Add(1);
    ASSERT_EQ(o.added->Count(), 3);

    for (const auto& [shown, typed] : {std::pair(u"b"_s, u"  发票 "_s), {u"发票"_s, u"  "_s}}) {
        RegisterDialog(kDlgInput, [&](QPoint) {
            InputDialog input;
            EXPECT_EQ(input.text + u'|' + input.prompt + u'|' + input.startText,
                      u"图片说明|请输入图片说明|"_s + shown);
            input.text = typed;
            input.done = 1;
        });
        o.added->onDoubleClick(2);
        EXPECT_EQ(o.added->Text(2), u"发票"_s);
    }

    for (const int index : {0, 1})
        o.added->item(index)->setSelected(true);
    o.added->item(2)->setSelected(false);
    o.Press("btnDel");
    ASSERT_EQ(o.added->Count(), 1);
    EXPECT_EQ(o.arrow->Text(), u"=>"_s);  // a file shows, which stays
    o.added->SetCurrent(0);
    o.added->onClick(0);
    EXPECT_EQ(o.arrow->Text(), u"<="_s);
    EXPECT_EQ(Notes(), QStringList{u"选果机控制系统.jpg"_s});
    o.Press("btnSave");
    EXPECT_EQ(PictureDialog().done, 1);
    EXPECT_EQ(PictureDialog().count, u"1"_s);
    EXPECT_EQ(Notes(), QStringList{u"发票"_s});

    SetOwner(7);
    Opened again;
    ASSERT_EQ(again.added->Count(), 1);
    again.Press("btnDel");
    EXPECT_EQ(again.window.windowTitle(), u"图片管理"_s);
    EXPECT_EQ(again.arrow->Text(), QString());
    EXPECT_FALSE(again.box->HasPicture());
    again.Press("btnCancel");
    EXPECT_EQ(PictureDialog().done, 0);
    EXPECT_EQ(Notes(), QStringList{u"发票"_s});
}

TEST_F(PictureWindow, PlacesAndDropsFillTheFileList) {
    PutPicture(u"a.jpg"_s, FourCorners(8, 8));
    const QString outside = Path(u"PHOTO.JPG"_s);
    EXPECT_TRUE(QFile::copy(Path(u"files/a.jpg"_s), outside));
    SetOwner(-1);
    Opened o;
    ASSERT_EQ(o.files->RowCount(), 1);
    o.window.MyTrak_DragDropFiles(outside + u'\n' + Path({}) + u"\n "_s + Path(u"gone.jpg"_s) + u"\n"_s);
    ASSERT_EQ(o.files->RowCount(), 2);
    EXPECT_EQ(o.files->Cell(1, 0) + o.files->Cell(1, 1), u"2PHOTO.JPG"_s);
    DoubleClick(o, 1);
    EXPECT_EQ(o.added->Text(0), u"PHOTO"_s);
    QFile::remove(Path(u"files/a.jpg"_s));
    boxes.Expect(u"图片文件不存在!"_s);
    DoubleClick(o, 0);
    EXPECT_EQ(o.added->Count(), 1);
    o.Press("btnFresh");
    EXPECT_EQ(o.files->RowCount(), 0);
    auto* places = Find<KestroCombox>(&o.window, "comPath");
    EXPECT_EQ(places->CurrentKey(), u"desktop"_s);
    QTest::keyClick(places, Qt::Key_Down);
    EXPECT_EQ(places->CurrentKey(), u"doc"_s);
    EXPECT_EQ(o.files->RowCount(), 0);
}

TEST_F(PictureWindow, KeysAndWheelWalkTheSideThatIsShown) {
    for (const auto& name : {u"a.jpg"_s, u"b.jpg"_s, u"c.jpg"_s})
        PutPicture(name, FourCorners(80, 60));
    SetOwner(7);
    Opened o;
    const auto current = [&] { return QFileInfo(o.window.windowTitle()).baseName(); };
    const auto wheel = [&](int turn) {
        QWheelEvent event(QPointF(20, 20), o.box->mapToGlobal(QPointF(20, 20)), {}, {0, turn}, {}, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(o.box, &event);
    };
    o.files->SetCurrentRow(0);
    o.files->onClick(0, 1);
    wheel(-120);
    EXPECT_EQ(current(), u"a"_s);  // no focus, no step
    QTest::mouseClick(o.box, Qt::LeftButton);
    wheel(-120);
    EXPECT_EQ(current(), u"b"_s);
    QTest::keyClick(o.box, Qt::Key_Down);
    QTest::keyClick(o.box, Qt::Key_Down);
    EXPECT_EQ(current(), u"c"_s);
    QTest::keyClick(o.box, Qt::Key_Up);
    wheel(120);
    EXPECT_EQ(current(), u"a"_s);
    QString opened;
    Outside().open = [&](const QString& path) {
        opened = path;
        return true;
    };
    QTest::keyClick(o.box, Qt::Key_Return);
    EXPECT_EQ(opened, Path(u"files/a.jpg"_s));
    EXPECT_TRUE(o.window.isVisible());
    o.added->onClick(0);
    QTest::keyClick(o.box, Qt::Key_Down);
    EXPECT_EQ(current(), u"KestroJotPic0"_s);
}

TEST_F(PictureWindow, BigModeCoversTheWindow) {
    PutPicture(u"a.jpg"_s, FourCorners(800, 600));
    SetOwner(7);
    Opened o;
    QCoreApplication::sendPostedEvents();
    const QSize small = o.box->size();
    o.files->SetCurrentRow(0);
    o.files->onClick(0, 1);
    QTest::mouseClick(o.box, Qt::LeftButton);
    const auto border = [&] { return o.box->grab().toImage().pixelColor(o.box->width() / 2, 0); };
    EXPECT_EQ(border(), Skin::Color(Tok::pink));
    for (const bool byKey : {true, false}) {
        if (byKey)
            QTest::keyClick(o.box, Qt::Key_Space);
        else
            QTest::mouseDClick(o.box, Qt::LeftButton);
        QCoreApplication::sendPostedEvents();
        EXPECT_TRUE(o.box->hasFocus());
        EXPECT_GT(o.box->width(), o.window.NamedSize().width() - 4);
        for (auto* control : o.window.findChildren<QAbstractButton*>())
            if (!control->objectName().isEmpty()) EXPECT_FALSE(control->isVisible()) << control;
        QTest::keyClick(o.box, byKey ? Qt::Key_Space : Qt::Key_Escape);
        EXPECT_TRUE(Wait([&] { return o.box->size() == small; }));
        EXPECT_TRUE(o.files->isVisible());
        EXPECT_TRUE(o.window.isVisible());
    }
    o.files->setFocus();
    EXPECT_NE(border(), Skin::Color(Tok::pink));
}

TEST_F(PictureWindow, ZoomTurnAndDragKeepTheirRules) {
    PutPicture(u"a.jpg"_s, FourCorners(200, 100));
    SetOwner(7);
    Opened o;
    o.files->SetCurrentRow(0);
    o.files->onClick(0, 1);
    const auto centre = [&] {
        return QPointF(o.box->Fit().x + o.box->Fit().width / 2, o.box->Fit().y + o.box->Fit().height / 2);
    };
    const QPointF middle = centre();
    EXPECT_FLOAT_EQ(o.box->Zoom(), 1);
    o.Press("btnView1");
    EXPECT_FLOAT_EQ(o.box->Zoom(), 0.5F);
    boxes.Expect(u"最多缩小到 10%"_s);
    for (int i = 0; i < 3; ++i)
        o.Press("btnView1");
    EXPECT_FLOAT_EQ(o.box->Zoom(), 0.1F);
    o.Press("btnView2");
    EXPECT_FLOAT_EQ(o.box->Zoom(), 1);
    boxes.Expect(u"最多放大 400%"_s);
    for (int i = 0; i < 7; ++i)
        o.Press("btnView0");
    EXPECT_FLOAT_EQ(o.box->Zoom(), 4);
    EXPECT_EQ(centre(), middle);
    o.Press("btnView4");
    EXPECT_EQ(o.box->Angle(), 90);
    const QPoint start(50, 50);
    QTest::mousePress(o.box, Qt::LeftButton, {}, start);
    const auto move = [&](QPoint to) {
        QMouseEvent event(QEvent::MouseMove, to, o.box->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(o.box, &event);
    };
    move(start + QPoint(4, -4));
    EXPECT_EQ(centre(), middle);
    move(start + QPoint(5, -3));
    EXPECT_EQ(centre(), middle + QPoint(5, -3));
    move(start + QPoint(9, -6));  // four and three from the new start
    EXPECT_EQ(centre(), middle + QPoint(5, -3));
    o.Press("btnView3");
    EXPECT_FLOAT_EQ(o.box->Zoom(), 1);
    EXPECT_EQ(o.box->Angle(), 0);
    EXPECT_EQ(centre(), middle);
}

TEST_F(PictureWindow, FourTurnsShowEachCornerInItsPlace) {
    PictureBox box;
    box.resize(300, 300);
    box.ShowFile(PutPicture(u"a.jpg"_s, FourCorners(100, 60)));
    const QRect flat(100, 120, 100, 60), upright(120, 100, 60, 100);
    for (const auto& [letters, place] : std::vector<std::pair<QString, QRect>>{{u"rgwb"_s, flat},
                                                                               {u"brgw"_s, upright},
                                                                               {u"wbrg"_s, flat},
                                                                               {u"gwbr"_s, upright},
                                                                               {u"rgwb"_s, flat}}) {
        EXPECT_EQ(Corners(box.grab().toImage(), place), letters) << box.Angle();
        box.Turn();
    }
    cGdiImage image;
    ASSERT_TRUE(image.Load(Path(u"files/a.jpg"_s)));
    for (const auto& [code, letters] :
         std::map<int, QString>{{1, u"brgw"_s}, {2, u"wbrg"_s}, {3, u"gwbr"_s}}) {
        EXPECT_EQ(image.Rotate(code), kGdiOk);
        EXPECT_EQ(image.ImageWidth(), code == 2 ? 100 : 60);
        EXPECT_EQ(Corners(image.Picture(), image.Picture().rect()), letters) << code;
    }
    EXPECT_EQ(image.Rotate(4), kGdiInvalidParameter);
    // Drawn without a work bitmap it turns about its centre.
    ASSERT_TRUE(image.Load(Path(u"files/a.jpg"_s)));
    QImage paper(300, 300, QImage::Format_RGB32);
    QPainter p(&paper);
    EXPECT_EQ(image.PaintDC(p, 100, 120, 90), kGdiOk);
    EXPECT_EQ(Corners(paper, upright), u"brgw"_s);
    EXPECT_EQ(cGdiImage().PaintDC(p, 0, 0, 0), kGdiInvalidParameter);
}

// A part of the box painted anew looks as if the whole had been painted.
TEST_F(PictureWindow, ARepaintedPartEqualsTheWhole) {
    QImage noisy(1500, 1000, QImage::Format_RGB32);
    for (int y = 0; y < noisy.height(); ++y)
        for (int x = 0; x < noisy.width(); ++x)
            noisy.setPixel(x, y, qRgb((x * 7) % 256, (y * 5) % 256, (x * y) % 256));
    PictureBox box;
    box.resize(372, 390);
    box.ShowFile(PutPicture(u"noisy.jpg"_s, noisy));
    for (const float zoom : {0.2F, 0.7F, 1.6F}) {
        box.ShowZoomed(zoom);
        const QImage whole = box.grab().toImage();
        const QRect part(101, 83, 120, 90);
        const QImage again = box.grab(part).toImage();
        int worst = 0;
        for (int y = 0; y < part.height(); ++y)
            for (int x = 0; x < part.width(); ++x) {
                const QRgb a = again.pixel(x, y), b = whole.pixel(part.topLeft() + QPoint(x, y));
                worst = std::max({worst, std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                                  std::abs(qBlue(a) - qBlue(b))});
            }
        EXPECT_LE(worst, 1) << zoom;
    }
}

TEST_F(PictureWindow, WhatCannotBeShownSaysSoAndWhatIsTurnedStandsUpright) {
    const QString corners = PutPicture(u"corners.jpg"_s, FourCorners(100, 60));
    cGdiImage image;
    ASSERT_TRUE(image.Load(PutPicture(u"turned.jpg"_s, Turned(BytesOf(corners)))));
    EXPECT_EQ(QSizeF(image.ImageWidth(), image.ImageHeight()), QSizeF(60, 100));
    EXPECT_EQ(Corners(image.Picture(), image.Picture().rect()), u"brgw"_s);

    const QByteArray bytes = BytesOf(PutPicture(u"whole.jpg"_s, FourCorners(300, 300)));
    ASSERT_TRUE(
        FourCorners(20, 10).convertToFormat(QImage::Format_Grayscale8).save(Path(u"files/png.jpg"_s), "png"));
    // The head of a picture of 20,000 x 20,000 in place of its true size.
    QByteArray huge = bytes;
    const auto frame = huge.indexOf("\xFF\xC0");
    ASSERT_GT(frame, 0);
    huge.replace(frame + 5, 4, QByteArray("\x4E\x20\x4E\x20", 4));
    const QString bad = u"不是有效的图片，无法显示"_s, gone = u"图片文件不存在!"_s;
    const struct {
        QString path;
        int status;
        QString words;
    } cases[] = {
        {PutPicture(u"empty.jpg"_s, QByteArray()), kGdiUnknownFormat, bad},
        {PutPicture(u"text.jpg"_s, "not a picture"), kGdiUnknownFormat, bad},
        {PutPicture(u"svg.jpg"_s, "<svg xmlns='http://www.w3.org/2000/svg'/>"), kGdiUnknownFormat, bad},
        {PutPicture(u"head.jpg"_s, bytes.left(40)), kGdiGenericError, bad},
        {PutPicture(u"huge.jpg"_s, huge), kGdiOutOfMemory, u"图片尺寸太大，无法显示"_s},
        {Path(u"gone.jpg"_s), kGdiFileNotFound, gone},
        {Path(u"files"_s), kGdiFileNotFound, gone},
        {Path(u"files/png.jpg"_s), kGdiOk, {}},
        {PutPicture(u"half.jpg"_s, bytes.left(bytes.size() / 2)), kGdiOk, {}},
    };
    PictureBox box;
    for (const auto& c : cases) {
        EXPECT_EQ(image.Load(c.path), c.status == kGdiOk) << qPrintable(c.path);
        EXPECT_EQ(image.LoadStatus(), c.status) << qPrintable(c.path);
        box.ShowFile(c.path);
        EXPECT_EQ(box.accessibleDescription(), c.words) << qPrintable(c.path);
    }
}

TEST_F(PictureWindow, AnEntryOpensItsPictures) {
    ResetDlg(kDlgEntry);
    EntryDialog().isNew = 1;
    frmAccountNew entry;
    entry.show();
    for (const auto& [done, count, shown] :
         {std::tuple(0, u"9"_s, u"图片 0"_s), std::tuple(1, u" 2 "_s, u"图片 2"_s)}) {
        RegisterDialog(kDlgPictures, [&](QPoint) {
            PictureDialog asked;
            EXPECT_EQ(asked.table + u' ' + QString::number(asked.id) + u' ' + QString::number(asked.single),
                      u"tAccount -1 1"_s);
            asked.done = done;
            asked.count = count;
        });
        Press(&entry, "btnCamera");
        EXPECT_EQ(Find<KestroButton>(&entry, "btnCamera")->text(), shown);
    }

    const auto page = NewPage<frmAccount>();
    auto* list = Find<KestroList>(page.get(), "KestroList1");
    ASSERT_TRUE(Wait([&] { return list->RowCount() == 3; }));
    auto* detail = Find<KestroList>(page.get(), "KestroList2");
    list->SetCurrentRow(list->FindRow(u"7"_s));
    list->onCurrent(list->CurrentRow());
    EXPECT_EQ(detail->Cell(4, 1), u"1  张"_s);
    int opened = 0;
    RegisterDialog(kDlgPictures, [&](QPoint) {
        ++opened;
        EXPECT_EQ(PictureDialog().id, 7);
        EXPECT_EQ(PictureDialog().single, 0);
        SaveOwnerPictures(State().gDB, {u"tAccount"_s, 7, false}, {});
    });
    detail->onDoubleClick(3, 1);
    EXPECT_EQ(opened, 0);
    detail->onDoubleClick(4, 1);
    EXPECT_EQ(opened, 1);
    EXPECT_TRUE(Wait([&] { return detail->Cell(4, 1) == u"0  张"_s; }));
}
