#pragma once

#include <cstddef>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace quelm {

/// An open descriptor, closed when it goes out of scope.
class FileDescriptor {
 public:
    FileDescriptor() = default;
    explicit FileDescriptor(int fd) : fd_(fd) {}
    FileDescriptor(FileDescriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        if (this != &other) reset(std::exchange(other.fd_, -1));
        return *this;
    }
    ~FileDescriptor() { reset(); }

    [[nodiscard]] int get() const { return fd_; }
    explicit operator bool() const { return fd_ >= 0; }
    [[nodiscard]] int release() { return std::exchange(fd_, -1); }
    void reset(int fd = -1) {
        if (fd_ >= 0) ::close(fd_);
        fd_ = fd;
    }

 private:
    int fd_ = -1;
};

/// Opens for reading and writing, mode 0600 when it has to be made, and waits for the exclusive
/// advisory lock, which the descriptor holds until it is closed. -1 with errno on failure; what is
/// no regular file fails with EINVAL. Links are followed.
[[nodiscard]] int OpenExclusive(const std::string& path);
/// The same, with the file's status as it is under the lock.
[[nodiscard]] int OpenExclusive(const std::string& path, struct stat& status);

/// Reads until `length` bytes have arrived, the file ends or an error other than EINTR occurs;
/// the number of bytes read.
[[nodiscard]] std::size_t ReadExact(int fd, void* buffer, std::size_t length);

/// Writes until all is written or an error other than EINTR occurs; the number of bytes written.
[[nodiscard]] std::size_t WriteExact(int fd, const void* buffer, std::size_t length);

}  // namespace quelm
