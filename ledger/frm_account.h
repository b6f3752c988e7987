#pragma once
// frmAccount: the page of entries. Filtered and paged list, sums, detail of a line, strip with statistics,
// books and kinds.

#include "chart/codes.h"
#include "ledger/list_page.h"
#include "shell/tracker.h"

/// The columns of the entry list.
std::vector<ListColumn> EntryColumns();

class frmAccount : public ListPage {
 public:
    explicit frmAccount(QWidget* parent);
    ~frmAccount() override;

    bool Can(Act act) const override;
    void Do(Act act) override;
    void pTRANSACCOUNT() override;
    void SelectBook(int index) override;
    void MyTrack_DragDropFiles(int count, const QString& names) override;

 protected:
    EntryQuery BuildQuery(const EntryFilter& filter) const override;
    void ReadRows(int page, Job& job, const std::function<void(EntryLine&&)>& take) override;
    void ShowFigures(const EntrySums& sums) override;
    qint64 EntryOf(int row) const override;
    PrintInfo InfoToPrint(const std::optional<std::vector<qint64>>& checked) const override;
    std::optional<EntryLine> ReadLineAgain(int row, qint64 id) override;
    void ChooseCode(const QString& code) override;
    void ReloadChoosers() override;

 private:
    void ConnectStrip();
    void LoadComkindData();
    void ReloadScroll();
    void ReloadScrollBooks();
    void ChooseKind(const QString& code);
    void ShowChosenKind(const QString& code);
    void SelectKindInStrip();
    void FoldStrip(bool folded);
    const ChartRow* ChosenKind() const;
    void NewEntry();
    void AppendEntry(qint64 id);
    int NextNumber() const;
    void AddToTemplates();
    void ShowKindMoney();
    void GoToKind(Act act);
    QString BookTip(const QString& key) const;
    QString StripTip(const QString& section, const QString& item) const;
    void StripClicked(const QString& section, const QString& item);
    void StripDoubleClicked(const QString& section, const QString& item);

    clsTrackInfo MyTrack;
    QString stripSection_;  ///< the section whose menu is open
    QString stripKind_;     ///< the kind whose menu is open; empty: the chosen one
    std::vector<ChartRow> kinds_;
};
