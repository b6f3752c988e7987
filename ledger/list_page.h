#pragma once
// What the two list pages share: strip, toolbar, filters, paged list, sums, detail list. What differs between
// them is data and the few functions below.

#include "ledger/entry_delete.h"
#include "ledger/entry_query.h"
#include "output/print_info.h"
#include "shell/controls/kestro_list.h"
#include "shell/parts/fresh_view.h"
#include "shell/parts/strip_page.h"
#include "store/notices.h"

#include <QTimer>

#include <functional>
#include <optional>

class DetailPanel;
class KestroButton;
class KestroCheck;
class KestroCombox;
class KestroLabel;
class KestroText;
class PageJobBar;
class PeriodButtons;
class Toolbar;

struct ListPageWords {
    Chart chart = Chart::kinds;  ///< what the filter's codes belong to
    LineKind lines = LineKind::entries;
    QString treeTip;
    QString searchPrompt;
    QString newTip, editTip, delTip, printTip, exportTip;
    QString kindIcon;
    std::vector<ListColumn> columns;
    bool hasFlag = true;
};

class ListPage : public StripPage {
 public:
    ListPage(QWidget* parent, const ListPageWords& words);
    ~ListPage() override;

    void Shown() override;
    void TakeFocus() override;
    bool Can(Act act) const override;
    void Do(Act act) override;
    void pRESETGROUP() override;
    void SetPeriod(const Period& period) override;
    void SetDisplayMode(int mode) override;
    std::vector<KestroList*> Lists() const override { return {KestroList1}; }

 protected:
    // What a page answers for its list.
    virtual EntryQuery BuildQuery(const EntryFilter& filter) const = 0;
    virtual void ReadRows(int page, Job& job, const std::function<void(EntryLine&&)>& take) = 0;
    virtual void ShowFigures(const EntrySums& sums) = 0;
    /// The tAccount row behind a line, by which it is changed.
    virtual qint64 EntryOf(int row) const = 0;
    /// False, after its message, when the line stands for nothing any more.
    virtual bool CheckLine(int /*row*/) { return true; }
    /// What is printed of the list: all that the filter finds, or the lines with these ids.
    virtual PrintInfo InfoToPrint(const std::optional<std::vector<qint64>>& checked) const = 0;
    /// The line anew after a change; id is what the entry window handed back. nullopt: the line has to go.
    virtual std::optional<EntryLine> ReadLineAgain(int row, qint64 id) = 0;
    /// Whether no other line shows the entry of this one.
    virtual bool StandsAlone(int /*row*/) const { return true; }
    /// Follows a code of the page's chart.
    virtual void ChooseCode(const QString& code) = 0;
    /// Fills what is chosen from anew: the chooser of codes, the strip. May go back to all.
    virtual void ReloadChoosers() = 0;

    /// Builds the query from the filter controls and loads its first page. Nothing while a job runs.
    void ReloadData();
    /// The filter that was run once more: page, current line, marks, sort and place stay. Nothing while a job
    /// runs.
    void ReloadInPlace();
    void ShowSums();
    void ShowDetail();
    void OpenPictures();
    /// Shows a change that this page has made: by show, or by loading anew where the lines hold a running
    /// balance.
    void ShowOwnChange(const std::function<void()>& show);
    void CopySums();
    void ResetFilters();
    /// Shows the list with its filters, or other in their place.
    void ShowOther(QWidget* other);
    void ShowSumLabels(const QString& count, const QString& value);
    void EditCurrent();
    /// Deletes the current line's entry after the question.
    void DeleteCurrent();
    bool HasLine() const { return KestroList1->CurrentRow() >= 0; }
    void MakeCurrent(int row);

    void resizeEvent(QResizeEvent* event) override;

    Toolbar* toolbar_;
    KestroButton* btnNew;
    KestroButton* btnEdit;
    KestroButton* btnDel;
    KestroButton* btnPrint;
    KestroButton* btnExport;
    KestroText* txtSearch;
    KestroCombox* comKind;
    PeriodButtons* period_;
    KestroCheck* chkFlag;
    KestroCombox* comPage;
    KestroList* KestroList1;
    KestroList* KestroList2;
    KestroLabel* lblCount;
    KestroLabel* lblValue;
    PageJobBar* KestroPGress1;

    EntryQuery query_;
    QString sKind = QStringLiteral("all");
    QString sumsTag_;
    std::vector<NoticeToken> notices_;
    QString sPage = QStringLiteral("0");
    FreshView fresh_;

 private:
    /// Count and sums of the query as they were last asked, good while nothing has changed.
    struct KnownFigures {
        QString sql;
        qint64 serial = 0, version = 0;
        EntrySums sums;
    };

    void BuildToolbar(const ListPageWords& words);
    void BuildFilters(const ListPageWords& words);
    void BuildLists(const ListPageWords& words);
    void LayOut();
    void Arrange();
    void Connect(const ListPageWords& words);
    void OpenTree();
    void RewriteLine(int row, EntryLine line);
    void DeleteChecked();
    void Print(bool preview, bool checked);
    std::vector<qint64> CheckedIds() const;
    void RemoveGone(const std::vector<int>& asked);
    /// A chosen code that was changed elsewhere is followed to its new one.
    void FollowChosenCode();
    void FirstLoad();
    /// Runs the query for the page in sPage.
    void LoadPage();
    void FillPages(int count, int page);
    const EntrySums& Figures();

    Chart chart_;
    LineKind lines_;
    EntryFilter filter_;     ///< as it was run
    qint64 chosenRow_ = -1;  ///< chart row of its code, -1 for all
    std::optional<KnownFigures> figures_;
    DetailPanel* panel_;
    QWidget* filters_;
    QWidget* listRoom_;
    QWidget* center_;  ///< the list, and the detail where it stands beside
    QWidget* other_ = nullptr;
    QTimer TimerLoadData;
    bool loaded_ = false;
    int displayMode_ = 1;
};
