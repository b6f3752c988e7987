#pragma once
// frmMain: the frame of the running program. Tabs, menus, status bar, book label, timer; it docks the pages
// and receives what other processes tell.

#include "shell/controls/kestro_form.h"
#include "shell/page.h"
#include "shell/tracker.h"
#include "store/notices.h"

#include <QPointer>
#include <QTimer>

#include <array>

class KestroCalculator;
class KestroPGress;
class KestroStatusBar;
class KestroText;
class QShortcut;

class frmMain : public KestroForm {
 public:
    frmMain();
    ~frmMain() override;

    /// Goes to a tab; its page loads what has gone stale.
    void SetFormTab(int index);
    /// To the next tab in this direction that has a page.
    void NextTab(int step);
    /// Opens the menu of the header.
    void OpenMenu();
    void ShowPage(int index, bool show);
    /// Makes the page of a tab if it is not there yet.
    Page* LoadPage(int index);
    /// The docked page of a tab or null.
    Page* GetWinhWnd(int index) const { return pages_.at(static_cast<size_t>(index)); }
    int CurrentTab() const { return tab_; }

    /// Counts due items anew and shows the number on the logo.
    void SetLogoNumber();
    int LogoNumber() const { return due_; }
    /// Menu key exit. False when a job runs.
    bool FinishApp();
    void ResetHeadIco();
    void pRESETGROUP();

    /// What another process tells: 1 a second copy, 2 redraw, 3 reminders changed, 16 raise only.
    void MyTrak_ReceMsg(const QString& text, int code, int extra);
    void Timer1_Timer();
    /// While the user waits for the web ledger, nothing else can be begun here, nor by a drop. The window can
    /// be closed and its display mode changed, and a book that another copy hands over is taken.
    void SetLocked(bool locked);
    bool IsLocked() const { return locked_; }

    clsTrackInfo MyTrak;
    std::function<void()> onUnloaded;  ///< the window is gone and the program may end

 protected:
    void resizeEvent(QResizeEvent* event) override;

 private:
    void BuildHeader();
    void BuildStatusBar();
    void FillHost();
    void RefreshBook();
    void ShowBookLabel();
    void OpenBook();
    void RunSearch();
    void ClearSearch();
    void HeaderButton(const QString& name);
    void StatusClicked(int panel);
    /// Size, place and display mode of the last run, where they fit the screen; held to it otherwise.
    void TakeUpPlace();
    void SetWebTip(int kind, const QString& text);
    /// The status bar shows that the web ledger is waited for; its own page has a bar for that.
    void ShowWaiting(bool waiting);
    void KeepPlace();
    void TakeUpColumns(int tab);
    void KeepColumns(int tab);
    /// Unloads the page of a tab.
    void DropPage(int tab);
    void LookWhatIsDue();
    bool MayLeave(const QString& refusal);
    void Unload();
    void BringToFront();
    void TakeHandedBook();

    std::array<Page*, kTabs> pages_{};
    int tab_ = -1;
    int due_ = 0;
    QTimer Timer1;
    QTimer reminderAfterJob_;  ///< a word of the agent that came during a job
    QString timerTag_;
    KestroStatusBar* barTip = nullptr;
    KestroText* txtSearch = nullptr;
    KestroPGress* KestroPGress1 = nullptr;
    KestroCalculator* KestroCalculator1 = nullptr;
    NoticeToken booksChanged_, groupingChanged_, remindersChanged_, webTip_, webBusy_;
    bool locked_ = false;
    QShortcut* stopKey_ = nullptr;  ///< of what the lock waits for
    QPointer<QWidget> focusBeforeLock_;
};
