#pragma once
// frmNoteNew: the window in which a note is typed, and a message of the service read.

#include "notes/note_edit.h"
#include "shell/controls/kestro_dialog.h"
#include "store/dialogs.h"

#include <QPoint>

class KestroButton;
class KestroCalendar;
class KestroCheck;
class KestroEditBox;
class KestroLabel;
class KestroOption;
class KestroText;
class QGridLayout;
class QLayout;

/// Reads record 10 and leaves the done flag and the id there.
class frmNoteNew : public KestroDialog {
 public:
    explicit frmNoteNew(QWidget* parent = nullptr);
    ~frmNoteNew() override;

    /// False when the row has gone; that has been told.
    bool IsReady() const { return ready_; }

    void setVisible(bool visible) override;

 protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

 private:
    void BuildBody();
    QLayout* BuildType();
    QLayout* BuildUntil();
    void BuildFooter();
    void Connect();
    void ShowNote(const OpenedNote& note);
    void ShowPictures(const QString& count);
    void ShowType();
    NoteValues Gather() const;
    void EnterClicked();
    void OpenCalendar();
    void OpenPictures();
    void Print();

    NoteDialog record_;
    PopupScope popup_;
    qint64 id_ = -1;
    bool canSave_ = true;
    bool ready_ = true;
    QString pictures_ = QStringLiteral("0");  ///< Tag of btnCamera

    KestroText* txtTitle;
    KestroOption* optNote;
    KestroOption* optWake;
    KestroLabel* lblTip;
    KestroText* txtDate;
    KestroCheck* chkFinish;
    KestroEditBox* editNote;
    KestroCheck* chkFlag;
    KestroButton* btnCamera;
    KestroButton* btnPrint;
    KestroButton* btnCancel;
    KestroButton* btnEnter;
    KestroCalendar* KestroCalendar1;
};

/// For RegisterDialog(kDlgNote, …).
void OpenNoteDialog(QPoint at);
