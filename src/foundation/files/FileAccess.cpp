#include "foundation/files/FileAccess.h"

#include <array>
#include <cerrno>
#include <cstdio>  // renameat2
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/time.h>
#include <unistd.h>

#include "foundation/files/Existence.h"

namespace quelm::os {

namespace {

mode_t readUmask() {
    const mode_t mask = umask(0);
    umask(mask);
    return mask;
}

// read before the first thread starts: asking for the umask changes it for a moment
const mode_t savedUmask = readUmask();

}  // namespace

EStatusCode SetReadonly(const std::string& path, bool readonly) {
    const mode_t mode = readonly ? 0444 : 0644;
    return StatusOfCall(chmod(path.c_str(), mode & ~savedUmask));
}

EStatusCode SetFileTime(const std::string& path, std::int64_t seconds) {
    const timeval time = {static_cast<time_t>(seconds), 0};
    const std::array<timeval, 2> times = {time, time};
    return StatusOfCall(utimes(path.c_str(), times.data()));
}

EStatusCode AvailableDiskSpace(const std::string& path, std::uint64_t& bytes) {
    struct statvfs info = {};
    if (statvfs(path.c_str(), &info) != 0) return StatusCodeForErrno(errno);
    bytes = std::uint64_t{info.f_frsize} * info.f_bavail;
    return EStatusCode::SUCCESS;
}

EStatusCode RenameNoOverride(const std::string& from, const std::string& to) {
    if (IsNameTaken(to)) return EStatusCode::FILE_EXISTS_ERROR;
    const int result = renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE);
    // file systems that cannot rename without replacing say so with EINVAL
    if (result != 0 && (errno == EINVAL || errno == ENOSYS)) {
        return StatusOfCall(rename(from.c_str(), to.c_str()));
    }
    return StatusOfCall(result);
}

EStatusCode AllowDelete(const std::string&) {
    return EStatusCode::SUCCESS;
}
EStatusCode DisableDelete(const std::string&) {
    return EStatusCode::SUCCESS;
}

}  // namespace quelm::os
