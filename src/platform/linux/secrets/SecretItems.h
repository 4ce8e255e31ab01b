#pragma once

#include <vector>

#include "platform/linux/secrets/SecretAttributes.h"
#include "platform/linux/secrets/SecretServiceSession.h"

namespace platform {

using SecretItems = std::vector<GObjectHandle<SecretItem>>;

/// The items with these keys that are unlocked; no more than one unless another program made more.
/// NotFound when there is none. When all are locked, or none is found and the default collection is
/// locked, that is unlocked first where the session may prompt, else the answer is Locked.
[[nodiscard]] Keychain::Status FindUnlockedItems(SecretServiceSession& session,
                                                 const SecretAttributes& attributes, bool mayPrompt,
                                                 SecretItems& items);

/// The collection for new items, unlocked. NotFound when there is none; where the session may
/// prompt it is made.
[[nodiscard]] Keychain::Status DefaultCollection(SecretServiceSession& session, bool mayPrompt,
                                                 GObjectHandle<SecretCollection>& collection);

/// As libsecret takes them; they borrow from `attributes`.
[[nodiscard]] GHashTableHandle TableOf(const SecretAttributes& attributes);

}  // namespace platform
