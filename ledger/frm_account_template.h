#pragma once
// frmAccountTemplate: chooses a remembered matter text, or forgets some.

#include "shell/controls/kestro_dialog.h"
#include "store/dialogs.h"

#include <QPoint>
#include <QTimer>

class KestroButton;
class KestroList;
class PngButton;

/// Answers in record 3.
class frmAccountTemplate : public KestroDialog {
 public:
    explicit frmAccountTemplate(QWidget* parent = nullptr);

 private:
    void Build();
    void LayOut();
    void Arrange();
    void LoadTemplates();
    void Take();
    void DeleteChecked();
    void Renumber();

    TemplateDialog record_;
    PopupScope popup_;
    QTimer Timer1;
    bool rowOpen_ = false;  ///< the lower row of buttons shows
    KestroList* KestroList1;
    KestroButton* btnEnter;
    KestroButton* btnCancel;
    KestroButton* btnDel;
    PngButton* pngArrow;
};

/// For RegisterDialog(kDlgTemplate, …).
void OpenTemplateDialog(QPoint at);
