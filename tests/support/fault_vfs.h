#pragma once
// A disk that fails on demand: a SQLite VFS over the default one that counts and refuses file operations.

#include <QString>
#include <QStringList>

#include <functional>

struct DiskFaults {
    enum Operation { kWrite, kSync, kOpen, kDelete, kOperations };

    int count[kOperations] = {};
    Operation failing = kOperations;          ///< kOperations: nothing fails
    int failAt = 0;                           ///< number of the operation that fails, from 1
    bool stays = false;                       ///< all later operations of the kind fail too
    bool full = false;                        ///< a failing write says that the disk is full
    std::function<void()> beforeChange = {};  ///< before each write and each deletion

    /// Counts the operation; true when it has to fail.
    bool Hits(Operation operation);
};

/// The faults of the test disk; each test starts from DiskFaults{}.
DiskFaults& Disk();
/// Registers the test disk once; its name for cConnection::Seams().vfs.
QByteArray TestDisk();

/// All tables of a book file row by row, read through the ordinary disk. Recovers the file first.
QStringList DumpBook(const QString& path);
/// What SQLite's own check says of a book file: "ok" when it is whole.
QString CheckBook(const QString& path);

/// What is done again and again while something fails.
struct FaultStory {
    std::function<void()> prepare;
    std::function<void()> action;
    std::function<void(bool done)> check;  ///< nothing fails any more
};
/// Plays a story with the first, the second and each further operation of a kind failing on the test disk,
/// until the action comes through or a check fails. Answers how many runs failed.
int FailEach(DiskFaults faults, const FaultStory& story);
/// The same with a statement failing. prepare starts on an ordinary disk.
int FailEachStatement(const FaultStory& story);
/// Closes the open book and opens it again on the test disk.
void MoveToTestDisk();
