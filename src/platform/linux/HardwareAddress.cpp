#include "platform/linux/HardwareAddress.h"

#include <array>
#include <charconv>
#include <cstring>
#include <linux/ethtool.h>
#include <linux/sockios.h>
#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

#include "platform/FileDescriptor.h"

namespace platform {

namespace {

constexpr std::size_t addressLength = 6;
constexpr std::size_t longestAddress = 32;  // the kernel's MAX_ADDR_LEN

}  // namespace

std::optional<std::string> PermanentHardwareAddress(const std::string& name) {
    const FileDescriptor socket(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    if (!socket || name.size() >= IFNAMSIZ) return std::nullopt;
    ethtool_perm_addr header = {};
    header.cmd = ETHTOOL_GPERMADDR;
    header.size = longestAddress;
    std::array<char, sizeof(header) + longestAddress> buffer = {};
    std::memcpy(buffer.data(), &header, sizeof(header));

    ifreq request = {};
    name.copy(request.ifr_name, IFNAMSIZ - 1);
    request.ifr_data = buffer.data();
    if (::ioctl(socket.get(), SIOCETHTOOL, &request) != 0) return std::nullopt;
    std::memcpy(&header, buffer.data(), sizeof(header));
    if (header.size != addressLength) return std::nullopt;
    return std::string(buffer.data() + sizeof(header), addressLength);
}

std::optional<std::string> ParseHardwareAddress(const std::string& text) {
    std::string bytes;
    if (text.size() != addressLength * 3 - 1) return std::nullopt;
    for (std::size_t at = 0; at < text.size(); at += 3) {
        unsigned char byte = 0;
        const char* const digits = text.data() + at;
        const bool separated = at + 2 == text.size() || text[at + 2] == ':';
        if (std::from_chars(digits, digits + 2, byte, 16).ptr != digits + 2 || !separated) {
            return std::nullopt;
        }
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

bool IsHardwareAddress(const std::string& bytes) {
    return bytes.size() == addressLength && bytes.find_first_not_of('\0') != std::string::npos;
}

}  // namespace platform
