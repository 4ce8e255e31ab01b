#include "pane/status/StatusModel.h"

#include <chrono>
#include <utility>

#include "agentlink/AgentVocabulary.h"
#include "foundation/system/LocalizedString.h"
#include "pane/status/ConnectionLine.h"
#include "pane/status/Headline.h"
#include "widgets/MomentText.h"
#include "widgets/SizeText.h"

namespace orv {

using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;

namespace {

void show(TextField& text, ImageView& image, const StatusLine& line) {
    text.setText(line.text);
    image.setImageName(std::string(NameOf(line.image)));
    image.setDescription(line.text.text);
}

}  // namespace

StatusModel::StatusModel(StatusOutlets& outlets, platform::RunLoop& runLoop)
    : outlets_(outlets), runLoop_(runLoop) {
    outlets_._restoreProgressButton.setHidden(true);
    outlets_._connectedFSA.setHidden(true);
}

StatusModel::~StatusModel() {
    if (dispatcher_) dispatcher_->unregisterTarget(this);
    outlets_._connectButton.setAction({});
}

std::int64_t StatusModel::now() const {
    return std::chrono::system_clock::to_time_t(runLoop_.now());
}

void StatusModel::setConnectActions(std::function<void()> connect,
                                    std::function<void()> disconnect) {
    connect_ = std::move(connect);
    disconnect_ = std::move(disconnect);
    setConnectButton(progress_.status);
}

void StatusModel::startDisconnected() {
    outlets_._connectionStatus.setStringValue("");
    outlets_._connectionInfo.setStringValue("");
    _connectionError = false;
    notifyConnectionStatus(static_cast<std::int32_t>(ConnectionStatus::NotRunning), 0,
                           inputs_.agentId);
}

void StatusModel::forgetAgent() {
    progress_ = {.limitBackup = progress_.limitBackup,
                 .activeAdapter = progress_.activeAdapter,
                 .totalProjects = progress_.totalProjects,
                 .totalFilesProjects = progress_.totalFilesProjects,
                 .totalBytesProjects = progress_.totalBytesProjects};
}

void StatusModel::setProjects(std::int64_t count, std::int64_t files, std::int64_t bytes) {
    progress_.totalProjects = count;
    progress_.totalFilesProjects = files;
    progress_.totalBytesProjects = bytes;
}

void StatusModel::setBackupTotals(std::int64_t total, std::int64_t stored) {
    progress_.totalBytesForStoring = total;
    progress_.storedBytes = stored;
}

void StatusModel::forgetSpeeds() {
    progress_.uploadSpeed = 0;
    progress_.downloadSpeed = 0;
}

void StatusModel::showConnectionStatus() {
    const ConnectionLine line =
        ComposeConnectionLine(progress_, inputs_.fullName, _connectionError, now());
    outlets_._connectionStatus.setStringValue(line.text);
    if (line.clearsError) _connectionError = false;
    outlets_._connectionInfo.setStringValue(line.info.value_or(errorText_));
    const bool isConnected = progress_.is(ConnectionStatus::Connected);
    outlets_._connectionInfo.setToolTip(
        isConnected && progress_.statusTimestamp != 0
            ? FormatLocalizedString("Status.ConnectedSince", "Connected since %@",
                                    {MomentText(progress_.statusTimestamp, now())})
            : "");
    showNetwork();
    if (line.resetsStatus) {
        resetStatusInfo();
    } else {
        showHeadline();
    }
}

void StatusModel::setConnectButton(std::uint32_t status) {
    const bool connects = status <= static_cast<std::uint32_t>(ConnectionStatus::NotRunning);
    Button& button = outlets_._connectButton;
    button.setTitle(connects ? GetLocalizedString("PrefPane.Connect", "Connect")
                             : GetLocalizedString("PrefPane.Disconnect", "Disconnect"));
    button.setAction(connects ? connect_ : disconnect_);
}

void StatusModel::resetStatusInfo() {
    showRestoreProgress(false);
    showBackupAndProjectsStatus();
}

void StatusModel::showRestoreProgress(bool isRestoring) {
    outlets_._restoreProgressButton.setHidden(!isRestoring);
}

void StatusModel::drawBackup() {
    const BackupLines lines = ComposeBackupLines(progress_, inputs_.backup);
    outlets_._backupStatus1.setStringValue(lines.summary);
    if (lines.state) show(outlets_._backupStatus2, outlets_._backupStatusImage, *lines.state);
    if (IsBackupComplete(progress_, inputs_) && completed_) completed_();
}

void StatusModel::clearBackupStatus() {
    outlets_._backupStatus1.setStringValue("");
    show(outlets_._backupStatus2, outlets_._backupStatusImage, {});
}

void StatusModel::drawProjects() {
    const ProjectLines lines = ComposeProjectLines(
        progress_,
        {.violations = inputs_.violations, .locks = inputs_.locks, .agentId = inputs_.agentId},
        outlets_._projectsStatus2.stringValue());
    outlets_._projectsStatus1.setStringValue(lines.summary);
    show(outlets_._projectsStatus2, outlets_._projectsStatusImage, lines.state);
}

void StatusModel::showBackupStatus() {
    drawBackup();
    showHeadline();
}

void StatusModel::showProjectsStatus() {
    drawProjects();
    showHeadline();
}

void StatusModel::showBackupAndProjectsStatus() {
    drawBackup();
    drawProjects();
    showHeadline();
}

void StatusModel::updateQuotaStatus() {
    drawProjects();
    drawBackup();
    showHeadline();
}

void StatusModel::showHeadline() {
    const Headline headline =
        ComposeHeadline(progress_, inputs_, _connectionError ? errorText_ : "", now());
    outlets_._headline.setText(headline.text);
    outlets_._headlineImage.setImageName(headline.image);
    outlets_._headlineImage.setDescription(headline.text.text);
    outlets_._headlineImage.setToolTip(headline.text.text);
    outlets_._lastBackup.setStringValue(LastBackupText(inputs_, now()));
}

void StatusModel::showNetwork() {
    outlets_._activeAdapterText.setStringValue(
        progress_.activeAdapter.empty() ? GetLocalizedString("Bandwidth.Unknown", "Not known yet")
                                        : progress_.activeAdapter);
    outlets_._speedText.setStringValue(
        FormatLocalizedString("Bandwidth.Speeds", "Sending %@, receiving %@ per second",
                              {orv::FileSizeString(progress_.uploadSpeed),
                               orv::FileSizeString(progress_.downloadSpeed)}));
}

}  // namespace orv
