#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "agentlink/LocalClients.h"
#include "sync/SyncEnvironment.h"
#include "sync/locks/LockedItems.h"
#include "sync/locks/UnlockNotice.h"

namespace orv {

/// The locked files that the agents report, ordered by path. Main thread only; nothing waits.
class LockedFilesList {
 public:
    static constexpr const char* changedNotification = "locked_files_list_changed";

    explicit LockedFilesList(const SyncEnvironment& environment);
    LockedFilesList(const LockedFilesList&) = delete;
    LockedFilesList& operator=(const LockedFilesList&) = delete;
    ~LockedFilesList();

    /// The process's own, made on first use from its services.
    static LockedFilesList& defaultLockedFilesList();
    /// Ends it, before the services end.
    static void destroyInstance();

    /// Clients get {"lock": the changed lock's dictionary} and remove themselves before they go
    /// away.
    template <class Target>
    void addClient(Target* target, const Selector<Target>& selector) {
        clients_.add(target, selector);
    }
    void removeClient(const void* target) { clients_.remove(target); }

    [[nodiscard]] std::size_t count() const { return locks().size(); }
    [[nodiscard]] const std::vector<Lock>& locks() const { return lockedFiles.locks(); }
    [[nodiscard]] std::optional<Lock> lockForPath(std::string_view path) const;
    /// Those that the user holds.
    [[nodiscard]] std::vector<Lock> myLocks() const;

    /// Asks the agent for all locks, which it reports one by one.
    void populateList();
    void repopulateList() { populateList(); }

    // What the agent says.
    void handleSyncItem(const quelm::Dictionary& payload);
    void handleAgentStarted(const quelm::Dictionary& payload);
    void handleServerResponse() {}
    void handleSyncResponse() {}

 private:
    void registerAgentEvents();

    LockedItems lockedFiles{ShowUnlockNotice};
    SyncEnvironment environment_;
    LocalClients clients_;
};

}  // namespace orv
