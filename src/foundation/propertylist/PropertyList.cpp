#include "foundation/propertylist/PropertyList.h"

#include <cerrno>
#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>

#include "foundation/files/FileIo.h"
#include "foundation/propertylist/PropertyListReaders.h"

namespace quelm {

PropertyListResult ReadPropertyList(std::string_view bytes, const PropertyListLimits& limits) {
    if (bytes.empty()) return {std::nullopt, "it is empty"};
    if (bytes.size() > limits.bytes) return {std::nullopt, "it is too large"};
    if (bytes.starts_with(binaryPropertyListMagic)) return ReadBinaryPropertyList(bytes, limits);
    return ReadXmlPropertyList(bytes, limits);
}

PropertyListResult ReadPropertyListFile(const std::string& path, FileLock lock) {
    const auto failure = [] {
        return PropertyListResult{std::nullopt, std::generic_category().message(errno)};
    };
    const FileDescriptor fd(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat info = {};
    if (!fd || fstat(fd.get(), &info) != 0) return failure();
    if (!S_ISREG(info.st_mode)) return {std::nullopt, "it is not a file"};
    while (lock == FileLock::Shared && flock(fd.get(), LOCK_SH) != 0) {
        if (errno != EINTR) return failure();
    }
    if (fstat(fd.get(), &info) != 0) return failure();
    const auto size = static_cast<std::size_t>(info.st_size);
    if (size > PropertyListLimits{}.bytes) return {std::nullopt, "it is too large"};
    std::string bytes(size, '\0');
    bytes.resize(ReadExact(fd.get(), bytes.data(), bytes.size()));
    return ReadPropertyList(bytes);
}

}  // namespace quelm
