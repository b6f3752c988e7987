#pragma once
// KestroStyle: what Qt's own parts (scroll bars, menus, tool tip delay) look like. The program sets one as
// its application style; controls of this folder carry it themselves, so that they look the same without it.

#include <QProxyStyle>

class KestroStyle : public QProxyStyle {
 public:
    KestroStyle();
    static KestroStyle* Shared();

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
                    const QWidget* widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr, const QWidget* widget = nullptr,
                  QStyleHintReturn* returnData = nullptr) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget = nullptr) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* p,
                            const QWidget* widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* p,
                     const QWidget* widget = nullptr) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* p,
                       const QWidget* widget = nullptr) const override;
};
