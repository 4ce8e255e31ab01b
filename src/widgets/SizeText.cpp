#include "widgets/SizeText.h"

#include <algorithm>
#include <array>
#include <limits>

#include "foundation/system/LocalizedString.h"

namespace orv {

namespace {

struct SizeUnit {
    std::int64_t bytes;
    quelm::LocalizedText format;
};

constexpr std::int64_t kilobyte = 1024;
// the largest first
constexpr std::array sizeUnits = {
    SizeUnit{kilobyte * kilobyte * kilobyte, {"FileSize.Gbytes", "%.1f GB"}},
    SizeUnit{kilobyte * kilobyte, {"FileSize.Mbytes", "%.1f MB"}},
    SizeUnit{kilobyte, {"FileSize.Kbytes", "%.1f KB"}},
};

}  // namespace

std::string FileSizeString(std::int64_t bytes) {
    if (bytes < 0) return "---";
    for (const auto& [size, format] : sizeUnits) {
        if (bytes < size) continue;
        return quelm::FormatLocalizedString(
            format.key, format.defaultText,
            {static_cast<double>(bytes) / static_cast<double>(size)});
    }
    return quelm::FormatLocalizedString("FileSize.Bytes", "%qd B", {bytes});
}

std::string FileSizeText(std::uint64_t bytes) {
    constexpr std::uint64_t largest = std::numeric_limits<std::int64_t>::max();
    return FileSizeString(static_cast<std::int64_t>(std::min(bytes, largest)));
}

}  // namespace orv
