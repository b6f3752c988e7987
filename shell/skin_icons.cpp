#include "shell/skin.h"
#include "shell/skin_tree.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QPainter>
#include <QSet>
#include <QSvgRenderer>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {
// The values that the icon files are drawn with.
constexpr std::array kDrawnWith = {"#33464F", "#0B7285", "#B3352A", "#13704A"};

QHash<QString, QPixmap>& Cache() {
    static QHash<QString, QPixmap> cache;
    return cache;
}

QIcon& ProgramIcon() {
    static QIcon icon;
    return icon;
}

bool KeepsColors(const QString& name) {
    static const QSet<QString> kept{u"info"_s,   u"faq"_s,  u"fail"_s,       u"success"_s,   u"warn"_s,
                                    u"mayday"_s, u"logo"_s, u"logo-small"_s, u"logo-mono"_s, u"agent"_s};
    return kept.contains(name) || name.startsWith(u"head-"_s);
}

std::array<QColor, 4> ColorsOn(Ground ground) {
    using Skin::Color;
    const QColor red = Color(Tok::iconRed);
    const QColor green = Color(Tok::iconGreen);
    const auto all = [](Tok token) {
        const QColor color = Color(token);
        return std::array{color, color, color, color};
    };
    switch (ground) {
        case Ground::header:
            return {Color(Tok::tabText), Color(Tok::inkAccent), red, green};
        case Ground::headerChosen:
            return {Qt::white, Color(Tok::inkAccent), red, green};
        case Ground::primary:
            return all(Tok::onAccent);
        case Ground::selected:
            return all(Tok::accent);
        case Ground::disabled:
            return all(Tok::dis);
        case Ground::plain:
            break;
    }
    return {Color(Tok::icon), Color(Tok::iconDetail), red, green};
}

// All four at once: a new value may equal an old one that has yet to be looked for.
QByteArray Recolored(const QByteArray& svg, const std::array<QColor, 4>& colors) {
    QByteArray result = svg;
    for (qsizetype at = result.indexOf('#'); at >= 0; at = result.indexOf('#', at + 1)) {
        for (size_t i = 0; i < kDrawnWith.size(); ++i) {
            if (result.mid(at, 7).compare(kDrawnWith[i], Qt::CaseInsensitive) != 0) continue;
            result.replace(at, 7, colors[i].name().toLatin1());
            break;
        }
    }
    return result;
}

QPixmap Render(const QString& name, int size, double ratio, Ground ground) {
    const int side = static_cast<int>(std::ceil(size * ratio));
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    pixmap.setDevicePixelRatio(ratio);
    QFile file(Skin::Folder() + u"/icons/"_s + name + u".svg"_s);
    if (!file.open(QIODevice::ReadOnly)) return pixmap;
    const QByteArray svg = file.readAll();
    QSvgRenderer renderer(KeepsColors(name) ? svg : Recolored(svg, ColorsOn(ground)));
    QPainter p(&pixmap);
    renderer.render(&p, QRectF(0, 0, size, size));
    return pixmap;
}
}  // namespace

namespace Skin {
void ForgetIcons() {
    Cache().clear();
    ProgramIcon() = {};
}

QPixmap Icon(const QString& name, int size, double ratio, Ground ground) {
    if (name.isEmpty() || size <= 0) return {};
    const QString key = u"%1|%2|%3|%4"_s.arg(name).arg(size).arg(ratio).arg(static_cast<int>(ground));
    const auto found = Cache().constFind(key);
    if (found != Cache().constEnd()) return *found;
    return *Cache().insert(key, Render(name, size, ratio, ground));
}

// Decoded once for all windows.
QIcon WindowIcon() {
    QIcon& icon = ProgramIcon();
    if (!icon.isNull()) return icon;
    icon = QIcon(QFileInfo(Folder()).path() + u"/Jot.ico"_s);
    if (!icon.availableSizes().isEmpty()) return icon;
    icon = {};
    for (const int size : {16, 24, 32})
        icon.addPixmap(Icon(u"logo-small"_s, size, 1));
    for (const int size : {48, 64, 128, 256})
        icon.addPixmap(Icon(u"logo"_s, size, 1));
    return icon;
}
}  // namespace Skin
