#pragma once
// frmSubAcc: the page of account records, and the account chart in its other view.

#include "ledger/entry_query.h"
#include "ledger/list_page.h"
#include "shell/menus.h"

class ChartPanel;

class frmSubAcc : public ListPage {
 public:
    explicit frmSubAcc(QWidget* parent);

    void DoMenu(const QString& menu, const QString& key) override;
    void pRESETGROUP() override;
    void DoBtnMenuDelAll() override;
    QString BuildPrintInfo(bool bChecked) const;

 protected:
    EntryQuery BuildQuery(const EntryFilter& filter) const override;
    void ReadRows(int page, Job& job, const std::function<void(EntryLine&&)>& take) override;
    void ShowSums() override;
    qint64 EntryOf(int row) const override;
    bool CheckLine(int row) override;
    std::optional<EntryLine> ReadLineAgain(int row, qint64 id) override;
    void ChooseCode(const QString& code) override;
    void showEvent(QShowEvent* event) override;

 private:
    void Connect();
    void LoadComkindData();
    /// "list" or "tongji".
    void SwitchMode(const QString& mode);
    bool InList() const { return sMode == u"list"; }

    QString sMode = QStringLiteral("tongji");
    KestroButton* btnNoNew;
    ChartPanel* chartPanel_ = nullptr;
};
