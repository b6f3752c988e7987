#include "output/print_run.h"

#include "output/frm_print.h"
#include "output/print_layout.h"
#include "output/print_painter.h"
#include "output/print_target.h"
#include "store/dialogs.h"
#include "store/state.h"

#include <QScopeGuard>

namespace {

constexpr int kListKind = 14;

void FillRecord(const PrintJob& job) {
    ResetDlg(kDlgPrint);
    PrintDialog record;
    record.info = PrintInfoText(job.documents);
    record.preview = job.preview ? 1 : 0;
    record.start = 0;
    record.listKind = kListKind;
}

}  // namespace

void RunPrint(const PrintJob& job) {
    Job running;
    if (running.Refused()) return;
    FillRecord(job);
    int most = 0;
    const auto tell = [&](int value, int maximum, int state) {
        most = maximum;
        if (job.progress) job.progress(value, maximum, state);
    };
    tell(0, -1, -1);
    const auto end = [&] { tell(most, most, 3); };
    auto told = qScopeGuard(end);
    const auto document =
        PrintAll(State().gDB, job.documents, running, {.textWidth = PrintTextWidth, .progress = tell});
    State().gStop = false;  // a stop ended the layout; what has been laid out is shown or printed
    if (!job.preview) {
        DocPrint(document, running);
        return;
    }
    told.dismiss();
    end();
    const auto shown = qScopeGuard([] { NextPreview() = {}; });
    NextPreview() = {&document, &running};
    OpenModal(kDlgPrint);
}
