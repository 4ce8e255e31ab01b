#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "agentlink/LocalClients.h"
#include "sync/SyncEnvironment.h"
#include "sync/projects/Project.h"
#include "sync/projects/ProjectListParser.h"
#include "sync/projects/ProjectListStore.h"

namespace orv {

/// All projects that the panel knows, in three groups: subscribed and synchronised in the master
/// project folder, subscribed in folders of their own (external), and those to which the user could
/// subscribe. It asks the agent, takes its answers, keeps the subscribed ones in a file and tells
/// its clients of changes. docs/projects.md says what is asked and answered. Main thread only;
/// nothing waits unless said so.
class ProjectsList {
 public:
    static constexpr const char* changedNotification = "projects_list_changed";

    explicit ProjectsList(const SyncEnvironment& environment);
    ProjectsList(const ProjectsList&) = delete;
    ProjectsList& operator=(const ProjectsList&) = delete;
    ~ProjectsList();

    /// Makes the shared list from the process's services, with what was stored, unless it is there.
    /// With a background, which outlives it, what was stored comes later.
    static void createInstance(quelm::Background* background = nullptr);
    /// Ends it, before the services end.
    static void destroyInstance();
    /// Made when it is asked for first.
    static ProjectsList& defaultProjectsList();

    /// Clients get {"operation": "1" while an operation is pending, "timed-out"} and remove
    /// themselves before they go away.
    template <class Target>
    void addClient(Target* target, const Selector<Target>& selector) {
        clients_.add(target, selector);
    }
    void removeClient(const void* target) { clients_.remove(target); }

    // Each a new list of the shared projects.
    /// Not subscribed, then subscribed, then external.
    [[nodiscard]] Projects projects() const;
    [[nodiscard]] Projects subscribedProjects() const;
    [[nodiscard]] Projects subscribedSyncProjects() const { return subscribedSyncProjects_; }
    [[nodiscard]] Projects subscribedExternalProjects() const {
        return subscribedExternalProjects_;
    }
    [[nodiscard]] Projects notSubscribedProjects() const { return notSubscribedProjects_; }

    [[nodiscard]] std::size_t subscribedProjectsCount() const {
        return subscribedSyncProjects_.size() + subscribedExternalProjects_.size();
    }
    [[nodiscard]] std::size_t notSubscribedProjectsCount() const {
        return notSubscribedProjects_.size();
    }
    [[nodiscard]] bool notSubscribedProjectsReceived() const {
        return notSubscribedProjectsReceived_;
    }
    [[nodiscard]] std::int64_t subscribedProjectsFiles() const { return syncedFiles; }
    [[nodiscard]] std::int64_t subscribedProjectsBytes() const { return syncedBytes; }
    [[nodiscard]] std::int64_t notSubscribedProjectsFiles() const { return notSyncedFiles; }
    [[nodiscard]] std::int64_t notSubscribedProjectsBytes() const { return notSyncedBytes; }

    /// How many projects could be subscribed to; without `known` only those of which the user has
    /// not been told. Before the first answer it runs the run loop for up to a second, and answers
    /// 1, with a warning in the log, when none comes: for programs without windows.
    [[nodiscard]] std::size_t subscribableProjectsCountWithKnown(bool known);
    /// The same without waiting: `answer` is called at once, with the answer or after the second;
    /// never after the list is gone.
    void subscribableProjectsCount(bool known, std::function<void(std::size_t count)> answer);

    // Null where there is none.
    [[nodiscard]] ProjectPtr projectWithId(std::string_view id) const;
    [[nodiscard]] ProjectPtr projectWithPath(std::string_view path) const;
    [[nodiscard]] ProjectPtr projectWithName(std::string_view name) const;
    /// Among the user's own.
    [[nodiscard]] ProjectPtr mineProjectWithName(std::string_view name) const;
    /// The subscribed project in whose folder the path lies, the innermost of several.
    [[nodiscard]] ProjectPtr projectForPath(std::string_view path) const;

    // "" for a path in no project.
    [[nodiscard]] std::string projectNameForPath(std::string_view path) const;
    /// The path from the project's folder on, without a "/" before it; "" for the folder itself.
    [[nodiscard]] std::string relativePathForPath(std::string_view path) const;
    /// Both at once: the project's name and the path in it.
    void splitPath(std::string_view path, std::string& project, std::string& relativePath) const;

