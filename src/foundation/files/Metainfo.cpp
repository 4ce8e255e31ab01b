#include "foundation/files/Metainfo.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <sys/xattr.h>

namespace quelm::os {

namespace {

// attributes that programs define live in the "user." namespace, see xattr(7)
constexpr const char* finderInfo =
    "user."
    "com.apple.FinderInfo";
using Buffer = std::array<char, 64>;
constexpr std::size_t metainfoSize = 16;

}  // namespace

EStatusCode LoadMetainfo(const std::string& path, std::string& metainfo) {
    metainfo.clear();
    Buffer buffer;
    const ssize_t length = getxattr(path.c_str(), finderInfo, buffer.data(), buffer.size());
    if (length < 0) return StatusCodeForErrno(errno);
    metainfo.assign(buffer.data(), std::min(static_cast<std::size_t>(length), metainfoSize));
    return EStatusCode::SUCCESS;
}

EStatusCode CopyMetainfo(const std::string& from, const std::string& to) {
    Buffer buffer;
    const ssize_t length = getxattr(from.c_str(), finderInfo, buffer.data(), buffer.size());
    if (length >= 0) {
        return StatusOfCall(
            setxattr(to.c_str(), finderInfo, buffer.data(), static_cast<std::size_t>(length), 0));
    }
    if (errno != ENODATA) return StatusCodeForErrno(errno);
    return StatusOfCall(removexattr(to.c_str(), finderInfo));
}

}  // namespace quelm::os
