#include <csignal>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

#include "config/PropertyFiles.h"
#include "support/AgentVoice.h"
#include "support/ChildProcess.h"
#include "support/PrivateBus.h"

namespace {

using namespace std::chrono_literals;
using nlohmann::json;
using quelm::Dictionary;
using test_support::ChildProcess;
using test_support::ContentOf;
using test_support::WaitUntil;
using Lines = std::vector<std::string>;

// the exact text, key by key

std::string connection(std::string_view text, std::string_view info, std::string_view button) {
    return fmt::format(R"({{"text":"{}","info":"{}","button":"{}"}})", text, info, button);
}
/// Of the backup or the projects.
std::string block(std::string_view summary, std::string_view state, std::string_view image = "") {
    const std::string name = image.empty() ? "null" : fmt::format(R"("{}")", image);
    return fmt::format(R"({{"summary":"{}","state":"{}","image":{}}})", summary, state, name);
}
std::string link(std::string_view text, std::string_view address) {
    return fmt::format(R"({{"text":"{}","address":"{}"}})", text, address);
}
std::string report(const std::string& connection, const std::string& backup,
                   const std::string& projects, const std::string& links = "") {
    return fmt::format(R"({{"connection":{},"backup":{},"projects":{},"links":[{}]}})", connection,
                       backup, projects, links);
}

const std::string disconnected = connection("Anna disconnected", "", "Connect");
const std::string connected = connection("Anna connected", "Connected", "Disconnect");
const std::string noProjects = block("0 projects with 0 files (0 B)", "");
const std::string projectsDone = block("0 projects with 0 files (0 B)", "Sync Complete", "in-sync");
const std::string invitation = block("No backup configured", "Select folders for backup...");
const std::string invitationLink = link("Select folders for backup...", "orv:backup_config+1");

Lines linesOf(const std::string& path) {
    std::istringstream stream(ContentOf(path));
    Lines lines;
    for (std::string line; std::getline(stream, line);)
        if (!stream.eof()) lines.push_back(line);
    return lines;
}

/// The real programs on a bus and in a home folder of their own.
class StatusOverTheBus : public testing::Test {
 protected:
    struct Outcome {
        int code = -1;
        std::string out;
        std::string err;
    };

    void SetUp() override {
        ASSERT_TRUE(bus_.runs());
        store({{"full_name", "Anna"}, {"policy_backup", 0}, {"two_way_sync", true}});
    }
    /// `orvctl connect` starts an agent that is nobody's child.
    void TearDown() override {
        const std::string lock = home_ / "Library/Caches/com.corvanta.orv/agent_1.lock";
        agent_.stop();
        pid_t process = 0;
        if (!startsAgent_ || !(std::istringstream(ContentOf(lock)) >> process)) return;
        ::kill(process, SIGTERM);
        EXPECT_TRUE(WaitUntil([this] { return !voice_.isAgentThere(); }));
    }

    void store(const Dictionary& record) {
        const std::string folder = home_.makeFolder("Library/Preferences/com.corvanta.orv");
        ASSERT_TRUE(orv::StorePropertiesToFile(folder + "/user_info.plist", record));
    }
    ChildProcess::Setup setup(Lines words, const std::string& output, const std::string& address) {
        return {.words = std::move(words),
                .environment = {{"HOME", home_.path()}, {"DBUS_SESSION_BUS_ADDRESS", address}},
                .input = "",
                .outputFile = files_ / output,
                .errorFile = files_ / output + ".err"};
    }
    Outcome orvctlOn(const std::string& address, Lines words) {
        words.insert(words.begin(), ORVCTL);
        Outcome outcome;
        outcome.code = test_support::RunProgram(setup(std::move(words), "orvctl", address));
        outcome.out = ContentOf(files_ / "orvctl");
        outcome.err = ContentOf(files_ / "orvctl.err");
        return outcome;
    }
    Outcome orvctl(Lines words) { return orvctlOn(bus_.address(), std::move(words)); }
    void startAgent() {
        ASSERT_TRUE(agent_.start(setup({ORV_AGENT, "1"}, "agent", bus_.address())));
        ASSERT_TRUE(WaitUntil([this] { return voice_.isAgentThere(); }));
    }
    void startConnected() {
        startAgent();
        ASSERT_EQ(orvctl({"connect"}).code, 0);
        ASSERT_TRUE(WaitUntil([this] {
            return orvctl({"status", "--json"}).out.find("Anna connected") != std::string::npos;
        }));
    }
    void watch() {
        ASSERT_TRUE(
            watch_.start(setup({ORVCTL, "status", "--watch", "--json"}, "watch", bus_.address())));
        ASSERT_TRUE(WaitUntil([this] { return !watched().empty(); }));
    }
    Lines watched() { return linesOf(files_ / "watch"); }
    [[nodiscard]] bool watches(const std::string& line) {
        return WaitUntil([&] {
            const Lines lines = watched();
            return !lines.empty() && lines.back() == line;
        });
    }

