#include "shell/controls/kestro_style.h"

#include "shell/skin.h"

#include <QFontMetrics>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOption>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int kThumb = 6, kThumbHover = 8, kThumbLeast = 32;
constexpr int kMenuPadding = 4, kMenuIconAt = 8, kMenuTextAt = 34, kMenuEnd = 16, kMenuRow = 28;
constexpr int kMenuLeast = 144, kMenuOverlap = 2;
constexpr int kTipDelay = 500;  // milliseconds

QString BeforeTab(const QString& text) {
    return text.section(u'\t', 0, 0);
}
QString BehindTab(const QString& text) {
    return text.section(u'\t', 1);
}

QRect ThumbRect(const QStyleOptionSlider& bar) {
    const bool upright = bar.orientation == Qt::Vertical;
    const int length = upright ? bar.rect.height() : bar.rect.width();
    const double range = bar.maximum - bar.minimum;
    int thumb = length;
    if (range > 0) thumb = static_cast<int>(length * (bar.pageStep / (range + bar.pageStep)));
    thumb = std::min(length, std::max(kThumbLeast, thumb));
    const int start = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition,
                                                      length - thumb, bar.upsideDown);
    return upright ? QRect(bar.rect.left(), bar.rect.top() + start, bar.rect.width(), thumb)
                   : QRect(bar.rect.left() + start, bar.rect.top(), thumb, bar.rect.height());
}

void PaintScrollBar(QPainter& p, const QStyleOptionSlider& bar) {
    if (bar.maximum <= bar.minimum) return;
    const bool hover = bar.state.testFlag(QStyle::State_MouseOver);
    const bool onThumb = bar.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
    const bool pressed = onThumb && bar.state.testFlag(QStyle::State_Sunken);
    if (hover || pressed) p.fillRect(bar.rect, Skin::Color(Tok::head));
    const bool wide = pressed || (hover && onThumb);
    const double breadth = wide ? kThumbHover : kThumb;
    QRectF thumb = ThumbRect(bar);
    if (bar.orientation == Qt::Vertical) {
        thumb.adjust((thumb.width() - breadth) / 2, 1, -(thumb.width() - breadth) / 2, -1);
    } else {
        thumb.adjust(1, (thumb.height() - breadth) / 2, -1, -(thumb.height() - breadth) / 2);
    }
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(Skin::Color(pressed ? Tok::text2 : wide ? Tok::box : Tok::line2));
    p.drawRoundedRect(thumb, breadth / 2, breadth / 2);
    p.restore();
}

void PaintMenuPanel(QPainter& p, const QRect& rect) {
    const int margin = Skin::ShadowMargin();
    const QRect body = rect.adjusted(margin, margin, -margin, -margin);
    const double radius = margin > 0 ? 6 : 0;
    if (margin > 0) Skin::Shadow(p, body, radius, true);
    Skin::Box(p, body, radius, Skin::Color(Tok::surface), Skin::Color(Tok::line2));
}

Tok MenuTextColor(const QStyleOptionMenuItem& item, bool chosen) {
    if (!item.state.testFlag(QStyle::State_Enabled)) return Tok::dis;
    return chosen ? Tok::accent : Tok::text;
}

/// The picture of an item, a check mark in its place for a checked one.
void PaintMenuPicture(QPainter& p, const QStyleOptionMenuItem& item, bool chosen) {
    const bool enabled = item.state.testFlag(QStyle::State_Enabled);
    const QRect place(item.rect.left() + kMenuIconAt, item.rect.center().y() - 7, 16, 16);
    if (item.checked) {
        const Ground ground = !enabled ? Ground::disabled : chosen ? Ground::selected : Ground::plain;
        p.drawPixmap(place.topLeft(), Skin::Icon(u"check"_s, 16, p.device()->devicePixelRatioF(), ground));
    } else if (!item.icon.isNull()) {
        const QIcon::Mode mode = !enabled ? QIcon::Disabled : chosen ? QIcon::Active : QIcon::Normal;
        item.icon.paint(&p, place, Qt::AlignCenter, mode);
    }
}

