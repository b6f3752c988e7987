#pragma once
// Path rules as pure functions, and the few questions to the file system. The rules of both platforms can be
// asked for, whatever the program runs on.

#include <QString>
#include <QStringList>

#include <functional>

enum class PathStyle { posix, windows };
PathStyle NativeStyle();

/// An existing file or folder under the spelling that the file system has: the exact one first, otherwise
/// ignoring case, level by level. When nothing of that name exists, the name in the real folder.
struct FoundPath {
    QString path;
    bool exists = false;
    QStringList rivals;  ///< several entries differ by case alone; none of them may be touched
};
FoundPath RealPath(const QString& path);

/// A path in the spelling that a dialog, a drop, the command line or a folder's listing gave. Paths are kept
/// in lower case from then on, so rivals tells when that would lead to another file or folder. Its folder
/// counts as known from now on.
FoundPath SpelledPath(const QString& path);

/// Folders of known spelling: what lies in them is found even where a folder above cannot be listed.
void KnowFolder(const QString& folder);
void ForgetFolders();

/// For a walk over many paths: while one lives, each folder is listed only once, so that what comes into it
/// meanwhile is not seen.
class ListingScope {
 public:
    ListingScope();
    ~ListingScope();
    ListingScope(const ListingScope&) = delete;
    ListingScope& operator=(const ListingScope&) = delete;
};

/// True when both exist and are the same on the disk, whatever links lead to them.
bool IsSameFile(const QString& a, const QString& b);

/// True when path is an existing file, ignoring case, and no folder.
bool FileExists(const QString& path);
bool FolderExists(const QString& path);

/// What stands before the last "/", or the last "\" when there is no "/"; empty when there is neither.
QString ParentPath(const QString& path);
/// The part behind the last separator, less its last cut characters. Trims path in place and turns it to the
/// style's separator.
QString FileNameOf(QString& path, int cut, PathStyle style = NativeStyle());

/// The levels that MakeFolders makes, from the top one on, or the reason why it refuses the text.
struct FolderPlan {
    QStringList levels;
    QString error;
};
FolderPlan PlanFolders(const QString& path, PathStyle style,
                       const std::function<bool(const QString&)>& driveExists = {});
/// Makes a path level by level, each new folder for its user alone. A level that is there keeps its spelling,
/// blanks at its ends included. Empty on success, otherwise the reason.
QString MakeFolders(const QString& path);

/// True when path (lower case) lies in a folder of the system outside Windows.
bool IsSystemFolder(const QString& path);
/// True when a book box may not lie at path (lower case). systemDrive: of Windows, such as "C:".
bool IsForbiddenBox(const QString& path, PathStyle style, const QString& systemDrive,
                    const QString& programFolder);
