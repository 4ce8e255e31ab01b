#include "Loop.h"

#include <cstddef>
#include <dirent.h>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::size_t bufferSize = std::size_t{64} << 10U;

class Loop {
 public:
    void folder(int parent, const char* name) {
        const int fd = openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        if (fd < 0) return;
        std::vector<std::string> subfolders;
        for (ssize_t size = 0; (size = getdents64(fd, buffer_.data(), bufferSize)) > 0;)
            entries(fd, static_cast<std::size_t>(size), subfolders);
        for (const std::string& subfolder : subfolders)
            folder(fd, subfolder.c_str());
        ::close(fd);
    }

    [[nodiscard]] std::uint64_t bytes() const { return bytes_; }

 private:
    void entries(int fd, std::size_t size, std::vector<std::string>& subfolders) {
        for (std::size_t at = 0; at < size;) {
            const auto* entry = reinterpret_cast<const dirent64*>(buffer_.data() + at);
            at += entry->d_reclen;
            const std::string_view name = entry->d_name;
            if (entry->d_type == DT_REG) {
                file(fd, entry->d_name);
            } else if (entry->d_type == DT_DIR && name != "." && name != "..") {
                subfolders.emplace_back(name);
            }
        }
    }

    void file(int fd, const char* name) {
        struct statx info = {};
        constexpr int flags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT | AT_STATX_DONT_SYNC;
        if (statx(fd, name, flags, STATX_SIZE | STATX_TYPE, &info) == 0) bytes_ += info.stx_size;
    }

    std::vector<std::byte> buffer_{bufferSize};
    std::uint64_t bytes_ = 0;
};

}  // namespace

std::uint64_t BytesByLoop(const std::string& path) {
    Loop loop;
    loop.folder(AT_FDCWD, path.c_str());
    return loop.bytes();
}
