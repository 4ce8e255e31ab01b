#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>

#include "foundation/files/FileIo.h"

namespace orv {

/// Bytes that were read from a file.
class FileContent {
 public:
    explicit FileContent(std::size_t size)
        : bytes_(std::make_unique_for_overwrite<char[]>(size)), size_(size) {}
    [[nodiscard]] char* data() { return bytes_.get(); }
    [[nodiscard]] std::string_view view() const { return {bytes_.get(), size_}; }

 private:
    std::unique_ptr<char[]> bytes_;
    std::size_t size_;
};

/// A file that this process alone works on: the exclusive lock is held as long as the object lives.
class LockedFile {
 public:
    /// Makes a missing file and waits for the lock.
    explicit LockedFile(const std::string& path);

    /// Whether the file could be opened.
    explicit operator bool() const { return static_cast<bool>(fd_); }
    [[nodiscard]] int descriptor() const { return fd_.get(); }
    /// As of the opening or the last replacement.
    [[nodiscard]] const struct stat& status() const { return status_; }
    [[nodiscard]] bool isEmpty() const { return status_.st_size == 0; }

    /// None for a file larger than `limit` and when reading fails.
    [[nodiscard]] std::optional<FileContent> read(std::size_t limit) const;

    /// Reserves the space, writes from the first byte and cuts off what is longer. On failure
    /// errno says why; when there is no space the file is as it was.
    [[nodiscard]] bool replace(std::string_view content);

 private:
    [[nodiscard]] bool reserve(std::size_t size);
    [[nodiscard]] bool lengthen(std::size_t size);
    void shortenToOldSize();

    struct stat status_ = {};
    quelm::FileDescriptor fd_;
};

/// The text of errno.
[[nodiscard]] std::string LastError();

}  // namespace orv
