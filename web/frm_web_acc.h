#pragma once
// frmWebAcc: the page of the web ledger. What was fetched and waits, and its history.

#include "shell/parts/fresh_view.h"
#include "shell/parts/strip_page.h"
#include "store/notices.h"
#include "web/waiting_rows.h"
#include "web/web_posting.h"

#include <optional>

class KestroButton;
class KestroList;
class KestroPGress;
class PageJobBar;
class Toolbar;

class frmWebAcc : public StripPage {
 public:
    explicit frmWebAcc(QWidget* parent);

    void Shown() override;
    void TakeFocus() override;
    bool Can(Act act) const override;
    void Do(Act act) override;
    void pRESETGROUP() override;
    std::vector<KestroList*> Lists() const override { return {lists_.begin(), lists_.end()}; }

    void SetLocked(bool locked) override;

    void ShowList(WebList list);

 private:
    void BuildStrip();
    void BuildToolbar();
    void BuildLists();
    KestroList* MakeList(WebList list);
    void LayOut();
    void ReloadData();
    void Load(WebList which, Job& job);
    void SetBusyBar(bool on);
    void PostAll();
    void DeleteTicked();
    KestroList* ListOf(WebList list) const { return lists_[static_cast<size_t>(list)]; }
    KestroList* List() const { return ListOf(list_); }

    Toolbar* toolbar_;
    KestroButton* btnCheck;
    KestroButton* btnToBill;
    KestroButton* btnSet;
    KestroButton* btnDel;
    KestroPGress* KestroPGress1;  ///< the service is at work
    PageJobBar* KestroPGress2;    ///< rows done
    QWidget* bars_;
    std::array<KestroList*, 2> lists_{};  ///< KestroList1 and KestroList2, by WebList

    WebList list_ = WebList::waiting;
    std::optional<ChartIds> ids_;  ///< nKindIds and nAccIds, as of the last load
    FreshView fresh_;
    std::vector<NoticeToken> notices_;
};
