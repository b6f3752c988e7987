#include "ledger/entry_ground.h"

#include "shell/skin.h"

#include <QPainter>

void EntryGround::SetAreas(const QRect& kindGroup, bool accounts, int accountLine) {
    kindGroup_ = kindGroup;
    accounts_ = accounts;
    accountLine_ = accountLine;
    update();
}

void EntryGround::paintEvent(QPaintEvent*) {
    QPainter p(this);
    Skin::HLine(p, 0, kEntryWidth - 1, height() - kFooter, Skin::Color(Tok::line));
    if (!kindGroup_.isEmpty()) Skin::Box(p, kindGroup_, 6, Skin::Color(Tok::page), Skin::Color(Tok::line));
    if (!accounts_) return;
    const QRect area(kEntryWidth, 0, width() - kEntryWidth, height());
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(Qt::NoPen);
    p.setBrush(Skin::Color(Tok::page));
    p.drawRoundedRect(area, 7, 7);
    p.drawRect(area.adjusted(0, 0, -7, 0));
    p.drawRect(area.adjusted(0, 0, 0, -7));
    p.setRenderHint(QPainter::Antialiasing, false);
    Skin::VLine(p, kEntryWidth, 0, height() - 1, Skin::Color(Tok::line));
    Skin::HLine(p, area.x() + 19, area.right() - 19, accountLine_, Skin::Color(Tok::line));
}
