#pragma once

#include <map>
#include <string>

#include "platform/Keychain.h"

namespace platform {

/// The attributes under which the Secret Service keeps an item; seahorse and secret-tool show
/// them. "xdg:schema" is "com.corvanta.orv.GenericPassword" or "com.corvanta.orv.InternetPassword".
///
/// generic:  "service", "account"
/// internet: "server", "account", "port" (decimal), "protocol" (the four characters of the code as
///           they are, "ftp "; empty for 0), "path" (only when the item has one),
///           "authentication" ("default")
using SecretAttributes = std::map<std::string, std::string>;

[[nodiscard]] SecretAttributes AttributesOf(const KeychainItem& item);

/// Whether an item with these attributes is the one meant. The service finds every item that has
/// at least the attributes asked for, so one with a path when none is meant.
[[nodiscard]] bool IsMeant(const SecretAttributes& found, const SecretAttributes& wanted);

/// Whether it is UTF-8 without NUL, as the bus demands, and of a sane size.
[[nodiscard]] bool IsSendable(const std::string& text);
[[nodiscard]] bool AreSendable(const SecretAttributes& attributes);

}  // namespace platform
