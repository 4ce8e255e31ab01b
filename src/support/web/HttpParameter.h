#pragma once

#include <string>
#include <string_view>

namespace orv {

/// ASCII letters and digits as they are, every other byte as "%2F".
[[nodiscard]] std::string EncodeHttpParameter(std::string_view text);

/// The address with the account's id behind it as "sourcercid", unless "rcid" stands in it in any
/// case.
[[nodiscard]] std::string WithSourceAccount(std::string_view address, std::string_view rcid);

/// A server's name as an address: as it is when it has a scheme, otherwise with "https://".
[[nodiscard]] std::string BaseUrlOf(std::string_view serverName);

/// Scheme and host of an address ("https://api.example.com") and nothing else of it, for a log that
/// must not tell what was asked; "" for what has no scheme.
[[nodiscard]] std::string SchemeAndHostOf(std::string_view address);

}  // namespace orv
