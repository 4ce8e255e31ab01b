#include "foundation/files/StatusCode.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fmt/format.h>

namespace quelm::os {

namespace {

constexpr std::array<std::string_view, 15> names = {
    "SUCCESS",
    "FAILURE",
    "FILE_NOT_FOUND",
    "FILE_EXISTS_ERROR",
    "PERMISSION_NOT_ALLOWED",
    "SHARING_VIOLATION",
    "OUT_OF_DISK_SPACE",
    "NOT_EMPTY_ERROR",
    "IO_ERROR",
    "INVALID_PATH",
    "INVALID_FILENAME",
    "MOVE_INVALID_DEVICE",
    "RESOURCE_UNAVAILABLE",
    "OPERATION_INTERRUPTED",
    "OUT_OF_MEMORY",
};

struct Mapping {
    int error;
    EStatusCode status;
};

// ENODATA is this platform's ENOATTR: an extended attribute that is not there.
constexpr std::array<Mapping, 21> mappings = {{
    {0, EStatusCode::SUCCESS},
    {ENOENT, EStatusCode::FILE_NOT_FOUND},
    {EPERM, EStatusCode::PERMISSION_NOT_ALLOWED},
    {EACCES, EStatusCode::PERMISSION_NOT_ALLOWED},
    {EROFS, EStatusCode::PERMISSION_NOT_ALLOWED},
    {EIO, EStatusCode::IO_ERROR},
    {ENFILE, EStatusCode::IO_ERROR},
    {ENOMEM, EStatusCode::OUT_OF_MEMORY},
    {EBUSY, EStatusCode::SHARING_VIOLATION},
    {EEXIST, EStatusCode::FILE_EXISTS_ERROR},
    {EXDEV, EStatusCode::MOVE_INVALID_DEVICE},
    {ENOTDIR, EStatusCode::INVALID_PATH},
    {EISDIR, EStatusCode::INVALID_PATH},
    {EINVAL, EStatusCode::INVALID_PATH},
    {EMLINK, EStatusCode::INVALID_PATH},
    {ELOOP, EStatusCode::INVALID_PATH},
    {ENOSPC, EStatusCode::OUT_OF_DISK_SPACE},
    {EDQUOT, EStatusCode::OUT_OF_DISK_SPACE},
    {ENAMETOOLONG, EStatusCode::INVALID_FILENAME},
    {ENOTEMPTY, EStatusCode::NOT_EMPTY_ERROR},
    {ENODATA, EStatusCode::RESOURCE_UNAVAILABLE},
}};

}  // namespace

std::string_view EnumString(EStatusCode code) {
    const auto index = static_cast<std::size_t>(code);
    return index < names.size() ? names.at(index) : "<UNKNOWN>";
}

EStatusCode StatusCodeForErrno(int error) {
    const auto* found = std::find_if(mappings.begin(), mappings.end(),
                                     [&](const Mapping& m) { return m.error == error; });
    return found != mappings.end() ? found->status : EStatusCode::FAILURE;
}

EStatusCode StatusOfCall(long result) {
    return result >= 0 ? EStatusCode::SUCCESS : StatusCodeForErrno(errno);
}

}  // namespace quelm::os

namespace quelm {

namespace {

struct ExtendedError {
    int error;
    std::string_view text;
};

// The bare numbers are those that other platforms report (35 would block, 69 over quota); this
// platform's numbers of the same meaning stand beside them.
constexpr std::array<ExtendedError, 14> extendedErrors = {{
    {1, "PERMISSION_NOT_ALLOWED"},
    {13, "PERMISSION_NOT_ALLOWED"},
    {30, "PERMISSION_NOT_ALLOWED"},
    {2, "FILE_NOT_FOUND"},
    {16, "RESOURCE_UNAVAILABLE"},
    {28, "RESOURCE_UNAVAILABLE"},
    {69, "RESOURCE_UNAVAILABLE"},
    {EDQUOT, "RESOURCE_UNAVAILABLE"},
    {35, "SHARING_VIOLATION"},
    {EAGAIN, "SHARING_VIOLATION"},
    {5, "OPEN_FILE_FAILED"},
    {6, "OPEN_FILE_FAILED"},
    {23, "OPEN_FILE_FAILED"},
    {24, "OPEN_FILE_FAILED"},
}};

}  // namespace

std::string GetExtendedError(int error) {
    const auto* found = std::find_if(extendedErrors.begin(), extendedErrors.end(),
                                     [&](const ExtendedError& e) { return e.error == error; });
    if (found != extendedErrors.end()) return std::string(found->text);
    return fmt::format("MACINTOSH_ERROR({})", error);
}

}  // namespace quelm
