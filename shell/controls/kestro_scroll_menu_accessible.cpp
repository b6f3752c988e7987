#include "shell/controls/kestro_scroll_menu_accessible.h"

#include "shell/controls/kestro_scroll_menu.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>

#include <map>

using namespace Qt::StringLiterals;

namespace {

/// One line of a strip: a section's head or an item.
class StripLineInterface : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
    StripLineInterface(KestroScrollMenu* strip, int line) : strip_(strip), line_(line) {}

    bool isValid() const override { return strip_ && line_ < strip_->LineCount(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(strip_); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    QString text(QAccessible::Text what) const override {
        return isValid() && what == QAccessible::Name ? Line().text : QString();
    }
    QRect rect() const override {
        if (!isValid()) return {};
        return {strip_->mapToGlobal(Line().rect.topLeft()), Line().rect.size()};
    }
    QAccessible::Role role() const override {
        return isValid() && Line().isHead ? QAccessible::Heading : QAccessible::ListItem;
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) return state;
        const auto line = Line();
        state.focusable = true;
        state.focused = line.focused && strip_->hasFocus();
        state.disabled = !line.enabled;
        state.selectable = !line.isHead;
        state.selected = line.selected;
        state.expandable = line.isHead;
        state.expanded = line.isHead && !line.folded;
        state.collapsed = line.isHead && line.folded;
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override {
        if (isValid() && name == pressAction()) strip_->PressLine(line_);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
    StripLine Line() const { return strip_->LineOf(line_); }

    QPointer<KestroScrollMenu> strip_;
    int line_;
};

class StripInterface : public QAccessibleWidget {
 public:
    explicit StripInterface(KestroScrollMenu* strip)
        : QAccessibleWidget(strip, QAccessible::List), strip_(strip) {}
    ~StripInterface() override {
        for (const auto& [line, id] : lines_)
            QAccessible::deleteAccessibleInterface(id);
    }
    StripInterface(const StripInterface&) = delete;
    StripInterface& operator=(const StripInterface&) = delete;

    int childCount() const override { return strip_->LineCount(); }
    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount()) return nullptr;
        const auto known = lines_.find(index);
        if (known != lines_.end()) return QAccessible::accessibleInterface(known->second);
        auto* line = new StripLineInterface(strip_, index);
        lines_[index] = QAccessible::registerAccessibleInterface(line);
        return line;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        for (int i = 0; i < childCount(); ++i)
            if (child(i)->rect().contains(x, y)) return child(i);
        return nullptr;
    }
    int indexOfChild(const QAccessibleInterface* wanted) const override {
        for (int i = 0; i < childCount(); ++i)
            if (child(i) == wanted) return i;
        return -1;
    }
    QAccessibleInterface* focusChild() const override {
        for (int i = 0; i < childCount(); ++i)
            if (child(i)->state().focused) return child(i);
        return nullptr;
    }

 private:
    KestroScrollMenu* strip_;
    mutable std::map<int, QAccessible::Id> lines_;
};

}  // namespace

QAccessibleInterface* MakeStripInterface(QObject* control) {
    return new StripInterface(dynamic_cast<KestroScrollMenu*>(control));
}
