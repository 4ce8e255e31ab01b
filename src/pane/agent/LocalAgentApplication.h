#pragma once

#include <memory>
#include <string>

#include "foundation/threads/Background.h"
#include "pane/agent/AgentApplication.h"
#include "platform/DistributedNotificationCenter.h"
#include "platform/Workspace.h"

namespace orv {

/// Starts the agent's program itself, and looks for programs by the names under which the bus
/// knows them.
class LocalAgentApplication final : public AgentApplication {
 public:
    /// What it works with; all outlive it. Its background waits for the bus.
    struct Environment {
        platform::DistributedNotificationCenter& center;
        platform::Workspace& workspace;
        quelm::Background& background;
        /// The path of the agent's program.
        std::string agentProgram;
    };

    /// The path of a program in the folder of the one that runs.
    [[nodiscard]] static std::string programBeside(const std::string& name);

    explicit LocalAgentApplication(Environment environment)
        : environment_(std::move(environment)) {}

    void launch(const std::string& agentId, std::function<void()> done) override;
    void askIfRunning(std::function<void(bool isRunning)> answer) override;
    void askIfAgentRuns(const std::string& agentId,
                        std::function<void(bool isRunning)> answer) override;

 private:
    void askForName(const std::string& name, std::function<void(bool isThere)> answer);

    Environment environment_;
};

}  // namespace orv
