#pragma once
// frmSubAcc: the page of account records, and the account chart in its other view.

#include "ledger/list_page.h"

class ChartPanel;

class frmSubAcc : public ListPage {
 public:
    explicit frmSubAcc(QWidget* parent);

    void Shown() override;
    void TakeFocus() override;
    bool Can(Act act) const override;
    void Do(Act act) override;
    void pRESETGROUP() override;

 protected:
    EntryQuery BuildQuery(const EntryFilter& filter) const override;
    void ReadRows(int page, Job& job, const std::function<void(EntryLine&&)>& take) override;
    void ShowFigures(const EntrySums& sums) override;
    qint64 EntryOf(int row) const override;
    bool CheckLine(int row) override;
    PrintInfo InfoToPrint(const std::optional<std::vector<qint64>>& checked) const override;
    std::optional<EntryLine> ReadLineAgain(int row, qint64 id) override;
    bool StandsAlone(int row) const override;
    void ChooseCode(const QString& code) override;
    void ReloadChoosers() override;

 private:
    /// "list" or "tongji".
    void SwitchMode(const QString& mode);
    bool InList() const { return sMode == u"list"; }

    QString sMode = QStringLiteral("tongji");
    KestroButton* btnNoNew;
    ChartPanel* chartPanel_ = nullptr;
};
