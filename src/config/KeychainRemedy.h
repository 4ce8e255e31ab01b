#pragma once

#include <string>

#include "platform/Keychain.h"

namespace orv {

/// What the person can do so that passwords can be kept; for a state other than Done.
[[nodiscard]] std::string KeychainRemedy(platform::Keychain::Status state);

}  // namespace orv
