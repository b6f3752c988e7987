#include "shell/parts/strip_page.h"

#include "shell/controls/kestro_scroll_menu.h"
#include "shell/skin.h"

#include <QFocusEvent>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
constexpr int kRowGap = 6;
}  // namespace

StripPage::StripPage(QWidget* parent, int narrow)
    : Page(parent),
      KestroScrollMenu1(new KestroScrollMenu(this)),
      room_(new QVBoxLayout(this)),
      narrow_(narrow) {
    KestroScrollMenu1->setObjectName(u"KestroScrollMenu1"_s);
    KestroScrollMenu1->installEventFilter(this);
    room_->setSpacing(kRowGap);
    room_->setSizeConstraint(QLayout::SetNoConstraint);
    PlaceStrip();
}

void StripPage::resizeEvent(QResizeEvent* event) {
    Page::resizeEvent(event);
    PlaceStrip();
}

void StripPage::PlaceStrip() {
    const bool narrow = width() < Skin::Px(narrow_);
    open_ = open_ && narrow;
    KestroScrollMenu1->SetCollapsed(narrow);
    const int margin = KestroScrollMenu1->sizeHint().width() + Skin::Space::kPage;
    room_->setContentsMargins(margin, Skin::Space::kPartner, Skin::Space::kPage, Skin::Space::kPartner);
    if (open_) KestroScrollMenu1->SetCollapsed(false);
    KestroScrollMenu1->setGeometry(0, 0, KestroScrollMenu1->sizeHint().width(), height());
    if (open_) KestroScrollMenu1->raise();
}

void StripPage::OpenStrip(bool open) {
    if (open == open_) return;
    open_ = open;
    PlaceStrip();
}

bool StripPage::eventFilter(QObject* object, QEvent* event) {
    const bool byKey = KestroScrollMenu1->hasFocus();
    switch (event->type()) {
        case QEvent::Enter:
            OpenStrip(true);
            break;
        case QEvent::Leave:
            if (!byKey) OpenStrip(false);
            break;
        case QEvent::FocusIn:
            OpenStrip(true);
            break;
        case QEvent::FocusOut:
            if (static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason &&
                !KestroScrollMenu1->underMouse())
                OpenStrip(false);
            break;
        default:
            break;
    }
    return Page::eventFilter(object, event);
}
