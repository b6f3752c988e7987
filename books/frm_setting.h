#pragma once
// frmSetting: the settings page. Strip with its sub-pages, of which kinds and accounts stand.

#include "shell/page.h"
#include "store/notices.h"

class ChartPanel;
class KestroScrollMenu;

class frmSetting : public Page {
 public:
    explicit frmSetting(QWidget* parent);

    void DoMenu(const QString& menu, const QString& key) override;
    void pRESETGROUP() override;
    void pTRANSACCOUNT() override;
    /// "kind" or "account"; other sub-pages are not there.
    void OpenSub(const QString& key) override;
    void ReLoadKindAcc(const QString& key) override;
    void DoKindAcc(Chart chart, const QString& code, const QString& action) override;

 protected:
    void resizeEvent(QResizeEvent* event) override;

 private:
    ChartPanel* Panel(const QString& key) const;

    KestroScrollMenu* KestroScrollMenu1;
    ChartPanel* kinds_;
    ChartPanel* accounts_;
    QString page_;
};
