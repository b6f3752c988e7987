#pragma once
// A VFS for SQLite that counts how often it asks for a file, or a folder after a deletion, to be flushed.

/// Name under which it is known; registered on the first call.
const char* CountingVfs();
/// Flushes since the start of the process.
int Syncs();
