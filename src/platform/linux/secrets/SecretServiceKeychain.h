#pragma once

#include <chrono>

#include "platform/Keychain.h"
#include "platform/linux/OnceReporter.h"

namespace platform {

class SecretServiceSession;

/// The Secret Service of the user's session (gnome-keyring, KeePassXC, KWallet); SecretAttributes.h
/// has the form of an item. New items go into the default collection.
///
/// The service has no lists of who may read an item: `KeychainAccess` is ignored, and every program
/// of the session reads what is unlocked.
///
/// With interaction forbidden a call takes no longer than the limit, and a missing default
/// collection answers NotFound to `create`; with interaction allowed it is made. Any thread; calls
/// do not wait for each other.
class SecretServiceKeychain final : public Keychain {
 public:
    /// `busAddress` is a D-Bus address; empty is the session bus, asked for at each call.
    explicit SecretServiceKeychain(Reporter reporter, std::string busAddress = {},
                                   std::chrono::milliseconds limit = std::chrono::seconds(2));

    [[nodiscard]] Status state() override;
    [[nodiscard]] Status read(const KeychainItem& item, std::string& secret,
                              Interaction interaction) override;
    [[nodiscard]] Status replace(const KeychainItem& item, const std::string& secret,
                                 Interaction interaction) override;
    [[nodiscard]] Status create(const KeychainItem& item, const std::string& label,
                                const KeychainAccess& access, const std::string& secret,
                                Interaction interaction) override;
    [[nodiscard]] Status remove(const KeychainItem& item, Interaction interaction) override;

 private:
    template <typename Work>
    Status withSession(Interaction interaction, Work work);

    OnceReporter reporter_;
    std::string busAddress_;
    std::chrono::milliseconds limit_;
};

}  // namespace platform
