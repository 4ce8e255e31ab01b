#include <QCoreApplication>
#include <clocale>
#include <exception>
#include <iostream>
#include <string>

#include "agent/AccountLock.h"
#include "agent/LocalAgent.h"
#include "agent/TerminationSignals.h"
#include "agentlink/AgentEventQueue.h"
#include "config/AccountId.h"
#include "config/AgentSettingsHooks.h"
#include "config/ConfigurationPath.h"
#include "foundation/system/ApplicationBundle.h"
#include "foundation/system/Log.h"
#include "platform/linux/LinuxServices.h"
#include "support/VarBranding.h"

namespace {

/// Until the signal to end.
int runAgent() {
    platform::Services& services = platform::ProcessServices();
    const platform::Reporter reporter = [](const std::string& line) { quelm::LogWarning(line); };
    services = platform::MakeLinuxServices(reporter);
    platform::AddEventServices(services, reporter);
    const orv::TerminationSignals signals(
        [loop = services.runLoop.get()] { loop->post([loop] { loop->stopModal(0); }); });
    const orv::AgentEventSession session;
    const orv::LocalAgent agent(orv::AgentID, *services.runLoop, *services.notifications);
    return services.runLoop->runModal();
}

}  // namespace

// The composition root of orvAgent.
int main(int argc, char** argv) {
    try {
        const QCoreApplication application(argc, argv);
        std::setlocale(LC_NUMERIC, "C");  // the application object sets the user's
        if (argc != 2 || !orv::IsAccountId(argv[1])) {
            std::cerr << "usage: orvAgent AGENT_ID\n";
            return 2;
        }
        const quelm::Bundle bundle(quelm::FindResourcesFolder(), quelm::PreferredLanguages());
        quelm::SetApplicationBundle(&bundle);
        orv::ProcessAgentSettingsHooks().brand = orv::BrandText;
        orv::AgentID = orv::IsDefaultAccountId(argv[1]) ? "1" : argv[1];
        std::string error;
        const auto lock = orv::AccountLock::take(argv[1], error);
        if (!lock) {
            std::cerr << "orvAgent: " << error << '\n';
            return 1;
        }
        const int code = runAgent();
        platform::EndProcessServices();
        return code;
    } catch (const std::exception& error) {
        std::cerr << "orvAgent: " << error.what() << '\n';
        return 1;
    }
}
