#pragma once
// What the frame knows of a page, and what pages and menus may ask of the frame. The frame fills the host;
// app/windows.cpp registers the factories.

#include "shell/actions.h"
#include "store/chart.h"
#include "store/period.h"

#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

class KestroList;

/// Page codes of gPage.
enum PageCode {
    kPageAccount = 1,
    kPageNote = 9,
    kPageSetting = 12,
    kPageSubAcc = 13,
    kPageStats = 14,
    kPageWeb = 16
};

/// The shared operations of a page; each does nothing until a page says otherwise.
class Page : public QWidget {
 public:
    using QWidget::QWidget;
    /// The page has come to the front, by click, key, menu or jump: what has gone stale is loaded.
    virtual void Shown() {}
    /// The user has clicked the tab of the page.
    virtual void TabClicked() {}
    /// Puts the keyboard where the page's work begins.
    virtual void TakeFocus() { setFocus(); }
    /// Whether an act can be done now. What cannot stands disabled in menus.
    virtual bool Can(Act /*act*/) const { return false; }
    virtual void Do(Act /*act*/) {}
    /// nGroup has changed.
    virtual void pRESETGROUP() {}
    /// The open book is another one.
    virtual void pTRANSACCOUNT() {}
    /// What the date buttons hold.
    virtual void SetPeriod(const Period& /*period*/) {}
    /// 0 detail at the right, 1 detail below, 2 list alone.
    virtual void SetDisplayMode(int /*mode*/) {}
    /// The lists whose columns the user may press and pull.
    virtual std::vector<KestroList*> Lists() const { return {}; }
    /// Nothing can be begun while the web ledger is waited for; what can stop it goes on.
    virtual void SetLocked(bool locked) { setEnabled(!locked); }
    /// Marks a book of gBooks in the page's strip.
    virtual void SelectBook(int /*index*/) {}
    /// Shows a sub-page by its key.
    virtual void OpenSub(const QString& /*key*/) {}
    /// Reloads the kind or account list if it is the one that shows.
    virtual void ReLoadKindAcc(const QString& /*key*/) {}
    /// Jumps to the list of a chart, selects the row of a code if it is not empty, then acts: add, edit,
    /// remove.
    virtual void DoKindAcc(Chart /*chart*/, const QString& /*code*/, Act /*act*/) {}
    /// Files dropped on the frame; the names are joined by line breaks.
    virtual void MyTrack_DragDropFiles(int /*count*/, const QString& /*names*/) {}
};

using PageFactory = std::function<Page*(QWidget* parent)>;
/// Puts in what makes the page of a tab. A tab without a factory stands disabled.
void RegisterPage(int tab, PageFactory factory);
bool HasPageFactory(int tab);
Page* MakePage(int tab, QWidget* parent);
void ClearPageFactories();

/// What pages ask of the frame. Slots are empty while no frame stands.
struct PageHost {
    std::function<Page*(int tab)> page;    ///< the docked page or null
    std::function<void(int tab)> show;     ///< goes to a tab
    std::function<void()> dropOtherPages;  ///< unloads all pages but the entry page
    std::function<void()> refresh;         ///< book label, number on the logo, empty search box
};
PageHost& Host();

/// The code in gPage while a tab shows.
int CodeOfTab(int tab);
/// The docked page with this code, or null.
Page* PageOfCode(int code);
