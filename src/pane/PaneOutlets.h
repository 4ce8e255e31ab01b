#pragma once

#include "pane/status/StatusOutlets.h"
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
struct PaneOutlets : StatusOutlets {
    // above the tabs
    PopUpButton _accountsButton;
    /// What is wrong with the settings; hidden when nothing is.
    TextField _settingsNotice;
    TabView _tabs;
    TabViewItem _debugTabItem{tabs::debug};
    TabViewItem _backupTabItem{tabs::backup};

    // the backup
    ImageView _backupFolderImage;
    TextField _backupFolderText;
    /// Columns "share", "path" and "status".
    TableView _foldersList;
    Button _manageBackupsButton;
    Button _showInFinderButton;
    Button _removeFolderButton;
    CheckBox _backupPolicyButton;
    Button _progressButton;
    ModelView<StorageFigures> _pieChartView;
    ModelView<SummaryPanel> _summaryPanelView;
    /// The pie in words.
    TextField _spaceUsageLabel;

    // the projects
    ImageView _projectsFolderImage;
    TextField _projectsFolderText;
    /// Columns "name", "path" and "content".
    TableView _projectsTable;
    Button _advancedSettings;

    // the account
    TextField _desktopNameLabel;
    TextField _usernameLabel;
    CheckBox _startOnLoginButton;
    CheckBox _allowRemoteAccess;
    CheckBox _verifyPasswordButton;
    /// When to warn that there was no complete backup.
    PopUpButton _warningDays;
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

    /// What is wrong with the place where passwords are kept; hidden when nothing is.
    TextField _keychainNotice;

    // debugging
    /// The last events of agents: columns "time", "event" and "payload".
    TableView _debugWindow;
};

}  // namespace orv
