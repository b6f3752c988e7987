#include "shell/skin.h"

#include "shell/skin_tree.h"

#include <QApplication>
#include <QFileInfo>
#include <QPalette>
#include <QSettings>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {
struct Token {
    const char16_t* name;
    QRgb plain;
};

// What the light set holds too: a program without its skin tree looks like one with it.
constexpr std::array kTokens = std::to_array<Token>({
    {u"ink", 0x1B2B36},      {u"page", 0xF3F6F7},      {u"surface", 0xFFFFFF},     {u"head", 0xEAF0F2},
    {u"zebra", 0xF7FAFB},    {u"hover", 0xEAF6F7},     {u"soft", 0xDFF1F3},        {u"sel", 0xC0FFFF},
    {u"selBar", 0x0B7285},   {u"selText", 0x1B2A33},   {u"grey1", 0xE1E0E1},       {u"line", 0xDCE4E7},
    {u"line2", 0xC3CED3},    {u"btn", 0xFFFFFF},       {u"btnLine", 0xB4C1C8},     {u"box", 0x80919A},
    {u"text", 0x1B2A33},     {u"text2", 0x4C5F6A},     {u"text3", 0x5F7079},       {u"dis", 0x98A5AC},
    {u"disBg", 0xEDF1F3},    {u"accent", 0x0B7285},    {u"accentHover", 0x095F6F}, {u"accentPress", 0x074D5B},
    {u"onAccent", 0xFFFFFF}, {u"add", 0xB3352A},       {u"addBg", 0xFBECEA},       {u"reduce", 0x13704A},
    {u"reduceBg", 0xE5F3EC}, {u"danger", 0xB4262F},    {u"dangerFill", 0xB4262F},  {u"dangerPress", 0x8F1C24},
    {u"warn", 0xEBAE2B},     {u"info", 0x1F66A8},      {u"seal", 0xC73E2C},        {u"tip", 0x22343F},
    {u"tipText", 0xF2F7F9},  {u"tabText", 0xAFC0C9},   {u"inkText", 0xE6EEF1},     {u"inkAccent", 0x5FD0DB},
    {u"canvas", 0xC9D2D6},   {u"pink", 0xB84364},      {u"icon", 0x33464F},        {u"iconDetail", 0x0B7285},
    {u"iconRed", 0xB3352A},  {u"iconGreen", 0x13704A},
});
static_assert(kTokens.size() == static_cast<size_t>(Tok::kCount));

struct TypeSize {
    int pixels;
    int line;
    bool bold;
};

constexpr std::array kTypes = std::to_array<TypeSize>({{20, 26, true},
                                                       {18, 26, true},
                                                       {14, 20, true},
                                                       {14, 20, false},
                                                       {13, 20, false},
                                                       {13, 20, true},
                                                       {12, 18, false},
                                                       {12, 18, true},
                                                       {11, 13, false},
                                                       {11, 16, true}});

constexpr double kUsualPoints = 10;

using ColorSet = std::array<QColor, kTokens.size()>;

ColorSet PlainColors() {
    ColorSet colors;
    std::transform(kTokens.begin(), kTokens.end(), colors.begin(),
                   [](const Token& t) { return QColor(t.plain); });
    return colors;
}

struct Look {
    ColorSet colors = PlainColors();
    QString folder;
    bool dark = false;
    double scale = 0;  // 0: the system's font has not been asked for yet
};

Look& Current() {
    static Look look;
    return look;
}

ColorSet ReadColors(const QString& file, const QString& section) {
    ColorSet colors = PlainColors();
    if (!QFileInfo::exists(file)) return colors;
    QSettings settings(file, QSettings::IniFormat);
    settings.beginGroup(section);
    for (size_t i = 0; i < kTokens.size(); ++i) {
        const QColor color(settings.value(QString::fromUtf16(kTokens[i].name)).toString());
        if (color.isValid()) colors[i] = color;
    }
    return colors;
}

// The desktop's own font size, asked before ours takes its place. Platforms without a desktop have no
// user who chose one.
double SystemScale() {
    const QString platform = QApplication::platformName();
    if (platform == u"offscreen"_s || platform == u"minimal"_s) return 1;
    return std::max(1.0, QApplication::font().pointSizeF() / kUsualPoints);
}

QPalette MakePalette() {
    using Skin::Color;
    QPalette palette(Color(Tok::text), Color(Tok::surface), Color(Tok::line), Color(Tok::btnLine),
                     Color(Tok::box), Color(Tok::text), Color(Tok::surface));
    QColor selection = Color(Tok::accent);
    selection.setAlphaF(0.25F);
    palette.setColor(QPalette::Highlight, selection);
    palette.setColor(QPalette::HighlightedText, Color(Tok::text));
    palette.setColor(QPalette::PlaceholderText, Color(Tok::text3));
    palette.setColor(QPalette::ToolTipBase, Color(Tok::tip));
    palette.setColor(QPalette::ToolTipText, Color(Tok::tipText));
    palette.setColor(QPalette::Link, Color(Tok::accent));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, Color(Tok::dis));
    return palette;
}
}  // namespace

namespace Skin {
void Load(const QString& programFolder, std::optional<bool> wanted) {
    Look& look = Current();
    Scale();
    look.folder = programFolder + u"/Skin"_s;
    const QString file = look.folder + u"/skin.ini"_s;
    look.dark =
        wanted.value_or(QSettings(file, QSettings::IniFormat).value(u"look/set"_s).toString() == u"dark");
    look.colors = ReadColors(file, look.dark ? u"dark"_s : u"light"_s);
    ForgetIcons();
    if (qApp == nullptr) return;
    QApplication::setPalette(MakePalette());
    QApplication::setFont(Font(Type::body));
}

bool IsDark() {
    return Current().dark;
}

QString Folder() {
    return Current().folder;
}

QColor Color(Tok token) {
    return Current().colors.at(static_cast<size_t>(token));
}

double Scale() {
    double& scale = Current().scale;
    if (scale == 0) scale = SystemScale();
    return scale;
}

void SetSystemFont(double points) {
    Current().scale = std::max(1.0, points / kUsualPoints);
    if (qApp != nullptr) QApplication::setFont(Font(Type::body));
}

int Px(int length) {
    return static_cast<int>(std::lround(length * Scale()));
}

QFont Font(Type type) {
    const TypeSize& size = kTypes.at(static_cast<size_t>(type));
    QFont font;
    font.setFamilies({u"Noto Sans CJK SC"_s, u"Source Han Sans SC"_s, u"Microsoft YaHei"_s, u"PingFang SC"_s,
                      u"sans-serif"_s});
    font.setPixelSize(Px(size.pixels));
    font.setBold(size.bold);
    return font;
}

int LineHeight(Type type) {
    return Px(kTypes.at(static_cast<size_t>(type)).line);
}
}  // namespace Skin