    // Requests to the agent. What is missing travels as an empty text.
    using Text = std::optional<std::string>;
    void requestSubscribedProjects();
    void requestSubscribedProjectsCalculateSynced(bool calculateSynced);
    void requestNotSubscribedProjects();
    void requestAll();
    void subscribeProject(const Project& project, const Text& path, const Text& folderId,
                          const Text& mergeOption);
    void subscribeProject(const Project& project, const Text& path, const Text& mergeOption);
    void subscribeProjectAtPath(const Project& project, const Text& path);
    void subscribeProjectFolderId(const Project& project, const Text& folderId);
    void subscribeProject(const Project& project);
    void partialySubscribeProject(const Project& project);
    void getPartialInfo(const Project& project);
    void setPath(const std::string& path, const Project& project);
    void unsubscribeProject(const Project& project, const Text& folderId = {});
    void unsubscribeProjectPath(const std::string& path);
    void createEPPath(const std::string& path, const std::string& name);
    void createEPPath(const std::string& path, const std::string& name, const std::string& owner,
                      const std::string& password);
    /// Moves an external project.
    void updateProjectOldPath(const std::string& oldPath, const std::string& newPath);
    void commitProjects();
    /// Without a root the account's master project folder.
    void startImportProjects(const Projects& projects, const std::string& sourcePath,
                             const Text& projectRoot);

    /// 0 starts an operation that the project's arrival ends, or a time-out of 180 seconds; any
    /// other value ends it.
    void setPendingSyncOperation(int operation, const std::string& projectId,
                                 const std::string& projectPath);
    /// 0 while one is pending, 1 when none is.
    [[nodiscard]] int pendingSyncOperation() const { return pendingSyncOperation_; }
    [[nodiscard]] bool timedOut() const { return timedOut_; }
    [[nodiscard]] bool existsPendingSyncOperationProject() const;

    /// Reads the stored list and tells the clients; nothing changes where there is none, or when
    /// the agent answered meanwhile.
    void loadProjectList();

    // What the agent says.
    void handleProjectQuota(const quelm::Dictionary& payload);
    void handleSyncResponse(const quelm::Dictionary& payload);
    void handleSyncStatus(const quelm::Dictionary& payload);
    void handleServerResponse(const quelm::Dictionary& payload);
    /// A connection that comes up asks for the lists again.
    void notifyConnectionStatus(std::int32_t status, std::int64_t timestamp,
                                const AgentId& agentId);

    /// Waits until what was to be stored is on the disk: before the program ends, and for tests.
    void waitUntilStored() { store_.wait(); }

 private:
    class SettingsClient;
    /// Somebody who asked for the count before the agent's first answer.
    struct Waiting {
        bool known;
        std::function<void(std::size_t count)> answer;
        std::unique_ptr<platform::RunLoop::Timer> timer = {};
    };

    void loadSettings();
    void registerAgentEvents();
    void takeStored(std::optional<ParsedProjects> stored);
    void storeProjectList();
    void takeSubscribed(const quelm::Dictionary& payload);
    void takeNotSubscribed(const quelm::Dictionary& payload);
    /// Whether anything is different.
    bool parseSubscribedProjects(ProjectListKind kind, std::string_view xml);
    bool replaceSubscribed(ParsedProjects parsed);
    void postChange();
    void startTimerWithTimeout(std::chrono::milliseconds timeout);
    void stopTimer() { timer.reset(); }
    void requestTimeoutElapsed();
    /// In the order in which projects are looked for; the others before the subscribed ones.
    [[nodiscard]] std::array<const Projects*, 3> groups() const {
        return {&notSubscribedProjects_, &subscribedSyncProjects_, &subscribedExternalProjects_};
    }
    [[nodiscard]] ProjectPtr firstProject(const ProjectKey& key, std::string_view text) const;
    [[nodiscard]] std::size_t countSubscribable(bool known) const;
    void answerWaiting();

    Projects subscribedSyncProjects_;
    Projects subscribedExternalProjects_;
    Projects notSubscribedProjects_;
    std::int64_t syncedFiles = 0;
    std::int64_t syncedBytes = 0;
    std::int64_t notSyncedFiles = 0;
    std::int64_t notSyncedBytes = 0;
    bool notSubscribedProjectsReceived_ = false;
    /// A subscription or a move was asked for: the next list of subscribed projects is followed by
    /// a request for the others.
    bool projectSubscribed = false;
    int pendingSyncOperation_ = 1;
    std::string pendingSyncOperationProjectId;
    std::string pendingSyncOperationProjectPath;
    std::unique_ptr<platform::RunLoop::Timer> timer;
    bool timedOut_ = false;
    /// The names by which the agent may call the user.
    std::set<std::string> me;
    AgentObserverRecord connectionStatusNotification;

    SyncEnvironment environment_;
    LocalClients clients_;
    ProjectListStore store_;
    std::shared_ptr<SettingsClient> settingsClient_;
    std::list<Waiting> waiting_;
    bool isAnswered_ = false;
    /// The stored list is being read.
    bool isLoading_ = false;
    /// Gone when the list is.
    std::shared_ptr<bool> life_ = std::make_shared<bool>(true);
};

}  // namespace orv
