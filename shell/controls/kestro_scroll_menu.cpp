#include "shell/controls/kestro_scroll_menu.h"

#include "shell/controls/accessible.h"
#include "shell/controls/kestro_scroll_menu_accessible.h"
#include "shell/controls/kestro_scrollbar.h"
#include "store/errors.h"

#include <QAccessible>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
constexpr int kWide = 196, kNarrow = 44, kTop = 8, kHead = 32, kRow = 28, kBetween = 15;
constexpr int kLeastScrolled = 3 * kRow;  // a smaller last part is not worth its own scrolling

int Scaled(int pixels) {
    return static_cast<int>(std::lround(pixels * Skin::Scale()));
}
}  // namespace

KestroScrollMenu::KestroScrollMenu(QWidget* parent)
    : QWidget(parent), bar_(new KestroScrollbar(Qt::Vertical, this)) {
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
    setFixedWidth(kWide);
    setAccessibleName(u"导航"_s);
    bar_->hide();
    connect(bar_, &QScrollBar::valueChanged, this, [this] { update(); });
    UseOwnInterface(this, MakeStripInterface);
}

QSize KestroScrollMenu::sizeHint() const {
    return {collapsed_ ? kNarrow : kWide, 400};
}

void KestroScrollMenu::AddSection(const QString& key, const QString& caption) {
    sections_.push_back({key, caption, false, {}});
    Relayout();
}

void KestroScrollMenu::AddItem(const QString& section, const ScrollMenuItem& item) {
    Section* const owner = FindSection(section);
    if (!owner) return;
    owner->items.push_back(item);
    Relayout();
}

void KestroScrollMenu::ClearAll() {
    sections_.clear();
    Select({}, {});
    Relayout();
}

void KestroScrollMenu::Clear(const QString& section) {
    Section* const owner = FindSection(section);
    if (!owner) return;
    owner->items.clear();
    Relayout();
}

void KestroScrollMenu::SetCaption(const QString& section, const QString& caption) {
    if (Section* const owner = FindSection(section)) owner->caption = caption;
    update();
}

void KestroScrollMenu::SetIcon(const QString& section, const QString& item, const QString& icon) {
    if (ScrollMenuItem* const found = FindItem(section, item)) found->icon = icon;
    update();
}

void KestroScrollMenu::SetItemCaption(const QString& section, const QString& item, const QString& caption) {
    if (ScrollMenuItem* const found = FindItem(section, item)) found->caption = caption;
    update();
}

void KestroScrollMenu::SetMark(const QString& section, const QString& item, const QString& mark) {
    if (ScrollMenuItem* const found = FindItem(section, item)) found->mark = mark;
    update();
}

void KestroScrollMenu::SetBold(const QString& section, const QString& item, bool bold) {
    if (ScrollMenuItem* const found = FindItem(section, item)) found->bold = bold;
    update();
}

void KestroScrollMenu::Fold(const QString& section, bool folded) {
    Section* const owner = FindSection(section);
    if (!owner || owner->folded == folded) return;
    owner->folded = folded;
    Relayout();
}

bool KestroScrollMenu::IsFolded(const QString& section) const {
    const Section* const owner = FindSection(section);
    return owner && owner->folded;
}

void KestroScrollMenu::BeginFill() {
    filling_ = true;
}

void KestroScrollMenu::EndFill() {
    filling_ = false;
    Relayout();
}

void KestroScrollMenu::Select(const QString& section, const QString& item) {
    const ScrollMenuItem* const found = FindItem(section, item);
    const bool selects = found && found->selectable;
    selectedSection_ = selects ? section : QString();
    selectedKey_ = selects ? item : QString();
    for (size_t i = 0; selects && i < lines_.size(); ++i)
        if (lines_[i].item >= 0 && &ItemOf(lines_[i]) == found) EnsureVisible(static_cast<int>(i));
    update();
}

QString KestroScrollMenu::SelectedSection() const {
    return selectedSection_;
}
QString KestroScrollMenu::SelectedKey() const {
    return selectedKey_;
}

void KestroScrollMenu::SetCollapsed(bool on) {
    collapsed_ = on;
    setFixedWidth(on ? kNarrow : kWide);
    Relayout();
}

KestroScrollMenu::Section* KestroScrollMenu::FindSection(const QString& key) {
    return const_cast<Section*>(std::as_const(*this).FindSection(key));
}

const KestroScrollMenu::Section* KestroScrollMenu::FindSection(const QString& key) const {
    const auto found = std::ranges::find(sections_, key, &Section::key);
    return found == sections_.end() ? nullptr : &*found;
}

ScrollMenuItem* KestroScrollMenu::FindItem(const QString& section, const QString& item) {
    Section* const owner = FindSection(section);
    if (!owner) return nullptr;
    const auto found = std::ranges::find(owner->items, item, &ScrollMenuItem::key);
    return found == owner->items.end() ? nullptr : &*found;
}

