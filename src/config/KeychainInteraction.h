#pragma once

#include "platform/Keychain.h"

namespace orv {

/// While one exists, the keychain functions of this thread ask the user nothing: what is locked
/// counts as failed. Scopes nest.
class KeychainInteractionOff {
 public:
    KeychainInteractionOff() { ++depth; }
    KeychainInteractionOff(const KeychainInteractionOff&) = delete;
    KeychainInteractionOff& operator=(const KeychainInteractionOff&) = delete;
    ~KeychainInteractionOff() { --depth; }

    [[nodiscard]] static platform::Keychain::Interaction current() {
        using Interaction = platform::Keychain::Interaction;
        return depth == 0 ? Interaction::Allowed : Interaction::Forbidden;
    }

 private:
    inline static thread_local int depth = 0;
};

}  // namespace orv
