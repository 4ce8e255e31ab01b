#include <gtest/gtest.h>
#include <random>

#include "agentlink/AgentVocabulary.h"
#include "pane/status/Headline.h"
#include "pane/status/StatusModel.h"
#include "support/ManualRunLoop.h"
#include "support/ProcessNotifications.h"

namespace {

using namespace orv;
using quelm::Dictionary;

class TheStatus : public testing::Test {
 protected:
    TheStatus() {
        model_.inputs() = {.fullName = "Anna",
                           .backup = {.backupEnabled = true, .hasBackupPaths = true},
                           .syncEnabled = true};
        model_.startDisconnected();
        model_.registerAgentEvents(dispatcher_);
    }

    void event(const char* name, Dictionary payload, const char* agentId = "1") {
        payload.set("event_name", name);
        payload.set("agent-id", agentId);
        center_->deliver(notifications::agentEvent, defaultNotificationObject, payload);
    }
    void status(int code, std::int64_t since = 0, const char* agentId = "1") {
        center_->deliver(notifications::connectionStatusChanged, defaultNotificationObject,
                         {{"agent-id", agentId}, {"status", code}, {"timestamp", since}});
    }
    void error(const std::string& message) {
        center_->deliver(notifications::agentError, defaultNotificationObject,
                         {{"agent-id", "1"}, {"message", message}});
    }
    /// Files and folders, and so many bytes left.
    void backUp(std::int64_t left) {
        event("share_stats", {{"files", "2"}, {"folders", "1"}});
        event("store_status",
              {{"total-bytes", "2097152"}, {"stored-bytes", std::to_string(2097152 - left)}});
    }
    /// Whether the event draws the lines anew, which were overwritten before.
    std::pair<bool, bool> redraws(const char* name, const char* agentId = "1") {
        outlets_._backupStatus1.setStringValue("old");
        outlets_._projectsStatus1.setStringValue("old");
        event(name, {}, agentId);
        return {outlets_._backupStatus1.stringValue() != "old",
                outlets_._projectsStatus1.stringValue() != "old"};
    }
    std::string state() const { return outlets_._backupStatus2.stringValue(); }
    std::string info() const { return outlets_._connectionInfo.stringValue(); }
    std::string headline() const { return outlets_._headline.stringValue(); }

