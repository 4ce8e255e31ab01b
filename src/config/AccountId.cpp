#include "config/AccountId.h"

#include <algorithm>

namespace orv {

bool IsAccountId(std::string_view id) {
    constexpr std::size_t longest = 64;
    return !id.empty() && id.size() <= longest && std::all_of(id.begin(), id.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
               c == '_' || c == '-';
    });
}

bool IsDefaultAccountId(std::string_view id) {
    return id == "0" || id == "1";
}

bool IsSameAccount(std::string_view id, std::string_view other) {
    return id == other || (IsDefaultAccountId(id) && IsDefaultAccountId(other));
}

std::string extractAgentID(std::string_view path) {
    const auto found = path.find(accountFolderPrefix);
    if (found == path.npos) return "1";
    const std::string_view rest = path.substr(found + accountFolderPrefix.size());
    return std::string(rest.substr(0, rest.find('/')));
}

}  // namespace orv
