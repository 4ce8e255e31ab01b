#include "sync/projects/ProjectsList.h"

#include <algorithm>
#include <utility>

#include "agentlink/AgentPayload.h"
#include "agentlink/AgentVocabulary.h"
#include "config/AccountId.h"
#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "sync/SyncRequest.h"
#include "sync/projects/UserNames.h"

namespace orv {

namespace {

constexpr int operationPending = 0;
constexpr int noOperation = 1;
constexpr std::chrono::seconds operationTimeout(180);

std::unique_ptr<ProjectsList>& sharedList() {
    static std::unique_ptr<ProjectsList> list;
    return list;
}

bool areEqual(const Projects& left, const Projects& right) {
    return std::ranges::equal(left, right,
                              [](const ProjectPtr& a, const ProjectPtr& b) { return *a == *b; });
}

}  // namespace

/// Follows the account's settings on behalf of the list.
class ProjectsList::SettingsClient final : public AccountList::Client {
 public:
    explicit SettingsClient(ProjectsList& list) : list_(list) {}
    void notifyAgentSettings(std::uint32_t, const AgentId& agentId) override {
        if (!agentId || IsSameAccount(*agentId, projectsAgent)) list_.loadSettings();
    }

 private:
    ProjectsList& list_;
};

ProjectsList::ProjectsList(const SyncEnvironment& environment)
    : environment_(environment),
      clients_(environment.notifications, changedNotification, this),
      store_(GetConfigurationPath(files::subscribedProjects)),
      settingsClient_(std::make_shared<SettingsClient>(*this)) {
    RegisterConnectionStatusObserver(connectionStatusNotification, this,
                                     &ForwardConnectionStatus<ProjectsList>);
    loadSettings();
    registerAgentEvents();
    environment_.accounts.addClient(settingsClient_);
}

ProjectsList::~ProjectsList() {
    environment_.dispatcher.unregisterTarget(this);
    environment_.accounts.removeClient(settingsClient_.get());
}

void ProjectsList::createInstance(quelm::Background* background) {
    if (sharedList()) return;
    sharedList() = std::make_unique<ProjectsList>(ProcessSyncEnvironment(background));
    sharedList()->loadProjectList();
}

void ProjectsList::destroyInstance() {
    sharedList().reset();
}

ProjectsList& ProjectsList::defaultProjectsList() {
    createInstance();
    return *sharedList();
}

void ProjectsList::loadSettings() {
    me = UserNames(environment_.accounts.defaultConfig());
}

void ProjectsList::registerAgentEvents() {
    AgentEventDispatcher& dispatcher = environment_.dispatcher;
    dispatcher.registerEventName(
        events::syncProjectQuota, this,
        MakeSelector<&ProjectsList::handleProjectQuota>("handleProjectQuota"));
    dispatcher.registerEventName(
        events::syncResponse, this,
        MakeSelector<&ProjectsList::handleSyncResponse>("handleSyncResponse"));
    dispatcher.registerEventName(events::syncStatus, this,
                                 MakeSelector<&ProjectsList::handleSyncStatus>("handleSyncStatus"));
    dispatcher.registerEventName(
        events::serverResponse, this,
        MakeSelector<&ProjectsList::handleServerResponse>("handleServerResponse"));
}

void ProjectsList::handleProjectQuota(const quelm::Dictionary& payload) {
    if (IsFromProjectsAgent(payload)) requestAll();
}

void ProjectsList::handleSyncStatus(const quelm::Dictionary& payload) {
    const bool isIdle = PayloadNumber(payload, keys::sendCount) == 0 &&
                        PayloadNumber(payload, keys::receiveCount) == 0;
    if (IsFromProjectsAgent(payload) && isIdle) requestAll();
}

void ProjectsList::handleServerResponse(const quelm::Dictionary& payload) {
    const bool isDone = PayloadText(payload, keys::command) == commands::setPartialSubscribe &&
                        PayloadText(payload, keys::result) == "1";
    if (IsFromProjectsAgent(payload) && isDone) requestSubscribedProjects();
}

void ProjectsList::notifyConnectionStatus(std::int32_t status, std::int64_t,
                                          const AgentId& agentId) {
    const bool isOurs = !agentId || IsSameAccount(*agentId, projectsAgent);
    if (isOurs && status == static_cast<std::int32_t>(ConnectionStatus::Connected)) requestAll();
}

void ProjectsList::handleSyncResponse(const quelm::Dictionary& payload) {
    if (!IsFromProjectsAgent(payload)) return;
    const std::string command = PayloadText(payload, keys::command);
    if (command == commands::subscribedProjects) {
        takeSubscribed(payload);
    } else if (command == commands::notSubscribedProjects) {
        takeNotSubscribed(payload);
    } else if (command == commands::subscribe) {
        projectSubscribed = true;
    }
}

void ProjectsList::takeSubscribed(const quelm::Dictionary& payload) {
    isAnswered_ = true;
    const bool isChanged = parseSubscribedProjects(ProjectListKind::Subscribed,
                                                   PayloadText(payload, keys::projectList));
    if (isChanged) storeProjectList();
    if (pendingSyncOperation_ == operationPending && existsPendingSyncOperationProject()) {
        setPendingSyncOperation(noOperation, "", "");
    }
    if (std::exchange(projectSubscribed, false)) requestNotSubscribedProjects();
    if (isChanged) postChange();
}

void ProjectsList::takeNotSubscribed(const quelm::Dictionary& payload) {
    const bool isDone = PayloadNumber(payload, keys::result) == 0;
    if (!isDone) return;
    notSubscribedProjectsReceived_ = true;
    notSubscribedProjects_.clear();
    parseSubscribedProjects(ProjectListKind::NotSubscribed,
                            PayloadText(payload, keys::projectList));
    postChange();
    answerWaiting();
}

bool ProjectsList::parseSubscribedProjects(ProjectListKind kind, std::string_view xml) {
    auto parsed = ParseProjectList(xml, kind, me);
    if (!parsed) return false;
    if (kind == ProjectListKind::Subscribed) return replaceSubscribed(std::move(*parsed));
    notSubscribedProjects_ = std::move(parsed->sync);
    notSyncedFiles = parsed->files;
    notSyncedBytes = parsed->bytes;
    return false;
}

/// Equal groups have no path that is new, so that this need not be asked beside them.
bool ProjectsList::replaceSubscribed(ParsedProjects parsed) {
    const bool isSame = areEqual(parsed.sync, subscribedSyncProjects_) &&
                        areEqual(parsed.external, subscribedExternalProjects_);
    if (!isSame) {
        subscribedSyncProjects_ = std::move(parsed.sync);
        subscribedExternalProjects_ = std::move(parsed.external);
    }
    const bool sameFiles = std::exchange(syncedFiles, parsed.files) == parsed.files;
    const bool sameBytes = std::exchange(syncedBytes, parsed.bytes) == parsed.bytes;
    return !isSame || !sameFiles || !sameBytes;
}

void ProjectsList::loadProjectList() {
    if (std::exchange(isLoading_, true)) return;
    auto stored = std::make_shared<std::optional<ParsedProjects>>();
    auto read = [stored, path = store_.path()] {
        const auto rows = ProjectListStore::load(path);
        if (rows) *stored = ProjectsOfStoredList(*rows);
    };
    auto take = [this, life = std::weak_ptr(life_), stored] {
        if (!life.expired()) takeStored(std::move(*stored));
    };
    isAnswered_ = false;
    if (environment_.background) return environment_.background->perform(read, take);
    read();
    take();
}

void ProjectsList::takeStored(std::optional<ParsedProjects> stored) {
    isLoading_ = false;
    if (!stored || isAnswered_) return;
    replaceSubscribed(std::move(*stored));
    postChange();
}

void ProjectsList::storeProjectList() {
    quelm::Array rows;
    rows.reserve(subscribedProjectsCount());
    for (const ProjectPtr& project : subscribedProjects())
        rows.emplace_back(project->dictionary());
    store_.store(rows);
}

void ProjectsList::postChange() {
    clients_.postSoon({{"operation", pendingSyncOperation_ == operationPending ? "1" : "0"},
                       {"timed-out", timedOut_ ? "1" : "0"}});
}

void ProjectsList::setPendingSyncOperation(int operation, const std::string& projectId,
                                           const std::string& projectPath) {
    pendingSyncOperation_ = operation;
    if (operation == operationPending) {
        startTimerWithTimeout(operationTimeout);
    } else {
        stopTimer();
    }
    pendingSyncOperationProjectId = projectId;
    pendingSyncOperationProjectPath = projectPath;
    postChange();
}

void ProjectsList::startTimerWithTimeout(std::chrono::milliseconds timeout) {
    timedOut_ = false;
    timer = environment_.runLoop.after(timeout, [this] { requestTimeoutElapsed(); });
}

void ProjectsList::requestTimeoutElapsed() {
    timedOut_ = true;
    setPendingSyncOperation(noOperation, "", "");
}

}  // namespace orv
