#include "platform/linux/MountTable.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace platform {

namespace {

constexpr std::size_t longestLine = std::size_t{64} * 1024;
constexpr std::size_t mostEntries = 100'000;  // fs.mount-max

// the fields before the optional ones, and from the dash that ends those
enum Leading : std::size_t { Id, ParentId, DeviceNumber, Root, MountPoint, Options, LeadingCount };
enum Trailing : std::size_t { Dash, Type, Source, SuperOptions, TrailingCount };

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

template <typename Number>
bool parseNumber(std::string_view text, Number& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

/// The byte that "\ooo" at the text's start stands for; a name holds no zero byte.
std::optional<char> escapedByte(std::string_view text) {
    unsigned value = 0;
    if (text.size() < 4 || text[0] != '\\') return std::nullopt;
    for (const char digit : text.substr(1, 3)) {
        if (digit < '0' || digit > '7') return std::nullopt;
        value = value * 8 + static_cast<unsigned>(digit - '0');
    }
    if (value == 0 || value > 255) return std::nullopt;
    return static_cast<char>(value);
}

std::string unescaped(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const auto byte = escapedByte(text);
        result += byte.value_or(text.front());
        text.remove_prefix(byte ? 4 : 1);
    }
    return result;
}

bool hasReadOnly(std::string_view options) {
    const auto words = split(options, ',');
    return std::find(words.begin(), words.end(), "ro") != words.end();
}

std::optional<MountEntry> parseLine(std::string_view line) {
    const auto fields = split(line, ' ');
    if (fields.size() < LeadingCount) return std::nullopt;
    const auto dash = std::find(fields.begin() + LeadingCount, fields.end(), "-");
    if (fields.end() - dash < static_cast<std::ptrdiff_t>(TrailingCount)) return std::nullopt;

    MountEntry entry;
    const auto numbers = split(fields[DeviceNumber], ':');
    if (!parseNumber(fields[Id], entry.id) || numbers.size() != 2 ||
        !parseNumber(numbers[0], entry.major) || !parseNumber(numbers[1], entry.minor) ||
        !fields[MountPoint].starts_with('/') || dash[Type].empty()) {
        return std::nullopt;
    }
    entry.mountPoint = unescaped(fields[MountPoint]);
    entry.fileSystem = unescaped(dash[Type]);
    entry.source = unescaped(dash[Source]);
    entry.readOnly = hasReadOnly(fields[Options]) || hasReadOnly(dash[SuperOptions]);
    return entry;
}

}  // namespace

std::vector<MountEntry> ParseMountTable(std::string_view text) {
    std::vector<MountEntry> entries;
    for (std::size_t end = text.find('\n');
         end != std::string_view::npos && entries.size() < mostEntries; end = text.find('\n')) {
        auto entry = end <= longestLine ? parseLine(text.substr(0, end)) : std::nullopt;
        if (entry) entries.push_back(std::move(*entry));
        text.remove_prefix(end + 1);
    }
    return entries;
}

}  // namespace platform
