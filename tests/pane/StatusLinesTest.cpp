#include <gtest/gtest.h>
#include <limits>
#include <tuple>

#include "pane/status/BackupLines.h"
#include "pane/status/ConnectionLine.h"
#include "pane/status/ProjectLines.h"
#include "support/ScopedEnvironment.h"
#include "widgets/CalendarDifference.h"

namespace {

using namespace orv;
constexpr std::int64_t now = 1'700'000'000;

AgentProgress connected() {
    AgentProgress progress;
    progress.status = 4;
    return progress;
}

TEST(ConnectionLine, TellsWhoIsConnectedOrWhyNot) {
    const auto compose = [](std::uint32_t status, bool showsError = false) {
        AgentProgress progress;
        progress.status = status;
        return ComposeConnectionLine(progress, "Anna", showsError, now);
    };
    EXPECT_EQ(compose(2), (ConnectionLine{"Anna connecting...", "", true, true}));
    EXPECT_EQ(compose(3), (ConnectionLine{"Logging in...", "", true, false}));
    EXPECT_EQ(compose(4), (ConnectionLine{"Anna connected", "Connected", true, false}));
    EXPECT_EQ(compose(5), (ConnectionLine{"Anna waiting to reconnect...", "", false, true}));
    EXPECT_EQ(compose(6), (ConnectionLine{"Anna disconnected", "Low disk space", false, true}));
    for (const std::uint32_t status : {0U, 1U, 7U, 4'000'000'000U})
        EXPECT_EQ(compose(status), (ConnectionLine{"Anna disconnected", "", false, true}));
    EXPECT_EQ(compose(5, true).info, std::nullopt) << "the error stays";
    EXPECT_EQ(compose(1, true).info, std::nullopt);
    EXPECT_EQ(compose(6, true).info, "Low disk space");
    EXPECT_EQ(compose(3, true).info, "");
}

TEST(ConnectionLine, TellsSinceWhen) {
    const test_support::ScopedEnvironment zone("TZ", "UTC");
    AgentProgress progress = connected();
    const std::vector<std::pair<std::int64_t, std::string>> cases = {
        {0, "Connected"},
        {59, "Connected"},
        {60, "Connected for 1 minute"},
        {45 * 60 + 59, "Connected for 45 minutes"},
        // from here on the minutes are taken as seconds
        {60 * 60, "Connected for 1 minute"},
        {125 * 60, "Connected for 2 minutes"},
        {2 * 3600 * 60, "Connected for 2 hours"},
    };
    for (const auto& [seconds, text] : cases) {
        progress.statusTimestamp = now - seconds;
        EXPECT_EQ(ComposeConnectionLine(progress, "", false, now).info, text) << seconds;
    }
    progress.statusTimestamp = std::numeric_limits<std::int64_t>::min();
    EXPECT_NE(ComposeConnectionLine(progress, "", false, now).info, std::nullopt);
    progress.statusTimestamp = 0;
    progress.limitBackup = true;
    EXPECT_EQ(ComposeConnectionLine(progress, "", false, now).info,
              "Connected - Backup suspended while using <N/A>");
    progress.activeAdapter = "Modem";
    EXPECT_EQ(ComposeConnectionLine(progress, "", false, now).info,
              "Connected - Backup suspended while using Modem");
}

TEST(CalendarDifference, CountsWholeUnitsOfTheCalendar) {
    const test_support::ScopedEnvironment zone("TZ", "UTC");
    constexpr std::int64_t february1 = 1'706'745'600;  // 2024
    constexpr std::int64_t day = 86'400;
    const auto parts = [](std::int64_t to) {
        const auto d = CalendarDifference(february1, to);
        return std::tuple(d.years, d.months, d.days, d.hours, d.minutes, d.seconds);
    };
    EXPECT_EQ(parts(february1 + 29 * day + 3'661), std::tuple(0, 1, 0, 1, 1, 0));
    EXPECT_EQ(parts(february1 + 366 * day - 1), std::tuple(0, 11, 30, 23, 59, 0));
    EXPECT_EQ(parts(february1 + 366 * day), std::tuple(1, 0, 0, 0, 0, 0));
    EXPECT_EQ(parts(february1 - 1), std::tuple(0, 0, 0, 0, 0, 0));
}

/// Everything at once; each case takes causes away.
AgentProgress everyCause() {
    AgentProgress progress = connected();
    progress.backupScanning = true;
    progress.scannedFiles = 7;
    progress.serverParsingXML = true;
    progress.backupStoppedDueQuota = true;
    progress.totalFiles = 12;
    progress.totalFolders = 3;
    progress.totalBytesForStoring = 3 << 20U;
    progress.storedBytes = 2 << 20U;
    progress.limitBackup = true;
    progress.storeActivity = 3;
    progress.uploadSpeed = 5;
    return progress;
}

TEST(BackupLines, TheWeightiestCauseIsShown) {
    AgentProgress progress = everyCause();
    BackupSituation situation{.backupEnabled = true, .offlineIncomplete = true};
    const auto state = [&] {
        const auto lines = ComposeBackupLines(progress, situation);
        EXPECT_EQ(lines.summary, "12 files and 3 folders in backup (3.0 MB)");
        return std::pair(lines.state->text.text, NameOf(lines.state->image));
    };
    using Shown = std::pair<std::string, std::string_view>;
    EXPECT_EQ(state(), (Shown{"Scanning folders (7 files indexed)", "syncing"}));
    progress.scannedFiles = 0;
    EXPECT_EQ(state(), (Shown{"Scanning folders...", "syncing"}));
    progress.backupScanning = false;
    EXPECT_EQ(state(), (Shown{"Server is calculating backup.", "syncing"}));
    progress.serverParsingXML = false;
    EXPECT_EQ(state(), (Shown{"Backup Stopped! Storage Quota exceeded.", "permissionViolation"}));
    progress.backupStoppedDueQuota = false;
    EXPECT_EQ(state(), (Shown{"Volume with incomplete backup is offline", "permissionViolation"}));
    situation.offlineIncomplete = false;
    EXPECT_EQ(state(), (Shown{"Backup suspended while on <N/A>", "syncing"}));
    progress.limitBackup = false;
    EXPECT_EQ(state(), (Shown{"1.0 MB () remaining", "syncing"})) << "no largest speed";
    progress.uploadSpeedMax = 1 << 20U;
    progress.totalFilesForStoring = 10;
    situation.transferOverheadPerFile = 6;
    situation.bandwidthSafetyFactor = 0.5;
    EXPECT_EQ(state(), (Shown{"1.0 MB (1 minute 2 seconds) remaining", "syncing"}));
    progress.storeActivity = 0;
    EXPECT_EQ(state(), (Shown{"1.0 MB remaining", "syncing"}));
    progress.storedBytes = progress.totalBytesForStoring;
    EXPECT_EQ(state(), (Shown{"Backup Complete", "in-sync"}));
    progress.status = 1;
    EXPECT_EQ(state(), (Shown{"", ""}));
}

TEST(BackupLines, WithoutFoldersInviteToSelectSome) {
    AgentProgress progress = connected();
    BackupSituation situation{.hasBackupPaths = true};
    auto lines = ComposeBackupLines(progress, situation);
    EXPECT_EQ(lines.summary, "No backup configured");
    EXPECT_EQ(lines.state,
              (StatusLine{{"Select folders for backup...", {{0, 28, "orv:backup_config+1"}}}}));
    situation.policyControlsBackup = true;
    EXPECT_EQ(ComposeBackupLines(progress, situation).state, StatusLine{});
    progress.serverParsingXML = true;
    EXPECT_EQ(ComposeBackupLines(progress, situation).summary, "Setting up backup");
    situation.hasBackupPaths = false;
    EXPECT_EQ(ComposeBackupLines(progress, situation), BackupLines{}) << "what is shown stays";
}

TEST(BackupLines, StandNumbersOfEverySize) {
    AgentProgress progress = everyCause();
    progress.backupScanning = progress.serverParsingXML = progress.backupStoppedDueQuota = false;
    progress.limitBackup = false;
    progress.uploadSpeedMax = 1;
    progress.totalBytesForStoring = std::numeric_limits<std::int64_t>::max();
    progress.storedBytes = std::numeric_limits<std::int64_t>::min();
    progress.totalFilesForStoring = std::numeric_limits<std::int64_t>::max();
    const BackupSituation situation{
        .backupEnabled = true, .transferOverheadPerFile = 1e300, .bandwidthSafetyFactor = 0};
    EXPECT_EQ(ComposeBackupLines(progress, situation).state->text.text,
              "8589934592.0 GB () remaining");
}

TEST(ProjectLines, AddTheWeightiestProblemAsALink) {
    AgentProgress progress = connected();
    progress.totalProjects = 2;
    progress.totalFilesProjects = 30;
    progress.totalBytesProjects = 1'024;
    ProjectSituation situation{.violations = 2, .locks = 1, .agentId = "42"};
    const auto state = [&](std::string_view shown = "shown") {
        const auto lines = ComposeProjectLines(progress, situation, shown);
        EXPECT_EQ(lines.summary, "2 projects with 30 files (1.0 KB)");
        return lines.state;
    };
    const auto linked = [](const StatusLine& line) {
        const TextLink& link = line.text.links.at(0);
        return line.text.text.substr(link.start, link.length) + "|" + link.address + "|" +
               link.color;
    };
    EXPECT_EQ(state().text.text, "Sync Complete (2 sync violations)");
    EXPECT_EQ(linked(state()), "2 sync violations|orv:fixPermissionViolationsWindow|#e51937");
    EXPECT_EQ(state("").text.text, "Sync Complete (1 file locked)") << "not at the first redraw";
    situation.violations = 1;
    progress.timeLeft = "5 minutes";
    EXPECT_EQ(state().text.text, "5 minutes (1 sync violation)");
    EXPECT_EQ(state().image, StatusImage::Syncing);
    situation.violations = 0;
    progress.syncQuotaStatus = 1;
    EXPECT_EQ(linked(state()), "Storage Issue - Click here for details|orv:dashboard?42|#e51937");
    progress.syncQuotaStatus = 2;
    EXPECT_EQ(linked(state()), "Out of Storage - Click here for details|orv:dashboard?42|#e51937");
    progress.syncQuotaStatus = 0;
    situation.locks = 3;
    EXPECT_EQ(linked(state()), "3 files locked|orv:lockedFilesWindow|");
    progress.status = 5;
    situation.violations = 2;
    progress.syncQuotaStatus = 1;
    EXPECT_EQ(state(), StatusLine{});
}

TEST(LinkedText, LinksWholeCharacters) {
    EXPECT_EQ(WithLinkedSuffix("é", "（ü）x）", 1, 2, "a"),
              (LinkedText{"é（ü）x）", {{5, 5, "a"}}}));
    EXPECT_EQ(WithLinkedSuffix("t", "ab", 2, 1, "a"), LinkedText{"tab"});
}

}  // namespace
