#pragma once
// Where exported files go, how they are written, and what follows.

#include <QByteArray>
#include <QString>

/// Export below gDataDir, with this name in it.
QString ExportPath(const QString& name);

/// Makes the folder of exports when it is missing, and fills its Html folder; withPages: also when only that
/// one has gone. False after a box: failure, or that of the folder itself.
bool EnsureExportFolder(bool withPages, const QString& failure = QStringLiteral("创建临时文件夹错误!"));

/// Puts a whole file in the place of what stood there; when that fails, the old file stays and a DbError with
/// the hint flies.
void WriteWholeFile(const QString& path, const QByteArray& bytes, const QString& hint = {});

/// Asks by question ("%1" is the file) whether to open the file, its folder or nothing, and does so. Nothing
/// when the file is not there.
void OfferToOpen(const QString& path, const QString& question);

/// Opens a file or folder with the desktop's handler, and says so when there is none.
void OpenOutside(const QString& path);
