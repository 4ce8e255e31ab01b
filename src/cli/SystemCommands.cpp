#include <filesystem>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <ostream>

#include "cli/Commands.h"
#include "cli/Complaint.h"
#include "cli/ValueText.h"
#include "foundation/paths/ParsedPath.h"
#include "foundation/paths/PathClassification.h"
#include "foundation/system/DeviceIdentity.h"
#include "foundation/system/LocalizedString.h"
#include "platform/Services.h"

namespace orv::cli {

namespace {

/// The type of the volume that holds the path, or would once its missing part is made.
unsigned volumeTypeOf(const std::filesystem::path& path) {
    const auto& volumes = platform::ProcessServices().volumes;
    if (!volumes) return 0;
    std::filesystem::path existing = path;
    std::error_code ignored;
    while (!std::filesystem::exists(existing, ignored) && existing.has_relative_path()) {
        existing = existing.parent_path();
    }
    const auto volume = volumes->volumeOf(existing.string()).volume;
    return volume ? GetVolumeType(volume->device) : 0;
}

}  // namespace

ExitCode ShowHardwareId(const Arguments&, Console& console) {
    std::string id;
    if (!quelm::GetHardwareId(id)) {
        Say(console, quelm::GetLocalizedString(
                         "Cli.NoHardwareId",
                         "This computer has no physical network interface to be identified by."));
        return ExitCode::Failed;
    }
    fmt::print(console.out, "{}\n", console.json ? ValueAsJson(id) : id);
    return ExitCode::Done;
}

ExitCode ClassifyPath(const Arguments& arguments, Console& console) {
    std::error_code error;
    const std::string path = std::filesystem::absolute(arguments[0], error).string();
    if (error) {
        Say(console, arguments[0] + ": " + error.message());
        return ExitCode::Failed;
    }
    const quelm::Value result = quelm::Dictionary{
        {"hidden", quelm::CParsedPath(path, 1).IsHidden()},
        {"system", IsSystemPath(path)},
        {"local", isLocalPath(path)},
        {"insideHome", isInsideUserHome(path)},
        {"volumeType", volumeTypeOf(path)},
    };
    if (console.json) {
        fmt::print(console.out, "{}\n", ValueAsJson(result));
    } else {
        PrintValue(console.out, result);
    }
    return ExitCode::Done;
}

}  // namespace orv::cli
