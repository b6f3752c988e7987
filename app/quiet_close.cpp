#include "app/quiet_close.h"

#include "shell/controls/kestro_dialog.h"
#include "shell/file_dialog.h"
#include "store/errors.h"
#include "store/job.h"
#include "store/messages.h"
#include "store/state.h"

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTimer>

namespace {

constexpr int kStepMs = 20;

void Cancel(QWidget* modal, bool again) {
    auto* dialog = qobject_cast<QDialog*>(modal);
    auto* own = dynamic_cast<KestroDialog*>(modal);
    if (own && own->onEscape && !again)
        RunEvent(own->onEscape);
    else if (dialog)
        dialog->reject();
    else
        modal->close();
}

/// Each step lets one more window return to its caller, which may still do something before the next.
class QuietClose : public QTimer {
 public:
    explicit QuietClose(std::function<void()> end)
        : QTimer(QCoreApplication::instance()), end_(std::move(end)) {
        callOnTimeout([this] { RunEvent([this] { Step(); }); });
        start(kStepMs);
    }

 private:
    void Step() {
        MessageSlot() = [](const MessageRequest&) { return 0; };
        FileDialogSlot() = [](const FileRequest&) { return QString(); };
        if (State().gBusy) return Job::Stop();
        if (auto* popup = QApplication::activePopupWidget()) {
            popup->close();
            return;
        }
        if (auto* modal = QApplication::activeModalWidget()) {
            Cancel(modal, modal == last_);
            last_ = modal;
            return;
        }
        stop();
        end_();
    }

    std::function<void()> end_;
    QPointer<QWidget> last_;
};

}  // namespace

void CloseQuietly(const std::function<void()>& end) {
    new QuietClose(end);
}
