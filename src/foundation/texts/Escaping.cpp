#include "foundation/texts/Escaping.h"

#include <array>
#include <optional>

#include "foundation/texts/ByteScan.h"
#include "foundation/texts/Utf8.h"

namespace quelm {

namespace {

struct Entity {
    char character;
    std::string_view text;
};

constexpr std::array<Entity, 5> entities = {{
    {'"', "&quot;"},
    {'&', "&amp;"},
    {'\'', "&apos;"},
    {'<', "&lt;"},
    {'>', "&gt;"},
}};

// '&' and '\'', '<' and '>' differ in one bit; bytes of other scripts are negative.
constexpr auto isSpecial = [](auto c) {
    return (c < 0) | (c == '"') | ((c | 1) == '\'') | ((c | 2) == '>');
};
constexpr auto isSpecialOrControl = [](auto c) {
    return (c < 33) | (c == '"') | (c == '%') | ((c | 1) == '\'') | ((c | 2) == '>');
};
// takes "!", "#", "$", "=" and "?" along, in half the tests
constexpr auto maybeSpecialOrControl = [](auto c) { return (c < '(') | ((c & 0x7C) == '<'); };

void appendHex(std::string& out, unsigned char byte, bool padded) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    out += '%';
    if (padded || byte >= 16) out += digits[byte >> 4U];
    out += digits[byte & 15U];
    out += ';';
}

void appendSpecial(std::string& out, char c) {
    for (const auto& [character, text] : entities) {
        if (c == character) {
            out += text;
            return;
        }
    }
    appendHex(out, static_cast<unsigned char>(c), false);
}

void appendInvalidRest(std::string& out, std::string_view rest) {
    for (const char c : rest) {
        if (static_cast<signed char>(c) < 0) {
            appendHex(out, static_cast<unsigned char>(c), true);
        } else {
            out += c;
        }
    }
}

std::string escape(std::string_view text, auto isSuspect, auto isEscaped) {
    std::string out;
    out.reserve(text.size() + text.size() / 16);
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t stop = FindByte(text, pos, isSuspect, isEscaped);
        out.append(text, pos, stop - pos);
        pos = stop;
        if (pos == text.size()) break;
        if (static_cast<signed char>(text[pos]) >= 0) {
            appendSpecial(out, text[pos++]);
            continue;
        }
        const std::size_t length = DecodeCharFromUtf8String(text.substr(pos));
        if (length == 0) {
            appendInvalidRest(out, text.substr(pos));
            break;
        }
        out.append(text, pos, length);
        pos += length;
    }
    return out;
}

struct Replacement {
    std::size_t length;
    char character;
};

std::optional<Replacement> entityAt(std::string_view text) {
    for (const auto& [character, entity] : entities) {
        if (text.starts_with(entity)) return Replacement{entity.size(), character};
    }
    return std::nullopt;
}

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

constexpr unsigned largestByte = 255;

/// The length of the "%HEX;" that the text begins with and its value, which stops growing once it
/// is no byte; none when there is no such pattern.
struct Escape {
    std::size_t length;
    unsigned value;
};
std::optional<Escape> escapeAt(std::string_view text) {
    unsigned value = 0;
    std::size_t pos = 1;
    for (; pos < text.size() && hexDigit(text[pos]) >= 0; ++pos) {
        if (value <= largestByte) value = value * 16 + static_cast<unsigned>(hexDigit(text[pos]));
    }
    if (pos == 1 || pos == text.size() || text[pos] != ';') return std::nullopt;
    return Escape{pos + 1, value};
}

constexpr auto beginsReplacement = [](auto c) { return (c == '&') | (c == '%'); };

}  // namespace

std::string EscapeString(std::string_view text, bool escapeControls) {
    return escapeControls ? escape(text, maybeSpecialOrControl, isSpecialOrControl)
                          : escape(text, isSpecial, isSpecial);
}

std::string EscapeString(std::string_view text) {
    return EscapeString(text, true);
}
std::string EscapeXmlString(std::string_view text) {
    return EscapeString(text, true);
}

std::string UnescapeString(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t pos = 0; pos < text.size();) {
        const std::size_t stop = FindByte(text, pos, beginsReplacement);
        out.append(text, pos, stop - pos);
        pos = stop;
        if (pos == text.size()) break;
        Replacement replacement{1, text[pos]};
        if (text[pos] == '&') {
            replacement = entityAt(text.substr(pos)).value_or(replacement);
        } else if (const auto escaped = escapeAt(text.substr(pos))) {
            if (escaped->value > largestByte) return std::string(text);
            replacement = {escaped->length, static_cast<char>(escaped->value)};
        }
        out += replacement.character;
        pos += replacement.length;
    }
    return out;
}

}  // namespace quelm
