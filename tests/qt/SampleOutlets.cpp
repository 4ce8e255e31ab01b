#include "qt/SampleOutlets.h"

namespace test_support {

namespace {

void setStorage(orv::PaneOutlets& pane) {
    const orv::StorageFigures figures = SampleFigures();
    pane._pieChartView.setModel(figures);
    orv::SummaryPanel panel;
    panel.setFigures(figures);
    pane._summaryPanelView.setModel(panel);
    pane._spaceUsageLabel.setStringValue("36.0 GB of 100.0 GB are free");
}

}  // namespace

orv::StorageFigures SampleFigures() {
    constexpr std::int64_t gigabyte = std::int64_t{1024} * 1024 * 1024;
    orv::StorageFigures figures;
    figures.quota = 100 * gigabyte;
    figures.thisComputer = 38 * gigabyte;
    figures.otherComputers = 17 * gigabyte;
    figures.projects = 9 * gigabyte;
    return figures;
}

SampleOutlets::SampleOutlets() {
    fillHeader();
    fillBackup();
    fillProjects();
    fillAccount();
    fillDebug();
    fillDialogs();
    fillTree();
    fillSharing();
    fillExclude();
}

void SampleOutlets::fillHeader() {
    pane._headline.setStringValue("Backing up: 1.2 GB (4 minutes) remaining");
    pane._headlineImage.setImageName("syncing");
    pane._headlineImage.setDescription("Backing up");
    pane._lastBackup.setStringValue("Last complete backup: today at 09:41");
    pane._connectButton.setTitle("Disconnect");
    pane._connectionStatus.setStringValue("Anna Weber connected");
    pane._connectionInfo.setStringValue("Connected for 34 minutes");
    pane._connectedFSA.setStringValue("Using: fileserver-3.local");
    pane._accountsButton.setTitles({"Default", "Anna’s studio", "Workshop"});
    pane._settingsNotice.setHidden(true);
    pane._keychainNotice.setHidden(true);
}

void SampleOutlets::fillBackup() {
    folders.rows = {
        {{"share", "Documents"},
         {"path", "/home/anna/Documents"},
         {"status", "Fully Backed Up (12.4 GB)"}},
        {{"share", "Pictures"}, {"path", "/home/anna/Pictures"}, {"status", "82% Backed Up"}},
        {{"share", "Letters & notes <old>"},
         {"path", "/home/anna/Archive/1998–2012/Correspondence/Letters & notes <old>"},
         {"status", "Fully Backed Up (310.2 MB)"}},
        {{"share", "Camera"}, {"path", "/media/anna/CAMERA/DCIM"}, {"status", "Volume offline"}},
    };
    pane._foldersList.setDataSource(&folders);
    pane._foldersList.selectRows({1});
    pane._backupStatus1.setStringValue("48213 files and 1904 folders in backup (25.4 GB)");
    pane._backupStatus2.setStringValue("1.2 GB (4 minutes 10 seconds) remaining");
    pane._backupStatusImage.setImageName("syncing");
    pane._backupStatusImage.setDescription("Backing up");
    pane._restoreProgressButton.setHidden(true);
    setStorage(pane);
}

void SampleOutlets::fillProjects() {
    pane._projectsStatus1.setStringValue("3 projects with 1284 files (9.0 GB)");
    const std::string state = "Sync Complete (1 sync violation)";
    pane._projectsStatus2.setText(
        {state, {{15, 16, "orv:fixPermissionViolationsWindow", "#e51937"}}});
    pane._projectsStatusImage.setImageName("permissionViolation");
    pane._projectsStatusImage.setDescription("Needs attention");
    projects.rows = {{{"name", "Harbour bridge"},
                      {"path", "/home/anna/Tidewell Projects/Harbour bridge"},
                      {"content", "812 files (862.5 MB)"}},
                     {{"name", "Spring catalogue"},
                      {"path", "/home/anna/Tidewell Projects/Spring catalogue"},
                      {"content", "96 files (194.9 MB)"}}};
    pane._projectsTable.setDataSource(&projects);
    pane._activeAdapterText.setStringValue("Wi-Fi (wlp2s0)");
    pane._speedText.setStringValue("Upload 1.8 MB per second, download 12.0 KB per second");
}

void SampleOutlets::fillAccount() {
    pane._desktopNameLabel.setStringValue("anna-thinkpad");
    pane._usernameLabel.setStringValue("Anna Weber (Weber & Söhne)");
    pane._accountID.setStringValue("4711823");
    pane._cellName.setStringValue("Cell: eu-3");
    pane._agentID.setStringValue("90017742");
    pane._hwID.setStringValue("5F2B9E01C44D7A8890ABEEF210037C6D");
    pane._warningDays.setTitles({"Never", "After a day", "After 3 days", "After a week"});
    pane._warningDays.selectItemAtIndex(2);
    pane._startOnLoginButton.setOn(true);
    pane._allowRemoteAccess.setHidden(true);
    pane._verifyPasswordButton.setHidden(true);
    pane._resetDontShow.setHidden(true);
}

void SampleOutlets::fillDebug() {
    const std::vector<std::pair<std::string, std::string>> seen = {
        {"store_status", "agent-id=1, total-bytes=27273042330, stored-bytes=25984539034"},
        {"speed_status", "output=1887436, input=12288, outputmax=2097152, inputmax=0"},
        {"store_file_end", "total-bytes=27273042330, stored-bytes=25984539034"},
        {"store_progress", "count=65536"},
        {"sync_progress", "outfiles=0, outbytes=0, infiles=2, inbytes=881204"},
    };
    for (int i = 0; i < 40; ++i) {
        const auto& [event, payload] = seen[static_cast<std::size_t>(i) % seen.size()];
        events.rows.push_back(
            {{"time", "10:15:" + std::to_string(10 + i)}, {"event", event}, {"payload", payload}});
    }
    pane._debugWindow.setDataSource(&events);
}

void SampleOutlets::fillDialogs() {
    password._firstLine.setStringValue("Enter your Corvanta Tidewell Backup password:");
    password._password.setStringValue("secret");
    password._message.setHidden(true);
    advanced._showNotifications.setOn(true);
    advanced._greenCheckmarks.setOn(true);
    advanced._smartLocking.setOn(true);
    advanced._lockedNotice.setHidden(true);
}

}  // namespace test_support
