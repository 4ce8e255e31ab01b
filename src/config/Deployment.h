#pragma once

#include <string>

#include "config/CertificateRules.h"

namespace orv {

/// What belongs to one deployment of the product, not to the program: hosts without a scheme, and
/// texts.
struct Deployment {
    std::string agentServer;
    std::string webServer;
    std::string updateServer;
    std::string apiServer;
    std::string copyright;
    CertificateRules certificates;
};

/// Built-in example values, each replaced by the deployment file where that has a text for it:
/// "deployment.plist" in the application bundle's resources, with the keys "agent_server",
/// "web_server", "update_server", "api_server" and "copyright", and those of CertificateRules,
/// which count as malformed in a file that is there and cannot be read. Read once. Any thread.
[[nodiscard]] const Deployment& CurrentDeployment();

/// The same from one file; for CurrentDeployment and tests.
[[nodiscard]] Deployment ReadDeployment(const std::string& path);

}  // namespace orv
