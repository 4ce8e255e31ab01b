#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Value.h"

namespace orv {

/// LoadArrayFromFile of a selection; nothing for a list that is no array.
[[nodiscard]] std::optional<quelm::Value> LoadStorageConfiguration(const std::string& path);
/// StoreArrayToFile.
bool StoreStorageConfiguration(const std::string& path, const quelm::Value& rows);

/// What the user selected for backup: the rows of "storage_info.plist" (TopLevelPaths.h) in the
/// order of selection. Rows of other forms are kept as they are.
class orv_StorageSettings {
 public:
    /// `folder` is the account's configuration folder.
    explicit orv_StorageSettings(std::string folder) : _settingsPath(std::move(folder)) {}

    // Each leaves the selection as it was when it answers false.
    /// Without a file of its own from the older "share_info.plist".
    bool load();
    bool loadFromSpecificPath(const std::string& path);
    bool loadOldShareInfoFromFile(const std::string& path);

    /// Replaces the file. Refused, with a log line, where a file has content and this record has
    /// none: it was neither read nor set, and its empty list is nobody's selection.
    bool store() const;
    bool storeToSpecificPath(const std::string& path) const;

    [[nodiscard]] const quelm::Array& pathsAndFlags() const { return *_settings.asArray(); }
    void setPathsAndFlags(quelm::Array rows);

    [[nodiscard]] std::vector<std::string> topLevelPaths() const;
    void removeTopLevelPath(std::string_view path);
    /// Selects exactly these paths; what is no text is left out.
    void updateWithPolicyPaths(const quelm::Array& paths);

    [[nodiscard]] bool isEqualToAgentSettings(const orv_StorageSettings& other) const {
        return _settings == other._settings;
    }

 private:
    /// Always an array, held as what the file functions take.
    quelm::Value _settings = quelm::Array();
    std::string _settingsPath;
    /// Whether the rows were read or set.
    bool isKnown_ = false;
};

}  // namespace orv
