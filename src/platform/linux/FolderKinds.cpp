#include "platform/linux/FolderKinds.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <strings.h>

#include "platform/Workspace.h"
#include "platform/linux/BoundedFile.h"

namespace platform {

namespace {

struct Kind {
    std::string_view extension;
    std::uint32_t flags;
};

// folders that other systems show as one thing, as they come over with a shared disk, and unpacked
// application images
constexpr auto kinds = std::to_array<Kind>({
    {"app", PackageItem | ApplicationItem},
    {"appdir", PackageItem | ApplicationItem},
    {"bundle", PackageItem},
    {"kext", PackageItem},
    {"photolibrary", PackageItem},
    {"photoslibrary", PackageItem},
    {"plugin", PackageItem},
    {"rtfd", PackageItem},
    {"sparsebundle", PackageItem},
});

bool equalsWithoutCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && ::strncasecmp(a.data(), b.data(), a.size()) == 0;
}

}  // namespace

std::uint32_t FlagsOfFolderName(std::string_view name) {
    const std::uint32_t flags = ContainerItem | (name.starts_with('.') ? InvisibleItem : 0U);
    // made by a program of that name, without an extension
    if (name == "iPhoto Library") return flags | PackageItem;
    const std::size_t dot = name.find_last_of('.');
    if (dot == std::string_view::npos || dot == 0) return flags;
    const auto kind =
        std::ranges::find_if(kinds, [extension = name.substr(dot + 1)](const Kind& k) {
            return equalsWithoutCase(k.extension, extension);
        });
    return kind == kinds.end() ? flags : flags | kind->flags;
}

std::vector<std::string> ReadHiddenNames(const std::string& folder) {
    constexpr std::size_t limit = std::size_t{64} << 10U;
    std::vector<std::string> names;
    const auto text = ReadFileStart(folder + "/.hidden", limit);
    if (!text) return names;
    for (std::size_t begin = 0; begin < text->size();) {
        const std::size_t end = std::min(text->find('\n', begin), text->size());
        if (end > begin) names.push_back(text->substr(begin, end - begin));
        begin = end + 1;
    }
    return names;
}

}  // namespace platform
