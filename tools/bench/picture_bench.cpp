#include "tools/bench/picture_bench.h"

#include "pictures/gdi_image.h"
#include "pictures/picture_box.h"
#include "pictures/picture_store.h"
#include "store/book_images.h"
#include "store/state.h"
#include "tools/bench/stage.h"

#include <QDir>
#include <QFile>
#include <QImage>

#include <dirent.h>
#include <fstream>
#include <memory>
#include <sqlite3.h>
#include <string>
#include <sys/stat.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPictures = 20, kFiles = 5000;
constexpr double kFrameBound = 16;  // milliseconds
const OwnerRow kOwner{u"tAccount"_s, 7, false};

void WriteFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) std::abort();
}

// A photograph as JPEG, filled up behind its end to the largest size that a book takes.
QByteArray LargestPicture(const QString& folder) {
    QImage image(1200, 900, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x % 256, y % 256, (x + y) % 256));
    const QString path = folder + u"/largest.jpg"_s;
    if (!image.save(path, "jpg", 60)) std::abort();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) std::abort();
    return file.readAll().leftJustified(kMostPictureBytes, '\0', true);
}

struct Closing {
    void operator()(sqlite3* db) const { sqlite3_close_v2(db); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Closing>;

// The same book through SQLite's C interface alone.
class RawPictures {
 public:
    explicit RawPictures(const QString& path) {
        sqlite3* db = nullptr;
        const bool open = sqlite3_open(path.toUtf8().constData(), &db) == SQLITE_OK;
        db_.reset(db);
        if (!open) std::abort();
        Run("pragma synchronous=extra");
    }

    void Read(const std::string& folder) {
        const auto rows = Prepare("select bitPic from tPic where lFromId=7 or lFromId1=7");
        for (int n = 0; sqlite3_step(rows.get()) == SQLITE_ROW; ++n) {
            std::ofstream file(folder + "/raw" + std::to_string(n) + ".jpg", std::ios::binary);
            file.write(static_cast<const char*>(sqlite3_column_blob(rows.get(), 0)),
                       sqlite3_column_bytes(rows.get(), 0));
        }
    }

    void Save(const std::vector<QByteArray>& pictures) {
        Run("begin immediate");
        Run("delete from tPic where lFromId=7");
        const auto row = Prepare("insert into tPic values (1,?,'picture','tAccount',7,7)");
        for (const auto& bytes : pictures) {
            sqlite3_bind_blob(row.get(), 1, bytes.constData(), static_cast<int>(bytes.size()), nullptr);
            if (sqlite3_step(row.get()) != SQLITE_DONE) std::abort();
            sqlite3_reset(row.get());
        }
        Run("update tAccount set sPic='20' where Id1=7");
        Run("commit");
    }

 private:
    Statement Prepare(const char* sql) {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(db_.get(), sql, -1, &statement, nullptr) != SQLITE_OK) std::abort();
        return Statement(statement);
    }
    void Run(const char* sql) {
        if (sqlite3_exec(db_.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) std::abort();
    }
    std::unique_ptr<sqlite3, Closing> db_;
};

void MeasureStored(SpeedTable& table, const QString& folder, int runs) {
    const QString path = folder + u"/pictures.jotdb"_s, twin = folder + u"/twin.jotdb"_s;
    for (const auto& file : {path, twin})
        WriteFile(file, SampleBookImage());
    OpenBook(path);
    const QByteArray bytes = LargestPicture(folder);
    std::vector<OwnerPicture> pictures;
    for (int n = 0; n < kPictures; ++n)
        pictures.push_back({folder, u"picture"_s, bytes});
    const std::vector<QByteArray> raw(kPictures, bytes);
    RawPictures other(twin);
    const auto save = InTurns(
        runs, [&] { SaveOwnerPictures(State().gDB, kOwner, pictures); }, [&] { other.Save(raw); });
    table.Add(Compared(u"pictures: 20 of 300 KB saved"_s, 0, save, kWriteBound));
    PictureBox box;
    box.resize(box.sizeHint());
    const auto open = [&] { box.ShowFile(LoadOwnerPictures(State().gDB, kOwner).front().path); };
    const auto openRaw = [&] {
        other.Read(folder.toStdString());
        cGdiImage().Load(folder + u"/raw0.jpg"_s);
    };
    table.Add(Compared(u"pictures: 20 of 300 KB opened"_s, 0, InTurns(runs, open, openRaw), kReadBound));
    State().gDB.Close();
}

void MeasureView(SpeedTable& table, const QString& folder, int runs) {
    const QString path = folder + u"/large.jpg"_s;
    QImage image(3000, 2000, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    if (!image.save(path, "jpg")) std::abort();
    PictureBox box;
    box.resize(box.sizeHint());
    box.ShowFile(path);
    box.show();
    Stage<PictureBox>::Settle();
    const auto frame = [&](const QString& action, const std::function<void()>& change) {
        const auto once = [&] {
            return Milliseconds([&] {
                change();
                box.repaint();
            });
        };
        table.Add({action, 0, MedianTime(runs, once), 0, u"ms"_s, kFrameBound});
    };
    frame(u"picture of 3000 x 2000: repaint"_s, [] {});
    frame(u"picture of 3000 x 2000: drag step"_s, [&] { box.ShowMoved({5, 5}); });
    float zoom = 1;
    frame(u"picture of 3000 x 2000: zoom step"_s, [&] {
        zoom = zoom > 1 ? ZoomOut(zoom).zoom : ZoomIn(zoom).zoom;
        box.ShowZoomed(zoom);
    });
}

void ListRaw(const std::string& folder) {
    DIR* const walk = opendir(folder.c_str());
    if (!walk) std::abort();
    std::vector<std::pair<std::string, qint64>> files;
    while (const dirent* entry = readdir(walk)) {
        struct stat what {};
        if (stat((folder + '/' + entry->d_name).c_str(), &what) == 0)
            files.emplace_back(entry->d_name, what.st_size);
    }
    closedir(walk);
}

void MeasureFolder(SpeedTable& table, const QString& folder, int runs) {
    const QString many = folder + u"/many"_s;
    QDir().mkpath(many);
    for (int n = 0; n < kFiles; ++n)
        WriteFile(many + u"/IMG_%1.jpg"_s.arg(n), "x");
    const auto ours = [&] { PictureFilesIn(many); };
    const auto raw = [path = many.toStdString()] { ListRaw(path); };
    table.Add(Compared(u"pictures: a folder of 5000 files"_s, 0, InTurns(runs, ours, raw), kReadBound));
}

}  // namespace

void MeasurePictures(SpeedTable& table, const QString& folder, int runs) {
    QDir().mkpath(folder);
    MeasureStored(table, folder, runs);
    MeasureView(table, folder, runs);
    MeasureFolder(table, folder, runs);
}
