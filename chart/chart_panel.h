#pragma once
// One chart's list with its buttons and boxes: adding, changing, hiding and deleting kinds or accounts.
// Hosted by the settings page and by the account page.

#include "chart/maintenance.h"
#include "store/dialogs.h"

#include <QWidget>

class KestroButton;
class KestroLabel;
class KestroList;

class ChartPanel : public QWidget {
 public:
    /// withButtons: the panel shows its own toolbar; otherwise its host calls.
    ChartPanel(Chart chart, bool withButtons, QWidget* parent);

    /// Reads the chart again.
    void Reload();
    /// Selects the row of a code from the top; nothing when there is none.
    void Select(const QString& code);
    void New();
    void Edit();
    void Del();
    void ResetGroup();

 protected:
    void resizeEvent(QResizeEvent* event) override;

 private:
    void BuildButtons();
    void BuildList();
    bool IsKinds() const { return chart_ == Chart::kinds; }
    /// Shows frmInput over its record; true when it was confirmed.
    bool Ask(const QString& title, const QString& prompt, const ChartRecord* start);
    /// Carries out a change of the row of a code; a failing statement is told after the lists are fresh.
    void Run(const QString& code, const std::function<void()>& change);
    void Append(qint64 id, const ChartRecord& record);
    void ShowChanged(int row, const ChartRecord& record);
    /// What stands in the input box's record.
    static TypedRow Typed();

    Chart chart_;
    std::vector<KestroButton*> buttons_;
    KestroLabel* lblTip_ = nullptr;
    KestroList* KestroList1_;
};
