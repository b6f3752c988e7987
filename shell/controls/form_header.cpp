#include "shell/controls/form_header.h"

#include "shell/skin.h"

#include <QPainter>

#include <iterator>

using namespace Qt::StringLiterals;

namespace {
constexpr int kCaptionLeft = 62;
constexpr int kTabsLeft = 224;
constexpr int kTabHeight = 40;
constexpr int kGlyphZone = 80;
constexpr int kButton = 28;
constexpr int kLabelMost = 168;
constexpr int kLabelLeast = 96;
constexpr int kLabelHeight = 26;

int TabWidth(int window) {
    if (window < 720) return 56;
    return window < 860 ? 62 : 70;
}
}  // namespace

KestroHeader::KestroHeader(QWidget* parent)
    : QWidget(parent),
      logo(new HeaderLogo(this)),
      label(new HeaderLabel(this)),
      modes{new HeaderIcon(this, u"mode0"_s, u"详情在右"_s), new HeaderIcon(this, u"mode1"_s, u"详情在下"_s),
            new HeaderIcon(this, u"mode2"_s, u"只看列表"_s)},
      web(new HeaderIcon(this, u"web"_s, u"我的网账"_s)),
      calculator(new HeaderIcon(this, u"calculator"_s, u"计算器工具"_s)),
      menu(new HeaderIcon(this, u"menu"_s, u"主菜单"_s)),
      glyphs{new HeaderGlyph(this, WindowGlyph::minimise, u"最小化"_s),
             new HeaderGlyph(this, WindowGlyph::maximise, u"最大化"_s),
             new HeaderGlyph(this, WindowGlyph::close, u"关闭"_s)} {
    setFixedHeight(kHeight);
    SetMode(1);
}

void KestroHeader::SetCaption(const QString& name, const QString& version) {
    name_ = name;
    version_ = version;
    update();
}

HeaderTab* KestroHeader::AddTab(const QString& caption) {
    auto* tab = new HeaderTab(this, caption);
    QWidget::setTabOrder(tabs.empty() ? static_cast<QWidget*>(logo) : tabs.back(), tab);
    tabs.push_back(tab);
    tab->show();
    Arrange();
    return tab;
}

void KestroHeader::SelectTab(int index) {
    for (size_t i = 0; i < tabs.size(); ++i)
        tabs[i]->SetChosen(static_cast<int>(i) == index);
}

void KestroHeader::SetMode(int mode) {
    for (size_t i = 0; i < modes.size(); ++i)
        modes[i]->SetChosen(static_cast<int>(i) == mode);
}

void KestroHeader::SetBookLabel(const QString& text) {
    label->SetText(text);
    Arrange();
}

bool KestroHeader::ShowsCaption() const {
    return width() >= 1000;
}

void KestroHeader::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Arrange();
}

void KestroHeader::Arrange() {
    logo->setGeometry(12, 2, 46, 42);
    const int left = ArrangeTabs() + 12;
    const int right = ArrangeRight() - 9;
    const int wide = qMin(qMin(kLabelMost, label->WantedWidth()), right - left);
    label->setVisible(!label->Text().isEmpty() && right - left >= kLabelLeast);
    label->setGeometry(right - wide, (kHeight - kLabelHeight) / 2, wide, kLabelHeight);
    update();
}

int KestroHeader::ArrangeTabs() {
    const int wide = TabWidth(width());
    int x = ShowsCaption() ? kTabsLeft : kCaptionLeft;
    for (HeaderTab* tab : tabs) {
        tab->setGeometry(x, kHeight - kTabHeight, wide, kTabHeight);
        x += wide + 2;
    }
    return x;
}

int KestroHeader::ArrangeRight() {
    const int top = (kHeight - kButton) / 2;
    int x = width() - 2 - 26 * static_cast<int>(std::size(glyphs));
    for (size_t i = 0; i < glyphs.size(); ++i)
        glyphs[i]->setGeometry(x + 26 * static_cast<int>(i), (kHeight - 32) / 2, 26, 32);
    x = width() - kGlyphZone;
    for (HeaderIcon* button : {menu, calculator, web}) {
        x -= kButton + 2;
        button->setGeometry(x, top, kButton, kButton);
    }
    divider_ = x - 5;
    x = divider_ - 4;
    for (auto mode = modes.rbegin(); mode != modes.rend(); ++mode) {
        x -= kButton;
        (*mode)->setGeometry(x, top, kButton, kButton);
    }
    return x;
}

void KestroHeader::paintEvent(QPaintEvent*) {
    QPainter p(this);
    Skin::Box(p, QRectF(rect()).adjusted(0, 0, 0, radius_), radius_, Skin::Color(Tok::ink), {});
    QColor line = Qt::white;
    line.setAlphaF(0.22F);
    Skin::VLine(p, divider_, 16, kHeight - 16, line);
    if (!ShowsCaption()) return;
    const QRect room(kCaptionLeft, 0, kTabsLeft - kCaptionLeft - 8, kHeight);
    p.setFont(Skin::Font(Type::bodyBold));
    p.setPen(Skin::Color(Tok::inkText));
    p.drawText(room, Qt::AlignVCenter, name_);
    const int nameWidth = p.fontMetrics().horizontalAdvance(name_);
    p.setFont(Skin::Font(Type::small));
    p.setPen(Skin::Color(Tok::tabText));
    const QRect rest = room.adjusted(nameWidth, 0, 0, 0);
    p.drawText(rest, Qt::AlignVCenter, p.fontMetrics().elidedText(version_, Qt::ElideRight, rest.width()));
}
