#include "foundation/files/EntryReader.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <utility>

namespace quelm::os {

namespace {

constexpr std::size_t bufferSize = std::size_t{64} << 10U;
constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

EntryKind kindOf(unsigned mode) {
    switch (mode & S_IFMT) {
        case S_IFREG:
            return EntryKind::File;
        case S_IFDIR:
            return EntryKind::Folder;
        case S_IFLNK:
            return EntryKind::Link;
        default:
            return EntryKind::Other;
    }
}

std::optional<EntryReader::Status> statusOf(int folder, const char* name, int flags) {
    struct statx info = {};
    if (statx(folder, name, flags | AT_STATX_DONT_SYNC, STATX_TYPE | STATX_SIZE, &info) != 0) {
        return std::nullopt;
    }
    return EntryReader::Status{kindOf(info.stx_mode), info.stx_size,
                               makedev(info.stx_dev_major, info.stx_dev_minor)};
}

bool isDots(std::string_view name) {
    return name == "." || name == "..";
}

}  // namespace

EntryReader::EntryReader() : buffer_(new std::byte[bufferSize]) {}

bool EntryReader::start(int fd) {
    folder_.reset(fd);
    at_ = end_ = 0;
    return fd >= 0;
}

bool EntryReader::open(const char* path) {
    return start(::open(path, folderFlags));
}

bool EntryReader::openChild(int folder, const char* name) {
    return start(openat(folder, name, folderFlags | O_NOFOLLOW));
}

bool EntryReader::fill() {
    ssize_t length = 0;
    do {
        length = getdents64(folder_.get(), buffer_.get(), bufferSize);
    } while (length < 0 && errno == EINTR);
    at_ = 0;
    end_ = length > 0 ? static_cast<std::size_t>(length) : 0;
    return end_ > 0;
}

std::optional<EntryReader::Entry> EntryReader::next() {
    while (at_ < end_ || fill()) {
        const auto* const entry = reinterpret_cast<const dirent64*>(buffer_.get() + at_);
        at_ += entry->d_reclen;
        const std::string_view name = entry->d_name;
        if (isDots(name)) continue;
        if (entry->d_type != DT_UNKNOWN)
            return Entry{name, kindOf(static_cast<unsigned>(DTTOIF(entry->d_type)))};
        const auto known = status(entry->d_name);
        return Entry{name, known ? known->kind : EntryKind::Other};
    }
    return std::nullopt;
}

std::optional<EntryReader::Status> EntryReader::status(const char* name) const {
    return statusOf(folder_.get(), name, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT);
}

std::optional<EntryReader::Status> EntryReader::status() const {
    return statusOf(folder_.get(), "", AT_EMPTY_PATH);
}

platform::FileDescriptor EntryReader::release() {
    at_ = end_ = 0;
    return std::exchange(folder_, {});
}

}  // namespace quelm::os
