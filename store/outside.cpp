#include "store/outside.h"

#include <QDir>
#include <QStandardPaths>
#include <QStorageInfo>

using namespace Qt::StringLiterals;

namespace {

QString FolderOf(QStandardPaths::StandardLocation location) {
    return QStandardPaths::writableLocation(location);
}

// What a user would call a volume: the root, and what is mounted where volumes are.
bool IsUsersVolume(const QString& root) {
    return root == u"/" || root.startsWith(u"/media/"_s) || root.startsWith(u"/run/media/"_s) ||
           root.startsWith(u"/mnt/"_s) || root == u"/mnt";
}

QString IconOf(const QStorageInfo& volume) {
    static const QByteArrayList apart{"iso9660", "udf",        "nfs",   "nfs4",  "cifs",
                                      "smb3",    "fuse.sshfs", "tmpfs", "ramfs", "9p"};
    if (apart.contains(volume.fileSystemType())) return u"disc"_s;
    return volume.rootPath().contains(u"media/"_s) ? u"udisk"_s : u"harddisk"_s;
}

}  // namespace

std::vector<BrowsePlace> UsualPlaces() {
    std::vector<BrowsePlace> places{
        {u"desktop"_s, u"桌面"_s, u"desktop"_s, FolderOf(QStandardPaths::DesktopLocation)},
        {u"doc"_s, u"我的文档"_s, u"doc"_s, FolderOf(QStandardPaths::DocumentsLocation)},
        {u"home"_s, u"主目录"_s, u"home"_s, QDir::homePath()}};
    for (const auto& volume : QStorageInfo::mountedVolumes()) {
        const QString root = volume.rootPath();
        if (!volume.isValid() || !volume.isReady() || !IsUsersVolume(root)) continue;
        const QString name = volume.isRoot() ? u"系统"_s : volume.displayName().section(u'/', -1);
        places.push_back({root, name + u" 盘"_s, IconOf(volume), root});
    }
    return places;
}

OutsideWorld& Outside() {
    static OutsideWorld world;
    return world;
}
