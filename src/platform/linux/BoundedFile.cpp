#include "platform/linux/BoundedFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>

#include "platform/FileDescriptor.h"

namespace platform {

std::optional<std::string> ReadFileStart(const std::string& path, std::size_t limit) {
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file) return std::nullopt;
    std::string content;
    std::array<char, 4096> block;
    while (content.size() < limit) {
        const ssize_t count =
            ::read(file.get(), block.data(), std::min(block.size(), limit - content.size()));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return std::nullopt;
        if (count == 0) break;
        content.append(block.data(), static_cast<std::size_t>(count));
    }
    return content;
}

}  // namespace platform
