#pragma once
// A VFS for SQLite that counts how often a file is flushed to the disk.

/// Name under which it is known; registered on the first call.
const char* CountingVfs();
/// Flushes since the start of the process.
int Syncs();
