#include "pane/agent/LocalAgentApplication.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <thread>
#include <utility>

#include "agentlink/AgentPresence.h"
#include "agentlink/AgentVocabulary.h"
#include "foundation/system/Log.h"

namespace orv {

namespace {

constexpr std::chrono::seconds busPatience(1);
constexpr std::chrono::milliseconds interval(50);
constexpr std::chrono::seconds startPatience(5);

/// Starts the agent and waits until the bus knows it.
void startAgent(const LocalAgentApplication::Environment& environment, const std::string& agentId) {
    const std::string name = AgentPresenceName(agentId);
    if (environment.center.isAnnounced(name, busPatience)) return;
    if (!environment.workspace.startProgram({environment.agentProgram, agentId})) {
        quelm::LogError(environment.agentProgram + " cannot be started.");
        return;
    }
    const auto end = std::chrono::steady_clock::now() + startPatience;
    while (!environment.center.isAnnounced(name, busPatience) &&
           std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(interval);
}

}  // namespace

std::string LocalAgentApplication::programBeside(const std::string& name) {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? name : (program.parent_path() / name).string();
}

void LocalAgentApplication::launch(const std::string& agentId, std::function<void()> done) {
    environment_.background.perform(
        [environment = environment_, agentId] { startAgent(environment, agentId); },
        std::move(done));
}

void LocalAgentApplication::askIfRunning(std::function<void(bool isRunning)> answer) {
    askForName(defaultNotificationObject, std::move(answer));
}

void LocalAgentApplication::askIfAgentRuns(const std::string& agentId,
                                           std::function<void(bool isRunning)> answer) {
    askForName(AgentPresenceName(agentId), std::move(answer));
}

void LocalAgentApplication::askForName(const std::string& name,
                                       std::function<void(bool isThere)> answer) {
    auto isThere = std::make_shared<bool>(false);
    environment_.background.perform(
        [environment = environment_, name, isThere] {
            *isThere = environment.center.isAnnounced(name, busPatience);
        },
        [isThere, answer = std::move(answer)] { answer(*isThere); });
}

}  // namespace orv
