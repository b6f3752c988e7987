#pragma once
// frmWake: the small window that lists what is due. It shows the rows of the moment it opened.

#include "notes/note_list.h"
#include "shell/controls/kestro_dialog.h"
#include "store/notices.h"
#include "store/state.h"

class KestroButton;
class KestroLabel;
class KestroList;

class frmWake : public KestroDialog {
 public:
    explicit frmWake(QWidget* parent = nullptr);
    ~frmWake() override;

    void done(int result) override;

 protected:
    bool eventFilter(QObject* object, QEvent* event) override;

 private:
    void Build();
    void SetLocked(bool locked);
    void Fill();
    NoteKey KeyOf(int row) const;
    void ShowNoteTip(QPoint at, QPoint globalPos);
    void OpenNote(int row);
    void GoToNote();

    PopupScope popup_;
    KestroLabel* lblTip;
    KestroList* KestroList1;
    KestroButton* btnResetHeadIco;
    KestroButton* btnClose;
    KestroButton* btnWake;
    NoticeToken webBusy_;
};

/// Shows the window, or raises the one that is open.
void OpenReminders();
void CloseReminders();
