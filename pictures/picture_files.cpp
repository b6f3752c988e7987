#include "pictures/picture_files.h"

#include "store/money.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

PictureFile RowOf(const QFileInfo& file) {
    const qint64 size = file.size();
    return {file.filePath(), file.fileName(), MoneyText(static_cast<double>(size) / 1024),
            size > kMostPictureBytes};
}

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
    return RowOf(file);
}

std::vector<PictureFile> PictureFilesIn(const QString& folder) {
    std::vector<PictureFile> files;
    for (QDirIterator walk(folder, QDir::Files); walk.hasNext();) {
        walk.next();
        if (HasPictureName(walk.fileName())) files.push_back(RowOf(walk.fileInfo()));
    }
    std::sort(files.begin(), files.end(),
              [](const PictureFile& a, const PictureFile& b) { return a.name < b.name; });
    return files;
}

QString TempPictureFolder() {
    const QString set = qEnvironmentVariable("TEMP");
    const QFileInfo folder(set);
    if (!set.isEmpty() && folder.isDir() && folder.isWritable()) return folder.absoluteFilePath();
    static const QTemporaryDir own(QDir::tempPath() + u"/KestroJot-XXXXXX"_s);
    return own.path();
}
