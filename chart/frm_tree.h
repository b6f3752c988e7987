#pragma once
// frmTree: the chart of kinds or accounts as a tree, to pick one code from.

#include "shell/controls/kestro_dialog.h"
#include "store/chart.h"
#include "store/dialogs.h"

#include <QPoint>

class KestroButton;
class KestroTree;

/// Reads the table from record 17 and answers there. A node with children may be picked by the button: to
/// decide on leaves is the caller's task.
class frmTree : public KestroDialog {
 public:
    explicit frmTree(QWidget* parent = nullptr);

 private:
    void LoadNode(const QString& key, const QString& name, int parentIndex);
    void Take(int node);
    void EnterClicked();
    void ExpandClicked();
    void NodeDoubleClicked(int node);

    TreeDialog record_;
    PopupScope popup_;
    Chart chart_;
    bool bExpanded_ = false;
    KestroTree* KestroTree1_;
    KestroButton* btnEnter_;
    KestroButton* btnCancel_;
    KestroButton* btnExpand_;
};

/// Shows frmTree with its corner at a point of the screen. For RegisterDialog(kDlgTree, …).
void OpenTreeDialog(QPoint at);
