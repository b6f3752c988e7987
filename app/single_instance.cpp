#include "app/single_instance.h"

#include "app/channel.h"

#include <cerrno>
#include <csignal>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatienceMs = 1500;  // for a copy that is just starting or ending

bool OwnerLives(const QLockFile& file) {
    qint64 pid = 0;
    QString host;
    QString name;
    if (!file.getLockInfo(&pid, &host, &name) || pid <= 0) return false;
    return ::kill(static_cast<pid_t>(pid), 0) == 0 || errno == EPERM;
}

}  // namespace

InstanceLock::State InstanceLock::Take() {
    const QString path = ChannelName(u"lock"_s);
    const QString channel = ChannelName(u"main"_s);
    if (path.isEmpty()) return State::failed;
    file_ = std::make_unique<QLockFile>(path);
    file_->setStaleLockTime(0);
    if (file_->tryLock(0)) return State::taken;
    if (ChannelAnswers(channel)) return State::held;
    if (file_->error() == QLockFile::UnknownError) return State::taken;
    if (file_->error() != QLockFile::LockFailedError) return State::failed;
    if (!OwnerLives(*file_)) file_->removeStaleLockFile();
    if (file_->tryLock(kPatienceMs)) return State::taken;
    return ChannelAnswers(channel) ? State::held : State::failed;
}
