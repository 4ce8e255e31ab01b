#pragma once

#include "widgets/ModelView.h"
#include "widgets/Outlets.h"
#include "widgets/SummaryPanel.h"
#include "widgets/TabView.h"
#include "widgets/TableView.h"

namespace orv {

/// The tabs of the panel, in their order.
namespace tabs {
inline constexpr const char* backup = "Folders";
inline constexpr const char* projects = "Projects";
inline constexpr const char* bandwidth = "Bandwidth";
inline constexpr const char* account = "Account";
inline constexpr const char* debug = "Debug";
}  // namespace tabs

/// What the panel's window shows and what can be clicked in it.
struct PaneOutlets {
    // above the tabs
    /// What the state of the backup is in one line, whatever it consists of, with the remedy
    /// as a link.
    TextField _headline;
    ImageView _headlineImage;
    /// When the backup was complete last.
    TextField _lastBackup;
    Button _connectButton;
    TextField _connectionStatus;
    TextField _connectionInfo;
    /// The file server in use; hidden without one.
    TextField _connectedFSA;
    PopUpButton _accountsButton;
    /// What is wrong with the settings; hidden when nothing is.
    TextField _settingsNotice;
    TabView _tabs;
    TabViewItem _debugTabItem{tabs::debug};
    TabViewItem _backupTabItem{tabs::backup};

    // the backup
    ImageView _backupFolderImage;
    TextField _backupFolderText;
    TextField _backupStatus1;
    TextField _backupStatus2;
    ImageView _backupStatusImage;
    /// Columns "share", "path" and "status".
    TableView _foldersList;
    Button _manageBackupsButton;
    Button _showInFinderButton;
    Button _removeFolderButton;
    CheckBox _backupPolicyButton;
    Button _progressButton;
    Button _restoreProgressButton;
    ModelView<StorageFigures> _pieChartView;
    ModelView<SummaryPanel> _summaryPanelView;
    /// What the pie shows, in one sentence.
    TextField _spaceUsageLabel;

    // the projects
    ImageView _projectsFolderImage;
    TextField _projectsFolderText;
    TextField _projectsStatus1;
    TextField _projectsStatus2;
    ImageView _projectsStatusImage;
    Button _advancedSettings;

    // the bandwidth
    TextField _activeAdapterText;
    TextField _speedText;

    // the account
    TextField _desktopNameLabel;
    TextField _usernameLabel;
    CheckBox _startOnLoginButton;
    CheckBox _allowRemoteAccess;
    CheckBox _verifyPasswordButton;
    Button _resetDontShow;
    Button _newAccountButton;
    Button _deleteAccountButton;
    Button _supportButton;
    Button _uninstallButton;
    TextField _versionString;
    TextField _accountID;
    TextField _agentID;
    TextField _cellName;
    TextField _hwID;
    Button _copyDeviceInfoButton;
    Button _copyDeviceIDButton;
    Button _copyLogsButton;

    // debugging
    /// The last events of agents: columns "time", "event" and "payload".
    TableView _debugWindow;
};

}  // namespace orv
