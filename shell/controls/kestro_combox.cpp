#include "shell/controls/kestro_combox.h"

#include "shell/controls/accessible.h"
#include "shell/controls/combox_list.h"
#include "shell/controls/kestro_combox_accessible.h"
#include "shell/controls/kestro_tool_tip.h"
#include "shell/skin.h"
#include "store/errors.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {
constexpr int kZone = 24;
}

KestroCombox::KestroCombox(ComboxMode mode, QWidget* parent)
    : KestroText(TextMode::normal, parent), mode_(mode), list_(std::make_unique<ComboxList>(this, items_)) {
    SetRightZone(kZone);
    setReadOnly(mode == ComboxMode::chooseOnly);
    list_->onPick = [this](int index) { Choose(index); };
    list_->onClosed = [this] { ListTurned(); };
    onEndButton = [this] {
        CloseList();
        if (onBrowse) onBrowse();
    };
    UseOwnInterface(this, MakeChooserInterface);
}

KestroCombox::~KestroCombox() {
    // The list tells its closing to a box that is going.
    list_->onClosed = nullptr;
}

void KestroCombox::Clear() {
    CloseList();
    items_.clear();
    SetText({});
}

void KestroCombox::AddItem(const QString& text, const QString& key, const QString& icon) {
    items_.push_back({text, key, icon});
}

void KestroCombox::SetCurrent(int index) {
    const bool some = index >= 0 && index < Count();
    current_ = some ? index : -1;
    typed_ = false;
    setText(some ? Item(index).text : QString());
    setCursorPosition(0);
    if (some && !Item(index).icon.isEmpty()) SetLeftIcon(Item(index).icon);
}

bool KestroCombox::SetCurrentKey(const QString& key) {
    for (int i = 0; i < Count(); ++i) {
        if (Item(i).key != key) continue;
        SetCurrent(i);
        return true;
    }
    return false;
}

QString KestroCombox::CurrentKey() const {
    return current_ < 0 ? QString() : Item(current_).key;
}

int KestroCombox::IndexOf(const QString& text) const {
    for (int i = 0; i < Count(); ++i)
        if (Item(i).text == text) return i;
    return -1;
}

void KestroCombox::SetText(const QString& text, const QString& key) {
    kept_ = {text, key, {}};
    current_ = IndexOf(text);
    typed_ = false;
    setText(text);
    setCursorPosition(0);
}

void KestroCombox::SetBrowse(const QString& icon, const QString& tip) {
    SetEndButton(icon, tip, true);
}

void KestroCombox::OpenList() {
    std::vector<int> all(items_.size());
    std::iota(all.begin(), all.end(), 0);
    list_->Open(this, std::move(all), current_);
    ListTurned();
}

void KestroCombox::CloseList() {
    list_->hide();
}

