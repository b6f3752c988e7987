#include "shell/controls/kestro_combox_accessible.h"

#include "shell/controls/kestro_combox.h"

#include <QAccessible>
#include <QAccessibleWidget>

using namespace Qt::StringLiterals;

namespace {

class ChooserInterface : public QAccessibleWidget {
 public:
    explicit ChooserInterface(KestroCombox* box) : QAccessibleWidget(box, QAccessible::ComboBox), box_(box) {}

    QString text(QAccessible::Text what) const override {
        return what == QAccessible::Value ? box_->text() : QAccessibleWidget::text(what);
    }
    QAccessible::State state() const override {
        auto state = QAccessibleWidget::state();
        state.hasPopup = state.expandable = true;
        state.expanded = box_->IsListOpen();
        state.collapsed = !box_->IsListOpen();
        state.editable = !box_->isReadOnly();
        return state;
    }
    QStringList actionNames() const override {
        return QStringList{showMenuAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& name) override {
        if (name != showMenuAction()) return QAccessibleWidget::doAction(name);
        box_->IsListOpen() ? box_->CloseList() : box_->OpenList();
    }

 private:
    KestroCombox* box_;
};

}  // namespace

QAccessibleInterface* MakeChooserInterface(QObject* control) {
    return new ChooserInterface(dynamic_cast<KestroCombox*>(control));
}
