#pragma once

#include <string>
#include <string_view>

namespace orv {

/// Whether the text can be an account's id, which becomes part of file and bus names: 1 to 64
/// letters, digits, "_" and "-".
[[nodiscard]] bool IsAccountId(std::string_view id);

/// "0" and "1" both mean the default account, the one without a folder "account_ID".
[[nodiscard]] bool IsDefaultAccountId(std::string_view id);

/// Whether both mean the same account.
[[nodiscard]] bool IsSameAccount(std::string_view id, std::string_view other);

/// Begins the name of a further account's folder; its id follows.
inline constexpr std::string_view accountFolderPrefix = "account_";

/// The id that a path names: what follows "account_" in the first component that contains it, "1"
/// where none does.
[[nodiscard]] std::string extractAgentID(std::string_view path);

}  // namespace orv
