#pragma once

#include <optional>
#include <string>

namespace orv {

/// Why settings could not be read or written.
struct SettingsError {
    static constexpr const char* posixDomain = "POSIX";
    static constexpr const char* settingsDomain = "AgentSettingsErrorDomain";

    std::string domain;
    int code = 0;
    /// For a person; empty for none.
    std::string description;
    std::string info;
    std::optional<std::string> filePath;
};

/// The error's text for a person.
[[nodiscard]] std::string TextOf(const SettingsError& error);

}  // namespace orv
