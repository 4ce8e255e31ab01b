#include <fmt/format.h>
#include <fmt/ostream.h>
#include <ostream>

#include "cli/Commands.h"
#include "cli/Complaint.h"
#include "cli/ValueText.h"
#include "config/ConfigurationPath.h"
#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/LocalizedString.h"

namespace orv::cli {

ExitCode ShowConfigPath(const Arguments& arguments, Console& console) {
    const std::string path =
        arguments.empty() ? GetConfigurationPath() : GetConfigurationPath(arguments[0].c_str());
    fmt::print(console.out, "{}\n", console.json ? ValueAsJson(path) : path);
    return ExitCode::Done;
}

ExitCode ShowConfigFile(const Arguments& arguments, Console& console) {
    const std::string& name = arguments[0];
    const bool isPath = name.find('/') != std::string::npos;
    const std::string path = isPath ? name : GetConfigurationPath(name.c_str());
    const auto list = quelm::ReadPropertyListFile(path);
    if (!list.value) {
        Say(console, quelm::FormatLocalizedString("Cli.UnreadableFile",
                                                  "%@ cannot be shown: %@. It was left as it is.",
                                                  {path, list.error}));
        return ExitCode::Failed;
    }
    if (console.json) {
        fmt::print(console.out, "{}\n", ValueAsJson(*list.value));
    } else {
        PrintValue(console.out, *list.value);
    }
    return ExitCode::Done;
}

}  // namespace orv::cli
