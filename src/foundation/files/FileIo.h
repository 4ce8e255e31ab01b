#pragma once

#include <cstddef>
#include <string>
#include <sys/stat.h>

#include "platform/FileDescriptor.h"

namespace quelm {

using platform::FileDescriptor;

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
