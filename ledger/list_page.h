#pragma once
// What the two list pages share: strip, toolbar, filters, paged list, sums, detail list. What differs between
// them is data and the few functions below.

#include "ledger/entry_delete.h"
#include "ledger/entry_query.h"
#include "shell/controls/kestro_list.h"
#include "shell/menus.h"
#include "shell/page.h"
#include "store/job.h"
#include "store/notices.h"

#include <QTimer>

#include <functional>
#include <optional>

class KestroButton;
class KestroCalendar;
class KestroCheck;
class KestroCombox;
class KestroLabel;
class KestroPGress;
class KestroScrollMenu;
class KestroText;

struct ListPageWords {
    int pageCode = 0;
    Chart chart = Chart::kinds;  ///< what the filter's codes belong to
    QString treeTip;
    QString searchPrompt;
    QString newTip, editTip, delTip, printTip, exportTip;
    QString kindIcon;
    std::vector<ListColumn> columns;
    bool hasFlag = true;
    DeleteWords deleteWords;
};

class ListPage : public Page {
 public:
    ListPage(QWidget* parent, const ListPageWords& words);
    ~ListPage() override;

    void DoBtnMenuDelAll() override;
    void pRESETGROUP() override;
    void pRetunPrintInfo(int code, int a, int b, int c) override;
    void SetPeriod(const QString& first, const QString& second) override;
    void SetDisplayMode(int mode) override;

 protected:
    // What a page answers for its list.
    virtual EntryQuery BuildQuery(const EntryFilter& filter) const = 0;
    virtual void ReadRows(int page, Job& job, const std::function<void(EntryLine&&)>& take) = 0;
    virtual void ShowSums() = 0;
    /// The tAccount row behind a line, by which it is changed and deleted.
    virtual qint64 EntryOf(int row) const = 0;
    /// False, after its message, when the line can no longer be changed.
    virtual bool CheckLine(int /*row*/) { return true; }
    /// The line anew after a change; id is what the entry window handed back.
    virtual std::optional<EntryLine> ReadLineAgain(int row, qint64 id) = 0;
    /// Follows a code of the page's chart.
    virtual void ChooseCode(const QString& code) = 0;

    /// Builds the query from the filter controls and loads its first page. Nothing while a job runs.
    void ReloadData();
    /// The same after a change elsewhere: goes back to the line that was current. Nothing while a job runs.
    void ReloadInPlace();
    void ShowDetail();
    /// Opens the entry of the current line and shows the line anew.
    void EditCurrent();
    void CopySums();
    void OpenTree();
    /// Shows the list with its filters, or other in their place.
    void ShowOther(QWidget* other);
    /// Runs the query of the page: with a page limit when bPaged, otherwise its first page with the chooser
    /// filled anew.
    void LoadList(bool bPaged);
    /// Deletes the current line's entry after the question.
    void DeleteCurrent();
    void ResetFilters();
    void ShowSumLabels(const QString& count, const QString& value);
    /// Puts the detail rows under the title line.
    void FillDetail(const QString& heading, const QString& title, const std::vector<QStringList>& rows);

    void resizeEvent(QResizeEvent* event) override;

    std::vector<KestroButton*> tools_;  ///< the toolbar from left to right
    KestroScrollMenu* KestroScrollMenu1;
    KestroButton* btnNew;
    KestroButton* btnEdit;
    KestroButton* btnDel;
    KestroButton* btnPrint;
    KestroButton* btnExport;
    KestroText* txtSearch;
    KestroCombox* comKind;
    KestroCombox* comPage;
    KestroButton* btnDate0;
    KestroButton* btnDate1;
    KestroCheck* chkFlag;
    KestroList* KestroList1;
    KestroList* KestroList2;
    KestroLabel* lblCount;
    KestroLabel* lblValue;
    KestroPGress* KestroPGress1;
    KestroCalendar* KestroCalendar1;

    EntryQuery query_;
    QString sKind = QStringLiteral("all");
    QString sumsTag_;
    std::vector<NoticeToken> notices_;
    QString sPage = QStringLiteral("0");
    bool nCalendarFor = false;  ///< false: the first date button
    QTimer TimerLoadData;

 private:
    void NameControls();
    void BuildToolbar(const ListPageWords& words);
    void BuildFilters(const ListPageWords& words);
    void BuildLists(const ListPageWords& words);
    void Arrange();
    void ArrangeToolbar(int x, int width);
    void ArrangeFilters(int x, int width);
    void ArrangeLists(const QRect& room);
    void ConnectShared(const ListPageWords& words);
    void RewriteLine(int row, EntryLine line);
    void ShowControls();
    void FirstLoad();
    void FillPages(int count);
    void OpenCalendar(bool second);
    void PickDate(QDate date);
    JobBar Bar();
    void RemoveDeleted(const std::vector<int>& rows, const std::vector<qint64>& ids);

    DeleteWords deleteWords_;
    Chart chart_ = Chart::kinds;
    class DetailPanel;
    DetailPanel* panel_;
    QWidget* other_ = nullptr;
    bool hasPages_ = false;
    bool hasFlag_ = true;
    bool loaded_ = false;
    int displayMode_ = 1;
};
