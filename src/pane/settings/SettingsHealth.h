#pragma once

#include <string>
#include <vector>

namespace orv {

/// What is wrong with the files of an account's folder.
struct SettingsHealth {
    /// Names of files that are there and cannot be read.
    std::vector<std::string> unreadable;
    /// Where nothing can be changed; empty when everything can.
    std::string readOnly;
    bool operator==(const SettingsHealth&) const = default;
};

/// Looks at the files, without changing any. May wait for the disk and for locks; any thread.
[[nodiscard]] SettingsHealth CheckSettings(const std::string& folder);

/// For the person, with the remedy; empty when nothing is wrong. `isSlow` while somebody holds a
/// lock on the settings.
[[nodiscard]] std::string SettingsNotice(const SettingsHealth& health, bool isSlow);

}  // namespace orv
