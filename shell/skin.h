#pragma once
// The look: colour tokens, fonts, icons and painting helpers. Values come from the Skin tree beside the
// program; a missing file leaves the plain built-in look. No painter names a colour value or a font.

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QPixmap>
#include <QRect>
#include <QString>

#include <optional>

class QPainter;
class QWidget;

/// Colour tokens in the order of the skin's [light] and [dark] sections.
enum class Tok {
    ink,
    page,
    surface,
    head,
    zebra,
    hover,
    soft,
    sel,
    selBar,
    selText,
    grey1,
    line,
    line2,
    btn,
    btnLine,
    box,
    text,
    text2,
    text3,
    dis,
    disBg,
    accent,
    accentHover,
    accentPress,
    onAccent,
    add,
    addBg,
    reduce,
    reduceBg,
    danger,
    dangerFill,
    dangerPress,
    warn,
    info,
    seal,
    tip,
    tipText,
    tabText,
    inkText,
    inkAccent,
    canvas,
    pink,
    icon,
    iconDetail,
    iconRed,
    iconGreen,
    kCount
};

enum class Type { amount, loginName, title, titleRegular, body, bodyBold, small, smallBold, year, badge };

/// The ground an icon stands on decides how its four colours are replaced.
enum class Ground { plain, header, headerChosen, primary, selected, disabled };

namespace Skin {
/// Distances between what stands in a window, in pixels.
namespace Space {
inline constexpr int kPage = 12;    ///< margin of pages and of windows with a list
inline constexpr int kDialog = 24;  ///< margin of dialogs
inline constexpr int kBox = 20;     ///< margin of small boxes
inline constexpr int kField = 12;   ///< between fields
inline constexpr int kPartner = 8;  ///< between a field and its partner
}  // namespace Space

/// Reads the skin of the program folder; dark chooses the second set; without it the
/// skin's own choice stands ("set" of its [look] section). Gives the application its
/// palette and font.
void Load(const QString& programFolder, std::optional<bool> dark = {});
bool IsDark();
QColor Color(Tok token);
QFont Font(Type type);
/// Height of a line of the type, and the factor by which a large system font scales text and rows.
int LineHeight(Type type);
double Scale();
/// Another size of the system's font than the desktop's: points of it, 10 being the usual one.
void SetSystemFont(double points);
/// A length that goes with the text, such as the height of a row or a button, times Scale().
int Px(int length);
/// SVG of the icon set by name ("edit", "tree/open"), rendered at size for the device ratio, cached.
QPixmap Icon(const QString& name, int size, double ratio, Ground ground = Ground::plain);
QIcon WindowIcon();

/// 1 px lines on whole device pixels.
void HLine(QPainter& p, int x1, int x2, int y, const QColor& c);
void VLine(QPainter& p, int x, int y1, int y2, const QColor& c);
/// Fill and 1 px (or wider) outline of a rounded rectangle inside r.
void Box(QPainter& p, const QRectF& r, double radius, const QColor& fill, const QColor& outline,
         double width = 1);
/// Focus ring: outside by a 1 px gap for buttons and checks; inside for toolbar, menu, tab, picture button.
void FocusRing(QPainter& p, const QRectF& r, double radius, bool inside, const QColor& c);
/// Chevron glyph, 0 down, 1 up, 2 left, 3 right, centred in r.
void Chevron(QPainter& p, const QRectF& r, int direction, const QColor& c, double size = 10);
/// The soft shadow of windows and pop-ups round body, painted into the margin outside it.
void Shadow(QPainter& p, const QRect& body, double radius, bool popup, double opacity = 0.4);
/// Transparent margin outside a window for its shadow; 0 without a compositor.
int ShadowMargin();
}  // namespace Skin
