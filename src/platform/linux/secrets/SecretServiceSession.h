#pragma once

#include <chrono>
#include <libsecret/secret.h>
#include <optional>
#include <string>

#include "platform/Keychain.h"
#include "platform/linux/secrets/CallDeadline.h"
#include "platform/linux/secrets/GlibHandles.h"

namespace platform {

/// One conversation with the Secret Service, on a bus connection of its own: nothing is left over
/// that could be dead at the next call, and no lost bus ends the process, as it does with GLib's
/// shared connection. One thread, within one function.
class SecretServiceSession {
 public:
    /// With a limit the session opens no prompt, and calls that take longer are given up.
    /// `address` is a D-Bus address; empty is the session bus.
    SecretServiceSession(const std::string& address,
                         std::optional<std::chrono::milliseconds> limit);

    /// Null when no service answers; `status` then says so.
    [[nodiscard]] SecretService* service() const { return service_.get(); }
    /// What the last call that took `error` came to.
    [[nodiscard]] Keychain::Status status() const;
    /// The message of the last error, for a person.
    [[nodiscard]] std::string problem() const;

    // The last two arguments of libsecret's calls.
    [[nodiscard]] GCancellable* cancellable() const { return deadline_.cancellable(); }
    [[nodiscard]] GErrorOut error() { return GErrorOut(error_); }

 private:
    [[nodiscard]] std::string busAddress(const std::string& address);
    void open(const std::string& address, bool mayPrompt);

    GlibContextScope context_;  // first: what follows delivers to it
    CallDeadline deadline_;
    GErrorHandle error_;
    GObjectHandle<GDBusConnection> connection_;
    GObjectHandle<SecretService> service_;
};

}  // namespace platform
