#pragma once
// frmBookNew: makes a book in the box, with balances of an older one if wanted, or changes a standing one.

#include "books/book_change.h"
#include "books/carry_forward.h"
#include "shell/controls/kestro_dialog.h"
#include "store/dialogs.h"

#include <QPoint>

class KestroButton;
class KestroCheck;
class KestroCombox;
class KestroEditBox;
class KestroIndicator;
class KestroLabel;
class KestroList;
class KestroText;
class QLayout;

/// Reads record 4 and leaves the done flag and the path there. Throws DbError when the book to change cannot
/// be read.
class frmBookNew : public KestroDialog {
 public:
    explicit frmBookNew(QWidget* parent = nullptr);
    ~frmBookNew() override;

 private:
    void Build();
    void BuildForm();
    void BuildMore();
    KestroList* NewList(const QString& name, const QString& words);
    void BuildFooter();
    QLayout* LeftRows();
    QLayout* RightRows();
    QLayout* Facts();
    void LayOut();
    void Connect();
    void ShowNew();
    void ShowBook();
    void ShowPath();
    void SetMore(bool on);
    void ClearReference();
    void FillBooks();
    void ChooseReference(const QString& name);
    BookForm Gather() const;
    void EnterClicked();
    void Zip();
    void BackUp();
    qint64 ShowBookSize();

    BookDialog record_;
    PopupScope popup_;
    bool isNew_;
    QString path_;
    QString reference_;  ///< the book whose rows the lists hold

    KestroText* txtName;
    KestroCombox* comYear;
    KestroText* txtPass[2];
    KestroEditBox* editNote;
    KestroEditBox* editPath;
    KestroLabel* lblDBVerInfo;
    KestroLabel* lblDate;
    KestroLabel* lblSize;
    KestroCheck* chkOther;
    QWidget* more_;  ///< what the window shows with more options, beside the check box
    KestroCombox* comBook;
    KestroCheck* chkTransfer;
    KestroCheck* chkSubAcc;
    KestroLabel* lblHelp_;
    KestroList* KestroList1;
    KestroList* KestroList2;
    KestroButton* btnBackUp;
    KestroButton* btnZip;
    KestroIndicator* running_;
    KestroButton* btnCancel;
    KestroButton* btnEnter;
};

/// For RegisterDialog(kDlgBook, …).
void OpenBookDialog(QPoint at);
