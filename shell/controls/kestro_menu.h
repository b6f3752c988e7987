#pragma once
// KestroMenu: a pop-up menu in the program's look. A parent, a point, and the key of what was chosen.

#include <QMenu>
#include <QPoint>
#include <QString>

#include <functional>

class KestroMenu : public QMenu {
 public:
    explicit KestroMenu(QWidget* parent = nullptr);

    QAction* AddItem(const QString& key, const QString& caption, const QString& icon = {},
                     const QString& hint = {});
    void AddSeparator(const QString& key = {});
    /// An item that opens another menu; the choice is reported by this one. The sub-menu belongs to this
    /// menu.
    KestroMenu* AddSubMenu(const QString& key, const QString& caption, const QString& icon = {});
    void SetItemEnabled(const QString& key, bool on);
    void SetItemChecked(const QString& key, bool on);
    /// Shows the menu with its visible corner at globalPos and returns at once.
    void PopupAt(const QPoint& globalPos);

    std::function<void(const QString& key)> onChoose;

 protected:
    void hideEvent(QHideEvent* event) override;

 private:
    QAction* FindItem(const QString& key) const;
    void Chosen(const QAction* action);

    KestroMenu* owner_ = nullptr;
};
