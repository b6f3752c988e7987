#include "app/signals.h"

#include "store/errors.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

int ends[2] = {-1, -1};

// Nothing else is safe in a handler.
void Note(int) {
    const int kept = errno;
    const char one = 1;
    [[maybe_unused]] const auto written = write(ends[1], &one, 1);
    errno = kept;
}

}  // namespace

void OnEndSignal(const std::function<void()>& stop) {
    if (pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
    auto* heard = new QSocketNotifier(ends[0], QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(heard, &QSocketNotifier::activated, heard, [heard, stop] {
        heard->setEnabled(false);
        RunEvent(stop);
    });
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        struct sigaction before {};
        // Who started the program may have asked that it outlives its terminal.
        if (sigaction(signal, nullptr, &before) == 0 && before.sa_handler == SIG_IGN) continue;
        struct sigaction action {};
        action.sa_handler = Note;
        action.sa_flags = SA_RESTART;
        sigaction(signal, &action, nullptr);
    }
}
