#include "store/paths.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QChar SeparatorOf(PathStyle style) {
    return style == PathStyle::windows ? u'\\' : u'/';
}

// Every existing path that equals the levels, ignoring case, below folder.
QStringList Matches(const QString& folder, const QStringList& levels, qsizetype at) {
    QStringList found;
    const bool last = at + 1 == levels.size();
    const auto entries =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const auto& entry : entries) {
        if (entry.compare(levels[at], Qt::CaseInsensitive) != 0) continue;
        const QString here = folder.endsWith(u'/') ? folder + entry : folder + u'/' + entry;
        if (last)
            found << here;
        else if (QFileInfo(here).isDir())
            found << Matches(here, levels, at + 1);
    }
    return found;
}

FoundPath Search(const QString& path) {
    if (QFileInfo::exists(path)) return {path, true, {}};
    const QString clean = QDir::cleanPath(path);
    const auto levels = clean.split(u'/', Qt::SkipEmptyParts);
    if (!QDir::isAbsolutePath(clean) || levels.isEmpty()) return {path, false, {}};
    const auto found = Matches(u"/"_s, levels, 0);
    if (found.size() == 1) return {found.first(), true, {}};
    return {path, false, found};
}

}  // namespace

PathStyle NativeStyle() {
#ifdef Q_OS_WIN
    return PathStyle::windows;
#else
    return PathStyle::posix;
#endif
}

FoundPath RealPath(const QString& path) {
    auto found = Search(path);
    if (found.exists || !found.rivals.isEmpty()) return found;
    const QString folder = ParentPath(path);
    if (folder.isEmpty()) return found;
    const auto parent = Search(folder);
    if (!parent.rivals.isEmpty()) return {path, false, parent.rivals};
    return {parent.path + path.mid(folder.size()), false, {}};
}

bool FileExists(const QString& path) {
    const auto found = RealPath(path);
    return !found.rivals.isEmpty() || (found.exists && !QFileInfo(found.path).isDir());
}

bool FolderExists(const QString& path) {
    const auto found = RealPath(path);
    return found.exists && QFileInfo(found.path).isDir();
}

QString ParentPath(const QString& path) {
    auto at = path.lastIndexOf(u'/');
    if (at < 0) at = path.lastIndexOf(u'\\');
    return at < 0 ? QString() : path.left(at);
}

QString FileNameOf(QString& path, int cut, PathStyle style) {
    path = path.trimmed();
    if (path.isEmpty()) return {};
    const QChar separator = SeparatorOf(style);
    if (style == PathStyle::windows) path.replace(u'/', separator);
    QString name = path.mid(path.lastIndexOf(separator) + 1);
    if (cut > 0 && cut < name.size()) name.chop(cut);
    return name;
}

FolderPlan PlanFolders(const QString& path, PathStyle style,
                       const std::function<bool(const QString&)>& driveExists) {
    const bool windows = style == PathStyle::windows;
    const QChar separator = SeparatorOf(style);
    QString text = path.trimmed();
    if (text.isEmpty()) return {{}, u"待创建路径为空"_s};
    const bool hasRoot = windows ? text.contains(u':') : text.startsWith(u'/');
    if (!hasRoot) return {{}, u"待创建路径未包含盘符或盘符格式不正确"_s};
    if (windows) text.replace(u'/', separator);
    if (text.endsWith(separator)) text.chop(1);
    if (!text.contains(separator)) return {{}, u"待创建路径格式不正确"_s};
    auto pieces = text.split(separator);
    if (windows && !pieces.first().endsWith(u':')) return {{}, u"待创建路径未包含盘符或盘符格式不正确"_s};
    if (windows && driveExists && !driveExists(pieces.first())) return {{}, u"待创建路径中的盘符无效"_s};
    if (pieces.size() == 1) return {{}, u"待创建路径中不能只包含盘符"_s};
    FolderPlan plan;
    QString level = pieces.takeFirst();
    for (const auto& piece : pieces) {
        if (piece.trimmed().isEmpty()) return {{}, u"路径中包含空字符串"_s};
        level += separator + piece.trimmed();
        plan.levels << level;
    }
    return plan;
}

QString MakeFolders(const QString& path) {
    const auto exists = [](const QString& drive) { return QFileInfo::exists(drive + u'/'); };
    const auto plan = PlanFolders(path, NativeStyle(), exists);
    if (!plan.error.isEmpty()) return plan.error;
    for (const auto& level : plan.levels) {
        const auto real = RealPath(level);
        if (real.rivals.isEmpty() && (QFileInfo(real.path).isDir() || QDir().mkdir(real.path))) continue;
        return u"意外错误, 可能路径中包含了非法字符 或 当前Windows用户无权限"_s;
    }
    return {};
}

bool IsForbiddenBox(const QString& path, PathStyle style, const QString& systemDrive,
                    const QString& programFolder) {
    const QString lower = path.toLower();
    if (style == PathStyle::windows) {
        const QStringList folders{u"\\Program Files"_s, u"\\Windows"_s, u"\\用户"_s, u"\\Users"_s};
        return std::any_of(folders.begin(), folders.end(),
                           [&](const QString& f) { return lower.startsWith((systemDrive + f).toLower()); });
    }
    const QStringList folders{u"/usr"_s,
                              u"/bin"_s,
                              u"/sbin"_s,
                              u"/lib"_s,
                              u"/etc"_s,
                              u"/boot"_s,
                              u"/dev"_s,
                              u"/proc"_s,
                              u"/sys"_s,
                              u"/run"_s,
                              programFolder.toLower()};
    return std::any_of(folders.begin(), folders.end(),
                       [&](const QString& f) { return lower == f || lower.startsWith(f + u'/'); });
}
