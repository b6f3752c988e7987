// The places of a list page's controls. Lengths are device-independent pixels.

#include <QResizeEvent>

#include <algorithm>

#include "ledger/detail_panel.h"
#include "ledger/list_page.h"
#include "shell/controls/kestro_button.h"
#include "shell/controls/kestro_check.h"
#include "shell/controls/kestro_combox.h"
#include "shell/controls/kestro_label.h"
#include "shell/controls/kestro_pgress.h"
#include "shell/controls/kestro_scroll_menu.h"
#include "shell/controls/kestro_text.h"

namespace {
constexpr int kMargin = 12;
constexpr int kGap = 8;
constexpr int kRowHeight = 32;
constexpr int kToolbarY = 8;
constexpr int kFilterY = 46;
constexpr int kListY = 86;
constexpr int kSumsHeight = 36;
constexpr int kStrip = 196;
constexpr int kStripIcons = 44;
constexpr int kNarrowPage = 760;
constexpr int kSearch = 236;
constexpr int kSearchLeast = 140;
constexpr int kKindBox = 216;
constexpr int kKindBoxLeast = 120;
constexpr int kPageBox = 168;
constexpr int kSideDetail = 280;
constexpr int kListBesideDetail = 560;
constexpr int kListLeast = 120;
}  // namespace

void ListPage::resizeEvent(QResizeEvent* event) {
    Page::resizeEvent(event);
    Arrange();
}

void ListPage::SetDisplayMode(int mode) {
    displayMode_ = mode;
    Arrange();
}

void ListPage::Arrange() {
    const bool narrow = width() < kNarrowPage;
    KestroScrollMenu1->SetCollapsed(narrow);
    const int strip = narrow ? kStripIcons : kStrip;
    KestroScrollMenu1->setGeometry(0, 0, strip, height());
    const int x = strip + kMargin;
    const int room = std::max(0, width() - x - kMargin);
    ArrangeToolbar(x, room);
    ArrangeFilters(x, room);
    if (other_) other_->setGeometry(x, kFilterY, room, std::max(0, height() - kFilterY - kGap));
    ArrangeLists({x, kListY, room, std::max(0, height() - kListY - kGap)});
}

void ListPage::ArrangeToolbar(int x, int width) {
    const auto& tools = tools_;
    const auto needed = [&] {
        int sum = 0;
        for (const auto* tool : tools)
            sum += tool->sizeHint().width() + kGap;
        return sum;
    };
    for (auto* tool : tools)
        tool->SetCompact(false);
    for (auto tool = tools.rbegin(); tool != tools.rend() && needed() + kSearch > width; ++tool)
        (*tool)->SetCompact(true);
    int at = x;
    for (auto* tool : tools) {
        const int w = tool->sizeHint().width();
        tool->setGeometry(at, kToolbarY, w, kRowHeight);
        at += w + kGap;
    }
    const int search = std::clamp(x + width - at, kSearchLeast, kSearch);
    txtSearch->setGeometry(x + width - search, kToolbarY, search, kRowHeight);
}

void ListPage::ArrangeFilters(int x, int width) {
    const int date0 = btnDate0->sizeHint().width();
    const int date1 = btnDate1->sizeHint().width();
    const int flag = chkFlag->isHidden() ? 0 : chkFlag->sizeHint().width() + 2 * kMargin;
    const int fixed = date0 + date1 + 3 * kGap + flag + kPageBox + kGap;
    const int kind = std::clamp(width - fixed, kKindBoxLeast, kKindBox);
    int at = x;
    const auto place = [&](QWidget* control, int w, int gap) {
        control->setGeometry(at, kFilterY, w, kRowHeight);
        at += w + gap;
    };
    place(comKind, kind, kGap);
    place(btnDate0, date0, kGap);
    place(btnDate1, date1, 2 * kMargin);
    place(chkFlag, chkFlag->sizeHint().width(), kGap);
    const int pages = std::min(kPageBox, x + width - at);
    comPage->setGeometry(x + width - pages, kFilterY, pages, kRowHeight);
}

void ListPage::ArrangeLists(const QRect& room) {
    const bool side = displayMode_ == 0 && room.width() - kSideDetail - kMargin >= kListBesideDetail;
    const bool below = !side && displayMode_ != 2 && room.height() - kSumsHeight - DetailPanel::kHeight >= kListLeast;
    QRect list = room;
    list.setHeight(room.height() - kSumsHeight - (below ? DetailPanel::kHeight : 0));
    if (side) list.setWidth(room.width() - kSideDetail - kMargin);
    KestroList1->setGeometry(list);
    const int sumsY = list.bottom() + 1;
    lblCount->setGeometry(room.x(), sumsY, lblCount->sizeHint().width(), kSumsHeight);
    lblValue->setGeometry(lblCount->geometry().right() + 1 + 2 * kMargin, sumsY, lblValue->sizeHint().width(),
                          kSumsHeight);
    KestroPGress1->setGeometry(list.right() + 1 - 214, sumsY + 7, 214, 22);
    panel_->setVisible(!other_ && (side || below));
    if (side)
        panel_->setGeometry(list.right() + 1 + kMargin, room.y(), kSideDetail, list.height());
    else
        panel_->setGeometry(room.x(), sumsY + kSumsHeight, room.width(), DetailPanel::kHeight);
}
