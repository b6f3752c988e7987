#pragma once
// frmAccount: the page of entries. Filtered and paged list, sums, detail of a line, strip with statistics,
// books and kinds.

#include "chart/codes.h"
#include "ledger/entry_query.h"
#include "ledger/list_page.h"
#include "shell/menus.h"

class frmAccount : public ListPage {
 public:
    explicit frmAccount(QWidget* parent);

    void DoMenu(const QString& menu, const QString& key) override;
    void pTRANSACCOUNT() override;
    void SelectBook(int index) override;
    void MyTrack_DragDropFiles(int count, const QString& names) override;

    /// The print job's text: table, mode, title, condition, mark.
    QString BuildPrintInfo(bool bChecked) const;

 protected:
    EntryQuery BuildQuery(const EntryFilter& filter) const override;
    void ReadRows(int page, Job& job, const std::function<void(EntryLine&&)>& take) override;
    void ShowSums() override;
    qint64 EntryOf(int row) const override;
    std::optional<EntryLine> ReadLineAgain(int row, qint64 id) override;
    void ChooseCode(const QString& code) override;

 private:
    void Connect();
    void ConnectStrip();
    void LoadComkindData();
    void ReloadScroll();
    void ReloadScrollBooks();
    void ChooseKind(const QString& code);
    void ShowChosenKind(const QString& code);
    void SelectKindInStrip();
    void ShowFigures(const SumTexts& sums);
    void FoldStrip(bool folded);
    const ChartRow* ChosenKind() const;
    void NewEntry();
    void AppendEntry(qint64 id);
    void ShowMenu(QPoint at);
    int NextNumber() const;
    void AddToTemplates();
    void ShowKindMoney();
    void DoKindMenu(const QString& key);
    void DoKey(const QString& name);
    bool ListKey(QKeyEvent* event);
    QString BookTip(const QString& key) const;
    QString StripTip(const QString& section, const QString& item) const;
    void StripClicked(const QString& section, const QString& item);
    void StripDoubleClicked(const QString& section, const QString& item);

    QString stripSection_;  ///< the section whose menu is open
    std::vector<ChartRow> kinds_;
};
