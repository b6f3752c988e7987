#pragma once
// frmInput: the one-line question, a password, or the form of a kind or an account.

#include <QPoint>

#include "shell/controls/kestro_dialog.h"
#include "store/dialogs.h"

class KestroButton;
class KestroCheck;
class KestroEditBox;
class KestroText;

/// Reads and answers the fields of one record (InputDialog). Cancel and Escape leave all but `done` alone.
class frmInput : public KestroDialog {
 public:
    explicit frmInput(DialogRecord& record, QWidget* parent = nullptr);
    ~frmInput() override;

    /// The text menu's keys textcut, textcopy, textpaste and textselect, for the box that raised it.
    void DoMenu(const QString& menu, const QString& key);

 private:
    void Build();
    void Accept();

    InputDialog record_;
    PopupScope popup_;
    KestroText* txtNote_ = nullptr;
    KestroText* txtMoney_ = nullptr;
    KestroEditBox* editNote_ = nullptr;
    KestroCheck* chkOther_ = nullptr;
    QWidget* menuOwner_ = nullptr;
};

/// Shows frmInput over record 7, or the record that gPage names. For RegisterDialog(kDlgInput, …).
void OpenInputDialog(QPoint at);
