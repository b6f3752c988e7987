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
    int CountRows() override;
    void ReadRows(int page, Job& job, const std::function<void(ListLine&&)>& take) override;
    void ListLoaded() override;
    void ShowSums() override;
    void ShowDetail() override;
    void ReloadData() override;
    qint64 EntryOf(int row) const override;

 private:
    void Connect();
    void ConnectSearch();
    void LoadComkindData();
    /// "list" or "tongji".
    void SwitchMode(const QString& mode);
    bool InList() const { return sMode == u"list"; }
    void EditRecord();
    void RewriteLine(int row);
    void CopySums();
    void OpenAccountTree();
    void DoTextMenu(const QString& key);
    void ChooseAccount(const QString& code);

    EntryQuery query_;
    QString sMode = QStringLiteral("tongji");
    QString sKind = QStringLiteral("all");
    QString sumsTag_;
    KestroButton* btnNoNew;
    ChartPanel* chart_ = nullptr;
    Menus::TextMenuToken textMenu_;
    std::vector<NoticeToken> notices_;
};
