#pragma once

#include <optional>
#include <string>

#include "platform/Value.h"
#include "support/TextVariables.h"
#include "widgets/HexColor.h"

namespace orv {

// The branding file of the active account. docs/records.md lists its keys.

/// None without a file; the same, with a line in the log, for one that cannot be read.
[[nodiscard]] std::optional<quelm::Dictionary> LoadBrandingInfo();

/// Merges into the file; false when that cannot be written.
[[nodiscard]] bool StoreBrandingInfo(const quelm::Dictionary& changes);

/// The text under the key. Empty for what is no text, and for one of more than 4,096 bytes, which
/// is logged.
[[nodiscard]] std::string BrandingText(const quelm::Dictionary& info, const char* key);

/// The colour under the key.
[[nodiscard]] std::optional<HexColor> BrandingColor(const quelm::Dictionary& info, const char* key);

/// All variables with their values: the file's where it has a text that is not empty, else the
/// built-in ones.
[[nodiscard]] TextVariables BrandVariables(const quelm::Dictionary& info);

}  // namespace orv
