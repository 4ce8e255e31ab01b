#include "config/Deployment.h"

#include <array>
#include <cerrno>
#include <sys/stat.h>
#include <utility>

#include "config/PropertyAccess.h"
#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/ApplicationBundle.h"
#include "foundation/system/Log.h"

namespace orv {

namespace {

constexpr std::array<std::pair<const char*, std::string Deployment::*>, 5> keys = {
    {{"agent_server", &Deployment::agentServer},
     {"web_server", &Deployment::webServer},
     {"update_server", &Deployment::updateServer},
     {"api_server", &Deployment::apiServer},
     {"copyright", &Deployment::copyright}}};

/// Also what cannot be looked for counts.
bool isThere(const std::string& path) {
    struct stat info = {};
    return ::lstat(path.c_str(), &info) == 0 || (errno != ENOENT && errno != ENOTDIR);
}

/// It may have had rules; without a file there are none.
CertificateRules rulesWithoutValues(const std::string& path, const std::string& error) {
    if (!isThere(path)) return {};
    quelm::LogError("The deployment's file cannot be read, so no server is accepted: " + path +
                    ": " + error);
    return {.areMalformed = true};
}

}  // namespace

Deployment ReadDeployment(const std::string& path) {
    Deployment deployment{"agent.tidewell.example",  "www.tidewell.example",
                          "update.tidewell.example", "api.tidewell.example",
                          "Copyright 2026 Corvanta", {}};
    const auto file = quelm::ReadPropertyListFile(path);
    const auto* values = file.value ? file.value->asDictionary() : nullptr;
    if (!values) {
        deployment.certificates = rulesWithoutValues(path, file.error);
        return deployment;
    }
    deployment.certificates = ReadCertificateRules(*values);
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
