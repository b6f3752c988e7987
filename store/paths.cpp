#include "store/paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kOwnFolder = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

QChar SeparatorOf(PathStyle style) {
    return style == PathStyle::windows ? u'\\' : u'/';
}

bool Exists(const QString& path) {
    return QFileInfo::exists(path);
}

QString Below(const QString& folder, const QString& name) {
    return folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
}

QStringList ListFolder(const QString& folder) {
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                  QDir::Unsorted);
}

using NamesByCase = QMultiHash<QString, QString>;
QHash<QString, NamesByCase>& KeptListings() {
    static QHash<QString, NamesByCase> listings;
    return listings;
}
int listingsKept = 0;

const NamesByCase& KeptListing(const QString& folder) {
    auto& kept = KeptListings();
    const auto found = kept.constFind(folder);
    if (found != kept.constEnd()) return *found;
    NamesByCase names;
    for (const auto& name : ListFolder(folder))
        names.insert(name.toCaseFolded(), name);
    return *kept.insert(folder, names);
}

// The entries of a folder that equal name, ignoring case. A folder that cannot be listed still answers for
// the exact name.
QStringList Entries(const QString& folder, const QString& name) {
    QStringList found;
    const auto names =
        listingsKept > 0 ? KeptListing(folder).values(name.toCaseFolded()) : ListFolder(folder);
    for (const auto& entry : names)
        if (entry.compare(name, Qt::CaseInsensitive) == 0) found << Below(folder, entry);
    const QString exact = Below(folder, name);
    if (!found.contains(exact) && Exists(exact)) found << exact;
    found.sort();
    return found;
}

// Every existing path that equals the levels, ignoring case, below folder.
QStringList Matches(const QString& folder, const QStringList& levels, qsizetype at = 0) {
    if (at == levels.size()) return {folder};
    QStringList found;
    for (const auto& here : Entries(folder, levels[at]))
        if (at + 1 == levels.size() || QFileInfo(here).isDir()) found << Matches(here, levels, at + 1);
    return found;
}

QStringList& KnownFolders() {
    static QStringList folders;
    return folders;
}

QStringList MatchesInKnown(const QString& path) {
    QStringList found;
    for (const auto& folder : KnownFolders()) {
        const bool inside = path.startsWith(folder + u'/', Qt::CaseInsensitive) ||
                            path.compare(folder, Qt::CaseInsensitive) == 0;
        if (inside && QFileInfo(folder).isDir())
            found << Matches(folder, path.mid(folder.size()).split(u'/', Qt::SkipEmptyParts));
    }
    return found;
}

// Links may lead to one file by several spellings, which are no rivals.
QStringList Distinct(const QStringList& paths) {
    QStringList kept;
    for (const auto& path : paths)
        if (std::none_of(kept.begin(), kept.end(), [&](const QString& k) { return IsSameFile(k, path); }))
            kept << path;
    return kept;
}

FoundPath Search(const QString& path) {
    if (Exists(path)) return {path, true, {}};
    const QString clean = QDir::cleanPath(path);
    const auto levels = clean.split(u'/', Qt::SkipEmptyParts);
    if (!QDir::isAbsolutePath(clean) || levels.isEmpty()) return {path, false, {}};
    const auto found = Distinct(MatchesInKnown(clean) + Matches(u"/"_s, levels));
    if (found.size() == 1) return {found.first(), true, {}};
    return {path, false, found};
}

// The beginning of path that is there as a folder, to the letter.
QString StandingPart(QString path) {
    while (!path.isEmpty() && !QFileInfo(path).isDir())
        path = ParentPath(path);
    return path;
}

const QStringList& SystemFolders() {
    static const QStringList folders{u"/usr"_s,  u"/bin"_s, u"/sbin"_s, u"/lib"_s, u"/etc"_s,
                                     u"/boot"_s, u"/dev"_s, u"/proc"_s, u"/sys"_s, u"/run"_s};
    return folders;
}

bool LiesIn(const QString& path, const QString& folder) {
    return path == folder || path.startsWith(folder + u'/');
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

FoundPath SpelledPath(const QString& path) {
    if (!Exists(path)) return RealPath(path);
    KnowFolder(QFileInfo(path).isDir() ? path : ParentPath(path));
    auto lower = RealPath(path.toLower());
    if (!lower.rivals.isEmpty()) return lower;
    if (lower.exists && !IsSameFile(lower.path, path)) return {path, false, {path, lower.path}};
    return {path, true, {}};
}

void KnowFolder(const QString& folder) {
    auto& known = KnownFolders();
    const QString clean = QDir::cleanPath(folder);
    if (QDir::isAbsolutePath(clean) && clean != u"/" && !known.contains(clean)) known << clean;
}

ListingScope::ListingScope() {
    ++listingsKept;
}

ListingScope::~ListingScope() {
    if (--listingsKept == 0) KeptListings().clear();
}

void ForgetFolders() {
    KnownFolders().clear();
}

bool IsSameFile(const QString& a, const QString& b) {
    if (a == b) return Exists(a);
    const auto first = QFile::encodeName(a).toStdString();
    const auto second = QFile::encodeName(b).toStdString();
    std::error_code none;
    return std::filesystem::equivalent(first, second, none);
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
    auto plan = PlanFolders(path, NativeStyle(), exists);
    if (!plan.error.isEmpty()) return plan.error;
    const QString standing = NativeStyle() == PathStyle::posix ? StandingPart(path) : QString();
    if (!standing.isEmpty()) {
        if (path.mid(standing.size()).split(u'/', Qt::SkipEmptyParts).isEmpty()) return {};
        plan = PlanFolders(path.mid(standing.size()), PathStyle::posix);
    }
    for (const auto& level : plan.levels) {
        const auto real = RealPath(standing + level);
        if (real.rivals.isEmpty() && (QFileInfo(real.path).isDir() || QDir().mkdir(real.path, kOwnFolder)))
            continue;
        return u"意外错误, 可能路径中包含了非法字符 或 当前Windows用户无权限"_s;
    }
    return {};
}

bool IsSystemFolder(const QString& path) {
    const auto& folders = SystemFolders();
    return std::any_of(folders.begin(), folders.end(), [&](const QString& f) { return LiesIn(path, f); });
}

bool IsForbiddenBox(const QString& path, PathStyle style, const QString& systemDrive,
                    const QString& programFolder) {
    const QString lower = path.toLower();
    if (style == PathStyle::posix) return IsSystemFolder(lower) || LiesIn(lower, programFolder.toLower());
    const QStringList folders{u"\\Program Files"_s, u"\\Windows"_s, u"\\用户"_s, u"\\Users"_s};
    return std::any_of(folders.begin(), folders.end(),
                       [&](const QString& f) { return lower.startsWith((systemDrive + f).toLower()); });
}
