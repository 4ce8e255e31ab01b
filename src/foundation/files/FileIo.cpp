#include "foundation/files/FileIo.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace quelm {

namespace {

bool lockExclusively(int fd) {
    int result = 0;
    do {
        result = flock(fd, LOCK_EX);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

bool readStatus(int fd, struct stat& status) {
    if (fstat(fd, &status) != 0) return false;
    if (S_ISREG(status.st_mode)) return true;
    errno = EINVAL;
    return false;
}

}  // namespace

int OpenExclusive(const std::string& path, struct stat& status) {
    // non-blocking matters only to a pipe or device that stands in the file's place
    FileDescriptor fd(
        open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0600));
    if (!fd || !lockExclusively(fd.get()) || !readStatus(fd.get(), status)) {
        const int error = errno;
        fd.reset();
        errno = error;
        return -1;
    }
    return fd.release();
}

int OpenExclusive(const std::string& path) {
    struct stat status = {};
    return OpenExclusive(path, status);
}

std::size_t ReadExact(int fd, void* buffer, std::size_t length) {
    std::size_t done = 0;
    while (done < length) {
        const ssize_t count = read(fd, static_cast<char*>(buffer) + done, length - done);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

std::size_t WriteExact(int fd, const void* buffer, std::size_t length) {
    std::size_t done = 0;
    while (done < length) {
        const ssize_t count = write(fd, static_cast<const char*>(buffer) + done, length - done);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

}  // namespace quelm
