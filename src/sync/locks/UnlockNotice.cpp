#include "sync/locks/UnlockNotice.h"

#include "agentlink/AgentNotifications.h"
#include "agentlink/AgentVocabulary.h"
#include "foundation/paths/Paths.h"
#include "foundation/system/LocalizedString.h"

namespace orv {

namespace {

// as "show_message" takes them: whom it concerns, and seconds
constexpr const char* everyAgent = "0";
constexpr const char* shownFor = "10";

}  // namespace

void ShowUnlockNotice(Lock& lock, bool shown) {
    if (lock.notificationShowed() == shown) return;
    lock.setNotificationShowed(shown);
    const std::string id = "unlock-pending-" + lock.fileID();
    if (!shown) {
        NotifyAgentEvent(everyAgent, events::showMessage, {{keys::id, id}, {keys::hide, "1"}});
        return;
    }
    const std::string text = quelm::FormatLocalizedString(
        "LockedFilesList.UnlockDeffered", "Unlock deferred until upload of '%@' completes",
        {quelm::GetLastPathComponent(lock.path())});
    NotifyAgentEvent(everyAgent, events::showMessage,
                     {{keys::title, messageTitle},
                      {keys::text, text},
                      {keys::timeout, shownFor},
                      {keys::id, id}});
}

}  // namespace orv
