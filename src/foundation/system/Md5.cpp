#include "foundation/system/Md5.h"

#include <array>
#include <openssl/md5.h>

namespace quelm {

// identifiers that others compute alike need this digest; the short call is deprecated since 3.0
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

std::optional<std::string> Md5(std::string_view bytes) {
    std::array<unsigned char, MD5_DIGEST_LENGTH> digest{};
    const auto* data = reinterpret_cast<const unsigned char*>(bytes.data());
    if (MD5(data, bytes.size(), digest.data()) == nullptr) return std::nullopt;
    return std::string(digest.begin(), digest.end());
}

#pragma GCC diagnostic pop

}  // namespace quelm
