#include "pictures/picture_files.h"

#include "store/money.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

PictureFile RowOf(const QString& path, const QString& name, qint64 size) {
    return {path, name, MoneyText(static_cast<double>(size) / 1024), size > kMostPictureBytes};
}

struct ClosingFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

}  // namespace

QByteArray FileToBytes(const QString& path) {
    const QFileInfo info(path);
    if (!info.isFile() || info.size() > kMostPictureBytes) return {};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    const QByteArray bytes = file.read(kMostPictureBytes + 1);  // it may have grown
    return bytes.size() > kMostPictureBytes ? QByteArray() : bytes;
}

bool HasPictureName(const QString& path) {
    return path.endsWith(u".jpg"_s, Qt::CaseInsensitive);
}

std::optional<PictureFile> PictureFileAt(const QString& path) {
    if (!HasPictureName(path)) return {};
    const QFileInfo file(path);
    if (!file.isFile()) return {};
    return RowOf(file.filePath(), file.fileName(), file.size());
}

// A folder of thousands is walked without a record of Qt for each file, which would cost more than the disk.
std::vector<PictureFile> PictureFilesIn(const QString& folder) {
    std::vector<PictureFile> files;
    const std::unique_ptr<DIR, ClosingFolder> walk(opendir(QFile::encodeName(folder).constData()));
    if (!walk) return files;
    const QString before = folder.endsWith(u'/') ? folder : folder + u'/';
    while (const dirent* entry = readdir(walk.get())) {
        const QString name = QFile::decodeName(entry->d_name);
        if (name.startsWith(u'.') || !HasPictureName(name)) continue;
        struct stat file {};
        if (fstatat(dirfd(walk.get()), entry->d_name, &file, 0) == 0 && S_ISREG(file.st_mode))
            files.push_back(RowOf(before + name, name, file.st_size));
    }
    std::sort(files.begin(), files.end(),
              [](const PictureFile& a, const PictureFile& b) { return a.name < b.name; });
    return files;
}

QString TempPictureFolder() {
    const QString set = qEnvironmentVariable("TEMP");
    const QFileInfo folder(set);
    if (!set.isEmpty() && folder.isDir() && folder.isWritable()) return folder.absoluteFilePath();
    return OwnPictureFolder();
}

QString OwnPictureFolder() {
    static const QTemporaryDir own(QDir::tempPath() + u"/KestroJot-XXXXXX"_s);
    return own.path();
}
