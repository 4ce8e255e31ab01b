#pragma once

#include <functional>
#include <string>

namespace orv {

/// The application that keeps the agents running. Main thread only; nothing waits.
class AgentApplication {
 public:
    virtual ~AgentApplication() = default;

    /// Starts it unless it runs, with the account's agent. `done` is called when the agent hears
    /// or when it is clear that it will not soon.
    virtual void launch(const std::string& agentId, std::function<void()> done) = 0;
    /// Answers later whether the application runs.
    virtual void askIfRunning(std::function<void(bool isRunning)> answer) = 0;
    /// Answers later whether the account's agent runs.
    virtual void askIfAgentRuns(const std::string& agentId,
                                std::function<void(bool isRunning)> answer) = 0;
};

}  // namespace orv
