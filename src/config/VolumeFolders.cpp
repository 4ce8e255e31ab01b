#include "config/VolumeFolders.h"

#include "config/Locations.h"

namespace orv {

namespace {

/// Takes "/name" off the text.
std::string_view takeComponent(std::string_view& text) {
    const auto component = text.substr(0, text.find('/', 1));
    text.remove_prefix(component.size());
    return component;
}

/// How many bytes of the path the folder's pattern takes, a "*" any one name; 0 when the path does
/// not begin so.
std::size_t matchedLength(std::string_view path, std::string_view pattern) {
    std::string_view rest = path;
    while (!pattern.empty()) {
        const auto wanted = takeComponent(pattern);
        const auto component = takeComponent(rest);
        const bool isAny = wanted == "/*" && component.size() > 1 && component.starts_with('/');
        if (component != wanted && !isAny) return 0;
    }
    return path.size() - rest.size();
}

}  // namespace

std::string_view FolderOfVolumes(std::string_view path) {
    for (const std::string_view pattern : locations::volumeFolders) {
        if (const auto length = matchedLength(path, pattern)) return path.substr(0, length);
    }
    return {};
}

}  // namespace orv
