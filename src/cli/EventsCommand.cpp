#include <algorithm>
#include <charconv>
#include <chrono>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <limits>
#include <memory>
#include <ostream>
#include <vector>

#include "agentlink/AgentNotifications.h"
#include "agentlink/AgentVocabulary.h"
#include "cli/Commands.h"
#include "cli/Complaint.h"
#include "cli/ValueText.h"
#include "config/PropertyAccess.h"
#include "foundation/system/LocalizedString.h"
#include "platform/Services.h"

namespace orv::cli {

namespace {

using quelm::Dictionary;

constexpr std::chrono::seconds patience(2);

/// Prints what the options ask for, and ends the run loop at the last.
class EventPrinter {
 public:
    EventPrinter(const Arguments& arguments, std::uint64_t count, Console& console)
        : names_(arguments.values("--name")),
          agent_(arguments.value("--agent")),
          left_(count),
          out_(&console.out) {}

    void observe(platform::DistributedNotificationCenter& center) {
        for (const char* name : notifications::all) {
            observations_.push_back(
                center.observe(name, NotificationObjectId(), [this, name](const auto& payload) {
                    if (isWanted(name, payload)) print(name, payload);
                }));
        }
    }

    void printLine(const quelm::Value& value) {
        fmt::print(*out_, "{}\n", ValueAsJson(value));
        out_->flush();
    }

 private:
    /// A name is a notification's, with or without what stands before its last dot, or an event's.
    [[nodiscard]] bool isWanted(std::string_view notification, const Dictionary& payload) const {
        if (agent_ && GetStringProperty(payload, keys::agentId) != agent_) return false;
        const auto event = GetStringProperty(payload, keys::eventName);
        const auto shortName = notification.substr(notification.rfind('.') + 1);
        const auto matches = [&](const std::string& name) {
            return name == notification || name == shortName || name == event;
        };
        return names_.empty() || std::any_of(names_.begin(), names_.end(), matches);
    }

    void print(const char* notification, const Dictionary& payload) {
        if (left_ == 0) return;
        printLine(Dictionary{{"notification", notification}, {"payload", payload}});
        if (--left_ == 0) platform::ProcessServices().runLoop->stopModal(0);
    }

    std::vector<std::string> names_;
    std::optional<std::string> agent_;
    std::uint64_t left_;
    std::ostream* out_;
    std::vector<std::unique_ptr<platform::DistributedNotificationCenter::Observation>>
        observations_;
};

/// How many to print; none when the option is no such number.
std::optional<std::uint64_t> countOf(const Arguments& arguments) {
    const auto text = arguments.value("--count");
    std::uint64_t count = std::numeric_limits<std::uint64_t>::max();
    if (!text) return count;
    const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), count);
    const bool good = error == std::errc() && end == text->data() + text->size() && count > 0;
    return good ? std::optional(count) : std::nullopt;
}

}  // namespace

ExitCode PrintEvents(const Arguments& arguments, Console& console) {
    const auto count = countOf(arguments);
    if (!count) {
        Say(console, quelm::GetLocalizedString("Link.BadCount", "--count takes a number above 0"));
        return ExitCode::Usage;
    }
    const auto& services = platform::ProcessServices();
    EventPrinter printer(arguments, *count, console);
    if (services.notifications) printer.observe(*services.notifications);
    if (!services.notifications || !services.runLoop ||
        !services.notifications->waitUntilListening(patience)) {
        Say(console,
            quelm::GetLocalizedString("Link.NothingToHear",
                                      "No session bus answers, so there is nothing to hear. "
                                      "Is DBUS_SESSION_BUS_ADDRESS set?"));
        return ExitCode::NoAgent;
    }
    printer.printLine(Dictionary{{"ready", true}});
    return services.runLoop->runModal() == 0 ? ExitCode::Done : ExitCode::Failed;
}

}  // namespace orv::cli
