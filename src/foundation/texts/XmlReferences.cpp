#include "foundation/texts/XmlReferences.h"

#include <array>
#include <charconv>
#include <utf8proc.h>

#include "foundation/texts/Utf8.h"

namespace quelm {

namespace {

struct NamedReference {
    std::string_view name;
    char character;
};

// XML 1.0, section 4.6
constexpr std::array<NamedReference, 5> namedReferences = {
    {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}}};

/// "#38" or "#x26", between "&" and ";"
bool appendCharacterReference(std::string_view reference, std::string& out) {
    reference.remove_prefix(1);
    const bool hex = reference.starts_with('x');
    if (hex) reference.remove_prefix(1);
    utf8proc_int32_t character = -1;
    const char* end = reference.data() + reference.size();
    const auto [stop, error] = std::from_chars(reference.data(), end, character, hex ? 16 : 10);
    if (error != std::errc() || stop != end || !utf8proc_codepoint_valid(character)) return false;
    std::array<utf8proc_uint8_t, 4> encoded;
    const auto length = static_cast<std::size_t>(utf8proc_encode_char(character, encoded.data()));
    const std::string_view text(reinterpret_cast<const char*>(encoded.data()), length);
    out += text;
    return IsXmlText(text);
}

}  // namespace

bool AppendXmlReference(std::string_view reference, std::string& out) {
    if (reference.starts_with('#')) return appendCharacterReference(reference, out);
    for (const auto& [name, character] : namedReferences) {
        if (reference != name) continue;
        out += character;
        return true;
    }
    return false;
}

}  // namespace quelm
