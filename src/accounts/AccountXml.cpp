#include "accounts/AccountXml.h"

#include <cerrno>
#include <system_error>

#include "foundation/files/WholeFile.h"
#include "foundation/system/Log.h"

namespace orv {

std::optional<std::string> ReadAccountXml(const std::string& path) {
    constexpr std::size_t mostBytes = std::size_t{64} << 20U;
    auto data = quelm::ReadWholeFile(path, mostBytes);
    if (!data && errno != ENOENT) {
        quelm::LogError(path + " cannot be read: " + std::generic_category().message(errno) +
                        ". What it said before holds until the agent writes it anew.");
    }
    return data;
}

}  // namespace orv
