#pragma once
// What the frame knows of a page, and what pages and menus may ask of the frame. The frame fills the host;
// app/windows.cpp registers the factories.

#include "store/chart.h"

#include <QString>
#include <QWidget>

#include <functional>

/// Page codes of gPage and the tabs that show them.
enum PageCode {
    kPageAccount = 1,
    kPageNote = 9,
    kPageSetting = 12,
    kPageSubAcc = 13,
    kPageStats = 14,
    kPageWeb = 16
};
constexpr int kTabs = 6;
constexpr int kTabCodes[kTabs] = {kPageAccount, kPageSubAcc, kPageWeb, kPageStats, kPageNote, kPageSetting};

/// The shared operations of a page; each does nothing until a page says otherwise.
class Page : public QWidget {
 public:
    using QWidget::QWidget;
    /// A menu's choice: menu name and item key, lower case.
    virtual void DoMenu(const QString& /*menu*/, const QString& /*key*/) {}
    /// Deletes the checked rows.
    virtual void DoBtnMenuDelAll() {}
    /// nGroup has changed.
    virtual void pRESETGROUP() {}
    /// The open book is another one.
    virtual void pTRANSACCOUNT() {}
    /// Progress of a print job, see the page that answers it.
    virtual void pRetunPrintInfo(int /*code*/, int /*a*/, int /*b*/, int /*c*/) {}
    /// Texts of the two date buttons.
    virtual void SetPeriod(const QString& /*first*/, const QString& /*second*/) {}
    /// 0 detail at the right, 1 detail below, 2 list alone.
    virtual void SetDisplayMode(int /*mode*/) {}
    /// Marks a book of gBooks in the page's strip.
    virtual void SelectBook(int /*index*/) {}
    /// Shows a sub-page by its key.
    virtual void OpenSub(const QString& /*key*/) {}
    /// Reloads the kind or account list if it is the one that shows.
    virtual void ReLoadKindAcc(const QString& /*key*/) {}
    /// Jumps to the list of a chart, selects the row of a code if it is not empty, then acts: New, Edit, Del.
    virtual void DoKindAcc(Chart /*chart*/, const QString& /*code*/, const QString& /*action*/) {}
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
    std::function<void()> updateLogo;      ///< the number on the logo alone
};
PageHost& Host();

/// The docked page with this code, or null.
Page* PageOfCode(int code);
