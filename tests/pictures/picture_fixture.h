#pragma once
// The sample book, a folder of picture files to choose from, and the picture window of an entry.

#include "pictures/frm_import.h"
#include "pictures/picture_box.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_list.h"
#include "shell/controls/kestro_tiles.h"
#include "store/outside.h"
#include "tests/support/ui_fixture.h"

#include <QDir>
#include <QImage>

class PictureStage : public SampleStage {
 protected:
    PictureStage() {
        using namespace Qt::StringLiterals;
        for (const auto& folder : {u"temp"_s, u"files"_s})
            QDir().mkpath(Path(folder));
        qputenv("TEMP", Path(u"temp"_s).toLocal8Bit());
        Outside().places = [this] {
            return std::vector<BrowsePlace>{{u"desktop"_s, u"桌面"_s, u"desktop"_s, Path(u"files"_s)},
                                            {u"doc"_s, u"我的文档"_s, u"doc"_s, Path(u"none"_s)}};
        };
        SetOwner(3);
    }
    ~PictureStage() override { qunsetenv("TEMP"); }

    /// An entry, or -1 for one that is not saved yet.
    static void SetOwner(int id) {
        ResetDlg(kDlgPictures);
        PictureDialog owner;
        owner.table = QStringLiteral("tAccount");
        owner.id = id;
        owner.single = id < 0 ? 1 : 0;
    }
    QString PutPicture(const QString& name, const QByteArray& bytes) const {
        return PutFile(QStringLiteral("files/") + name, bytes);
    }
    QString PutPicture(const QString& name, const QImage& image) const {
        const QString path = PutPicture(name, QByteArray());
        EXPECT_TRUE(image.save(path, "jpg", 95));
        return path;
    }
};

/// A JPEG that says of itself that it is to be shown turned clockwise by a quarter.
inline QByteArray Turned(const QByteArray& jpeg) {
    return jpeg.left(2) +
           QByteArray::fromHex(
               "ffe1 0022 457869660000 4d4d002a00000008 0001 0112 0003 00000001 00060000 00000000") +
           jpeg.mid(2);
}

struct Opened {
    Opened() { Present(&window); }
    frmImport window;
    KestroList* files = Find<KestroList>(&window, "KestroList1");
    KestroListView* added = Find<KestroListView>(&window, "KestroListView1");
    PictureBox* box = Find<PictureBox>(&window, "Picture1");
    KestroLabel* arrow = Find<KestroLabel>(&window, "lblArrow");
    void Press(const char* button) { ::Press(&window, button); }
    /// Adds the file in this row.
    void Add(int row) {
        files->SetCurrentRow(row);
        QTest::keyClick(files, Qt::Key_Return);
    }
};
