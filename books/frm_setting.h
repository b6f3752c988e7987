#pragma once
// frmSetting: the settings page. Strip with its sub-pages: the program's settings, the two charts of the open
// book, the books.

#include "shell/parts/strip_page.h"
#include "store/notices.h"

class BookPage;
class ChartPanel;
class CommonPage;

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
    /// "common", "kind", "account" or "book"; others are not there.
    void OpenSub(const QString& key) override;
    void ReLoadKindAcc(const QString& key) override;
    void DoKindAcc(Chart chart, const QString& code, Act act) override;
    /// Shows the books and makes a new one.
    void pDoScrollMenu();

 private:
    ChartPanel* Panel(const QString& key) const;
    /// The sub-page that is no chart, or null.
    Page* Part(const QString& key) const;

    ChartPanel* kinds_;
    ChartPanel* accounts_;
    CommonPage* common_;
    BookPage* books_;
    QString page_;
};
