#include "platform/linux/UniformTypes.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace platform {

namespace {

struct KnownType {
    std::string_view mimePrefix;
    std::string_view uniformType;
};

constexpr std::string_view word = "com.microsoft.word.doc";
constexpr std::string_view powerpoint = "com.microsoft.powerpoint.ppt";
constexpr std::string_view excel = "com.microsoft.excel.xls";

// prefixes, for each has variants for templates, shows and documents with macros
constexpr auto knownTypes = std::to_array<KnownType>({
    {"application/msword", word},
    {"application/vnd.ms-word", word},
    {"application/vnd.openxmlformats-officedocument.wordprocessingml.", word},
    {"application/mspowerpoint", powerpoint},
    {"application/vnd.ms-powerpoint", powerpoint},
    {"application/vnd.openxmlformats-officedocument.presentationml.", powerpoint},
    {"application/msexcel", excel},
    {"application/vnd.ms-excel", excel},
    {"application/vnd.openxmlformats-officedocument.spreadsheetml.", excel},
});

}  // namespace

std::string UniformType(const std::string& mimeType) {
    const auto* const known = std::ranges::find_if(
        knownTypes, [&](const KnownType& type) { return mimeType.starts_with(type.mimePrefix); });
    return known != knownTypes.end() ? std::string(known->uniformType) : mimeType;
}

}  // namespace platform
