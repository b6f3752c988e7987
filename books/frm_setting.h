#pragma once
// frmSetting: the settings page. Strip with its sub-pages, of which kinds and accounts stand.

#include "shell/parts/strip_page.h"

class ChartPanel;

class frmSetting : public StripPage {
 public:
    explicit frmSetting(QWidget* parent);

    void Shown() override;
    void TabClicked() override;
    void TakeFocus() override;
    bool Can(Act act) const override;
    void Do(Act act) override;
    void pRESETGROUP() override;
    void pTRANSACCOUNT() override;
    std::vector<KestroList*> Lists() const override;
    /// "kind" or "account"; other sub-pages are not there.
    void OpenSub(const QString& key) override;
    void ReLoadKindAcc(const QString& key) override;
    void DoKindAcc(Chart chart, const QString& code, Act act) override;

 private:
    ChartPanel* Panel(const QString& key) const;
    ChartPanel* Current() const { return Panel(page_); }

    ChartPanel* kinds_;
    ChartPanel* accounts_;
    QString page_;
};
