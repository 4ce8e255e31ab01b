#pragma once

#include <unistd.h>

namespace platform {

/// An open descriptor, closed when it goes out of scope.
class FileDescriptor {
 public:
    explicit FileDescriptor(int number) : number_(number) {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() {
        if (number_ >= 0) ::close(number_);
    }

    [[nodiscard]] int get() const { return number_; }
    explicit operator bool() const { return number_ >= 0; }

 private:
    int number_;
};

}  // namespace platform
