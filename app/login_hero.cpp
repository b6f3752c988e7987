#include "app/login_hero.h"

#include "shell/skin.h"

#include <QPainter>

using namespace Qt::StringLiterals;

void LoginHero::SetStripShown(bool shown) {
    stripShown_ = shown;
    update();
}

void LoginHero::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(Skin::Color(Tok::ink));
    p.drawRoundedRect(rect().adjusted(0, 0, 8, stripShown_ ? 8 : 0), radius_, radius_);
    p.setRenderHint(QPainter::Antialiasing, false);
    constexpr int kLogo = 72;
    constexpr int kTop = 44, kNameGap = 16;
    p.drawPixmap((width() - kLogo) / 2, kTop, Skin::Icon(u"logo"_s, kLogo, devicePixelRatioF()));
    const QRect name(0, kTop + kLogo + kNameGap, width(), Skin::LineHeight(Type::loginName) + 2);
    p.setPen(Skin::Color(Tok::inkText));
    p.setFont(Skin::Font(Type::loginName));
    p.drawText(name, Qt::AlignCenter, u"墨鹊理财"_s);
    p.setPen(Skin::Color(Tok::tabText));
    p.setFont(Skin::Font(Type::small));
    const QRect version(0, name.bottom() + 2, width(), Skin::LineHeight(Type::small) + 2);
    p.drawText(version, Qt::AlignCenter, u"v2016.2"_s);
    QColor rule = Skin::Color(Tok::tabText);
    rule.setAlphaF(0.18F);
    for (const int above : {32, 20, 8})
        Skin::HLine(p, 20, width() - 20, height() - above, rule);
}

void LoginStrip::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(Skin::Color(Tok::page));
    p.drawRoundedRect(rect(), 7, 7);
    p.drawRect(rect().adjusted(0, 0, 0, -8));
    p.setRenderHint(QPainter::Antialiasing, false);
    Skin::HLine(p, 0, width() - 1, 0, Skin::Color(Tok::line));
}
