#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orv {

// Secrets in the user's keychain. True is done; everything else is false. Without a keychain
// nothing is found and nothing is kept. The user may be asked to unlock, and is waited for, unless
// a KeychainInteractionOff exists; so call them off the interface thread. Texts are UTF-8.

/// False for a missing item, with `data` as it was. The bytes may hold NUL.
[[nodiscard]] bool ReadPasswordData(const std::string& service, const std::string& account,
                                    std::string& data);
/// One item for a service and account: its password is replaced.
[[nodiscard]] bool StorePasswordData(const std::string& service, const std::string& account,
                                     const std::string& data);
/// Makes the item anew with the access list of this program; true when there is none.
[[nodiscard]] bool UpdatePasswordDataAccess(const std::string& service, const std::string& account);
/// True when there is none.
[[nodiscard]] bool DeletePasswordData(const std::string& service, const std::string& account);

/// One item for each scheme, server, port, path and account; false for a port above 65535. A
/// scheme without a code is kept as "any".
[[nodiscard]] bool StoreInternetPasswordData(std::string_view scheme, const std::string& server,
                                             std::uint32_t port,
                                             const std::optional<std::string>& path,
                                             const std::string& account,
                                             const std::string& password);
/// True when there is none.
[[nodiscard]] bool DeleteInternetPasswordData(std::string_view scheme, const std::string& server,
                                              std::uint32_t port,
                                              const std::optional<std::string>& path,
                                              const std::string& account);

/// The four-character code of "https", "http", "ftp" or "ftps" in any case; 0 for others.
[[nodiscard]] std::uint32_t GetInternetProtocolType(std::string_view scheme);

/// Asks the user for the right to open the account's web pages: 0 when granted, else the first
/// failing status of the platform; ENOSYS where it has no such rights.
[[nodiscard]] int AuthorizeWebAccess();

}  // namespace orv
