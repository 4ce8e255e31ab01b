#include <gtest/gtest.h>

#include "sync/SyncEnumerations.h"

namespace {

using namespace quelm::sync;

TEST(SyncEnumerations, HaveNamesForTheirNumbersAndKeepTheGaps) {
    EXPECT_STREQ(EnumString(SYNC_ERROR_ROOT_MISSING), "SYNC_ERROR_ROOT_MISSING");
    for (const int gap : {-1, 1, 4, 16, 21})
        EXPECT_STREQ(EnumString(static_cast<ESyncError>(gap)), "<UNKNOWN>") << gap;
    EXPECT_STREQ(EnumString(EItemPermissions(1044)), "PERM_VIEW");
    EXPECT_STREQ(EnumString(EItemPermissions(1025)), "<UNKNOWN>");
    // where the client's value comes first
    EXPECT_EQ(CL_FILE_LOCKED, 17);
    EXPECT_EQ(SRV_FILE_UNLOCKED, 20);
    EXPECT_STREQ(EnumString(perms::ACTION_MOVE_DOWNLOAD), "ACTION_MOVE_DOWNLOAD");
}

TEST(SyncEnumerations, TakeOnlyNumbersThatAreAssigned) {
    EXPECT_EQ(EnumFromNumber<ESyncItemLock>(3), SYNC_PENDING_UNLOCK);
    for (const std::int64_t number : {std::int64_t{-1}, std::int64_t{4}, (std::int64_t{1} << 32)})
        EXPECT_EQ(EnumFromNumber<ESyncItemLock>(number), std::nullopt) << number;
    EXPECT_EQ(EnumFromNumber<ESyncError>(4), std::nullopt);
}

}  // namespace
