#include "foundation/paths/PathPrefix.h"

#include <algorithm>
#include <utf8proc.h>

namespace quelm {

bool StartsWithPath(std::string_view path, std::string_view prefix) {
    if (!path.starts_with(prefix)) return false;
    return path.size() == prefix.size() || prefix == "/" || path[prefix.size()] == '/';
}

bool IsInFolder(std::string_view path, std::string_view folder) {
    return path.size() > folder.size() && path.starts_with(folder) &&
           path.find('/', folder.size()) == std::string_view::npos;
}

}  // namespace quelm

namespace orv {

namespace {

bool isAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}
char asciiLower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

/// Takes the first character off a text that is not empty, in lower case. A byte that begins no
/// character answers a number above every character.
utf8proc_int32_t takeLower(std::string_view& text) {
    utf8proc_int32_t character = 0;
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
    // no character is longer than four bytes
    const auto size = static_cast<utf8proc_ssize_t>(std::min<std::size_t>(text.size(), 4));
    const utf8proc_ssize_t length = utf8proc_iterate(bytes, size, &character);
    if (length <= 0) {
        constexpr utf8proc_int32_t aboveUnicode = 0x110000;
        character = aboveUnicode + bytes[0];
        text.remove_prefix(1);
        return character;
    }
    text.remove_prefix(static_cast<std::size_t>(length));
    return utf8proc_tolower(character);
}

/// Takes one character off both texts, neither empty; whether they are the same but for case.
bool takeSame(std::string_view& left, std::string_view& right) {
    if (!isAscii(left[0]) || !isAscii(right[0])) return takeLower(left) == takeLower(right);
    const bool same = asciiLower(left[0]) == asciiLower(right[0]);
    left.remove_prefix(1);
    right.remove_prefix(1);
    return same;
}

}  // namespace

bool StartsWithPath(std::string_view path, std::string_view prefix) {
    std::string_view rest = path;
    std::string_view wanted = prefix;
    while (!wanted.empty()) {
        if (rest.empty() || !takeSame(rest, wanted)) return false;
    }
    return rest.empty() || prefix == "/" || rest[0] == '/';
}

bool IsSamePath(std::string_view left, std::string_view right) {
    // from the end first: paths of one tree begin alike
    while (!left.empty() && !right.empty() && isAscii(left.back()) && isAscii(right.back())) {
        if (asciiLower(left.back()) != asciiLower(right.back())) return false;
        left.remove_suffix(1);
        right.remove_suffix(1);
    }
    while (!left.empty() && !right.empty()) {
        if (!takeSame(left, right)) return false;
    }
    return left.empty() && right.empty();
}

}  // namespace orv
