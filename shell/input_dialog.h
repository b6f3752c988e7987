#pragma once
// frmInput: the one-line question, a password, or the form of a kind or an account.

#include "shell/controls/kestro_dialog.h"
#include "store/dialogs.h"

#include <QPoint>

class KestroCheck;
class KestroEditBox;
class KestroText;
class QGridLayout;
class QLayout;

/// Reads and answers the fields of one record (InputDialog). Cancel and Escape leave all but `done` alone.
/// With a mode of 1 or more it is the form of a kind: label2 is the caption of the amount and label3 the hint
/// under it, 期初余额: and the advice on levels when they are empty; the check box is 隐藏 with its tip.
/// An amount that is no number or whose hundredths do not fit 32 bits is refused, and the dialog stays open.
class frmInput : public KestroDialog {
 public:
    explicit frmInput(DialogRecord& record, QWidget* parent = nullptr);
    ~frmInput() override;

 private:
    void Build();
    QLayout* BuildNote();
    QLayout* BuildRows();
    void AddRow(QGridLayout* rows, const QString& caption, QWidget* box);
    void BuildFooter();
    void Accept();

    InputDialog record_;
    bool hasMemo_;
    PopupScope popup_;
    KestroText* txtNote_ = nullptr;
    KestroText* txtMoney_ = nullptr;
    KestroEditBox* editNote_ = nullptr;
    KestroCheck* chkOther_ = nullptr;
};

/// Shows frmInput over the record that gPage names; OpenModal(kDlgInput) makes that record 7.
/// For RegisterDialog(kDlgInput, …).
void OpenInputDialog(QPoint at);
