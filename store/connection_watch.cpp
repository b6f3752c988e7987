// Questions from within a long statement, whether to go on.

#include "store/connection.h"
#include "store/connection_core.h"

#include <utility>

namespace {

constexpr int kInstructionsPerQuestion = 20000;
constexpr int kReadsPerQuestion = 1000;

// What flies by must not pass through the C library.
int AskGoOn(void* data) noexcept {
    auto& core = *static_cast<ConnectionCore*>(data);
    core.asking = true;
    try {
        core.ended = core.ended || !core.goOn();
    } catch (...) {
        core.thrown = std::current_exception();
    }
    core.asking = false;
    return core.ended || core.thrown ? 1 : 0;
}

// The check of a file is one instruction however long it takes, so the reads of its pages ask too.
struct WatchedReads {
    sqlite3_file* file = nullptr;
    const sqlite3_io_methods* real = nullptr;
    sqlite3_io_methods asking{};
    ConnectionCore* core = nullptr;
    int left = 0;
};

WatchedReads& Watched() {
    static WatchedReads watched;
    return watched;
}

int ReadAndAsk(sqlite3_file* file, void* to, int bytes, sqlite3_int64 at) {
    auto& watched = Watched();
    if (!watched.real || !watched.core) return SQLITE_IOERR_READ;
    if (--watched.left <= 0 && !watched.core->asking) {
        watched.left = kReadsPerQuestion;
        if (AskGoOn(watched.core) != 0) sqlite3_interrupt(watched.core->db);
    }
    return watched.real->xRead(file, to, bytes, at);
}

void WatchReads(ConnectionCore& core) {
    auto& watched = Watched();
    sqlite3_file* file = nullptr;
    if (watched.file || sqlite3_file_control(core.db, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK)
        return;
    watched = {file, file->pMethods, *file->pMethods, &core, kReadsPerQuestion};
    watched.asking.xRead = ReadAndAsk;
    file->pMethods = &watched.asking;
}

void LeaveReads(const ConnectionCore& core) {
    auto& watched = Watched();
    if (watched.core != &core) return;
    watched.file->pMethods = watched.real;
    watched = {};
}

}  // namespace

StatementWatch::StatementWatch(cConnection& connection, std::function<bool()> goOn)
    : core_(connection.Core()), outer_(std::exchange(core_.goOn, std::move(goOn))) {
    core_.ended = false;
    sqlite3_progress_handler(core_.db, kInstructionsPerQuestion, AskGoOn, &core_);
    WatchReads(core_);
}

StatementWatch::~StatementWatch() {
    core_.goOn = std::move(outer_);
    core_.ended = false;
    if (core_.goOn) return;
    LeaveReads(core_);
    sqlite3_progress_handler(core_.db, 0, nullptr, nullptr);
}
