#include "config/KeychainPasswords.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <limits>

#include "config/KeychainInteraction.h"
#include "config/Locations.h"
#include "foundation/system/Log.h"
#include "foundation/texts/CaseFolding.h"
#include "platform/Services.h"

namespace orv {

namespace {

using platform::GenericPasswordItem;
using platform::InternetPasswordItem;
using platform::KeychainAccess;
using platform::KeychainItem;
using Status = platform::Keychain::Status;

struct Protocol {
    std::string_view scheme;
    std::uint32_t code;
};

constexpr std::uint32_t fourCharacters(std::string_view text) {
    std::uint32_t code = 0;
    for (const char c : text)
        code = (code << 8) | static_cast<unsigned char>(c);
    return code;
}

constexpr auto protocols = std::to_array<Protocol>({{"https", fourCharacters("htps")},
                                                    {"http", fourCharacters("http")},
                                                    {"ftp", fourCharacters("ftp ")},
                                                    {"ftps", fourCharacters("ftps")}});

constexpr const char* webAccessRight = "com.corvanta.orv.webaccess";
constexpr const char* webAccessRule = "authenticate-session-owner";

platform::Keychain* keychain() {
    return platform::ProcessServices().keychain.get();
}

template <std::size_t count>
KeychainAccess accessFor(const std::string& description,
                         const std::array<std::string_view, count>& applications) {
    return {.description = description,
            .trustedApplications = {applications.begin(), applications.end()}};
}

Status read(const KeychainItem& item, std::string& secret) {
    return keychain() ? keychain()->read(item, secret, KeychainInteractionOff::current())
                      : Status::Unavailable;
}

/// The label of an item is the description of its access list.
bool store(const KeychainItem& item, const KeychainAccess& access, const std::string& secret) {
    if (!keychain()) return false;
    const auto interaction = KeychainInteractionOff::current();
    const Status replaced = keychain()->replace(item, secret, interaction);
    if (replaced != Status::NotFound) return replaced == Status::Done;
    return keychain()->create(item, access.description, access, secret, interaction) ==
           Status::Done;
}

bool remove(const KeychainItem& item) {
    if (!keychain()) return false;
    const Status status = keychain()->remove(item, KeychainInteractionOff::current());
    return status == Status::Done || status == Status::NotFound;
}

std::optional<InternetPasswordItem> internetItem(std::string_view scheme, const std::string& server,
                                                 std::uint32_t port,
                                                 const std::optional<std::string>& path,
                                                 const std::string& account) {
    if (port > std::numeric_limits<std::uint16_t>::max()) return std::nullopt;
    return InternetPasswordItem{.server = server,
                                .account = account,
                                .path = path,
                                .port = static_cast<std::uint16_t>(port),
                                .protocol = GetInternetProtocolType(scheme)};
}

}  // namespace

bool ReadPasswordData(const std::string& service, const std::string& account, std::string& data) {
    return read(GenericPasswordItem{service, account}, data) == Status::Done;
}

bool StorePasswordData(const std::string& service, const std::string& account,
                       const std::string& data) {
    return store(GenericPasswordItem{service, account},
                 accessFor(service, locations::passwordReaders), data);
}

bool UpdatePasswordDataAccess(const std::string& service, const std::string& account) {
    std::string secret;
    const Status found = read(GenericPasswordItem{service, account}, secret);
    if (found != Status::Done) return found == Status::NotFound;
    if (!DeletePasswordData(service, account)) return false;
    // between the two the secret is nowhere else: a second attempt is worth it
    if (StorePasswordData(service, account, secret)) return true;
    if (StorePasswordData(service, account, secret)) return true;
    quelm::LogError("The password of \"" + service + "\" was taken out of the keychain and could " +
                    "not be put back. Sign in again to store it.");
    return false;
}

bool DeletePasswordData(const std::string& service, const std::string& account) {
    return remove(GenericPasswordItem{service, account});
}

bool StoreInternetPasswordData(std::string_view scheme, const std::string& server,
                               std::uint32_t port, const std::optional<std::string>& path,
                               const std::string& account, const std::string& password) {
    const auto item = internetItem(scheme, server, port, path, account);
    return item && store(*item, accessFor(server, locations::serverPasswordReaders), password);
}

bool DeleteInternetPasswordData(std::string_view scheme, const std::string& server,
                                std::uint32_t port, const std::optional<std::string>& path,
                                const std::string& account) {
    const auto item = internetItem(scheme, server, port, path, account);
    return item && remove(*item);
}

std::uint32_t GetInternetProtocolType(std::string_view scheme) {
    const auto found = std::ranges::find_if(protocols, [scheme](const Protocol& protocol) {
        return quelm::EqualsWithoutCase(protocol.scheme, scheme);
    });
    return found != protocols.end() ? found->code : 0;
}

int AuthorizeWebAccess() {
    const auto& authorization = platform::ProcessServices().authorization;
    return authorization ? authorization->obtainRight(webAccessRight, webAccessRule) : ENOSYS;
}

}  // namespace orv
