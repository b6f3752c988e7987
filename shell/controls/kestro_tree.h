#pragma once
// KestroTree: folders of the tree picker. Nodes are named by the id that AddNode returns.

#include <QString>
#include <QTreeWidget>

#include <functional>
#include <vector>

class KestroTree : public QTreeWidget {
 public:
    static constexpr int kRoot = -1;

    explicit KestroTree(QWidget* parent = nullptr);

    /// Adds a node as the last child of parent (kRoot for the top) and returns its id, counted from 0.
    int AddNode(int parent, const QString& text, const QString& key);
    void Clear();
    int NodeCount() const;
    int CurrentNode() const;  ///< -1 none
    void SetCurrentNode(int node);
    int FindKey(const QString& key) const;  ///< the first node of this key, -1 none
    int Parent(int node) const;             ///< kRoot for a top node
    int ChildCount(int node) const;
    QString Text(int node) const;
    QString Key(int node) const;
    void SetText(int node, const QString& text);
    void ExpandAll();
    /// Leaves n levels open below the top nodes: 0 shows the top nodes alone.
    void CollapseToLevel(int n);

    std::function<void(int node)> onCurrent;
    std::function<void(int node)> onDoubleClick;
    std::function<void(int node)> onEnter;

 protected:
    void drawRow(QPainter* p, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
    int NodeOf(const QTreeWidgetItem* item) const;

    std::vector<QTreeWidgetItem*> nodes_;
    const QTreeWidgetItem* tipItem_ = nullptr;  ///< compared only
};
