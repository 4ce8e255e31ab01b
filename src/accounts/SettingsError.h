#pragma once

#include <optional>
#include <string>

#include "foundation/system/LocalizedString.h"

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

/// The texts of one window: formats that take a code and its text, a domain, a code and what else
/// is known, and a path.
struct SettingsErrorTexts {
    quelm::LocalizedText posix;
    quelm::LocalizedText unknown;
    quelm::LocalizedText filePath;
};

extern const SettingsErrorTexts printersErrorTexts;
extern const SettingsErrorTexts paneErrorTexts;

/// The error's text for a person.
[[nodiscard]] std::string TextOf(const SettingsError& error, const SettingsErrorTexts& texts);

}  // namespace orv
