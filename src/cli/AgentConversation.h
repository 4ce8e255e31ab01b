#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "agentlink/AgentObservers.h"
#include "cli/Command.h"
#include "platform/RunLoop.h"

namespace orv::cli {

/// What a command asks of the agent that keeps the projects, and hears from it.
class AgentConversation {
 public:
    /// What an event is to the command.
    enum class Heard { Nothing, More, Last };
    using Take = std::function<Heard(const std::string& event, const quelm::Dictionary& payload)>;

    /// Listens from now on. Without a bus the agent is not there.
    explicit AgentConversation(Take take);
    AgentConversation(const AgentConversation&) = delete;
    AgentConversation& operator=(const AgentConversation&) = delete;
    /// Sends what is left; nothing can be posted afterwards.
    ~AgentConversation();

    [[nodiscard]] bool isAgentThere() const { return isAgentThere_; }

    /// Sends what `request` asks and runs the loop until the last event, or until nothing was heard
    /// for `limit`. After a second without anything it says that it waits.
    void ask(const std::function<void()>& request, std::chrono::milliseconds limit,
             Console& console);

 private:
    void hear(const std::string& event, const quelm::Dictionary& payload);

    Take take_;
    AgentObserverRecord record_;
    bool isAgentThere_ = false;
    Heard heard_ = Heard::Nothing;
    /// Until something is heard.
    std::unique_ptr<platform::RunLoop::Timer> notice_;
};

/// Says that no agent is there, and how to start it; NoAgent.
ExitCode FailWithoutAgent(Console& console);

}  // namespace orv::cli
