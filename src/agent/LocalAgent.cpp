#include "agent/LocalAgent.h"

#include <chrono>
#include <fmt/format.h>
#include <utility>

#include "agentlink/AgentPresence.h"
#include "config/AccountId.h"
#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "config/PropertyAccess.h"
#include "config/PropertyFiles.h"
#include "foundation/files/Existence.h"
#include "foundation/system/Log.h"

namespace orv {

LocalAgent::LocalAgent(std::string accountId, platform::RunLoop& runLoop,
                       platform::DistributedNotificationCenter& center)
    : accountId_(std::move(accountId)), runLoop_(&runLoop) {
    loadSettings();
    dispatcher_.registerEventName(
        events::requestConnect, this,
        MakeSelector<&LocalAgent::handleRequestConnect>("handleRequestConnect"));
    dispatcher_.registerEventName(
        events::requestDisconnect, this,
        MakeSelector<&LocalAgent::handleRequestDisconnect>("handleRequestDisconnect"));
    RegisterAgentSettingsObserver(settingsObserver_, this, &ForwardAgentSettingsEvent<LocalAgent>);
    RegisterAgentReportStatusObserver(
        reportObserver_, this, +[](LocalAgent& agent, const AgentId& agentId) {
            if (agent.concerns(agentId)) agent.report();
        });
    // What was under way when the bus went may be lost.
    connectionObserver_ = center.observeConnection([this](bool connected) {
        if (connected) report();
    });
    center.announce(AgentPresenceName(accountId_));
    enter(ConnectionStatus::NotRunning);
}

LocalAgent::~LocalAgent() {
    enter(ConnectionStatus::NotRunning);
}

/// What names no account concerns all.
bool LocalAgent::concerns(const AgentId& agentId) const {
    return !agentId || IsSameAccount(*agentId, accountId_);
}

bool LocalAgent::concerns(const quelm::Dictionary& payload) const {
    return concerns(GetStringProperty(payload, keys::agentId));
}

void LocalAgent::enter(ConnectionStatus status) {
    if (status != status_ || since_ == 0) {
        status_ = status;
        since_ = std::chrono::system_clock::to_time_t(runLoop_->now());
    }
    report();
}

void LocalAgent::report() const {
    NotifyConnectionStatusChanged(accountId_, static_cast<std::int32_t>(status_), since_);
}

/// Asked again while it connects or is connected, it says how far it is.
void LocalAgent::handleRequestConnect(const quelm::Dictionary& payload) {
    if (!concerns(payload)) return;
    if (status_ != ConnectionStatus::NotRunning) return report();
    enter(ConnectionStatus::Connecting);
    continueConnecting();
}

void LocalAgent::continueConnecting() {
    step_ = runLoop_->after(std::chrono::milliseconds(0), [this] {
        step_.reset();
        if (status_ == ConnectionStatus::Connecting) {
            enter(ConnectionStatus::LoggingIn);
            continueConnecting();
        } else {
            enter(ConnectionStatus::Connected);
        }
    });
}

void LocalAgent::handleRequestDisconnect(const quelm::Dictionary& payload) {
    if (!concerns(payload)) return;
    step_.reset();
    enter(ConnectionStatus::NotRunning);
}

void LocalAgent::notifyAgentSettings(std::uint32_t hint, const AgentId& agentId) {
    if (!concerns(agentId)) return;
    if (hint & HintActiveAccount) ClearConfigBasePath();
    loadSettings();
    quelm::LogInfo(
        fmt::format("The settings of account {} were read again (0x{:04X}).", accountId_, hint));
}

/// What cannot be read leaves the settings as they were.
void LocalAgent::loadSettings() {
    const std::string path = GetConfigurationPath(files::userInfo);
    if (!quelm::Exists(path)) return;
    const auto loaded = LoadPropertiesFromFile(path);
    if (const auto* dictionary = loaded ? loaded->asDictionary() : nullptr) settings_ = *dictionary;
}

}  // namespace orv
