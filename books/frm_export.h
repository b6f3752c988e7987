#pragma once
// frmExport: the backup in three steps: the place, the copies, where they are.

#include "shell/controls/kestro_dialog.h"
#include "store/dialogs.h"
#include "store/outside.h"

#include <QPoint>

#include <vector>

class KestroButton;
class KestroEditBox;
class KestroLabel;
class KestroListView;
class PageJobBar;
class PngButton;

/// Takes the path of one book from record 5; without it all books of the box are copied.
class frmExport : public KestroDialog {
 public:
    explicit frmExport(QWidget* parent = nullptr);
    ~frmExport() override;

 private:
    void Build();
    void LayOut();
    void LoadPlaces();
    void ShowStep(int step);
    void Next();
    void Back();
    void BackUp();

    PopupScope popup_;
    const QString path_;
    int step_ = 0;
    QString folder_;  ///< the one being made
    std::vector<BrowsePlace> places_;

    KestroLabel* lblTitle;
    KestroListView* KestroListView1;
    PageJobBar* KestroPGress1;
    KestroLabel* lblFolder_;
    PngButton* pngbtnPath;
    KestroEditBox* editNote;
    KestroButton* btnFresh;
    KestroButton* btnBack;
    KestroButton* btnNext;
};

/// For RegisterDialog(kDlgBackup, …).
void OpenBackupDialog(QPoint at);
