#pragma once
// One running copy per user and settings file. Its lock stands beside its channel.

#include <QLockFile>

#include <memory>

/// Holds the lock of the running copy from the first step on.
class InstanceLock {
 public:
    enum class State {
        taken,
        held,   ///< by another copy, which answers
        failed  ///< nobody answers, and it cannot be taken all the same
    };
    /// Takes over what a dead process has left. A disk that takes no file bars nobody: the channel alone
    /// keeps a second copy away then.
    State Take();

 private:
    std::unique_ptr<QLockFile> file_;
};
