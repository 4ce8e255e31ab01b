#include <chrono>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <functional>
#include <memory>
#include <ostream>
#include <string>

#include "accounts/AccountList.h"
#include "agentlink/AgentEventQueue.h"
#include "agentlink/AgentVocabulary.h"
#include "cli/Commands.h"
#include "cli/Complaint.h"
#include "cli/SessionBus.h"
#include "cli/SettingsChange.h"
#include "cli/StatusReport.h"
#include "cli/ValueText.h"
#include "config/AccountId.h"
#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/texts/VisibleText.h"
#include "foundation/threads/Background.h"
#include "pane/agent/LocalAgentApplication.h"
#include "pane/folders/FolderTable.h"
#include "pane/settings/DeviceInfo.h"
#include "pane/status/AccountInputs.h"
#include "pane/status/BackupHistory.h"
#include "pane/status/StatusModel.h"
#include "platform/Services.h"
#include "sync/locks/LockedFilesList.h"
#include "sync/projects/ProjectsList.h"

namespace orv::cli {

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 2s;

class SettingsClient final : public AccountList::Client {
 public:
    explicit SettingsClient(std::function<void()> changed) : changed_(std::move(changed)) {}
    void notifyAgentSettings(std::uint32_t hint, const AgentId&) override {
        if (hint & HintActiveAccount) ClearConfigBasePath();
        changed_();
    }

 private:
    std::function<void()> changed_;
};

/// The panel's status lines without a panel.
class StatusViewer {
 public:
    StatusViewer()
        : runLoop_(*platform::ProcessServices().runLoop),
          accounts_(AccountList::defaultAccountList()),
          account_(*accounts_.accountAtIndex(0)),
          projects_(ProcessSyncEnvironment()),
          locks_(ProcessSyncEnvironment()),
          model_(shown_, runLoop_),
          folders_(table_, foreground_, [] {}) {
        projects_.addClient(this, MakeSelector<&StatusViewer::takeProjects>("takeProjects"));
        locks_.addClient(this, MakeSelector<&StatusViewer::takeLocks>("takeLocks"));
        takeSettings();
        model_.startDisconnected();
        projects_.loadProjectList();
        model_.registerAgentEvents(AgentEventDispatcher::defaultDispatcher());
        ObserveConnectionStatus(record_, [this](const AgentId& id, std::int32_t, std::int64_t) {
            if (!id || IsSameAccount(*id, account_.agentID())) runLoop_.stopModal(1);
        });
    }
    StatusViewer(const StatusViewer&) = delete;
    StatusViewer& operator=(const StatusViewer&) = delete;
    ~StatusViewer() {
        projects_.removeClient(this);
        locks_.removeClient(this);
    }

    [[nodiscard]] const StatusOutlets& shown() const { return shown_; }
    [[nodiscard]] const std::string& agentId() const { return account_.agentID(); }

    /// Until the agent has said how it is connected, or for so long.
    void waitForReport() {
        const auto timer = runLoop_.after(patience, [this] { runLoop_.stopModal(0); });
        NotifyAgentReportStatus(agentId());
        runLoop_.runModal();
    }

    /// For ever, calling `changed` once for all changes that come together.
    void follow(const std::function<void()>& changed) {
        RemoveAgentObserver(record_);
        observe(changed);
        const auto settings = std::make_shared<SettingsClient>([this] { settingsChanged(); });
        accounts_.addClient(settings);
        const auto clock = runLoop_.every(30s, [this] { model_.showConnectionStatus(); });
        const auto agentWatch = runLoop_.every(3s, [this] { watchAgent(); });
        runLoop_.runModal();
    }

    void takeProjects() {
        model_.setProjects(static_cast<std::int64_t>(projects_.subscribedProjectsCount()),
                           projects_.subscribedProjectsFiles(),
                           projects_.subscribedProjectsBytes());
        model_.showProjectsStatus();
    }
    void takeLocks() {
        model_.inputs().locks = static_cast<std::int64_t>(locks_.myLocks().size());
        model_.showProjectsStatus();
    }

 private:
    void observe(const std::function<void()>& changed) {
        View* const views[] = {&shown_._headline,        &shown_._connectionStatus,
                               &shown_._connectionInfo,  &shown_._connectButton,
                               &shown_._backupStatus1,   &shown_._backupStatus2,
                               &shown_._projectsStatus1, &shown_._projectsStatus2};
        for (View* view : views) {
            view->observe([this, &changed] {
                if (std::exchange(isPosted_, true)) return;
                runLoop_.post([this, &changed] {
                    isPosted_ = false;
                    changed();
                });
            });
        }
    }

