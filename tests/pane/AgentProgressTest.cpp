#include <gtest/gtest.h>
#include <limits>

#include "pane/status/AgentProgress.h"

namespace {

using orv::AgentProgress;
constexpr const char* tooLarge = "99999999999999999999";

TEST(AgentProgress, TakesStoreEventsAsTheAgentCounts) {
    AgentProgress progress;
    orv::TakeStoreStatus(progress, {{"total-bytes", "100"},
                                    {"stored-bytes", "20"},
                                    {"total-progress", "5"},
                                    {"total-files", "9"},
                                    {"stored-files", "2"},
                                    {"warn-mesg", "full"},
                                    {"backup-stopped-quota", "1"}});
    EXPECT_EQ(progress.storedBytes, 25);
    EXPECT_EQ(progress.totalFilesForStoring, 7);
    EXPECT_EQ(progress.storeWarnMsg, "full");
    EXPECT_TRUE(progress.backupStoppedDueQuota);
    orv::TakeStoreFileStart(progress, {{"start-offset", "10"}});
    orv::TakeStoreProgress(progress, {{"count", "3"}});
    EXPECT_EQ(progress.storedBytes, 38);
    EXPECT_EQ(progress.storeActivity, 10);
    orv::TakeSpeedStatus(progress, {{"output", "7"}, {"outputmax", "8"}, {"input", "1"}});
    EXPECT_EQ(progress.storeActivity, 9);
    EXPECT_EQ(progress.uploadSpeed, 7);
    orv::TakeStoreFileEnd(progress, {{"total-bytes", "200"}, {"stored-bytes", "50"}});
    EXPECT_EQ(progress.storedBytes, 50);
    orv::TakeStoreStatus(progress, {});
    EXPECT_EQ(progress.storeWarnMsg, "") << "a report without a warning ends it";
    EXPECT_FALSE(progress.backupStoppedDueQuota);
    EXPECT_EQ(progress.totalBytesForStoring, 0);
}

TEST(AgentProgress, TakesScansAdaptersAndProjects) {
    AgentProgress progress;
    orv::TakeScanActivity(progress, {{"value", "1"}, {"files-scanned", "4"}});
    EXPECT_TRUE(progress.backupScanning);
    orv::TakeScanActivity(progress, {{"value", "2"}});
    EXPECT_FALSE(progress.backupScanning);
    EXPECT_EQ(progress.scannedFiles, 0);
    orv::TakeRoutingNetworkAdapter(progress, {{"description", "Modem"}, {"limit-backup", "1"}});
    EXPECT_TRUE(progress.limitBackup);
    orv::TakeRoutingNetworkAdapter(progress, {{"description", "Cable"}, {"limit-backup", "yes"}});
    EXPECT_FALSE(progress.limitBackup);
    EXPECT_EQ(progress.activeAdapter, "Cable");
    orv::TakeProgressInfoUpdate(progress, {{"time-left", "5 min"}});
    orv::TakeSyncQuotaStatus(progress, {{"status", "2"}});
    orv::TakeSyncProgress(progress, {{"outfiles", "1"}, {"inbytes", "4"}});
    EXPECT_EQ(progress.timeLeft, "5 min");
    EXPECT_EQ(progress.syncQuotaStatus, 2);
    EXPECT_EQ(progress.syncUploadFiles + progress.syncDownloadBytes, 5);
}

TEST(AgentProgress, KeepsHostileNumbersInTheirRange) {
    AgentProgress progress;
    orv::TakeShareStatistics(progress, {{"files", tooLarge}, {"folders", "x"}});
    EXPECT_EQ(progress.totalFiles, std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(progress.totalFolders, 0);
    orv::TakeStoreStatus(progress, {{"stored-bytes", tooLarge},
                                    {"total-progress", tooLarge},
                                    {"total-files", "-2"},
                                    {"stored-files", "-99999999999999999999"},
                                    {"total-bytes", quelm::Array{}}});
    EXPECT_EQ(progress.storedBytes, std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(progress.totalFilesForStoring, std::numeric_limits<std::int64_t>::max() - 1);
    orv::TakeStoreProgress(progress, {{"count", "1"}});
    EXPECT_EQ(progress.storedBytes, std::numeric_limits<std::int64_t>::max());
    progress.storeActivity = std::numeric_limits<std::int32_t>::min();
    orv::TakeSpeedStatus(progress, {});
    EXPECT_EQ(progress.storeActivity, std::numeric_limits<std::int32_t>::min());
}

}  // namespace
