#pragma once
// KestroListView: tiles of a picture and a name, below a heading if it is given one. Several may be chosen.
// Indexes count from 0.

#include <QListWidget>
#include <QPixmap>
#include <QString>

#include <functional>
#include <vector>

/// Keys: arrows, Page, Home, End; with Shift or Ctrl several are chosen. Enter opens, Delete deletes.
class KestroListView : public QListWidget {
 public:
    static constexpr int kPicture = 32;  ///< the side of a tile's picture

    explicit KestroListView(const QString& heading, QWidget* parent = nullptr);

    void Clear();
    void AddItem(const QString& text, const QString& key);
    int Count() const { return count(); }
    QString Text(int index) const;
    QString Key(int index) const;  ///< empty for a place that does not exist
    void SetText(int index, const QString& text);
    bool HasPicture(int index) const;
    void SetPicture(int index, const QPixmap& picture);
    /// The chosen items, rising.
    std::vector<int> Selected() const;
    int Current() const { return currentRow(); }
    /// Chooses this item alone; nobody is told.
    void SetCurrent(int index);
    void RemoveItems(const std::vector<int>& indexes);

    // Callbacks tell what the user did.
    std::function<void(int index)> onCurrent;
    std::function<void(int index)> onClick;
    std::function<void(int index)> onDoubleClick;  ///< Enter comes here too
    std::function<void()> onDelete;
    std::function<void()> onSelection;  ///< also after calls that change what is chosen

 protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    int HeadHeight() const;

    QString heading_;
    bool quiet_ = false;
};
