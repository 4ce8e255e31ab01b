#include "foundation/files/Trash.h"

#include <ctime>
#include <fmt/format.h>

#include "foundation/files/FileAccess.h"
#include "foundation/files/Filenames.h"
#include "foundation/paths/Paths.h"
#include "platform/Services.h"

namespace quelm {

std::string GetUserTrashFolder() {
    const auto& workspace = platform::ProcessServices().workspace;
    return workspace ? workspace->trashFolder().value_or("") : "";
}

namespace os {

namespace {

/// " %-l.%M.%S %p" of strftime, with AM and PM in every locale.
std::string timeSuffix() {
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    localtime_r(&now, &local);
    const int hour = local.tm_hour % 12 == 0 ? 12 : local.tm_hour % 12;
    return fmt::format(" {}.{:02}.{:02} {}", hour, local.tm_min, local.tm_sec,
                       local.tm_hour < 12 ? "AM" : "PM");
}

EStatusCode moveTo(const std::string& path, const std::string& destination) {
    const EStatusCode status = RenameNoOverride(path, destination);
    if (status == EStatusCode::SUCCESS) {
        platform::ProcessServices().workspace->recordTrashed(path, destination);
    }
    return status;
}

}  // namespace

EStatusCode MoveToTrash(const std::string& path) {
    const std::string trash = GetUserTrashFolder();
    if (trash.empty()) return EStatusCode::RESOURCE_UNAVAILABLE;
    const std::string_view name = GetLastPathComponent(path);
    EStatusCode status = moveTo(path, fmt::format("{}/{}", trash, name));
    if (status != EStatusCode::FILE_EXISTS_ERROR) return status;

    const std::string_view extension = GetFilenameExtension(name);
    const std::size_t dotAndExtension = extension.empty() ? 0 : extension.size() + 1;
    const std::string base =
        fmt::format("{}/{}{}", trash, name.substr(0, name.size() - dotAndExtension), timeSuffix());
    const std::string_view ending = name.substr(name.size() - dotAndExtension);
    for (int n = 1; status == EStatusCode::FILE_EXISTS_ERROR; ++n) {
        status = moveTo(path, n == 1 ? fmt::format("{}{}", base, ending)
                                     : fmt::format("{} {}{}", base, n, ending));
    }
    return status;
}

}  // namespace os

}  // namespace quelm
