#include "store/disk.h"

#include <fcntl.h>
#include <unistd.h>

bool FlushToDisk(QFile& file) {
    return file.flush() && ::fdatasync(file.handle()) == 0;
}

bool FlushFolder(const QString& folder) {
    const int handle = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0) return false;
    const bool done = ::fsync(handle) == 0;
    ::close(handle);
    return done;
}