    void settingsChanged() {
        takeSettings();
        model_.showConnectionStatus();
        model_.showBackupAndProjectsStatus();
    }

    /// An agent that was killed says nothing.
    void watchAgent() {
        const auto notRunning = static_cast<std::int32_t>(ConnectionStatus::NotRunning);
        if (model_.progress().status <= static_cast<std::uint32_t>(notRunning) ||
            IsAgentThere(platform::ProcessServices().notifications.get(), agentId()))
            return;
        model_.notifyConnectionStatus(
            notRunning, std::chrono::system_clock::to_time_t(runLoop_.now()), agentId());
    }

    void takeSettings() {
        StatusInputs& inputs = model_.inputs();
        TakeAccountSettings(inputs, accounts_, account_, account_);
        folders_.loadStorageSettings(account_.records(),
                                     GetConfigurationPath(files::storageExceptions));
        inputs.backup.offlineIncomplete = folders_.isOfflineIncomplete();
        inputs.offlineVolumes = folders_.offlineVolumes();
        inputs.lastComplete = BackupHistory::read(account_.accountFolderPath());
    }

    platform::RunLoop& runLoop_;
    AccountList& accounts_;
    Account& account_;
    ProjectsList projects_;
    LockedFilesList locks_;
    StatusOutlets shown_;
    StatusModel model_;
    quelm::Foreground foreground_;
    TableView table_;
    FolderTable folders_;
    AgentObserverRecord record_;
    bool isPosted_ = false;
};

void print(Console& console, const std::string& report) {
    fmt::print(console.out, "{}{}", report, console.json ? "\n" : "");
    console.out.flush();
}

std::string reportOf(const StatusViewer& viewer, const Console& console) {
    return console.json ? StatusAsJson(viewer.shown()) : StatusAsText(viewer.shown());
}

/// Prints what differs from what was printed last.
void watch(StatusViewer& viewer, Console& console, std::string printed) {
    viewer.follow([&] {
        std::string report = reportOf(viewer, console);
        if (report == printed) return;
        printed = std::move(report);
        print(console, printed);
    });
}

ExitCode showStatus(const Arguments& arguments, Console& console) {
    StatusViewer viewer;
    auto* const bus = ConnectedBus();
    const bool isThere = IsAgentThere(bus, viewer.agentId());
    if (isThere) viewer.waitForReport();
    const std::string report = reportOf(viewer, console);
    print(console, report);
    if (arguments.has("--watch") && bus) watch(viewer, console, report);
    return isThere ? ExitCode::Done : ExitCode::NoAgent;
}

}  // namespace

ExitCode ShowStatus(const Arguments& arguments, Console& console) {
    const AgentEventSession session;
    return showStatus(arguments, console);
}

ExitCode ConnectAgent(const Arguments&, Console& console) {
    auto* const bus = ConnectedBus();
    if (!bus) return FailWithoutBus(console);
    const platform::Services& services = platform::ProcessServices();
    const std::string agentId = AccountOfCommandLine();
    quelm::Foreground foreground;
    LocalAgentApplication application(
        {*bus, *services.workspace, foreground, LocalAgentApplication::programBeside("orvAgent")});
    application.launch(agentId, [&] { NotifyAgentEvent(agentId, events::requestConnect); });
    const bool isThere = IsAgentThere(bus, agentId);
    const ExitCode sent = SendPosted(console);
    if (isThere) return sent;
    return Fail(
        console, ExitCode::NoAgent,
        quelm::FormatLocalizedString("Cli.AgentNotStarted",
                                     "The agent of account %@ could not be started.", {agentId}));
}

ExitCode DisconnectAgent(const Arguments&, Console& console) {
    auto* const bus = ConnectedBus();
    if (!bus) return FailWithoutBus(console);
    const std::string agentId = AccountOfCommandLine();
    const bool isThere = IsAgentThere(bus, agentId);
    NotifyAgentEvent(agentId, events::requestDisconnect);
    const ExitCode sent = SendPosted(console);
    return isThere ? sent : ExitCode::NoAgent;
}

ExitCode ShowDeviceInfo(const Arguments&, Console& console) {
    const orvAgentSettings& settings = AccountList::defaultAccountList().defaultConfig();
    DeviceInfo info = DeviceInfoOf(settings, HardwareIdText());
    if (console.json) {
        fmt::print(console.out, "{}\n",
                   ValueAsJson(quelm::Dictionary{{"deviceInfo", DeviceInfoText(info)}}));
    } else {
        for (std::string* text : {&info.accountId, &info.cellName, &info.deviceId})
            *text = quelm::VisibleText(*text);
        fmt::print(console.out, "{}", DeviceInfoText(info));
    }
    return ExitCode::Done;
}

}  // namespace orv::cli
