#include <exception>
#include <iostream>

#include "cli/Command.h"
#include "foundation/system/ApplicationBundle.h"
#include "foundation/system/Log.h"
#include "platform/linux/LinuxServices.h"

// The composition root of orvctl.
int main(int argc, char** argv) {
    try {
        const quelm::Bundle bundle(quelm::FindResourcesFolder(), quelm::PreferredLanguages());
        quelm::SetApplicationBundle(&bundle);
        platform::ProcessServices() =
            platform::MakeLinuxServices([](const std::string& line) { quelm::LogWarning(line); });
        const auto code = orv::cli::RunCommandLine({argv + 1, argv + argc}, std::cout, std::cerr);
        std::cout.flush();
        return std::cout ? static_cast<int>(code) : 1;
    } catch (const std::exception& error) {
        std::cerr << "orvctl: " << error.what() << '\n';
        return 1;
    }
}
