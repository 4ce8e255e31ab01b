#pragma once

#include <string>

#include "platform/Value.h"

namespace orv {

/// The list of fingerprints that an account keeps for its agent, in "finger_prints.plist". Rows are
/// passed on as they are.
class orv_FingerprintSettings {
 public:
    /// `folder` is the account's; with an empty one nothing is loaded or stored.
    explicit orv_FingerprintSettings(const std::string& folder);

    /// False, with the list as it was, when the file cannot be read.
    bool load();
    bool loadFromSpecificPath(const std::string& path);
    /// Tells the account's agent. False when the file cannot be opened.
    bool store() const;
    bool storeToSpecificPath(const std::string& path) const;

    [[nodiscard]] bool isEqualToAgentSettings(const orv_FingerprintSettings& other) const {
        return settings == other.settings;
    }
    [[nodiscard]] const quelm::Array& getFingerprintsArray() const { return settings; }
    void setFingerprintsArray(const quelm::Array& fingerprints) { settings = fingerprints; }

 private:
    quelm::Array settings;
    std::string path_;
};

}  // namespace orv
