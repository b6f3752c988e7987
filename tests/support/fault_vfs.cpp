#include "tests/support/fault_vfs.h"

#include "store/connection.h"
#include "store/errors.h"
#include "tests/support/fixture.h"

#include <sqlite3.h>
#include <string>

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostRepeats = 2000;

struct TestFile {
    sqlite3_file base;
    sqlite3_file* real;
};

sqlite3_vfs* RealDisk() {
    static auto* real = sqlite3_vfs_find(nullptr);
    return real;
}

sqlite3_file* Real(sqlite3_file* file) {
    return reinterpret_cast<TestFile*>(file)->real;
}

int Close(sqlite3_file* f) {
    return Real(f)->pMethods->xClose(Real(f));
}
int Read(sqlite3_file* f, void* to, int n, sqlite3_int64 at) {
    return Real(f)->pMethods->xRead(Real(f), to, n, at);
}
int Truncate(sqlite3_file* f, sqlite3_int64 size) {
    return Real(f)->pMethods->xTruncate(Real(f), size);
}
int Size(sqlite3_file* f, sqlite3_int64* size) {
    return Real(f)->pMethods->xFileSize(Real(f), size);
}
int Lock(sqlite3_file* f, int level) {
    return Real(f)->pMethods->xLock(Real(f), level);
}
int Unlock(sqlite3_file* f, int level) {
    return Real(f)->pMethods->xUnlock(Real(f), level);
}
int CheckLock(sqlite3_file* f, int* held) {
    return Real(f)->pMethods->xCheckReservedLock(Real(f), held);
}
int Control(sqlite3_file* f, int op, void* arg) {
    return Real(f)->pMethods->xFileControl(Real(f), op, arg);
}
int SectorSize(sqlite3_file* f) {
    return Real(f)->pMethods->xSectorSize(Real(f));
}
int Traits(sqlite3_file* f) {
    return Real(f)->pMethods->xDeviceCharacteristics(Real(f));
}

int Write(sqlite3_file* f, const void* from, int n, sqlite3_int64 at) {
    if (Disk().beforeChange) Disk().beforeChange();
    if (Disk().Hits(DiskFaults::kWrite)) return Disk().full ? SQLITE_FULL : SQLITE_IOERR_WRITE;
    return Real(f)->pMethods->xWrite(Real(f), from, n, at);
}

// Counted only: no test pulls the plug of the machine, and true syncs take most of the time.
int Sync(sqlite3_file*, int) {
    return Disk().Hits(DiskFaults::kSync) ? SQLITE_IOERR_FSYNC : SQLITE_OK;
}

const sqlite3_io_methods* Methods() {
    static const sqlite3_io_methods methods = [] {
        sqlite3_io_methods m{};
        m.iVersion = 1;
        m.xClose = Close;
        m.xRead = Read;
        m.xWrite = Write;
        m.xTruncate = Truncate;
        m.xSync = Sync;
        m.xFileSize = Size;
        m.xLock = Lock;
        m.xUnlock = Unlock;
        m.xCheckReservedLock = CheckLock;
        m.xFileControl = Control;
        m.xSectorSize = SectorSize;
        m.xDeviceCharacteristics = Traits;
        return m;
    }();
    return &methods;
}

int Open(sqlite3_vfs*, sqlite3_filename name, sqlite3_file* f, int flags, int* outFlags) {
    auto* file = reinterpret_cast<TestFile*>(f);
    file->base.pMethods = nullptr;
    if (Disk().Hits(DiskFaults::kOpen)) return SQLITE_CANTOPEN;
    file->real = reinterpret_cast<sqlite3_file*>(file + 1);
    const int code = RealDisk()->xOpen(RealDisk(), name, file->real, flags, outFlags);
    if (file->real->pMethods) file->base.pMethods = Methods();
    return code;
}

int Delete(sqlite3_vfs*, const char* name, int syncFolder) {
    if (Disk().beforeChange) Disk().beforeChange();
    if (Disk().Hits(DiskFaults::kDelete)) return SQLITE_IOERR_DELETE;
    if (syncFolder) ++Disk().count[DiskFaults::kSync];
    return RealDisk()->xDelete(RealDisk(), name, 0);
}

// Fails are set by arm after prepare, and taken away before check.
int PlayEach(const FaultStory& story, const std::function<void(int n)>& arm) {
    for (int n = 1; n <= kMostRepeats; ++n) {
        SCOPED_TRACE("failing " + std::to_string(n));
        cConnection::Seams() = {};
        story.prepare();
        arm(n);
        PendingError error;
        const bool done = Succeeds(story.action, &error);
        Disk() = {};
        cConnection::Seams() = {};
        if (!done) EXPECT_NE(error.number, 0);
        if (State().gDB.IsOpen()) EXPECT_FALSE(State().gDB.InTransaction());
        story.check(done);
        if (done || testing::Test::HasFailure()) return n - 1;
    }
    ADD_FAILURE() << "the story never comes to its end";
    return kMostRepeats;
}

}  // namespace

bool DiskFaults::Hits(Operation operation) {
    const int number = ++count[operation];
    return operation == failing && (stays ? number >= failAt : number == failAt);
}

DiskFaults& Disk() {
    static DiskFaults faults;
    return faults;
}

QByteArray TestDisk() {
    static sqlite3_vfs disk = [] {
        sqlite3_vfs vfs = *RealDisk();
        vfs.szOsFile += static_cast<int>(sizeof(TestFile));
        vfs.zName = "test-disk";
        vfs.xOpen = Open;
        vfs.xDelete = Delete;
        return vfs;
    }();
    sqlite3_vfs_register(&disk, 0);
    return disk.zName;
}

QStringList DumpBook(const QString& path) {
    cConnection::Seams() = {};
    cConnection book;
    book.Open(path);
    QStringList dump;
    for (const auto& table :
         Rows(book, u"select name from sqlite_master where type='table' order by name"_s)) {
        dump << table;
        dump << Rows(book, u"select rowid,* from "_s + table + u" order by rowid"_s);
    }
    return dump;
}

QString CheckBook(const QString& path) {
    cConnection::Seams() = {};
    cConnection book;
    book.Open(path);
    return Rows(book, u"pragma integrity_check"_s).join(u'\n');
}

int FailEach(DiskFaults faults, const FaultStory& story) {
    return PlayEach(story, [&faults](int n) {
        cConnection::Seams().vfs = TestDisk();
        faults.failAt = n;
        Disk() = faults;
    });
}

int FailEachStatement(const FaultStory& story) {
    return PlayEach(story, [](int n) {
        cConnection::Seams().beforeStatement = [n, seen = 0](const QString& sql) mutable {
            if (++seen == n) FailStatement(u"刺探"_s, sql);
        };
    });
}

void MoveToTestDisk() {
    const QString path = State().gDB.Path();
    State().gDB.Close();
    cConnection::Seams().vfs = TestDisk();
    Disk() = {};
    State().gDB.Open(path);
}