void KestroCombox::ListTurned() {
    update();
    QAccessible::State changed;
    changed.expanded = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

bool KestroCombox::IsListOpen() const {
    return list_->isVisible();
}

void KestroCombox::Choose(int index) {
    SetCurrent(index);
    CloseList();
    // A copy, as the answer to a choice may be another set of items.
    const ComboxItem item = Item(index);
    if (onChoose) onChoose(item.text, item.key);
}

void KestroCombox::Edited() {
    typed_ = true;
    current_ = -1;
    Filter(text().trimmed());
    KestroText::Edited();
}

void KestroCombox::Filter(const QString& typed) {
    std::vector<int> shown;
    for (int i = 0; i < Count(); ++i)
        if (Item(i).text.contains(typed, Qt::CaseInsensitive)) shown.push_back(i);
    const auto begins = [&](int i) { return Item(i).text.startsWith(typed, Qt::CaseInsensitive); };
    std::stable_partition(shown.begin(), shown.end(), begins);
    // Enter takes what the typed text most likely means.
    int likely = IndexOf(typed);
    if (mode_ == ComboxMode::pick && likely < 0 && !typed.isEmpty() && !shown.empty()) {
        likely = shown.front();
    }
    list_->Open(this, std::move(shown), likely);
}

// The item that a typed text names: wholly, by its code or its name, or as the only one that holds it.
int KestroCombox::Meant(const QString& typed) const {
    if (typed.isEmpty() || typed == kept_.text.trimmed()) return IndexOf(typed);
    int only = -1, holding = 0;
    for (int i = 0; i < Count(); ++i) {
        const QString& key = Item(i).key;
        const QString name = Item(i).text.startsWith(key) ? Item(i).text.mid(key.size()) : Item(i).text;
        if (typed == Item(i).text || typed == key || typed == name.trimmed()) return i;
        if (!Item(i).text.contains(typed, Qt::CaseInsensitive)) continue;
        only = i;
        ++holding;
    }
    return holding == 1 ? only : -1;
}

// What a typed text comes to when the user leaves the box.
void KestroCombox::Settle() {
    if (!typed_) return;
    typed_ = false;
    const QString typed = text().trimmed();
    const int index = mode_ == ComboxMode::pick ? Meant(typed) : IndexOf(typed);
    if (index >= 0) return Choose(index);
    if (mode_ != ComboxMode::pick) return;
    if (!typed.isEmpty() && typed == kept_.text.trimmed()) {
        const ComboxItem kept = kept_;
        SetText(kept.text, kept.key);
        if (onChoose && !kept.key.isEmpty()) onChoose(kept.text, kept.key);
        return;
    }
    clear();
    if (onChoose) onChoose({}, {});
}

void KestroCombox::focusOutEvent(QFocusEvent* event) {
    const bool stays =
        event->reason() == Qt::ActiveWindowFocusReason || event->reason() == Qt::PopupFocusReason;
    if (!stays) {
        CloseList();
        RunEvent([this] { Settle(); });
    }
    KestroText::focusOutEvent(event);
}

void KestroCombox::Pressed(QPoint at) {
    const bool opens = mode_ == ComboxMode::chooseOnly || ZoneRect().contains(at);
    if (!opens || IsListOpen())
        CloseList();
    else
        OpenList();
}

void KestroCombox::keyPressEvent(QKeyEvent* event) {
    const bool closedChoice = mode_ == ComboxMode::chooseOnly && !IsListOpen();
    const bool alt = event->modifiers() & Qt::AltModifier;
    const int key = event->key();
    // Enter may press the window's default button, which reads the box without the focus leaving it.
    if (key == Qt::Key_Return || key == Qt::Key_Enter) RunEvent([this] { Settle(); });
    if (key == Qt::Key_F4 && !alt)
        OpenList();
    else if ((key == Qt::Key_Down || key == Qt::Key_Up) && (alt || !closedChoice))
        OpenList();
    else if (closedChoice && key == Qt::Key_Space && !typing_.IsRunning())
        OpenList();
    else if (closedChoice && (key == Qt::Key_Down || key == Qt::Key_Up))
        Step(key == Qt::Key_Down ? 1 : -1);
    else if (mode_ == ComboxMode::chooseOnly && !event->text().isEmpty() && event->text().at(0).isPrint())
        JumpTo(event->text());
    else
        KestroText::keyPressEvent(event);
}

void KestroCombox::Step(int by) {
    const int next = current_ + by;
    if (next >= 0 && next < Count()) RunEvent([&] { Choose(next); });
}

// The next item that begins with the letters typed so far, round the end.
void KestroCombox::JumpTo(const QString& letters) {
    const QString typed = typing_.Add(letters);
    const int from = std::max(0, current_) + (typing_.IsFirst() && current_ >= 0 ? 1 : 0);
    for (int i = 0; i < Count(); ++i) {
        const int index = (from + i) % Count();
        if (!Item(index).text.startsWith(typed, Qt::CaseInsensitive)) continue;
        RunEvent([&] { Choose(index); });
        return;
    }
}

bool KestroCombox::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty()) return KestroText::event(event);
    QString tip;
    RunEvent([&] {
        if (onTip) tip = onTip();
    });
    const int room = width() - textMargins().left() - textMargins().right() - 4;
    if (tip.isEmpty() && fontMetrics().horizontalAdvance(text()) > room) tip = text();
    if (!tip.isEmpty())
        KestroToolTip::Show(u"combox"_s, tip, static_cast<QHelpEvent*>(event)->globalPos(), this);
    return true;
}

// A wheel over a form is meant for the form, not for its choices.
void KestroCombox::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

QColor KestroCombox::Fill() const {
    return IsListOpen() ? Skin::Color(Tok::soft) : KestroText::Fill();
}

void KestroCombox::PaintZone(QPainter& p) const {
    Skin::Chevron(p, ZoneRect(), 0, Skin::Color(isEnabled() ? Tok::text : Tok::dis));
}
