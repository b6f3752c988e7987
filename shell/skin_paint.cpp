#include "shell/skin.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <xcb/xcb.h>

using namespace Qt::StringLiterals;

namespace {
constexpr int kShadowMargin = 14;
constexpr double kUsualOpacity = 0.4;

struct Ring {
    int grow;
    int down;
    double alpha;
};

constexpr std::array kRings =
    std::to_array<Ring>({{9, 5, 0.02}, {7, 4, 0.035}, {5, 3, 0.05}, {3, 2, 0.07}, {2, 1, 0.085}});
constexpr size_t kPopupRings = 3;

double Ratio(const QPainter& p) {
    return p.device()->devicePixelRatioF();
}

// A length of one logical pixel as whole device pixels, back in logical ones.
double Hairline(const QPainter& p) {
    return std::max(1.0, std::floor(Ratio(p))) / Ratio(p);
}

double OnDevice(const QPainter& p, double at) {
    return std::round(at * Ratio(p)) / Ratio(p);
}

template <class T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

// A compositor owns the selection _NET_WM_CM_S<screen>.
bool XcbHasCompositor() {
    auto* app = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (app == nullptr) return false;
    xcb_connection_t* connection = app->connection();
    const QByteArray name = "_NET_WM_CM_S0";
    const auto asked = xcb_intern_atom(connection, 0, static_cast<uint16_t>(name.size()), name.constData());
    const Reply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(connection, asked, nullptr), &std::free);
    if (!atom) return false;
    const auto wanted = xcb_get_selection_owner(connection, atom->atom);
    const Reply<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(connection, wanted, nullptr), &std::free);
    return owner && owner->owner != XCB_NONE;
}

bool HasCompositor() {
    const QString platform = QGuiApplication::platformName();
    return platform.startsWith(u"wayland"_s) || (platform == u"xcb"_s && XcbHasCompositor());
}
}  // namespace

namespace Skin {
void HLine(QPainter& p, int x1, int x2, int y, const QColor& c) {
    p.fillRect(QRectF(x1, OnDevice(p, y), x2 - x1, Hairline(p)), c);
}

void VLine(QPainter& p, int x, int y1, int y2, const QColor& c) {
    p.fillRect(QRectF(OnDevice(p, x), y1, Hairline(p), y2 - y1), c);
}

void Box(QPainter& p, const QRectF& r, double radius, const QColor& fill, const QColor& outline,
         double width) {
    const double line = width == 1 ? Hairline(p) : width;
    const double half = line / 2;
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(outline.isValid() && outline.alpha() > 0 ? QPen(outline, line) : QPen(Qt::NoPen));
    p.setBrush(fill.isValid() ? QBrush(fill) : QBrush(Qt::NoBrush));
    p.drawRoundedRect(r.adjusted(half, half, -half, -half), std::max(0.0, radius - half),
                      std::max(0.0, radius - half));
    p.restore();
}

void FocusRing(QPainter& p, const QRectF& r, double radius, bool inside, const QColor& c) {
    if (inside)
        Box(p, r, radius, {}, c, 2);
    else
        Box(p, r.adjusted(-3, -3, 3, 3), radius + 3, {}, c, 2);
}

void Chevron(QPainter& p, const QRectF& r, int direction, const QColor& c, double size) {
    constexpr std::array kTurns = {0, 180, 90, -90};
    const double half = size * 0.4;
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.translate(r.center());
    p.rotate(kTurns.at(static_cast<size_t>(direction)));
    p.setPen(QPen(c, size * 0.15, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(Qt::NoBrush);
    p.drawPolyline(QPolygonF{{-half, -half / 2}, {0, half / 2}, {half, -half / 2}});
    p.restore();
}

void Shadow(QPainter& p, const QRect& body, double radius, bool popup, double opacity) {
    const double factor = std::min(2.0, opacity / kUsualOpacity);
    QColor fill = IsDark() ? QColor(Qt::black) : Color(Tok::ink);
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    for (size_t i = popup ? kRings.size() - kPopupRings : 0; i < kRings.size(); ++i) {
        const Ring& ring = kRings[i];
        fill.setAlphaF(static_cast<float>(ring.alpha * factor));
        p.setBrush(fill);
        const int s = ring.grow;
        p.drawRoundedRect(QRectF(body).adjusted(-s, -s + ring.down, s, s + ring.down), radius + s,
                          radius + s);
    }
    p.restore();
}

int ShadowMargin() {
    static const int margin = HasCompositor() ? kShadowMargin : 0;
    return margin;
}
}  // namespace Skin
