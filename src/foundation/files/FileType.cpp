#include "foundation/files/FileType.h"

#include <array>
#include <string_view>

#include "foundation/files/Filenames.h"
#include "foundation/paths/Paths.h"
#include "platform/Services.h"

namespace quelm::os {

namespace {

struct KnownType {
    std::string_view prefix;
    std::string_view extension;
};

constexpr std::array<KnownType, 3> knownTypes = {{
    {"com.microsoft.word.", "doc"},
    {"com.microsoft.powerpoint.", "ppt"},
    {"com.microsoft.excel.", "xls"},
}};

}  // namespace

std::string DetectFileType(const std::string& path) {
    const std::string_view extension = GetFilenameExtension(GetLastPathComponent(path));
    if (!extension.empty()) return std::string(extension);

    const auto& workspace = platform::ProcessServices().workspace;
    const auto type = workspace ? workspace->contentType(path) : std::nullopt;
    for (const auto& known : knownTypes) {
        if (type && type->starts_with(known.prefix)) return std::string(known.extension);
    }
    return {};
}

}  // namespace quelm::os