    test_support::ProcessNotifications center_;
    test_support::ManualRunLoop loop_;
    AgentEventDispatcher dispatcher_;
    StatusOutlets outlets_;
    StatusModel model_{outlets_, loop_};
};

TEST_F(TheStatus, DrawsAnewWhatAnEventIsAbout) {
    const std::pair<const char*, std::pair<bool, bool>> cases[] = {
        {"scan_activity", {true, false}},
        {"share_stats", {true, false}},
        {"store_status", {true, true}},
        {"store_file_start", {false, false}},
        {"store_file_end", {true, true}},
        {"store_progress", {true, true}},
        {"speed_status", {true, true}},
        {"progress-info-update", {false, false}},
        {"sync_progress", {false, true}},
        {"sync_quota_status", {true, true}},
        {"routing_network_adapter", {true, true}},
    };
    for (const auto& [name, drawn] : cases)
        EXPECT_EQ(redraws(name), drawn) << name;
    for (const char* name : {"scan_activity", "share_stats", "store_status"})
        EXPECT_EQ(redraws(name, "7"), std::pair(false, false)) << name << " of another account";
    EXPECT_EQ(redraws("store_progress", "7"), std::pair(true, true)) << "which looks at no account";
    EXPECT_EQ(redraws("share_stats", "0"), std::pair(true, false)) << "0 is the default account";
}

TEST_F(TheStatus, OfTheSameKindChangesNothingNotEvenTheTime) {
    status(4, 1000);
    status(4, 5);
    EXPECT_EQ(model_.progress().statusTimestamp, 1000);
    status(5, 6, "7");
    EXPECT_EQ(model_.progress().status, 4U) << "another account's";
    backUp(1048576);
    event("speed_status", {{"output", "5"}});
    outlets_._backupStatus1.setStringValue("old");
    status(3);
    EXPECT_EQ(model_.progress().uploadSpeed, 0);
    EXPECT_NE(outlets_._backupStatus1.stringValue(), "old");
    status(4);
    outlets_._backupStatus1.setStringValue("old");
    status(3);
    EXPECT_EQ(outlets_._backupStatus1.stringValue(), "old") << "nothing was under way";
}

TEST_F(TheStatus, KeepsAnErrorUntilItIsOver) {
    error("Wrong password");
    EXPECT_EQ(info(), "Wrong password");
    EXPECT_NE(headline().find("Wrong password"), std::string::npos);
    status(5);
    EXPECT_EQ(info(), "Wrong password");
    error("");
    EXPECT_EQ(info(), "Wrong password");
    event("request_disconnect", {}, "7");
    EXPECT_EQ(info(), "Wrong password");
    event("request_disconnect", {});
    EXPECT_EQ(info(), "");
    error("Again");
    status(4);
    EXPECT_EQ(info(), "Connected");
    status(1);
    EXPECT_EQ(info(), "");
    error("Wrong password");
    status(6);
    EXPECT_EQ(info(), "Low disk space");
    status(5);
    EXPECT_EQ(info(), "Wrong password") << "there is space again";
    error(std::string(1 << 20, 'x'));
    EXPECT_EQ(info().size(), 1000U);
}

TEST_F(TheStatus, TellsOfViolationsOnceItHasShownAState) {
    model_.inputs().violations = 2;
    status(4);
    EXPECT_EQ(outlets_._projectsStatus2.stringValue(), "Sync Complete");
    event("sync_progress", {});
    EXPECT_EQ(outlets_._projectsStatus2.stringValue(), "Sync Complete (2 sync violations)");
    EXPECT_EQ(outlets_._projectsStatus2.text().links.at(0).address,
              "orv:fixPermissionViolationsWindow");
}

TEST_F(TheStatus, ShowsARestoreOnlyWhileItRuns) {
    EXPECT_TRUE(outlets_._restoreProgressButton.isHidden());
    event("restore_progress", {{"count", "3"}});
    EXPECT_FALSE(outlets_._restoreProgressButton.isHidden());
    event("restore_progress", {{"count", "0"}});
    EXPECT_TRUE(outlets_._restoreProgressButton.isHidden());
    event("restore_progress", {{"count", "3"}});
    status(5);
    EXPECT_TRUE(outlets_._restoreProgressButton.isHidden()) << "the agent is away";
}

TEST_F(TheStatus, NamesTheFileServerInUse) {
    event("lan-info", {{"command", "response-FSA-list"}, {"list", "attic"}});
    EXPECT_EQ(outlets_._connectedFSA.stringValue(), "Using: attic");
    event("lan-info", {{"command", "other"}, {"list", "x"}});
    EXPECT_FALSE(outlets_._connectedFSA.isHidden());
    event("lan-info", {{"command", "response-FSA-list"}});
    EXPECT_TRUE(outlets_._connectedFSA.isHidden());
}

TEST_F(TheStatus, HasOneHeadlineWithItsRemedy) {
    const auto remedy = [this] {
        const auto& links = outlets_._headline.text().links;
        return links.empty() ? "" : links[0].address;
    };
    EXPECT_EQ(remedy(), "orv:connect");
    status(2);
    EXPECT_EQ(outlets_._headlineImage.imageName(), "waiting");
    status(6);
    EXPECT_NE(headline().find("disk space"), std::string::npos);
    status(4);
    EXPECT_NE(headline().find("has not said"), std::string::npos) << "nothing was reported yet";
    event("share_stats", {{"folders", "1"}});
    EXPECT_EQ(outlets_._headlineImage.imageName(), "waiting") << "how far it is was not said yet";
    backUp(1048576);
    EXPECT_EQ(headline(), "Backing up: 1.0 MB remain.");
    event("routing_network_adapter", {{"description", "Phone"}, {"limit-backup", "1"}});
    EXPECT_EQ(remedy(), "orv:tab?Bandwidth");
    EXPECT_NE(headline().find("Phone"), std::string::npos);
    model_.inputs().backup.offlineIncomplete = true;
    model_.inputs().offlineVolumes = {"Disk", "Stick"};
    model_.showBackupStatus();
    EXPECT_NE(headline().find("Disk, Stick"), std::string::npos);
    event("store_status", {{"total-bytes", "1"}, {"backup-stopped-quota", "1"}});
    EXPECT_EQ(remedy(), "orv:dashboard?1");
    model_.inputs().backup.offlineIncomplete = false;
    event("store_status", {{"banned-files", "2"}});
    EXPECT_EQ(headline(), "Backed up but for 2 files, which the service refuses.");
    event("store_status", {{"warn-mesg", "Pay"}, {"warn-url", "https://pay.example"}});
    EXPECT_EQ(remedy(), "https://pay.example");
    event("store_status", {});
    EXPECT_EQ(headline(), "Everything is backed up.");
    EXPECT_EQ(outlets_._headlineImage.imageName(), "in-sync");
}

TEST_F(TheStatus, WarnsAfterDaysWithoutACompleteBackup) {
    loop_.advance(std::chrono::hours(24 * 30));
    const auto now = std::chrono::system_clock::to_time_t(loop_.now());
    const auto shownAfter = [&](int days) {
        model_.inputs().lastComplete = now - days * 86'400;
        model_.showBackupStatus();
        return headline().substr(0, 29) + " " + outlets_._headlineImage.imageName();
    };
    EXPECT_EQ(shownAfter(2), "Not connected, so nothing is  offline");
    EXPECT_EQ(shownAfter(3), "No complete backup for 3 days warning");
    model_.inputs().warningDays = 0;
    EXPECT_EQ(shownAfter(20), "Not connected, so nothing is  offline");
    model_.inputs().warningDays = 3;
    status(4);
    backUp(0);
    EXPECT_EQ(headline(), "Everything is backed up.");
}

/// Whatever the state: done is only said of a backup that is connected, known and stored.
TEST(Headline, NeverTakesAnythingElseForDone) {
    std::mt19937 random(7);
    const auto chance = [&random](unsigned of) { return random() % of == 0; };
    int done = 0;
    for (int i = 0; i < 20'000; ++i) {
        AgentProgress progress;
        progress.status = random() % 8;
        progress.backupScanning = chance(4);
        progress.serverParsingXML = chance(4);
        progress.backupStoppedDueQuota = chance(4);
        progress.isStoreStatusKnown = chance(2);
        progress.totalFolders = static_cast<std::int32_t>(random() % 2);
        progress.totalBytesForStoring = static_cast<std::int64_t>(random() % 2);
        progress.limitBackup = chance(2);
        StatusInputs inputs{.backup = {.backupEnabled = chance(2),
                                       .hasBackupPaths = chance(2),
                                       .offlineIncomplete = chance(3)},
                            .syncEnabled = chance(2)};
        const bool isWanted = inputs.backup.backupEnabled || inputs.backup.hasBackupPaths;
        if (ComposeHeadline(progress, inputs, "", 0).image != "in-sync") continue;
        ++done;
        EXPECT_EQ(progress.status, 4U);
        EXPECT_TRUE(!isWanted || IsBackupComplete(progress, inputs));
        EXPECT_TRUE(!isWanted || (progress.totalFolders > 0 && progress.isStoreStatusKnown &&
                                  progress.totalBytesForStoring <= progress.storedBytes &&
                                  !progress.backupScanning && !inputs.backup.offlineIncomplete));
    }
    EXPECT_GT(done, 100);
}

}  // namespace
