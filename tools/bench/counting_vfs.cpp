#include "tools/bench/counting_vfs.h"

#include <map>
#include <sqlite3.h>

namespace {

int syncs = 0;
int (*realSync)(sqlite3_file*, int) = nullptr;
sqlite3_vfs* realVfs = nullptr;

int CountedSync(sqlite3_file* file, int flags) {
    ++syncs;
    return realSync(file, flags);
}

// Books and journals have different sets of methods, with one flush in common.
const sqlite3_io_methods* Counted(const sqlite3_io_methods* real) {
    static std::map<const sqlite3_io_methods*, sqlite3_io_methods> counted;
    const auto [at, fresh] = counted.try_emplace(real, *real);
    if (fresh) {
        realSync = real->xSync;
        at->second.xSync = CountedSync;
    }
    return &at->second;
}

// The second flush of a commit's folder: the first, of a new journal, is part of that journal's own flush.
int CountedDelete(sqlite3_vfs*, const char* name, int flushFolder) {
    syncs += flushFolder ? 1 : 0;
    return realVfs->xDelete(realVfs, name, flushFolder);
}

int CountedOpen(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
    const int code = realVfs->xOpen(realVfs, name, file, flags, outFlags);
    if (code == SQLITE_OK && file->pMethods) file->pMethods = Counted(file->pMethods);
    return code;
}

}  // namespace

const char* CountingVfs() {
    static sqlite3_vfs vfs;
    if (realVfs) return vfs.zName;
    realVfs = sqlite3_vfs_find(nullptr);
    vfs = *realVfs;
    vfs.zName = "counting";
    vfs.pNext = nullptr;
    vfs.xOpen = CountedOpen;
    vfs.xDelete = CountedDelete;
    sqlite3_vfs_register(&vfs, 0);
    return vfs.zName;
}

int Syncs() {
    return syncs;
}