void PaintMenuItem(QPainter& p, const QStyleOptionMenuItem& item) {
    const QRect rect = item.rect;
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        Skin::HLine(p, rect.left() + kMenuTextAt, rect.right() - kMenuPadding, rect.center().y(),
                    Skin::Color(Tok::line));
        return;
    }
    const bool chosen =
        item.state.testFlag(QStyle::State_Selected) && item.state.testFlag(QStyle::State_Enabled);
    if (chosen) Skin::Box(p, rect, 4, Skin::Color(Tok::soft), Skin::Color(Tok::soft));
    PaintMenuPicture(p, item, chosen);
    const QRect room = rect.adjusted(kMenuTextAt, 0, -kMenuEnd, 0);
    const Tok color = MenuTextColor(item, chosen);
    p.setFont(Skin::Font(Type::body));
    p.setPen(Skin::Color(color));
    p.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextHideMnemonic, BeforeTab(item.text));
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
        const QRectF end(rect.right() - 22, rect.top(), 16, rect.height());
        return Skin::Chevron(p, end, 3, Skin::Color(color));
    }
    p.setFont(Skin::Font(Type::small));
    p.setPen(Skin::Color(color == Tok::dis ? Tok::dis : Tok::text3));
    p.drawText(room, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, BehindTab(item.text));
}

QSize MenuItemSize(const QStyleOptionMenuItem& item) {
    if (item.menuItemType == QStyleOptionMenuItem::Separator) return {kMenuLeast, 9};
    const QFontMetrics body(Skin::Font(Type::body)), small(Skin::Font(Type::small));
    const QString hint = BehindTab(item.text);
    int width = kMenuTextAt + body.size(Qt::TextHideMnemonic, BeforeTab(item.text)).width() + kMenuEnd;
    if (!hint.isEmpty()) width += 28 + small.horizontalAdvance(hint);
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) width += 12;
    return {std::max(width, kMenuLeast), static_cast<int>(std::lround(kMenuRow * Skin::Scale()))};
}

}  // namespace

KestroStyle::KestroStyle() : QProxyStyle(u"fusion"_s) {}

KestroStyle* KestroStyle::Shared() {
    static KestroStyle style;
    return &style;
}

void KestroStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (dynamic_cast<QScrollBar*>(widget)) {
        widget->setAttribute(Qt::WA_OpaquePaintEvent, false);
        widget->setAttribute(Qt::WA_Hover);
    }
    // A menu's style takes room for its shadow, which a window that is not translucent fills with white.
    if (dynamic_cast<QMenu*>(widget) && !widget->windowFlags().testFlag(Qt::FramelessWindowHint)) {
        widget->setWindowFlags(widget->windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
        widget->setAttribute(Qt::WA_TranslucentBackground, Skin::ShadowMargin() > 0);
    }
}

int KestroStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
        case PM_ScrollBarExtent:
            return 10;
        case PM_ScrollBarSliderMin:
            return kThumbLeast;
        case PM_ScrollView_ScrollBarSpacing:
        case PM_ScrollView_ScrollBarOverlap:
            return 0;
        case PM_MenuHMargin:
        case PM_MenuVMargin:
            return kMenuPadding;
        case PM_MenuPanelWidth:
            return Skin::ShadowMargin();
        case PM_SubMenuOverlap:
            return kMenuOverlap - Skin::ShadowMargin();
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int KestroStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                           QStyleHintReturn* returnData) const {
    switch (hint) {
        case SH_ToolTip_WakeUpDelay:
            return kTipDelay;
        case SH_Menu_Mask:
        case SH_ToolTip_Mask:
            return 0;
        case SH_ScrollBar_ContextMenu:
            return 0;
        default:
            return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

QRect KestroStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                  const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || !bar) return QProxyStyle::subControlRect(control, option, part, widget);
    const QRect thumb = ThumbRect(*bar);
    const bool upright = bar->orientation == Qt::Vertical;
    QRect rect = bar->rect;
    switch (part) {
        case SC_ScrollBarSlider:
            return thumb;
        case SC_ScrollBarGroove:
            return rect;
        case SC_ScrollBarSubPage:
            upright ? rect.setBottom(thumb.top() - 1) : rect.setRight(thumb.left() - 1);
            return rect;
        case SC_ScrollBarAddPage:
            upright ? rect.setTop(thumb.bottom() + 1) : rect.setLeft(thumb.right() + 1);
            return rect;
        default:
            return {};
    }
}

QSize KestroStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                    const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type == CT_MenuItem && item) return MenuItemSize(*item);
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

void KestroStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* p,
                                     const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control == CC_ScrollBar && bar) return PaintScrollBar(*p, *bar);
    QProxyStyle::drawComplexControl(control, option, p, widget);
}

void KestroStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* p,
                              const QWidget* widget) const {
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element == CE_MenuEmptyArea) return;
    if (element == CE_MenuItem && item) return PaintMenuItem(*p, *item);
    QProxyStyle::drawControl(element, option, p, widget);
}

void KestroStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* p,
                                const QWidget* widget) const {
    if (element == PE_PanelMenu) return PaintMenuPanel(*p, option->rect);
    if (element == PE_FrameMenu) return;
    QProxyStyle::drawPrimitive(element, option, p, widget);
}
