#pragma once
// The platform's own file and folder dialogs, through one slot that tests replace.

#include <QString>

#include <functional>

struct FileRequest {
    QString title;
    /// Lines such as "名字|*.ext", several patterns parted by ";"; "*.*" means all files, patterns ignore
    /// case.
    QString filter;
    QString folder;  ///< where the dialog starts, empty for the home folder
    QString name;    ///< a file name to begin with
    bool wantsFolder = false;
    QString suffix =
        {};  ///< a file to write: asked before one is replaced, gets this suffix when it has none
};

/// What answers a request: an absolute path, or an empty text when the user gave up.
std::function<QString(const FileRequest&)>& FileDialogSlot();

QString ChooseFile(const QString& title, const QString& filter, const QString& folder,
                   const QString& name = {});
QString ChooseNewFile(const QString& title, const QString& filter, const QString& folder, const QString& name,
                      const QString& suffix);
QString ChooseFolder(const QString& title, const QString& folder);

/// filter as the platform's dialog wants it, such as "账本 (*.[jJ][oO][tT]);;所有文件 (*)".
QString PlatformFilter(const QString& filter);
