#pragma once
// KestroCombox: a box with a drop-down list that typing filters.

#include "shell/controls/control_support.h"
#include "shell/controls/kestro_text.h"

#include <memory>
#include <vector>

class ComboxList;

struct ComboxItem {
    QString text;
    QString key;
    QString icon;
};

enum class ComboxMode {
    chooseOnly,  ///< nothing can be typed; letters jump to an item
    pick,        ///< typing filters; on leaving, a typed text must be exactly one item, else it is emptied
    freeText     ///< typing filters; any text may stand
};

/// Keys: Alt+Down or F4 opens; arrows, Page keys, Enter and Escape serve the open list; in a closed
/// choose-only box Up and Down choose the neighbour.
class KestroCombox : public KestroText {
 public:
    explicit KestroCombox(ComboxMode mode, QWidget* parent = nullptr);
    ~KestroCombox() override;

    void Clear();
    void AddItem(const QString& text, const QString& key = {}, const QString& icon = {});
    int Count() const { return static_cast<int>(items_.size()); }
    const ComboxItem& Item(int index) const { return items_.at(static_cast<size_t>(index)); }
    /// Index of the chosen item, -1 when the text is nobody's. Setters do not call onChoose.
    int Current() const { return current_; }
    void SetCurrent(int index);
    /// False, and nothing changed, when no item has the key.
    bool SetCurrentKey(const QString& key);
    /// Key of the chosen item, empty when there is none.
    QString CurrentKey() const;
    /// Shows another text for the chosen item.
    void ShowAs(const QString& text) { setText(text); }
    /// The text part; a text put here stands, whether it is an item's or not.
    void SetText(const QString& text, const QString& key = {});
    /// Puts a browse or tree button at the right end.
    void SetBrowse(const QString& icon, const QString& tip);
    /// Opens with all items.
    void OpenList();
    void CloseList();
    bool IsListOpen() const;
    /// Takes what was typed as if the user had left the box.
    void Settle();

    /// An item was chosen by the user; in pick mode also called with two empty texts when a typed text was
    /// emptied on leaving, or when the user cleared the box.
    std::function<void(const QString& text, const QString& key)> onChoose;
    std::function<void()> onBrowse;
    /// The tip of the box, asked for when the pointer rests on it; without an answer a text that is cut shows
    /// whole.
    std::function<QString()> onTip;

 protected:
    bool event(QEvent* event) override;
    void PaintZone(QPainter& p) const override;
    QColor Fill() const override;
    void Edited() override;
    bool HasEndAction() const override { return static_cast<bool>(onBrowse); }
    void Pressed(QPoint at) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

 private:
    void Choose(int index);
    int Meant(const QString& typed) const;
    void ListTurned();
    void Filter(const QString& typed);
    void Step(int by);
    int IndexOf(const QString& text) const;
    void JumpTo(const QString& letters);

    ComboxMode mode_;
    std::vector<ComboxItem> items_;
    std::unique_ptr<ComboxList> list_;
    int current_ = -1;
    ComboxItem kept_;  ///< what SetText put there
    Controls::TypeAhead typing_;
    bool typed_ = false;  ///< the text is the user's and has not been settled
};
