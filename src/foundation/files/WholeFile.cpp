#include "foundation/files/WholeFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include "foundation/files/FileIo.h"

namespace quelm {

namespace {

bool take(FileLock lock, int fd) {
    while (lock == FileLock::Shared && flock(fd, LOCK_SH) != 0) {
        if (errno != EINTR) return false;
    }
    return true;
}

/// 0 or the errno that stands for what is wrong with the file.
int faultOf(const struct stat& status, std::size_t limit) {
    if (S_ISDIR(status.st_mode)) return EISDIR;
    if (!S_ISREG(status.st_mode)) return EINVAL;
    return static_cast<std::size_t>(status.st_size) > limit ? EFBIG : 0;
}

}  // namespace

std::optional<std::string> ReadWholeFile(const std::string& path, std::size_t limit,
                                         FileLock lock) {
    // non-blocking matters only to a pipe or device that stands in the file's place
    const FileDescriptor fd(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status = {};
    if (!fd || !take(lock, fd.get()) || fstat(fd.get(), &status) != 0) return std::nullopt;
    if (const int fault = faultOf(status, limit)) {
        errno = fault;
        return std::nullopt;
    }
    std::string bytes(static_cast<std::size_t>(status.st_size), '\0');
    if (ReadExact(fd.get(), bytes.data(), bytes.size()) == bytes.size()) return bytes;
    errno = EIO;  // unreadable, or cut meanwhile by somebody without the lock
    return std::nullopt;
}

}  // namespace quelm
