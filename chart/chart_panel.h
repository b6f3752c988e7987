#pragma once
// One chart's list with its buttons and boxes: adding, changing, hiding and deleting kinds or accounts.
// Hosted by the settings page and by the account page.

#include "chart/maintenance.h"
#include "shell/actions.h"
#include "shell/parts/fresh_view.h"
#include "store/notices.h"

#include <QWidget>

#include <vector>

class KestroLabel;
class PageJobBar;
class KestroList;
class QVBoxLayout;

class ChartPanel : public QWidget {
 public:
    /// withButtons: the panel shows its own toolbar; otherwise its host calls.
    ChartPanel(Chart chart, bool withButtons, QWidget* parent);

    /// The panel has come to the front: loads what has gone stale.
    void Shown();
    void TakeFocus();
    bool Can(Act act) const;
    void Do(Act act);
    /// Reads the chart again.
    void Reload();
    /// Selects the row of a code from the top; nothing when there is none.
    void Select(const QString& code);
    void ResetGroup();
    KestroList* List() const { return KestroList1_; }

 private:
    void BuildToolbar(QVBoxLayout* room);
    void BuildList();
    bool IsKinds() const { return chart_ == Chart::kinds; }
    void New();
    void Edit();
    void Del();
    /// Shows frmInput over its record; true when it was confirmed.
    bool Ask(const QString& title, const QString& prompt, const ChartRecord* start);
    /// Carries out a change of the row of a code, which shows itself; a failing one is told after the list is
    /// fresh.
    void Run(const QString& code, const std::function<void()>& change);
    void Print(bool preview);
    void Append(qint64 id, const ChartRecord& record);
    int RowOfId(qint64 id) const;
    void ShowChanged(int row, const ChartRecord& record);
    /// What stands in the input box's record.
    static TypedRow Typed();

    Chart chart_;
    bool prints_;  ///< the page around it has a button for that
    KestroLabel* lblTip_ = nullptr;
    KestroList* KestroList1_;
    PageJobBar* KestroPGress1_;
    FreshView fresh_;
    std::vector<NoticeToken> notices_;
};
