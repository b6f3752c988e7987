#pragma once
// Picture files: the limit of a stored picture, the list of a folder, the folder for temporary files.

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

/// The most bytes of a picture in a book.
constexpr qint64 kMostPictureBytes = 307200;

/// A row of the file list.
struct PictureFile {
    QString path;
    QString name;
    QString size;       ///< KB as text
    bool over = false;  ///< larger than a book takes
};

/// The bytes of an ordinary file within the limit; empty for any other and for one that cannot be read.
QByteArray FileToBytes(const QString& path);

/// Whether a file of this name counts as a picture.
bool HasPictureName(const QString& path);
/// The file as a row, nullopt unless it is an ordinary file of a picture's name.
std::optional<PictureFile> PictureFileAt(const QString& path);
/// The picture files of a folder by name; empty for a folder that cannot be read.
std::vector<PictureFile> PictureFilesIn(const QString& folder);

/// Where temporary pictures lie: TEMP when it is set to a folder that can be written, otherwise the own
/// folder.
QString TempPictureFolder();
/// A folder of this user alone, which goes with the program.
QString OwnPictureFolder();
