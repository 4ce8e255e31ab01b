#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace platform {

/// The keys under which a secret is kept. Texts are UTF-8 without NUL.
struct GenericPasswordItem {
    std::string service;
    std::string account;
};
struct InternetPasswordItem {
    std::string server;
    std::string account;
    std::optional<std::string> path;
    std::uint16_t port = 0;
    /// Four-character code ('htps'); 0 is any protocol.
    std::uint32_t protocol = 0;
};
using KeychainItem = std::variant<GenericPasswordItem, InternetPasswordItem>;

/// Who may read a new item without the user being asked, where the platform has such lists.
struct KeychainAccess {
    std::string description;
    /// Paths of programs and bundles; one that is not there is left out.
    std::vector<std::string> trustedApplications;
};

/// The user's secrets. Any thread but the main one of a program with windows: with interaction
/// allowed a call waits for the user.
class Keychain {
 public:
    enum class Status {
        Done,
        NotFound,
        /// The item or its collection is locked and stays so: no interaction, or the user declined.
        Locked,
        /// No service answers; said once in the log, with what to install.
        Unavailable,
        Failed,
    };
    /// Forbidden: no prompt is opened and none is waited for.
    enum class Interaction { Forbidden, Allowed };

    virtual ~Keychain() = default;

    /// Whether new items could be written now without a prompt: Done, Locked, Unavailable, or
    /// NotFound when there is no default collection yet.
    [[nodiscard]] virtual Status state() = 0;
    /// `secret` changes only when the answer is Done.
    [[nodiscard]] virtual Status read(const KeychainItem& item, std::string& secret,
                                      Interaction interaction) = 0;
    /// Changes the secret of an item that is there; its label stays.
    [[nodiscard]] virtual Status replace(const KeychainItem& item, const std::string& secret,
                                         Interaction interaction) = 0;
    /// Makes a new item; one with the same keys is replaced.
    [[nodiscard]] virtual Status create(const KeychainItem& item, const std::string& label,
                                        const KeychainAccess& access, const std::string& secret,
                                        Interaction interaction) = 0;
    [[nodiscard]] virtual Status remove(const KeychainItem& item, Interaction interaction) = 0;
};

}  // namespace platform
