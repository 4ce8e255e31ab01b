#include "config/Deployment.h"

#include <array>
#include <utility>

#include "config/PropertyAccess.h"
#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/ApplicationBundle.h"

namespace orv {

namespace {

constexpr std::array<std::pair<const char*, std::string Deployment::*>, 5> keys = {
    {{"agent_server", &Deployment::agentServer},
     {"web_server", &Deployment::webServer},
     {"update_server", &Deployment::updateServer},
     {"api_server", &Deployment::apiServer},
     {"copyright", &Deployment::copyright}}};

}  // namespace

Deployment ReadDeployment(const std::string& path) {
    Deployment deployment{"agent.tidewell.example", "www.tidewell.example",
                          "update.tidewell.example", "api.tidewell.example",
                          "Copyright 2026 Corvanta"};
    const auto file = quelm::ReadPropertyListFile(path);
    const auto* values = file.value ? file.value->asDictionary() : nullptr;
    if (!values) return deployment;
    for (const auto& [key, member] : keys) {
        const auto text = GetStringProperty(*values, key);
        if (text && !text->empty()) deployment.*member = *text;
    }
    return deployment;
}

const Deployment& CurrentDeployment() {
    static const Deployment deployment =
        ReadDeployment((quelm::getBundle() ? quelm::getBundle()->resourcesFolder()
                                           : quelm::FindResourcesFolder()) +
                       "/deployment.plist");
    return deployment;
}

}  // namespace orv
