#pragma once
// Copying the books of the box to a dated folder.

#include "store/job.h"
#include "store/outside.h"
#include "store/paths.h"

#include <QStringList>

/// The places that can be written to.
std::vector<BrowsePlace> BackupPlaces();

/// The folder of today below a place: /media/stick/墨鹊账本备份20261115.
QString BackupFolder(const QString& place, PathStyle style = NativeStyle());

/// The files of a backup, a name each: the one book of path, or, when it is empty, those of the box.
QStringList BackupNames(const QString& path);

constexpr int kBackupSteps = 1000;  ///< of the bar for each book

struct BackupResult {
    int count = 0;
    QStringList failed;  ///< a line for each book that was not copied: its name and the reason
    QString refused;     ///< why the folder could not be made; nothing was copied then
};
/// Makes the folder, which must not be there, and copies the books into it. A book whose file has gone is
/// left out without a word, one from outside the box is never copied along with the box. The open book is
/// closed meanwhile. A stop leaves the copies that are whole; a folder that stays empty is taken away again.
/// The bar counts thousandths of a book.
BackupResult RunBackup(const QString& folder, const QString& path, Job& job);

/// The closing message: the count, and a line for each book that was not copied.
QString BackupText(const BackupResult& result);
