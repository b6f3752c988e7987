#pragma once
// frmNote: the page of notes. The open reminders and all notes, each with the messages of the service.

#include "notes/note_list.h"
#include "shell/parts/fresh_view.h"
#include "shell/parts/strip_page.h"
#include "store/notices.h"

#include <array>
#include <optional>

class KestroButton;
class KestroCheck;
class KestroList;
class KestroText;
class PageJobBar;
class PeriodButtons;
class Toolbar;

class frmNote : public StripPage {
 public:
    explicit frmNote(QWidget* parent);

    void Shown() override;
    void TakeFocus() override;
    bool Can(Act act) const override;
    void Do(Act act) override;
    void pTRANSACCOUNT() override;
    void SetPeriod(const Period& period) override;
    std::vector<KestroList*> Lists() const override { return {lists_.begin(), lists_.end()}; }

    /// Loads both lists anew in their places; the search that ran stays.
    void ReloadData();
    /// Opens the editor on a row; a message of the service is read in it.
    void PopupBookNew(qint64 id, const QString& tag);
    void ShowList(NoteList list);
    /// Goes to a line of the open reminders, or of all where it is not among them; a search gives way to it.
    void GoTo(const NoteKey& key);

 private:
    void BuildStrip();
    void BuildToolbar();
    void BuildFilters();
    void BuildLists();
    KestroList* MakeList(NoteList list);
    void LayOut();
    void Load(NoteList which, Job& job);
    void Search();
    void NewNote();
    void EditCurrent();
    void OpenLine(int row);
    bool Choose(const NoteKey& key);
    void Print(bool preview, bool ticked);
    void FinishCurrent();
    void FinishChecked();
    void DoBtnMenuDelAll();
    std::optional<NoteKey> Chosen() const;
    std::vector<NoteKey> Ticked() const;
    KestroList* ListOf(NoteList list) const { return lists_[static_cast<size_t>(list)]; }
    KestroList* List() const { return ListOf(list_); }

    Toolbar* toolbar_;
    KestroButton* btnNew;
    KestroButton* btnEdit;
    KestroButton* btnDel;
    KestroButton* btnFinish;
    KestroButton* btnAllFinish;
    KestroButton* btnPrint;
    KestroText* txtSearch;
    QWidget* filters_;
    PeriodButtons* period_;
    KestroCheck* chkFlag;
    KestroCheck* chkWake;
    QWidget* listRoom_;
    PageJobBar* KestroPGress1;
    std::array<KestroList*, 2> lists_{};  ///< KestroList1 and KestroList2, by NoteList

    NoteList list_ = NoteList::wake;
    QString condition_;  ///< of the search that ran
    FreshView fresh_;
    NoticeToken reminders_;
};
