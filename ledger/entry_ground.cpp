#include "ledger/entry_ground.h"

#include "shell/skin.h"

#include <QPainter>

void KindGroup::paintEvent(QPaintEvent*) {
    QPainter p(this);
    Skin::Box(p, rect().adjusted(0, 0, 0, -kGap), 6, Skin::Color(Tok::page), Skin::Color(Tok::line));
}

void AccountGround::paintEvent(QPaintEvent*) {
    constexpr int kRadius = 7;
    QPainter p(this);
    if (isFoot_) {
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(Qt::NoPen);
        p.setBrush(Skin::Color(Tok::page));
        p.drawRoundedRect(rect(), kRadius, kRadius);
        p.drawRect(rect().adjusted(0, 0, -kRadius, 0));
        p.drawRect(rect().adjusted(0, 0, 0, -kRadius));
        p.setRenderHint(QPainter::Antialiasing, false);
    } else {
        p.fillRect(rect(), Skin::Color(Tok::page));
    }
    Skin::VLine(p, 0, 0, height() - 1, Skin::Color(Tok::line));
}

void DividerLine::paintEvent(QPaintEvent*) {
    QPainter p(this);
    Skin::HLine(p, 0, width() - 1, 0, Skin::Color(Tok::line));
}