    test_support::PrivateBus bus_;
    test_support::TemporaryFolder home_;
    test_support::TemporaryFolder files_;
    test_support::AgentVoice voice_{bus_.address()};
    ChildProcess agent_;
    ChildProcess watch_;
    bool startsAgent_ = false;
};

TEST_F(StatusOverTheBus, IsOneLineForEachDifference) {
    struct Saying {
        const char* event;
        Dictionary payload;
        /// Empty where nothing that is shown differs.
        std::string line;
    };
    const std::string full =
        block("0 projects with 0 files (0 B)",
              "Sync Complete  Storage Issue - Click here for details", "in-sync");
    const std::string fullLink = link("Storage Issue - Click here for details", "orv:dashboard?1");
    const std::string half = block("3 files and 2 folders in backup (2.0 MB)",
                                   "512.0 KB (8 minutes 32 seconds) remaining", "syncing");
    const std::vector<Saying> sayings = {
        {"scan_activity",
         {{"value", "1"}, {"files-scanned", "7"}},
         report(connected,
                block("Setting up backup", "Scanning folders (7 files indexed)", "syncing"),
                projectsDone)},
        {"scan_activity", {{"agent-id", "7"}}, ""},
        {"share_stats",
         {{"files", "3"}, {"folders", "2"}},
         report(connected,
                block("3 files and 2 folders in backup (0 B)", "Scanning folders (7 files indexed)",
                      "syncing"),
                projectsDone)},
        {"store_status",
         {{"total-bytes", "2097152"}, {"stored-bytes", "1048576"}},
         report(connected,
                block("3 files and 2 folders in backup (2.0 MB)",
                      "Scanning folders (7 files indexed)", "syncing"),
                projectsDone)},
        {"scan_activity",
         {},
         report(connected,
                block("3 files and 2 folders in backup (2.0 MB)", "1.0 MB remaining", "syncing"),
                projectsDone)},
        {"speed_status", {{"output", "900"}, {"outputmax", "1024"}}, ""},
        {"store_progress", {{"count", "524288"}}, report(connected, half, projectsDone)},
        {"store_file_start", {{"start-offset", "0"}}, ""},
        {"sync_quota_status", {{"status", "1"}}, report(connected, half, full, fullLink)},
        {"routing_network_adapter",
         {{"description", "tether\n\"\x1b[2J"}, {"limit-backup", "1"}},
         report(connection("Anna connected",
                           R"(Connected - Backup suspended while using tether\n\"\u001b[2J)",
                           "Disconnect"),
                half, full, fullLink)},
        {"routing_network_adapter", {}, report(connected, half, full, fullLink)},
    };
    startConnected();
    watch();
    Lines expected = {report(connected, invitation, projectsDone, invitationLink)};
    EXPECT_EQ(watched(), expected) << "at once";
    for (const auto& [event, payload, line] : sayings) {
        voice_.event(event, payload);
        if (line.empty()) continue;
        expected.push_back(line);
        EXPECT_TRUE(watches(line)) << event << ": " << watched().back();
    }
    EXPECT_EQ(orvctl({"disconnect"}).code, 0);
    expected.push_back(
        report(disconnected, block("3 files and 2 folders in backup (2.0 MB)", ""), noProjects));
    EXPECT_TRUE(watches(expected.back())) << watched().back();
    EXPECT_EQ(watched(), expected);
    EXPECT_EQ(ContentOf(files_ / "watch.err"), "");
}

TEST_F(StatusOverTheBus, FollowsSettingsAndAnAgentThatWasKilled) {
    startConnected();
    watch();
    EXPECT_EQ(orvctl({"settings", "set", "full_name", "Berta"}).code, 0);
    const std::string renamed = connection("Berta connected", "Connected", "Disconnect");
    EXPECT_TRUE(watches(report(renamed, invitation, projectsDone, invitationLink)))
        << watched().back();
    agent_.stop();
    const std::string gone = connection("Berta disconnected", "", "Connect");
    EXPECT_TRUE(watches(report(gone, invitation, noProjects, invitationLink))) << watched().back();
}

TEST_F(StatusOverTheBus, SaysWhoIsMissingAndWaitsForNobodyLong) {
    const std::string unknown = report(disconnected, invitation, noProjects, invitationLink) + "\n";
    const std::string nowhere = "unix:path=" + home_ / "no-bus";
    const std::vector<std::pair<std::string, Lines>> shown = {
        {nowhere, {"status", "--watch", "--json"}},  // there is nothing to wait for
        {bus_.address(), {"status", "--json"}},
    };
    for (const auto& [address, words] : shown) {
        const Outcome status = orvctlOn(address, words);
        EXPECT_EQ(status.code, 3) << address;
        EXPECT_EQ(status.out, unknown) << address;
    }
    const Outcome disconnect = orvctl({"disconnect"});
    EXPECT_EQ(disconnect.code, 3);
    EXPECT_EQ(disconnect.out, "");
    const Outcome connect = orvctlOn(nowhere, {"connect"});
    EXPECT_EQ(connect.code, 3);
    EXPECT_EQ(connect.out, "");
    EXPECT_THAT(connect.err, testing::HasSubstr("DBUS_SESSION_BUS_ADDRESS"));

    const auto timed = [this](const char* what) {
        const auto start = std::chrono::steady_clock::now();
        const Outcome status = orvctl({"status", "--json"});
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        RecordProperty(what, std::to_string(taken.count()));
        EXPECT_LT(taken, 10s) << what;
        return status;
    };
    bus_.signal(SIGSTOP);
    EXPECT_EQ(timed("seconds with a frozen bus").code, 3);
    bus_.signal(SIGCONT);
    voice_.announce();
    ASSERT_TRUE(WaitUntil([this] { return voice_.isAgentThere(); }));
    const Outcome silent = timed("seconds with a silent agent");
    EXPECT_EQ(silent.code, 0);
    EXPECT_EQ(silent.out, unknown);
}

TEST_F(StatusOverTheBus, ConnectStartsTheAgentOnce) {
    startsAgent_ = true;
    EXPECT_EQ(orvctl({"connect"}).code, 0);
    const auto isConnected = [this] {
        const Outcome status = orvctl({"status", "--json"});
        return status.code == 0 &&
               json::parse(status.out)["connection"]["text"] == "Anna connected";
    };
    EXPECT_TRUE(WaitUntil(isConnected));
    const std::string lock = home_ / "Library/Caches/com.corvanta.orv/agent_1.lock";
    const std::string process = ContentOf(lock);
    EXPECT_EQ(orvctl({"connect"}).code, 0);
    EXPECT_EQ(ContentOf(lock), process);
    EXPECT_TRUE(isConnected());
    EXPECT_EQ(orvctl({"disconnect"}).code, 0);
    EXPECT_TRUE(WaitUntil([&] { return !isConnected(); }));
}

TEST_F(StatusOverTheBus, DeviceInfoIsWhatSupportReads) {
    store({{"user_id", "40117"}, {"cell_id", "North"}, {"rcid", "77\u009b"}});
    const Outcome plain = orvctl({"device-info"});
    EXPECT_EQ(plain.code, 0);
    EXPECT_THAT(plain.out,
                testing::MatchesRegex("Device version: 7.2.33-orv Thu Dec 21 17:11:39 2017\n"
                                      "Protocol version:433\nAccount ID:40117\nCell: North\n"
                                      "DeviceID:77[^\n]*\nHardwareID:[0-9a-f]*\n"));
    EXPECT_EQ(plain.out.find("\u009b"), std::string::npos) << "the terminal is not told what to do";
    EXPECT_EQ(plain.err, "");
    const json report = json::parse(orvctl({"device-info", "--json"}).out);
    EXPECT_EQ(report.size(), 1U);
    EXPECT_THAT(report["deviceInfo"].get<std::string>(), testing::HasSubstr("DeviceID:77\u009b\n"));
}

}  // namespace
