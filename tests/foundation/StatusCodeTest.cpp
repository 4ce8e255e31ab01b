#include <cerrno>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

#include "foundation/files/StatusCode.h"

namespace {

using quelm::os::EnumString;
using quelm::os::EStatusCode;
using quelm::os::StatusCodeForErrno;

TEST(StatusCode, EveryValueHasItsName) {
    EXPECT_EQ(EnumString(EStatusCode::SUCCESS), "SUCCESS");
    EXPECT_EQ(EnumString(EStatusCode::NOT_EMPTY_ERROR), "NOT_EMPTY_ERROR");
    EXPECT_EQ(EnumString(EStatusCode{13}), "OPERATION_INTERRUPTED");
    EXPECT_EQ(EnumString(EStatusCode{14}), "OUT_OF_MEMORY");
    EXPECT_EQ(EnumString(EStatusCode{15}), "<UNKNOWN>");
}

TEST(StatusCode, ErrorNumbersAreMappedByName) {
    const std::vector<std::pair<int, EStatusCode>> cases = {
        {0, EStatusCode::SUCCESS},
        {ENOENT, EStatusCode::FILE_NOT_FOUND},
        {EROFS, EStatusCode::PERMISSION_NOT_ALLOWED},
        {ENFILE, EStatusCode::IO_ERROR},
        {EXDEV, EStatusCode::MOVE_INVALID_DEVICE},
        {ELOOP, EStatusCode::INVALID_PATH},
        {EDQUOT, EStatusCode::OUT_OF_DISK_SPACE},
        {ENAMETOOLONG, EStatusCode::INVALID_FILENAME},
        {ENODATA, EStatusCode::RESOURCE_UNAVAILABLE},
        {EINTR, EStatusCode::FAILURE},
        {EMFILE, EStatusCode::FAILURE},
        {-1, EStatusCode::FAILURE},
    };
    for (const auto& [error, status] : cases)
        EXPECT_EQ(StatusCodeForErrno(error), status) << error;
}

TEST(StatusCode, ExtendedErrorsAreCoarser) {
    EXPECT_EQ(quelm::GetExtendedError(EACCES), "PERMISSION_NOT_ALLOWED");
    EXPECT_EQ(quelm::GetExtendedError(ENOSPC), "RESOURCE_UNAVAILABLE");
    EXPECT_EQ(quelm::GetExtendedError(35), "SHARING_VIOLATION");
    EXPECT_EQ(quelm::GetExtendedError(EMFILE), "OPEN_FILE_FAILED");
    EXPECT_EQ(quelm::GetExtendedError(999), "MACINTOSH_ERROR(999)");
}

}  // namespace
