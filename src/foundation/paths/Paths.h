#pragma once

#include <string>
#include <string_view>

namespace quelm {

/// The canonical absolute path; the path unchanged when it cannot be resolved.
[[nodiscard]] std::string GetAbsolutePath(const std::string& path);

/// A leading "~" becomes the environment variable HOME (empty when unset); "~name" is no user's
/// home but HOME followed by "name".
[[nodiscard]] std::string ExpandTildeInPath(std::string_view path);

/// The text after the last "/"; the whole path without one.
[[nodiscard]] std::string_view GetLastPathComponent(std::string_view path);

/// The text before the last "/"; empty without one and for a folder directly under the root.
[[nodiscard]] std::string_view RemoveLastPathComponent(std::string_view path);

/// The path without "/" at its end; the root stays "/".
[[nodiscard]] std::string_view RemoveLastSlashFromPath(std::string_view path);

/// The same path in its plain form: a leading "~" expanded, without empty and "." components and
/// without "/" at its end. ".." and links stay.
[[nodiscard]] std::string StandardizePath(std::string_view path);

}  // namespace quelm