const ScrollMenuItem& KestroScrollMenu::ItemOf(const Line& line) const {
    return sections_[static_cast<size_t>(line.section)].items[static_cast<size_t>(line.item)];
}

StripLine KestroScrollMenu::LineOf(int line) const {
    const Line& what = lines_.at(static_cast<size_t>(line));
    const Section& section = sections_[static_cast<size_t>(what.section)];
    StripLine told;
    told.rect = LineRect(what);
    told.isHead = what.item < 0;
    told.focused = line == focusLine_;
    if (told.isHead) {
        told.text = section.caption;
        told.folded = section.folded;
        return told;
    }
    const ScrollMenuItem& item = ItemOf(what);
    told.text = item.mark.isEmpty() ? item.caption : (item.caption + u' ' + item.mark).trimmed();
    told.enabled = item.enabled;
    told.selected = section.key == selectedSection_ && item.key == selectedKey_;
    return told;
}

void KestroScrollMenu::Relayout() {
    if (filling_) return;
    lines_.clear();
    int y = kTop, lastItems = 0;
    for (size_t i = 0; i < sections_.size(); ++i) {
        lines_.push_back({static_cast<int>(i), -1, y, Scaled(kHead)});
        y += Scaled(kHead);
        lastItems = y;
        if (sections_[i].folded) continue;
        for (size_t k = 0; k < sections_[i].items.size(); ++k) {
            lines_.push_back({static_cast<int>(i), static_cast<int>(k), y, Scaled(kRow)});
            y += Scaled(kRow);
        }
        if (i + 1 < sections_.size()) y += kBetween;
    }
    // In a strip too low for the fixed sections everything scrolls.
    const bool lastAlone = height() - lastItems >= kLeastScrolled || y <= height();
    scrollTop_ = lastAlone ? lastItems : 0;
    scrollHeight_ = y - scrollTop_ + kTop;
    for (Line& line : lines_) {
        line.scrolls = line.y >= scrollTop_;
        if (line.scrolls) line.y -= scrollTop_;
    }
    hover_ = -1;
    focusLine_ = std::min(focusLine_, static_cast<int>(lines_.size()) - 1);
    PlaceScrollBar();
    update();
}

void KestroScrollMenu::PlaceScrollBar() {
    const int room = std::max(0, height() - scrollTop_);
    bar_->setGeometry(width() - 11, scrollTop_, 10, room);
    bar_->setRange(0, std::max(0, scrollHeight_ - room));
    bar_->setPageStep(std::max(1, room));
    bar_->setSingleStep(Scaled(kRow));
    bar_->setVisible(scrollHeight_ > room && !sections_.empty());
}

QRect KestroScrollMenu::LineRect(const Line& line) const {
    const int y = line.scrolls ? scrollTop_ + line.y - bar_->value() : line.y;
    return {8, y, width() - 17, line.height};
}

int KestroScrollMenu::LineAt(const QPoint& pos) const {
    for (size_t i = 0; i < lines_.size(); ++i) {
        if (lines_[i].scrolls != (pos.y() >= scrollTop_)) continue;
        const QRect rect = LineRect(lines_[i]);
        if (pos.y() >= rect.top() && pos.y() <= rect.bottom()) return static_cast<int>(i);
    }
    return -1;
}

void KestroScrollMenu::EnsureVisible(int line) {
    const Line& wanted = lines_[static_cast<size_t>(line)];
    if (!wanted.scrolls) return;
    const int room = height() - scrollTop_, below = wanted.y + wanted.height + kTop - room;
    if (wanted.y < bar_->value()) bar_->setValue(wanted.y);
    if (below > bar_->value()) bar_->setValue(below);
}

void KestroScrollMenu::Press(int line) {
    if (line < 0) return;
    const Line pressed = lines_[static_cast<size_t>(line)];
    const Section& section = sections_[static_cast<size_t>(pressed.section)];
    if (pressed.item < 0) return Fold(section.key, !section.folded);
    const ScrollMenuItem& item = ItemOf(pressed);
    if (!item.enabled) return;
    if (item.selectable) Select(section.key, item.key);
    RunEvent([this, key = section.key, itemKey = item.key] {
        if (onClick) onClick(key, itemKey);
    });
}

void KestroScrollMenu::MoveFocus(int step) {
    const int last = static_cast<int>(lines_.size()) - 1;
    if (last < 0) return;
    focusLine_ = std::clamp(focusLine_ + step, 0, last);
    QAccessibleEvent focused(this, QAccessible::Focus);
    focused.setChild(focusLine_);
    QAccessible::updateAccessibility(&focused);
    EnsureVisible(focusLine_);
    update();
}
