#include "config/LockedFile.h"

#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace orv {

LockedFile::LockedFile(const std::string& path) : fd_(quelm::OpenExclusive(path, status_)) {}

std::optional<FileContent> LockedFile::read(std::size_t limit) const {
    const auto size = static_cast<std::size_t>(status_.st_size);
    if (size > limit) return std::nullopt;
    FileContent content(size);
    if (quelm::ReadExact(fd_.get(), content.data(), size) != size) return std::nullopt;
    return content;
}

bool LockedFile::replace(std::string_view content) {
    if (!reserve(content.size()) || lseek(fd_.get(), 0, SEEK_SET) < 0) return false;
    if (quelm::WriteExact(fd_.get(), content.data(), content.size()) != content.size()) {
        return false;
    }
    return ftruncate(fd_.get(), static_cast<off_t>(content.size())) == 0 &&
           fstat(fd_.get(), &status_) == 0;
}

bool LockedFile::reserve(std::size_t size) {
    if (size == 0) return true;
    const auto length = static_cast<off_t>(size);
    if (fallocate(fd_.get(), FALLOC_FL_KEEP_SIZE, 0, length) == 0) return true;
    if (errno == EOPNOTSUPP || errno == ENOSYS) {
        return length <= status_.st_size || lengthen(size);
    }
    shortenToOldSize();
    return false;
}

/// For file systems that cannot reserve: writes zeros behind the old end.
bool LockedFile::lengthen(std::size_t size) {
    const std::string zeros(size - static_cast<std::size_t>(status_.st_size), '\0');
    if (lseek(fd_.get(), status_.st_size, SEEK_SET) < 0) return false;
    if (quelm::WriteExact(fd_.get(), zeros.data(), zeros.size()) == zeros.size()) return true;
    shortenToOldSize();
    return false;
}

/// Gives back what was taken before the space ran out; errno stays.
void LockedFile::shortenToOldSize() {
    const int error = errno;
    static_cast<void>(ftruncate(fd_.get(), status_.st_size));
    errno = error;
}

std::string LastError() {
    return std::generic_category().message(errno);
}

}  // namespace orv
