#pragma once
// The books that the program knows, a sub-page of the settings.

#include "shell/page.h"
#include "shell/parts/fresh_view.h"
#include "store/notices.h"

class KestroLabel;
class KestroList;
class Toolbar;

class BookPage : public Page {
 public:
    explicit BookPage(QWidget* parent);

    void Shown() override;
    void TakeFocus() override;
    bool Can(Act act) const override;
    void Do(Act act) override;
    std::vector<KestroList*> Lists() const override;

 private:
    void BuildToolbar();
    void BuildList();
    void LayOut();
    void Reload();
    /// Index in gBooks of the current row, -1 none.
    int Chosen() const;
    void ShowFacts();
    void New();
    void Edit();
    void Delete();
    void BackUp();

    Toolbar* toolbar_;
    KestroList* KestroList2;
    KestroLabel* lblPath_;
    KestroLabel* lblSize_;
    KestroLabel* lblCreated_;
    FreshView fresh_;
    NoticeToken books_;
};
