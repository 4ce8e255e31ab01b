#include <QMessageBox>
#include <filesystem>
#include <sstream>
#include <unistd.h>

#include "panel/PanelFixture.h"

namespace {

using nlohmann::json;
using quelm::Dictionary;

class ThePanelOnTheBus : public test_support::PanelFixture {
 protected:
    /// What `orvctl status --watch --json` printed last.
    [[nodiscard]] json watched() const {
        std::istringstream stream(test_support::ContentOf(files_ / "watch"));
        std::string last;
        for (std::string line; std::getline(stream, line);)
            if (!stream.eof()) last = line;
        return last.empty() ? json() : json::parse(last);
    }
    void startWatch() {
        ASSERT_TRUE(watch_.start(setup({ORVCTL, "status", "--watch", "--json"}, "watch")));
        ASSERT_TRUE(runUntil([this] { return !watched().is_null(); }));
    }
    [[nodiscard]] bool agreesWithOrvctl() {
        return runUntil([this] { return watched() == windowReport(); });
    }
    void press(const char* button) { widget<QAbstractButton>(button).click(); }
};

TEST_F(ThePanelOnTheBus, SaysWhatOrvctlSays) {
    struct Saying {
        const char* event;
        Dictionary payload;
        /// Then this label reads so.
        const char* label;
        const char* text;
    };
    const std::vector<Saying> sayings = {
        {"scan_activity",
         {{"value", "1"}, {"files-scanned", "7"}},
         "_backupStatus2",
         "Scanning folders (7 files indexed)"},
        {"share_stats",
         {{"files", "3"}, {"folders", "2"}},
         "_backupStatus1",
         "3 files and 2 folders in backup (0 B)"},
        {"store_status",
         {{"total-bytes", "2097152"}, {"stored-bytes", "1048576"}},
         "_backupStatus1",
         "3 files and 2 folders in backup (2.0 MB)"},
        {"scan_activity", {}, "_backupStatus2", "1.0 MB remaining"},
        {"store_progress", {{"count", "524288"}}, "_backupStatus2", "512.0 KB remaining"},
        {"speed_status",
         {{"output", "900"}, {"outputmax", "1024"}},
         "_backupStatus2",
         "512.0 KB (8 minutes 32 seconds) remaining"},
        {"sync_quota_status",
         {{"status", "1"}},
         "_projectsStatus2",
         "Sync Complete  Storage Issue - Click here for details"},
        {"routing_network_adapter",
         {{"description", "<b>tether & \"co\"</b>"}, {"limit-backup", "1"}},
         "_connectionInfo",
         "Connected - Backup suspended while using <b>tether & \"co\"</b>"},
        {"store_progress",
         {{"count", "1"}},
         "_backupStatus2",
         "Backup suspended while on <b>tether & \"co\"</b>"},
        {"store_file_end",
         {{"total-bytes", "2097152"}, {"stored-bytes", "2097152"}},
         "_backupStatus2",
         "Backup Complete"},
        {"store_status",
         {{"backup-stopped-quota", "1"}},
         "_backupStatus2",
         "Backup Stopped! Storage Quota exceeded."},
    };
    startAgent();
    startWatch();
    openPanel();
    waitUntilListening();
    EXPECT_TRUE(reads("_connectionStatus", "Anna disconnected"));
    EXPECT_TRUE(agreesWithOrvctl()) << watched() << windowReport();
    press("_connectButton");
    EXPECT_TRUE(reads("_connectionInfo", "Connected"));
    EXPECT_TRUE(agreesWithOrvctl()) << watched() << windowReport();
    EXPECT_EQ(json::parse(orvctl({"status", "--json"})), windowReport()) << "a new one";

    for (const auto& [event, payload, label, expected] : sayings) {
        voice_.event(event, payload);
        EXPECT_TRUE(reads(label, expected)) << event << ": " << text(label);
        EXPECT_TRUE(agreesWithOrvctl()) << event << watched() << windowReport();
    }
    static_cast<void>(orvctl({"settings", "set", "full_name", "Berta"}));
    EXPECT_TRUE(reads("_connectionStatus", "Berta connected"));
    EXPECT_TRUE(agreesWithOrvctl()) << watched() << windowReport();
    press("_connectButton");
    EXPECT_TRUE(reads("_connectionStatus", "Berta disconnected"));
    voice_.error("The service is closed today.");
    EXPECT_TRUE(reads("_connectionInfo", "The service is closed today."));
    EXPECT_TRUE(agreesWithOrvctl()) << watched() << windowReport();
    static_cast<void>(orvctl({"connect"}));
    EXPECT_TRUE(reads("_connectionStatus", "Berta connected"));
    agent_.stop();
    EXPECT_TRUE(reads("_connectionStatus", "Berta disconnected")) << "also when it was killed";
    EXPECT_TRUE(agreesWithOrvctl()) << watched() << windowReport();
}

TEST_F(ThePanelOnTheBus, NamesABusThatIsNotThereAndGoesOnWhenItComes) {
    constexpr const char* missing =
        "The message bus of this session does not answer, so the backup service cannot be reached. "
        "Sign out and in again.";
    bus_.stop();
    openPanel();
    EXPECT_TRUE(reads("_connectionInfo", missing)) << text("_connectionInfo");
    EXPECT_NE(text("_headline").find(missing), std::string::npos) << text("_headline");
    EXPECT_TRUE(bus_.start());
    EXPECT_TRUE(reads("_connectionInfo", "")) << text("_connectionInfo");
    startAgent();
    press("_connectButton");
    EXPECT_TRUE(reads("_connectionStatus", "Anna connected"));

    bus_.stop();
    EXPECT_TRUE(reads("_connectionInfo", missing)) << text("_connectionInfo");
    EXPECT_EQ(text("_connectionStatus"), "Anna disconnected");
    EXPECT_TRUE(bus_.start());
    EXPECT_TRUE(reads("_connectionStatus", "Anna connected")) << text("_connectionStatus");
}

TEST_F(ThePanelOnTheBus, SaysWhichSettingsItCannotStore) {
    if (::geteuid() == 0) GTEST_SKIP() << "root may write everywhere";
    namespace fs = std::filesystem;
    fs::permissions(settings_ + "/user_info.plist", fs::perms::owner_read);
    fs::permissions(settings_, fs::perms::owner_read | fs::perms::owner_exec);
    openPanel();
    press("_backupPolicyButton");
    const auto alert = [] {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* box = qobject_cast<QMessageBox*>(window); box && box->isVisible()) return box;
        return static_cast<QMessageBox*>(nullptr);
    };
    ASSERT_TRUE(runUntil([&] { return alert() != nullptr; }));
    EXPECT_TRUE(alert()->text().contains(QString::fromStdString(settings_)));
    EXPECT_TRUE(widget<QWidget>("_settingsNotice").isVisible());
    fs::permissions(settings_, fs::perms::owner_all);
    fs::permissions(settings_ + "/user_info.plist", fs::perms::owner_read | fs::perms::owner_write);
}

}  // namespace
