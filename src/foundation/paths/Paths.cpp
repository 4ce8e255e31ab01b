#include "foundation/paths/Paths.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace quelm {

std::string GetAbsolutePath(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> resolved(realpath(path.c_str(), nullptr),
                                                               &std::free);
    return resolved ? std::string(resolved.get()) : path;
}

std::string ExpandTildeInPath(std::string_view path) {
    if (!path.starts_with('~')) return std::string(path);
    const char* home = std::getenv("HOME");
    return std::string(home != nullptr ? home : "").append(path.substr(1));
}

std::string_view GetLastPathComponent(std::string_view path) {
    const auto slash = path.rfind('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string_view RemoveLastPathComponent(std::string_view path) {
    const auto slash = path.rfind('/');
    return slash == std::string_view::npos ? std::string_view() : path.substr(0, slash);
}

std::string_view RemoveLastSlashFromPath(std::string_view path) {
    while (path.size() > 1 && path.ends_with('/'))
        path.remove_suffix(1);
    return path;
}

namespace {

/// Whether an absolute path has no empty and no "." components, as nearly every one.
bool isPlain(std::string_view path) {
    if (!path.starts_with('/')) return false;
    for (std::size_t slash = 0; slash != path.npos; slash = path.find('/', slash + 1)) {
        const std::string_view rest = path.substr(slash + 1);
        if (rest.empty() || rest == "." || rest.starts_with('/') || rest.starts_with("./")) {
            return false;
        }
    }
    return true;
}

}  // namespace

std::string StandardizePath(std::string_view path) {
    if (isPlain(path)) return std::string(path);
    const std::string expanded = ExpandTildeInPath(path);
    std::string_view rest = expanded;
    std::string plain;
    while (!rest.empty()) {
        const std::string_view component = rest.substr(0, rest.find('/'));
        rest.remove_prefix(std::min(component.size() + 1, rest.size()));
        if (component.empty() || component == ".") continue;
        if (!plain.empty() || expanded.starts_with('/')) plain += '/';
        plain += component;
    }
    if (!plain.empty() || expanded.empty()) return plain;
    return expanded.starts_with('/') ? "/" : ".";
}

}  // namespace quelm
