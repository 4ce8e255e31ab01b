#include "qt/windows/MainWindow.h"

#include <QShortcut>
#include <QShowEvent>
#include <ui_PrefPane.h>
#include <utility>

#include "pane/PaneOutlets.h"
#include "qt/binding/Mnemonics.h"
#include "qt/elements/MakeChild.h"
#include "qt/windows/LocalizedColumn.h"
#include "qt/windows/PrepareWindow.h"

namespace orv {

namespace {

std::vector<TableColumn> folderColumns() {
    return {LocalizedColumn("share", {"PrefPane.ShareColumn", "Name"}, ColumnWidth::Contents,
                            Qt::ElideMiddle),
            LocalizedColumn("path", {"PrefPane.PathColumn", "Folder"}, ColumnWidth::Rest,
                            Qt::ElideMiddle),
            LocalizedColumn("status", {"PrefPane.StatusColumn", "Status"}, ColumnWidth::Contents,
                            Qt::ElideRight)};
}

std::vector<TableColumn> projectColumns() {
    return {LocalizedColumn("name", {"PrefPane.ProjectColumn", "Project"}, ColumnWidth::Contents,
                            Qt::ElideMiddle),
            LocalizedColumn("path", {"PrefPane.PathColumn", "Folder"}, ColumnWidth::Rest,
                            Qt::ElideMiddle),
            LocalizedColumn("content", {"PrefPane.ContentColumn", "Content"}, ColumnWidth::Contents,
                            Qt::ElideRight)};
}

std::vector<TableColumn> eventColumns() {
    return {LocalizedColumn("time", {"PrefPane.TimeColumn", "Time"}, ColumnWidth::Contents,
                            Qt::ElideRight),
            LocalizedColumn("event", {"PrefPane.EventColumn", "Event"}, ColumnWidth::Contents,
                            Qt::ElideRight),
            LocalizedColumn("payload", {"PrefPane.PayloadColumn", "Content"}, ColumnWidth::Rest,
                            Qt::ElideRight)};
}

}  // namespace

MainWindow::MainWindow(const WindowContext& context, PaneOutlets& outlets)
    : ui_(std::make_unique<Ui::PrefPane>()) {
    ui_->setupUi(this);
    setUp(context);
    bindings_ = std::make_unique<Bindings>(context, *this);
    bindHeader(outlets);
    bindBackup(outlets);
    bindProjects(outlets);
    bindBandwidth(outlets);
    bindAccount(outlets);
    bindDebug(outlets);
    AssignMnemonics(*this);
}

MainWindow::~MainWindow() = default;

void MainWindow::setUp(const WindowContext& context) {
    ui_->_foldersList->setColumns(folderColumns());
    ui_->_projectsTable->setColumns(projectColumns());
    ui_->_debugWindow->setColumns(eventColumns());
    PrepareWindow(*this, context);
    ui_->_tabs->setFocus();
    for (const auto key : {QKeySequence::Close, QKeySequence::Quit}) {
        auto* shortcut = MakeChild<QShortcut>(this, QKeySequence(key));
        connect(shortcut, &QShortcut::activated, this, &QWidget::close);
    }
}

void MainWindow::bindHeader(PaneOutlets& outlets) {
    bindings_->bind(outlets._headline, ui_->_headline);
    bindings_->bind(outlets._headlineImage, ui_->_headlineImage);
    bindings_->bind(outlets._lastBackup, ui_->_lastBackup);
    bindings_->bind(outlets._connectButton, ui_->_connectButton);
    bindings_->bind(outlets._connectionStatus, ui_->_connectionStatus);
    bindings_->bind(outlets._connectionInfo, ui_->_connectionInfo);
    bindings_->bind(outlets._connectedFSA, ui_->_connectedFSA);
    bindings_->bind(outlets._accountsButton, ui_->_accountsButton);
    bindings_->bind(outlets._settingsNotice, ui_->_settingsNotice);
    bindings_->bind(outlets._keychainNotice, ui_->_keychainNotice);
    bindings_->bind(outlets._tabs, ui_->_tabs);
}

void MainWindow::bindBackup(PaneOutlets& outlets) {
    bindings_->bind(outlets._backupFolderImage, ui_->_backupFolderImage);
    bindings_->bind(outlets._backupFolderText, ui_->_backupFolderText);
    bindings_->bind(outlets._backupStatus1, ui_->_backupStatus1);
    bindings_->bind(outlets._backupStatus2, ui_->_backupStatus2);
    bindings_->bind(outlets._backupStatusImage, ui_->_backupStatusImage);
    bindings_->bind(outlets._foldersList, ui_->_foldersList);
    bindings_->bind(outlets._manageBackupsButton, ui_->_manageBackupsButton);
    bindings_->bind(outlets._showInFinderButton, ui_->_showInFinderButton);
    bindings_->bind(outlets._removeFolderButton, ui_->_removeFolderButton);
    bindings_->bind(outlets._backupPolicyButton, ui_->_backupPolicyButton);
    bindings_->bind(outlets._progressButton, ui_->_progressButton);
    bindings_->bind(outlets._restoreProgressButton, ui_->_restoreProgressButton);
    bindings_->bind(outlets._pieChartView, ui_->_pieChartView);
    bindings_->bind(outlets._summaryPanelView, ui_->_summaryPanelView);
    bindings_->bind(outlets._spaceUsageLabel, ui_->_spaceUsageLabel);
}

void MainWindow::bindProjects(PaneOutlets& outlets) {
    bindings_->bind(outlets._projectsFolderImage, ui_->_projectsFolderImage);
    bindings_->bind(outlets._projectsFolderText, ui_->_projectsFolderText);
    bindings_->bind(outlets._projectsStatus1, ui_->_projectsStatus1);
    bindings_->bind(outlets._projectsStatus2, ui_->_projectsStatus2);
    bindings_->bind(outlets._projectsStatusImage, ui_->_projectsStatusImage);
    bindings_->bind(outlets._projectsTable, ui_->_projectsTable);
    bindings_->bind(outlets._advancedSettings, ui_->_advancedSettings);
}

void MainWindow::bindBandwidth(PaneOutlets& outlets) {
    bindings_->bind(outlets._activeAdapterText, ui_->_activeAdapterText);
    bindings_->bind(outlets._speedText, ui_->_speedText);
}

void MainWindow::bindAccount(PaneOutlets& outlets) {
    bindings_->bind(outlets._desktopNameLabel, ui_->_desktopNameLabel);
    bindings_->bind(outlets._usernameLabel, ui_->_usernameLabel);
    bindings_->bind(outlets._accountID, ui_->_accountID);
    bindings_->bind(outlets._cellName, ui_->_cellName);
    bindings_->bind(outlets._agentID, ui_->_agentID);
    bindings_->bind(outlets._hwID, ui_->_hwID);
    bindings_->bind(outlets._versionString, ui_->_versionString);
    bindings_->bind(outlets._copyDeviceInfoButton, ui_->_copyDeviceInfoButton);
    bindings_->bind(outlets._copyDeviceIDButton, ui_->_copyDeviceIDButton);
    bindings_->bind(outlets._copyLogsButton, ui_->_copyLogsButton);
    bindings_->bind(outlets._warningDays, ui_->_warningDays);
    bindings_->bind(outlets._startOnLoginButton, ui_->_startOnLoginButton);
    bindings_->bind(outlets._allowRemoteAccess, ui_->_allowRemoteAccess);
    bindings_->bind(outlets._verifyPasswordButton, ui_->_verifyPasswordButton);
    bindings_->bind(outlets._newAccountButton, ui_->_newAccountButton);
    bindings_->bind(outlets._deleteAccountButton, ui_->_deleteAccountButton);
    bindings_->bind(outlets._supportButton, ui_->_supportButton);
    bindings_->bind(outlets._resetDontShow, ui_->_resetDontShow);
    bindings_->bind(outlets._uninstallButton, ui_->_uninstallButton);
}

void MainWindow::bindDebug(PaneOutlets& outlets) {
    bindings_->bind(outlets._debugWindow, ui_->_debugWindow);
}

void MainWindow::setShownChanged(std::function<void(bool shown)> changed) {
    shownChanged_ = std::move(changed);
}

void MainWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (shownChanged_ && !event->spontaneous()) shownChanged_(true);
}

void MainWindow::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (shownChanged_ && !event->spontaneous()) shownChanged_(false);
}

}  // namespace orv
