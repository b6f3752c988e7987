#pragma once
// frmPrint: the preview of a print job, which can be printed from there, whole or page by page.

#include "output/print_document.h"
#include "shell/controls/kestro_dialog.h"
#include "store/job.h"
#include "store/state.h"

#include <QPoint>

#include <optional>

class KestroButton;
class KestroCombox;
class KestroIndicator;
class KestroLabel;
class PrintCanvas;

/// Lives as long as the running job, whose pages it shows.
class frmPrint : public KestroDialog {
 public:
    frmPrint(const PrintDocument& document, Job& job, QWidget* parent = nullptr);
    ~frmPrint() override;

    /// The menu "percent" sets the zoom: "70%".
    void DoMenu(const QString& menu, const QString& item);

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    void Build();
    void LayOut();
    void FillPages();
    void ShowPage(int page);
    void SetZoom(int percent);
    void StepZoom(int step);
    void Print(std::optional<size_t> page);
    bool TakeKey(const QKeyEvent& event);
    void TryLeave();

    const PrintDocument& document_;
    Job& job_;
    PopupScope popup_;
    int percent_ = 0;
    bool printing_ = false;
    PrintCanvas* canvas_;
    KestroButton* btnPrint;
    KestroButton* btnCurr;
    KestroCombox* comPage;
    KestroButton* btnZoom;
    KestroLabel* lblPercent;
    KestroIndicator* Indicator1;
    KestroButton* btnExit;
};

/// What the next preview shows; put there by the running job.
struct PreviewRequest {
    const PrintDocument* document = nullptr;
    Job* job = nullptr;
};
PreviewRequest& NextPreview();

/// For RegisterDialog(kDlgPrint, …).
void OpenPrintPreview(QPoint at);
