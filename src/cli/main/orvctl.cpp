#include <QCoreApplication>
#include <clocale>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "cli/Command.h"
#include "config/AgentSettingsHooks.h"
#include "foundation/system/ApplicationBundle.h"
#include "foundation/system/Log.h"
#include "platform/linux/LinuxServices.h"
#include "support/VarBranding.h"

// The composition root of orvctl.
int main(int argc, char** argv) {
    try {
        const quelm::Bundle bundle(quelm::FindResourcesFolder(), quelm::PreferredLanguages());
        quelm::SetApplicationBundle(&bundle);
        const std::vector<std::string> words(argv + 1, argv + argc);  // before Qt takes its own out
        const QCoreApplication application(argc, argv);
        std::setlocale(LC_NUMERIC, "C");  // the application object sets the user's
        const platform::Reporter reporter = [](const std::string& line) {
            quelm::LogWarning(line);
        };
        platform::Services& services = platform::ProcessServices();
        services = platform::MakeLinuxServices(reporter);
        orv::ProcessAgentSettingsHooks().brand = orv::BrandText;
        const auto code = orv::cli::RunCommandLine(
            words, std::cout, std::cerr, [&] { platform::AddEventServices(services, reporter); });
        platform::EndProcessServices();
        std::cout.flush();
        return std::cout ? static_cast<int>(code) : 1;
    } catch (const std::exception& error) {
        std::cerr << "orvctl: " << error.what() << '\n';
        return 1;
    }
}
