#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quelm::os {

/// The outcome of a file operation.
enum class [[nodiscard]] EStatusCode : std::uint32_t{
    SUCCESS,
    FAILURE,
    FILE_NOT_FOUND,
    FILE_EXISTS_ERROR,
    PERMISSION_NOT_ALLOWED,
    SHARING_VIOLATION,
    OUT_OF_DISK_SPACE,
    NOT_EMPTY_ERROR,
    IO_ERROR,
    INVALID_PATH,
    INVALID_FILENAME,
    MOVE_INVALID_DEVICE,
    RESOURCE_UNAVAILABLE,
    OPERATION_INTERRUPTED,
    OUT_OF_MEMORY,
};

/// The value's name; "<UNKNOWN>" for a value that has none.
[[nodiscard]] std::string_view EnumString(EStatusCode code);

/// FAILURE for every errno without an entry of its own, EINTR included.
EStatusCode StatusCodeForErrno(int error);

/// What a system call left: SUCCESS for a result of 0 or more, else the mapped errno.
EStatusCode StatusOfCall(long result);

}  // namespace quelm::os

namespace quelm {

/// A symbolic text for an errno, by coarser groups than the status codes.
[[nodiscard]] std::string GetExtendedError(int error);

}  // namespace quelm
